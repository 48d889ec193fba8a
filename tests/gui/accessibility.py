"""Does a single calculation through the accessibility bus: finds everything by its role and name, writes into
the inputs, presses the buttons and reads the results. For accessibility.sh."""

import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 20  # seconds; the machine may be slow
INPUTS = (
    Atspi.Role.PUSH_BUTTON,
    Atspi.Role.RADIO_BUTTON,
    Atspi.Role.COMBO_BOX,
    Atspi.Role.TEXT,
    Atspi.Role.LIST,
)


def things(root):
    """All that stands in `root` and is on the screen. What is on its way out is passed over."""
    try:
        for i in range(root.get_child_count()):
            child = root.get_child_at_index(i)
            if child is None:
                continue
            yield child
            yield from things(child)
    except GLib.Error:
        return


def shown(thing):
    return thing.get_state_set().contains(Atspi.StateType.SHOWING)


def find(root, role, name, described=False):
    """The thing of this role and name, as soon as it is there; `described`: the one that has a description."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        for thing in things(root):
            if thing.get_role() != role or thing.get_name() != name:
                continue
            if not described or thing.get_description():
                return thing
        time.sleep(0.1)
    sys.exit(f"There is no {role.value_nick} called {name!r}.")


def becomes(what, wanted, read):
    end = time.monotonic() + PATIENCE
    while (got := read()) != wanted:
        if time.monotonic() > end:
            sys.exit(f"{what}: wanted {wanted!r}, got {got!r}")
        time.sleep(0.1)
    print(f"ok: {what} is {wanted!r}")


def press(thing, action):
    for i in range(thing.get_n_actions()):
        if Atspi.Action.get_action_name(thing, i) == action:
            Atspi.Action.do_action(thing, i)
            return
    sys.exit(f"{thing.get_name()!r} has no action {action!r}.")


def text_of(thing):
    return Atspi.Text.get_text(thing, 0, thing.get_character_count())


def write(thing, text):
    """As somebody does who has been led to the input."""
    thing.grab_focus()
    becomes(
        f"the keyboard in {thing.get_name()!r}",
        True,
        lambda: thing.get_state_set().contains(Atspi.StateType.FOCUSED),
    )
    thing.set_text_contents(text)
    becomes(f"{thing.get_name()!r}", text, lambda: text_of(thing))


def key(symbol):
    Atspi.generate_keyboard_event(symbol, None, Atspi.KeySynthType.SYM)


def main():
    Atspi.init()
    Atspi.set_timeout(5000, 0)
    desktop = Atspi.get_desktop(0)
    program = find(desktop, Atspi.Role.APPLICATION, "velta")
    program.set_cache_mask(Atspi.Cache.NONE)
    press(find(program, Atspi.Role.MENU_ITEM, "Jednotlivý výpočet"), "Press")
    window = find(program, Atspi.Role.FRAME, "Jednotlivý výpočet")

    nameless = [
        t.get_role_name() for t in things(window) if t.get_role() in INPUTS and shown(t) and not t.get_name()
    ]
    if nameless:
        sys.exit(f"Without a name: {nameless}")

    write(find(window, Atspi.Role.TEXT, "Zadejte datum splatnosti faktury"), "10.3.05")
    write(find(window, Atspi.Role.TEXT, "Zadejte datum zaplacení faktury"), "20.6.2005")
    amount = find(window, Atspi.Role.TEXT, "Dlužná částka")
    write(amount, "10 000,-")

    kind = find(window, Atspi.Role.COMBO_BOX, "Druh sazby")
    becomes("what is chosen", "% ročně", kind.get_description)
    write(find(window, Atspi.Role.TEXT, "Výše sazby"), "10")

    def result(name):
        return find(window, Atspi.Role.LABEL, name, described=True).get_description()

    # 10 000 x 10 % x 102 / 365 = 279,452..., rounded up to whole tens of haléř.
    becomes("the days", "102", lambda: result("Trvání dluhu ve dnech"))
    becomes("the interest", "279,50 Kč", lambda: result("Penále za zadané období"))
    becomes("the sum", "10 279,50 Kč", lambda: result("Penále + dlužná částka"))

    kind.grab_focus()
    for _ in range(3):  # from "% ročně" to "Dle Diskontní sazby ČNB"
        key(0xFF54)  # Down
    becomes("what is chosen", "Dle Diskontní sazby ČNB", kind.get_description)
    becomes("the interest", "69,90 Kč", lambda: result("Penále za zadané období"))
    report = text_of(find(window, Atspi.Role.TEXT, "Podklady pro výpočet"))
    if "Úroková sazba:\t2,5 %" not in report:
        sys.exit(f"The report: {report!r}")
    print("ok: the report")
    hint = find(program, Atspi.Role.LABEL, "Stavový řádek", described=True)
    becomes("the hint", "Vybraná sazba : Dle Diskontní sazby ČNB", hint.get_description)
    # The script that called looks at what is on the clipboard.
    press(find(program, Atspi.Role.MENU_ITEM, "Kopírovat výpočet do schránky"), "Press")


main()
