#!/usr/bin/python3
"""Works with the program as a screen reader does: finds controls by role and name alone, asks them to do what they offer and
reads what they say. Signs in, enters a movement, reads the day, closes it and reads the page of a report.
    spoken_tour.py USER PASSWORD"""
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

PATIENCE = 60  # seconds


def fail(why):
    sys.exit(f"spoken: {why}")


def say(what):
    print(f"spoken: {what}", flush=True)


def wait_for(what, ask):
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        try:
            if answer := ask():
                return answer
        except GLib.Error:  # what was being read has just gone
            pass
        time.sleep(0.05)
    fail(f"έληξε ο χρόνος: {what}")


def controls():
    """Every control of every program, as it is now."""
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)
    waiting = [desktop]
    while waiting:
        control = waiting.pop()
        yield control
        children = [control.get_child_at_index(place) for place in range(control.get_child_count())]
        waiting.extend(child for child in reversed(children) if child is not None)


def shown(role, is_named):
    for control in controls():
        if control.get_role_name() == role and is_named(control.get_name().strip()):
            if control.get_state_set().contains(Atspi.StateType.SHOWING):
                return control
    return None


def the(role, name):
    return wait_for(f"{role} «{name}»", lambda: shown(role, lambda found: found == name))


def do(control, action):
    offered = [control.get_action_name(place) for place in range(control.get_n_actions())]
    if action not in offered:
        fail(f"«{control.get_name()}» δεν προσφέρει {action}")
    control.do_action(offered.index(action))


def press(name, role="push button"):
    do(the(role, name), "Press")


def write(name, text, role="text"):
    field = the(role, name)
    do(field, "SetFocus")
    wait_for(f"πληκτρολόγιο στο «{name}»", lambda: field.get_state_set().contains(Atspi.StateType.FOCUSED))
    field.get_editable_text_iface().set_text_contents(text)


def text_of(control):
    return Atspi.Text.get_text(control, 0, Atspi.Text.get_character_count(control))


def figure(caption):
    """What the label says that a caption belongs to."""
    for relation in the("label", caption).get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABEL_FOR:
            return relation.get_target(0).get_name()
    return fail(f"το «{caption}» δεν λέει σε τι ανήκει")


def give_keyboard(title):
    """As a window manager does, which this display has none of."""
    command = ["xdotool", "search", "--onlyvisible", "--name", title, "windowfocus"]
    wait_for(f"παράθυρο {title}", lambda: subprocess.run(command, capture_output=True).returncode == 0)


def sign_in(user, password):
    give_keyboard("Δώστε κωδικό πρόσβασης")
    write("Χρήστης", user)
    write("Κωδικός", password, "password text")
    press("Σύνδεση")
    the("frame", "Lorvan")
    give_keyboard("^Lorvan")
    say("είσοδος")


def enter_movement():
    write("Κωδικός", "100")
    write("Περιγραφή", "ΠΩΛΗΣΗ ΣΕ ΠΕΡΙΠΤΕΡΟ")
    write("Εσοδα", "123,45")
    press("Εισαγωγή")


def read_day():
    line = wait_for("η κίνηση στην ημέρα", lambda: shown("list item", lambda name: "ΠΩΛΗΣΗ ΣΕ ΠΕΡΙΠΤΕΡΟ" in name))
    say(line.get_name().replace("\n", " · "))
    if "123,45" not in line.get_name() or figure("Σύνολο Εσόδων") != "123,45":
        fail("η ημέρα δεν λέει το ποσό")
    say(f"Υπόλοιπο ταμείου {figure('Υπόλοιπο ταμείου')}")


def close_day():
    press("Κλείσιμο ταμείου")
    the("label", "Να κλείσω το ταμείο;")
    press("ΟΚ")
    notice = wait_for("η ημέρα που έκλεισε", lambda: shown("label", lambda name: "έκλεισε, κωδικός ελέγχου" in name))
    say(notice.get_name())


def read_report():
    press("Εκτυπώσεις", "page tab")
    report = wait_for("η εκτύπωση", lambda: shown("list item", lambda name: name.endswith("Ταμείο ημέρας")))
    if not report.get_state_set().contains(Atspi.StateType.SELECTED):
        do(report, "Toggle")
    press("Εκτύπωση")
    page = wait_for("η σελίδα", lambda: shown("document frame", bool))
    text = wait_for("το κείμενο της σελίδας", lambda: text_of(page))
    for line in text.splitlines():
        say(line)
    if "ΠΩΛΗΣΗ ΣΕ ΠΕΡΙΠΤΕΡΟ" not in text or "123,45" not in text:
        fail("η σελίδα δεν έχει την κίνηση")


if __name__ == "__main__":
    warnings.simplefilter("ignore", DeprecationWarning)
    Atspi.init()
    sign_in(*sys.argv[1:])
    enter_movement()
    read_day()
    close_day()
    read_report()
    say("τέλος, όλα σωστά")
