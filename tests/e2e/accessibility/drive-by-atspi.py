#!/usr/bin/python3
"""Saves, re-encodes and removes a video through the accessibility interface alone, as a screen
reader's user does. Usage: drive-by-atspi.py ADDRESS DOWNLOADS-FOLDER; the program runs already."""

import pathlib
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE_SECONDS = 60
RETURN_KEYSYM = 0xFF0D


def widgets(parent):
    """All that is shown below an object."""
    for number in range(parent.get_child_count()):
        child = parent.get_child_at_index(number)
        if child is None:
            continue
        if child.get_state_set().contains(Atspi.StateType.SHOWING):
            yield child
            yield from widgets(child)


def find(role, name):
    for application in widgets_of_desktop():
        for widget in widgets(application):
            if widget.get_role_name() == role and widget.get_name().startswith(name):
                return widget
    return None


def widgets_of_desktop():
    desktop = Atspi.get_desktop(0)
    for number in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(number)
        if application is not None and application.get_name() == "Clipwren":
            yield application


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE_SECONDS
    while time.monotonic() < end:
        try:
            if result := condition():
                print(what, flush=True)
                return result
        except gi.repository.GLib.Error:
            pass  # it went away meanwhile
        time.sleep(0.1)
    sys.exit(f"Waited in vain: {what}")


def await_widget(role, name):
    return wait_for(f"{role} {name!r} is shown", lambda: find(role, name))


def act(widget, action):
    names = [Atspi.Action.get_action_name(widget, i) for i in range(widget.get_n_actions())]
    if action not in names:
        sys.exit(f"{widget.get_name()!r} has no action {action!r}, but {names}")
    Atspi.Action.do_action(widget, names.index(action))


def main():
    address, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    await_widget("frame", "New Download")
    field = await_widget("text", "Video address")
    act(field, "SetFocus")
    Atspi.EditableText.set_text_contents(field, address)
    Atspi.generate_keyboard_event(RETURN_KEYSYM, None, Atspi.KeySynthType.SYM)
    act(await_widget("push button", "Continue"), "Press")
    act(await_widget("push button", "Download"), "Press")

    title = "Building a tide clock"
    row = await_widget("list item", title)
    wait_for("it is selected", lambda: row.get_state_set().contains(Atspi.StateType.SELECTED))
    wait_for("the file is there", lambda: list(folder.glob("Building*.mp4")))
    act(await_widget("list item", title), "Make QuickTime-compatible (re-encode)")
    wait_for("the re-encoded file is there", lambda: list(folder.glob("Building* — QT.mp4")))
    await_widget("label", "Plays in QuickTime")
    act(await_widget("list item", title), "Remove from List")
    await_widget("label", "No downloads yet")
    act(await_widget("push button", "New Download"), "Press")
    print("1 passed, 0 failed")


main()
