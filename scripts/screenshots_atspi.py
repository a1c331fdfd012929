#!/usr/bin/python3
"""What scripts/screenshots.sh asks of the running program over AT-SPI.

The program is driven with keys and the mouse through the X server (xdotool);
this helper only reads what is on view, as a screen reader does, so that the
driving script can wait for a screen to reach a state and find where a menu
entry is. Every command exits 1 with a message when it does not succeed in time.

  attendi ROLE PREFIX        wait until something on view has this role ("*": any) and a name starting with PREFIX
  assente ROLE PREFIX        wait until nothing on view has them
  centro ROLE PREFIX         print "X Y", the screen centre of that object (for a mouse click)
  fuoco                      print the name of the control (key, option) that has the focus
  fuoco-su PREFIX            wait until the key that has the focus has a name starting with PREFIX
  risposta                   print the right answer of the number item on view, as the pupil types it

The time limit is ATTESA seconds (default 20); APP is the name the program has on the
bus (default composizione).
"""
import os
import sys
import time
from decimal import Decimal

import pyatspi

APP = os.environ.get("APP", "composizione")
ATTESA = float(os.environ.get("ATTESA", "20"))


def fallisci(msg):
    print("screenshots_atspi: " + msg, file=sys.stderr)
    sys.exit(1)


def attendi_che(cond, cosa):
    fine = time.time() + ATTESA
    while time.time() < fine:
        try:
            v = cond()
        except Exception:  # the tree changes while it is walked
            v = None
        if v:
            return v
        time.sleep(0.1)
    fallisci(f"timed out after {ATTESA:.0f} s waiting for {cosa}")


def applicazione():
    for a in pyatspi.Registry.getDesktop(0):
        if a is not None and a.name == APP:
            return a
    return None


def visibile(o):
    try:
        return o.getState().contains(pyatspi.STATE_SHOWING)
    except Exception:
        return False


def nodi(o):
    if not visibile(o):
        return
    yield o
    for c in o:
        if c is not None:
            yield from nodi(c)


def tutti():
    app = applicazione()
    if app is None:
        return
    for f in app:
        if f is not None:
            yield from nodi(f)


def cerca(ruolo, prefisso):
    """ROLE "*" matches any role; names are compared without their outer blanks."""
    for o in tutti():
        if (ruolo == "*" or o.getRoleName() == ruolo) and o.name.strip().startswith(prefisso):
            return o
    return None


CONTROLLI = {"push button", "radio button", "check box", "combo box"}


def fuoco():
    for o in tutti():
        if o.getRoleName() in CONTROLLI and o.getState().contains(pyatspi.STATE_FOCUSED):
            return o
    return None


# The first topic, the one a fresh settings folder starts on.
VALORE = {"u": Decimal(1), "d": Decimal("0.1"), "c": Decimal("0.01"), "m": Decimal("0.001")}


def risposta():
    domanda = cerca("label", "domanda:")
    simbolo = cerca("label", "simbolo:")
    if domanda is None or simbolo is None:
        return None
    parti = domanda.name.split(":", 1)[1].split()
    unita = simbolo.name.split(":", 1)[1].strip()
    if len(parti) % 2 or unita not in VALORE or any(s not in VALORE for s in parti[1::2]):
        fallisci(f"not an item of the first topic: {domanda.name!r} in {unita!r}")
    totale = sum(Decimal(n) * VALORE[s] for n, s in zip(parti[0::2], parti[1::2]))
    intero, _, decimali = format((totale / VALORE[unita]).normalize(), "f").partition(".")
    testo = f"{int(intero):,}".replace(",", ".")
    return testo + "," + decimali if decimali else testo


def main(argv):
    if not argv:
        fallisci(__doc__)
    comando, argomenti = argv[0], argv[1:]
    attendi_che(applicazione, f"the program {APP!r} on the accessibility bus")
    if comando == "attendi" and len(argomenti) == 2:
        attendi_che(lambda: cerca(*argomenti), f"a {argomenti[0]} named {argomenti[1]!r}...")
    elif comando == "assente" and len(argomenti) == 2:
        attendi_che(lambda: cerca(*argomenti) is None, f"no {argomenti[0]} named {argomenti[1]!r}... on view")
    elif comando == "centro" and len(argomenti) == 2:
        o = attendi_che(lambda: cerca(*argomenti), f"a {argomenti[0]} named {argomenti[1]!r}...")
        e = o.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        print(e.x + e.width // 2, e.y + e.height // 2)
    elif comando == "fuoco" and not argomenti:
        print(attendi_che(fuoco, "a key with the focus").name)
    elif comando == "fuoco-su" and len(argomenti) == 1:
        attendi_che(lambda: (f := fuoco()) is not None and f.name.strip().startswith(argomenti[0]),
                    f"the focus on a key named {argomenti[0]!r}...")
    elif comando == "risposta" and not argomenti:
        print(attendi_che(risposta, "a number item on view"))
    else:
        fallisci(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
