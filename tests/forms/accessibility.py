#!/usr/bin/python3
"""accessibility.py PROGRAM SAMPLES: what a screen reader finds in the main window. Run on a session bus
of its own: dbus-run-session -- accessibility.py PROGRAM SAMPLES"""
import os
import subprocess
import sys
import tempfile
import time

import pyatspi

program, samples = sys.argv[1:]
home = tempfile.mkdtemp()
environment = dict(os.environ, XDG_DATA_HOME=home, XDG_CONFIG_HOME=home, XDG_RUNTIME_DIR=home,
                   XDG_CURRENT_DESKTOP="", GDK_BACKEND="x11")
environment.pop("NO_AT_BRIDGE", None)
pictures = sorted(os.path.join(samples, name) for name in os.listdir(samples)
                  if name.endswith((".jpg", ".bmp")))
titles = [os.path.splitext(os.path.basename(picture))[0] for picture in pictures]


def descend(node):
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from descend(child)


def wait_for(what, look, seconds=20):
    end = time.time() + seconds
    while time.time() < end:
        try:
            found = look()
            if found:
                return found
        except Exception as error:  # the tree changes while it is walked
            last = error
        time.sleep(0.2)
    sys.exit(f"waited in vain for {what}")


def window():
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        application = desktop.getChildAtIndex(i)
        if application is not None and application.name == "murala" and application.childCount > 0:
            return application.getChildAtIndex(0)
    return None


def table():
    tables = [node for node in descend(window())
              if node.getRole() in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE)]
    return tables[0] if tables else None


def row_is_there():
    rows = table().queryTable()
    return rows.nRows == len(titles) and rows


failed = []


def expect(what, is_so):
    print(("ok      " if is_so else "FAILED  ") + what)
    if not is_so:
        failed.append(what)


def look_at_nothing():
    def first_button():
        return [node for node in descend(window()) if node.name == "Add Pictures..."]
    button = wait_for("the first button", first_button)[0]
    wait_for("its focus", lambda: button.getState().contains(pyatspi.STATE_FOCUSED))
    names = " ".join(node.name.replace("\n", " ") for node in descend(window()))
    for text in ("Add Sample Pictures", "There are no wallpapers yet", "Drag pictures (JPEG or BMP) here"):
        expect(f"read of an empty library: {text!r}", text in names)


def look_at_list():
    rows = wait_for("the rows", row_is_there)
    shown = [rows.getAccessibleAt(row, 0).name for row in range(rows.nRows)]
    expect(f"titles {titles}", shown == titles)
    expect("file names in the second column",
           rows.getAccessibleAt(0, 1).name == os.path.basename(pictures[0]))
    expect("the table has a name", table().name == "Wallpapers")
    expect("the tabs have a name", all(node.name for node in descend(window())
                                       if node.getRole() == pyatspi.ROLE_PAGE_TAB_LIST))
    expect("the last row is selected", rows.isRowSelected(len(titles) - 1))
    expect("the headers", [rows.getColumnDescription(i) or rows.getColumnHeader(i).name
                           for i in range(2)] == ["Title", "Filename"])
    names = {node.name for node in descend(window())}
    for name in ("Tint style", "Effect", "Apply", "Next", "Previous", "Desktop", "Tint",
                 "Start Tint: Red", "End Tint: Red", "End Tint: All Colours"):
        expect(f"a control named {name!r}", name in names)


def look_at_thumbnails():
    def focused():
        return [node for node in descend(window()) if "1 of" in (node.description or "")]
    item = wait_for("the focused thumbnail", focused)[0]
    expect("the focused thumbnail's title", item.name == titles[0])
    expect("its state", item.description.startswith("selected"))


def with_murala(arguments, look):
    murala = subprocess.Popen([program] + arguments, env=environment)
    try:
        wait_for("the window", window)
        look()
    finally:
        murala.terminate()
        murala.wait(10)


with_murala([], look_at_nothing)
with_murala(pictures, look_at_list)
settings = os.path.join(home, "murala", "Murala.ini")
with open(settings, encoding="utf-8", newline="") as file:
    text = file.read()
with open(settings, "w", encoding="utf-8", newline="") as file:
    file.write(text.replace("ViewMode=0", "ViewMode=1"))
with_murala([], look_at_thumbnails)
sys.exit(1 if failed else 0)
