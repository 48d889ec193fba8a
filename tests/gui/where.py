"""where.py BUTTON: the middle of the button of that name on the screen, as the accessibility bus knows it."""

import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 20  # seconds; the machine may be slow


def buttons(root):
    try:
        for i in range(root.get_child_count()):
            child = root.get_child_at_index(i)
            if child is None:
                continue
            if child.get_role() == Atspi.Role.PUSH_BUTTON:
                yield child
            yield from buttons(child)
    except GLib.Error:
        return


def main(name):
    Atspi.init()
    Atspi.set_timeout(5000, 0)
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        for button in buttons(Atspi.get_desktop(0)):
            if button.get_name() == name and button.get_state_set().contains(Atspi.StateType.SHOWING):
                place = Atspi.Component.get_extents(button, Atspi.CoordType.SCREEN)
                print(place.x + place.width // 2, place.y + place.height // 2)
                return
        time.sleep(0.1)
    sys.exit(f"There is no button called {name!r}.")


main(sys.argv[1])
