"""Notes in three scripts: written, found, taken back, copied, kept, deleted."""

import json
import signal

import scenario

ENGLISH, ARABIC, HEBREW = "Packing list", "قائمة السفر", "רשימת נסיעה"


class Notes(scenario.Scenario):
    def paragraphs(self, app):
        return [item for item in app.shown() if item.role == "text" and item.name.startswith("Paragraph")]

    def write(self, app, index, text):
        """Puts the focus into a paragraph and pastes, as a keyboard of that script would type."""
        app.click(self.wait_for(lambda: self.paragraphs(app)[index:], f"paragraph {index + 1}")[0])
        self.wait_for(lambda: self.paragraphs(app)[index].has("focused"), "the focus in the paragraph")
        app.paste(text)
        self.wait_for(lambda: self.paragraphs(app)[index].text == text, f"“{text}” in the paragraph")

    def stored(self):
        """The paragraphs of every note in the database, newest first."""
        with self.database() as file:
            rows = file.execute("SELECT blocks FROM notes ORDER BY updated_at DESC, id DESC").fetchall()
        return [[block["text"] for block in json.loads(row[0])] for row in rows]

    def test_a_note_in_three_scripts(self):
        app = self.start()
        app.go("Notes")
        app.wait("No notes yet")
        app.click("New note")
        self.write(app, 0, ENGLISH)
        for index, text in enumerate([ARABIC, HEBREW], start=1):
            app.click("Add paragraph")
            self.write(app, index, text)
        everything = [[ENGLISH, ARABIC, HEBREW]]
        self.wait_for(lambda: self.stored() == everything, "the note in the database")

        for text in [ENGLISH, ARABIC, HEBREW]:
            app.click("Search notes", "text")
            app.key("ctrl+a")
            app.paste(text.split()[0])
            self.wait_for(lambda: len(self.paragraphs(app)) == 3, "the note found")
        app.key("ctrl+a")
        app.paste("nowhere")
        app.wait("No matches")
        app.key("ctrl+a", "BackSpace")
        app.wait_gone("No matches")

        app.click("Add paragraph")
        self.wait_for(lambda: len(self.paragraphs(app)) == 4, "four paragraphs")
        self.hears(lambda: app.click("Undo the last change to this note"), "Undone")
        self.wait_for(lambda: len(self.paragraphs(app)) == 3, "three paragraphs")
        self.hears(lambda: app.click("Copy note"), "Note copied")
        self.assertEqual(self.screen.clipboard(), "\n\n".join(everything[0]))
        app.kill()

        app = self.start()
        self.wait_for(lambda: [item.text for item in self.paragraphs(app)] == everything[0], "the note as it was")
        app.click("Delete")
        app.wait("Delete this note?")
        app.key("Escape")
        app.wait_gone("Delete this note?")
        self.assertEqual(self.stored(), everything)
        app.click("Delete")
        app.click("Delete Note")
        app.wait("No notes yet")
        self.assertEqual(self.stored(), [])

    def test_what_was_just_typed_is_never_lost(self):
        def leave_page(app):
            app.go("Calculator")

        def search(app):
            app.click("Search notes", "text")
            app.type("zzz")
            app.wait("No matches")

        def close(app):
            app.key("alt+F4")

        def quit_menu(app):
            app.key("ctrl+q")

        def terminate(app):
            app.process.send_signal(signal.SIGTERM)

        app = self.start()
        app.go("Notes")
        app.click("New note")
        for number, leave in enumerate([leave_page, search, close, quit_menu, terminate]):
            text = f"{leave.__name__} {number}"
            self.wait_for(lambda: self.paragraphs(app), "the paragraph")
            app.click(self.paragraphs(app)[0])
            self.wait_for(lambda: self.paragraphs(app)[0].has("focused"), "the focus in the paragraph")
            app.key("ctrl+a")
            app.type(text)
            leave(app)
            self.wait_for(lambda: self.stored() == [[text]], f"“{text}” in the database")
            if leave in (close, quit_menu, terminate):
                self.wait_for(lambda: app.process.poll() is not None, f"the end after {leave.__name__}")
                app = self.start()
            elif leave is search:
                app.key("ctrl+a", "BackSpace")
                app.wait_gone("No matches")
            else:
                app.go("Notes")


if __name__ == "__main__":
    scenario.main()
