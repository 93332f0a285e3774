#!/usr/bin/python3
"""tray.py PROGRAM SAMPLES: the program's tray icon as a desktop uses it that draws the menu itself, and how
the program ends. Run on a session bus of its own: dbus-run-session -- tray.py PROGRAM SAMPLES"""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from gi.repository import Gio, GLib

program, samples = sys.argv[1:]
home = tempfile.mkdtemp()
folder = os.path.join(home, "murala")
environment = dict(os.environ, XDG_DATA_HOME=home, XDG_CONFIG_HOME=home, XDG_RUNTIME_DIR=home,
                   XDG_CURRENT_DESKTOP="", GDK_BACKEND="x11")
pictures = [shutil.copy(os.path.join(samples, name), home) for name in sorted(os.listdir(samples))
            if name.endswith((".jpg", ".bmp"))]
WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
</interface></node>"""
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
items = []
failed = []


def expect(what, is_so):
    print(("ok      " if is_so else "FAILED  ") + what, flush=True)
    if not is_so:
        failed.append(what)


def called(_bus, _sender, _path, _interface, _method, arguments, invocation):
    items.append(arguments.unpack()[0])
    invocation.return_value(None)


def pump(seconds):
    end = time.time() + seconds
    while time.time() < end:
        GLib.MainContext.default().iteration(False)
        time.sleep(0.01)


def wait_for(look, seconds=15):
    end = time.time() + seconds
    while time.time() < end:
        found = look()
        if found:
            return found
        pump(0.05)
    return None


def menu(method, arguments):
    return bus.call_sync(items[-1], "/MenuBar", "com.canonical.dbusmenu", method, arguments, None,
                         Gio.DBusCallFlags.NONE, 5000, None).unpack()


def click(label):
    _, (_, _, entries) = menu("GetLayout", GLib.Variant("(iias)", (0, 1, ["label"])))
    number = next(number for number, properties, _ in entries if properties.get("label") == label)
    menu("Event", GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("i", 0), 0)))


def has_window():
    search = ["xdotool", "search", "--onlyvisible", "--class", "murala"]
    return subprocess.run(search, capture_output=True, check=False).stdout != b""


def start(*arguments):
    items.clear()
    murala = subprocess.Popen([program, *arguments], env=environment, stderr=subprocess.PIPE)
    wait_for(lambda: items)
    pump(1)
    return murala


def ends(murala, seconds):
    try:
        return murala.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        murala.kill()
        murala.wait()
        return False


def show_at_start(shown):
    path = os.path.join(folder, "Murala.ini")
    with open(path, encoding="utf-8", newline="") as file:
        text = file.read()
    for state in "01":
        text = text.replace(f"WindowState={state}", f"WindowState={int(shown)}")
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)


def exit_by_menu():
    murala = start(*pictures)
    expect("the window is shown", has_window())
    click("E_xit")
    expect("Exit ends the program whose window is shown", ends(murala, 3))
    show_at_start(False)
    murala = start()
    expect("it starts hidden", not has_window())
    click("E_xit")
    expect("Exit ends the hidden program", ends(murala, 3))


def end_of_session(state, is_shown, entry):
    """A folder in the list's place lets no save come through, whoever the user is."""
    show_at_start(is_shown)
    murala = start()
    if entry:
        click(entry)
        expect(f"there is a window: {state}", wait_for(has_window))
    path = os.path.join(folder, "Murala.Wallpaper.List")
    os.rename(path, path + ".aside")
    os.mkdir(path)
    murala.send_signal(signal.SIGTERM)
    expect(f"the end of the session ends it: {state}", ends(murala, 3))
    reason = murala.stderr.read()
    expect(f"the reason is on stderr: {state}", b"could not be saved" in reason)
    os.rmdir(path)
    os.rename(path + ".aside", path)


node = Gio.DBusNodeInfo.new_for_xml(WATCHER)
bus.register_object("/StatusNotifierWatcher", node.interfaces[0], called,
                    lambda *_: GLib.Variant("b", True), None)
Gio.bus_own_name_on_connection(bus, "org.kde.StatusNotifierWatcher", Gio.BusNameOwnerFlags.NONE, None,
                               None)
exit_by_menu()
end_of_session("shown", True, None)
end_of_session("hidden", False, None)
end_of_session("the configuration is open", False, "_Configuration")
for picture in pictures:
    os.remove(picture)
end_of_session("a message is open", False, "_Next")
sys.exit(1 if failed else 0)
