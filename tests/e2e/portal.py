"""A stand-in for the desktop's settings portal that says one thing: does the person prefer dark or light.

Started with "dark" or "light"; each further such line on standard input changes the preference while programs run.
"""

import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name='org.freedesktop.portal.Settings'>
  <method name='Read'><arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='v' direction='out'/></method>
  <signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>
</interface></node>"""
NAME, PATH = "org.freedesktop.portal.Settings", "/org/freedesktop/portal/desktop"
NAMESPACE, KEY = "org.freedesktop.appearance", "color-scheme"


class Portal:
    def __init__(self, appearance):
        self.appearance = appearance
        self.connection = None
        Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop", 0, self.serve, self.say_ready, None)
        GLib.io_add_watch(GLib.IOChannel.unix_new(0), GLib.PRIORITY_DEFAULT, GLib.IOCondition.IN, self.change)

    def value(self):
        """1 prefers dark, 2 prefers light."""
        return GLib.Variant("u", 1 if self.appearance == "dark" else 2)

    def serve(self, connection, _name):
        self.connection = connection
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        connection.register_object(PATH, interface, self.answer, None, None)

    @staticmethod
    def say_ready(*_):
        print("ready", flush=True)

    def answer(self, _connection, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() == (NAMESPACE, KEY):
            # Read wraps its answer twice, as the real one does.
            invocation.return_value(GLib.Variant("(v)", [GLib.Variant("v", self.value())]))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "Requested setting not found")

    def change(self, *_):
        self.appearance = sys.stdin.readline().strip()
        content = GLib.Variant("(ssv)", [NAMESPACE, KEY, self.value()])
        self.connection.emit_signal(None, PATH, NAME, "SettingChanged", content)
        return bool(self.appearance)


if __name__ == "__main__":
    Portal(sys.argv[1])
    GLib.MainLoop().run()
