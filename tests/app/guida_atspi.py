#!/usr/bin/python3
"""Drives the real program the way a screen-reader user with a keyboard does.

Keys go in through the X server (xdotool); what the program shows is read back
over AT-SPI, as a screen reader reads it. Checks that space steps through each
row of keys in order, as the keys' names on the bus tell, and that a whole
exercise (right answer included) can be done from the keyboard and heard.
Run inside a D-Bus session on an X display, with the program already started.
"""
import subprocess
import sys
import time
from decimal import Decimal

import pyatspi

APP = sys.argv[1] if len(sys.argv) > 1 else "composizione"
VALORE = {"u": Decimal(1), "d": Decimal("0.1"), "c": Decimal("0.01"), "m": Decimal("0.001")}


def fallisci(msg):
    sys.exit("FAIL: " + msg)


def attendi(cond, cosa, secondi=10.0):
    fine = time.time() + secondi
    while time.time() < fine:
        v = cond()
        if v:
            return v
        time.sleep(0.1)
    fallisci("timed out waiting for " + cosa)


def applicazione():
    return next((a for a in pyatspi.Registry.getDesktop(0) if a is not None and a.name == APP), None)


def nodi(o):
    """Every object on view under o, depth first (the order a reader walks)."""
    try:
        if not o.getState().contains(pyatspi.STATE_SHOWING):
            return
    except Exception:
        return
    yield o
    for c in o:
        if c is not None:
            yield from nodi(c)


def tutti():
    app = applicazione()
    return [n for f in (app or []) if f is not None for n in nodi(f)]


def per_nome(ruolo, prefisso, dove=None):
    return next((o for o in (nodi(dove) if dove else tutti()) if o.getRoleName() == ruolo and o.name.startswith(prefisso)), None)


def fuoco():
    return next((o for o in tutti() if o.getRoleName() == "push button" and o.getState().contains(pyatspi.STATE_FOCUSED)), None)


def tasti(*nomi):
    subprocess.run(["xdotool", "key", "--delay", "150", *nomi], check=True)
    time.sleep(0.15)


def controlla(pannello, dove):
    # Space from the first key visits the keys of the row in order and wraps.
    attesi = [c.name for c in pannello if c is not None and c.getRoleName() == "push button"
              and c.getState().contains(pyatspi.STATE_ENABLED) and c.getState().contains(pyatspi.STATE_SHOWING)]
    visti = [attendi(fuoco, "focus on " + dove).name]
    for _ in attesi:
        tasti("space")
        visti.append(attendi(fuoco, "focus").name)
    if visti != attesi + [attesi[0]]:
        fallisci(f"{dove}: space visited {visti}, expected {attesi + [attesi[0]]}")
    print(f"ok   {dove}: space steps {' > '.join(attesi)} and back")


def main():
    attendi(applicazione, "the program on the accessibility bus", 20)
    inizio = attendi(lambda: next((f for f in applicazione() if f is not None and f.getRoleName() == "frame"), None),
                     "the start screen")
    controlla(attendi(lambda: per_nome("panel", "Trova il", inizio), "the first row"), "start screen")

    tasti("Return", "Return", "Return")  # kind "numero", symbols in order, "Vai"
    domanda = attendi(lambda: per_nome("label", "domanda:"), "the exercise screen")
    esercizio = next(f for f in applicazione() if f is not None and per_nome("label", "domanda:", f))
    controlla(per_nome("panel", "tastierino", esercizio), "exercise screen, key pad")

    parti = domanda.name.split(":", 1)[1].split()
    simbolo = per_nome("label", "simbolo:").name.split(":", 1)[1].strip()
    totale = sum(Decimal(n) * VALORE[s] for n, s in zip(parti[0::2], parti[1::2])) / VALORE[simbolo]
    intero, _, decimali = format(totale.normalize(), "f").partition(".")
    # As the screen shows a number: thousands by dots, decimals after a comma.
    giusta = f"{int(intero):,}".replace(",", ".") + ("," + decimali if decimali else "")
    tasti(*intero, *(["comma", *decimali] if decimali else []))
    attendi(lambda: per_nome("label", "risposta: " + giusta), f"the typed answer {giusta} on screen")
    tasti("v", "Return")
    attendi(lambda: per_nome("label", "esito: Esatto"), "the right answer to be accepted")
    attendi(lambda: per_nome("label", "risposte esatte: 1"), "one right answer counted")
    print(f"ok   exercise: {giusta} typed, checked and counted")

    tasti("e", "Return")
    attendi(lambda: not per_nome("label", "domanda:"), "the exercise screen to close")
    # What a screen reader offers on a key: its action. "Esci" ends the program.
    azioni = next(o for o in nodi(inizio) if o.getRoleName() == "push button" and o.name == "Esci").queryAction()
    azioni.doAction(next(i for i in range(azioni.nActions) if azioni.getName(i) in ("Press", "press", "click")))
    attendi(lambda: applicazione() is None, "the program to end")
    print("ok   Esci closed the exercise, then ended the program")


if __name__ == "__main__":
    main()
