#include "app/pages/NoteEditorPane.h"
#include "app/pages/NotesView.h"
#include "app/pages/ParagraphColumn.h"
#include "app/pages/SelectableTextEditor.h"
#include "app/pages/TextBlockEditor.h"
#include "bench/Ratio.h"
#include "core/Sqlite.h"
#include "tests/app/support/TestModel.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace zelta;

constexpr double frame = 1000.0 / 60;

/// A model whose database holds so many notes of 1 kB.
test::TestModel& modelOf(int notes)
{
    static test::TestModel thousand;
    static test::TestModel hundredThousand;
    test::TestModel& model = notes == 1000 ? thousand : hundredThousand;
    if (model.model.store().notes("", 1).empty()) {
        auto file = sqlite::Connection::open(model.model.store().url().string());
        file.waitForLocks(1000);
        file.execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
            + std::to_string(notes)
            + "), t AS (SELECT i, 'note ' || i || '\\n' || replace(hex(zeroblob(85)), '00', 'some words, ') "
              "AS text FROM n) "
              "INSERT INTO notes (created_at, updated_at, blocks, search) "
              "SELECT 1.7e9 + i, 1.7e9 + i, '[{\"id\":\"' || printf('00000000-0000-4000-8000-%012X', i) || "
              "'\",\"text\":\"' || text || '\"}]', text FROM t;");
    }
    return model;
}

/// From nothing to the first picture.
template <int notes> void open(benchmark::State& state)
{
    test::TestModel& model = modelOf(notes);
    for (auto _ : state) {
        auto page = std::make_unique<NotesView>(model.model);
        page->resize(800, 640);
        page->show();
        benchmark::DoNotOptimize(page->grab(QRect(0, 0, 800, 640)));
        state.PauseTiming();
        page.reset();
        state.ResumeTiming();
    }
}

/// A page that was seen before.
void openAgain(benchmark::State& state)
{
    NotesView page(modelOf(1000).model);
    page.resize(800, 640);
    page.show();
    for (auto _ : state) {
        state.PauseTiming();
        page.hide();
        state.ResumeTiming();
        page.show();
        benchmark::DoNotOptimize(page.grab(QRect(0, 0, 800, 640)));
    }
}

std::string words(std::size_t size, std::size_t lineLength)
{
    std::string text;
    std::size_t line = 0;
    while (text.size() < size) {
        text += "lorem ipsum ";
        line += 12;
        if (line >= lineLength) {
            text += '\n';
            line = 0;
        }
    }
    return text;
}

enum class Place { begin, middle, end };

/// One key into a note of 1 MB, until the changed part of the window is painted.
void typeInto(benchmark::State& state, const std::vector<std::string>& paragraphs, Place place)
{
    test::TestModel model;
    std::vector<NoteBlock> blocks;
    for (const std::string& text : paragraphs)
        blocks.push_back({.text = text});
    model.model.store().createNote(Note(0, std::move(blocks), model.clock.now(), model.clock.now()));
    NotesView page(model.model);
    page.resize(800, 640);
    page.show();
    page.activateWindow();

    ParagraphColumn* column = page.pane()->paragraphs();
    column->focusParagraph(place == Place::end ? paragraphs.size() - 1 : 0);
    const auto rows = column->editors();
    SelectableTextEditor* editor = (place == Place::end ? rows.back() : rows.front())->editor();
    QTextCursor cursor = editor->textCursor();
    const int length = editor->document()->characterCount() - 1;
    cursor.setPosition(place == Place::begin ? 0 : place == Place::middle ? length / 2 : length);
    editor->setTextCursor(cursor);
    QCoreApplication::processEvents();

    int typed = 0;
    for (auto _ : state) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("x"));
        QCoreApplication::sendEvent(editor, &press);
        QCoreApplication::processEvents();
        if (++typed % 12 == 0) { // as long as a word, so that no line grows without end
            state.PauseTiming();
            for (int i = 0; i < 12; ++i)
                editor->textCursor().deletePreviousChar();
            QCoreApplication::processEvents();
            state.ResumeTiming();
        }
    }
}

constexpr std::size_t megabyte = 1'000'000;

template <Place place> void typeIntoOneLine(benchmark::State& state)
{
    typeInto(state, {words(megabyte, 2 * megabyte)}, place);
}

template <Place place> void typeIntoManyLines(benchmark::State& state)
{
    typeInto(state, {words(megabyte, 80)}, place);
}

template <Place place> void typeIntoManyParagraphs(benchmark::State& state)
{
    typeInto(state, std::vector<std::string>(1000, words(1000, 2000)), place);
}

BENCHMARK(open<1000>)->Name("notes-open-1000/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget openBudget("notes-open-1000", 6 * frame);
BENCHMARK(open<100'000>)->Name("notes-open-100000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(open<1000>)->Name("notes-open-100000/thousand")->Unit(benchmark::kMillisecond);
const bench::Budget scaleBudget("notes-open-100000", 1.2);
BENCHMARK(openAgain)->Name("notes-open-again/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget againBudget("notes-open-again", frame);

BENCHMARK(typeIntoOneLine<Place::begin>)
    ->Name("notes-key-one-line-begin/ours")
    ->Unit(benchmark::kMillisecond);
const bench::TimeBudget lineBegin("notes-key-one-line-begin", 2 * frame);
BENCHMARK(typeIntoOneLine<Place::middle>)
    ->Name("notes-key-one-line-middle/ours")
    ->Unit(benchmark::kMillisecond);
const bench::TimeBudget lineMiddle("notes-key-one-line-middle", 2 * frame);
BENCHMARK(typeIntoOneLine<Place::end>)->Name("notes-key-one-line-end/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget lineEnd("notes-key-one-line-end", 2 * frame);
BENCHMARK(typeIntoManyLines<Place::begin>)->Name("notes-key-many-lines/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget manyLines("notes-key-many-lines", 2 * frame);
BENCHMARK(typeIntoManyParagraphs<Place::begin>)
    ->Name("notes-key-paragraphs-begin/ours")
    ->Unit(benchmark::kMillisecond);
const bench::TimeBudget paragraphsBegin("notes-key-paragraphs-begin", 2 * frame);
BENCHMARK(typeIntoManyParagraphs<Place::end>)
    ->Name("notes-key-paragraphs-end/ours")
    ->Unit(benchmark::kMillisecond);
const bench::TimeBudget paragraphsEnd("notes-key-paragraphs-end", 2 * frame);

} // namespace
