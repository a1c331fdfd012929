#!/usr/bin/python3
"""Drives the real program the way a screen-reader user with a keyboard does.

Keys go in through the X server (xdotool); what the program shows is read back
over AT-SPI, as a screen reader reads it. Checks that every key, label and menu
entry on view has a name, that space steps through each row of keys in order,
and that a whole exercise (right answer included) can be done from the keyboard.
Run inside a D-Bus session on an X display, with the program already started.
"""
import subprocess
import sys
import time
from decimal import Decimal

import pyatspi

APP = sys.argv[1] if len(sys.argv) > 1 else "composizione"
NOMINABILI = {"push button", "label", "menu item", "check box", "radio button", "text", "spin button", "combo box"}


def fallisci(msg):
    print("FAIL:", msg)
    sys.exit(1)


def attendi(cond, cosa, secondi=10.0):
    fine = time.time() + secondi
    while time.time() < fine:
        v = cond()
        if v:
            return v
        time.sleep(0.1)
    fallisci("timed out waiting for " + cosa)


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
    """Every object on view under o, depth first (the order a reader walks)."""
    if not visibile(o):
        return
    yield o
    for c in o:
        if c is not None:
            yield from nodi(c)


def testo(o):
    try:
        t = o.queryText()
        return t.getText(0, t.characterCount)
    except NotImplementedError:
        return ""


def finestre():
    app = applicazione()
    return [f for f in app if f is not None and visibile(f)] if app else []


def fuoco():
    for f in finestre():
        for o in nodi(f):
            if o.getState().contains(pyatspi.STATE_FOCUSED) and o.getRoleName() == "push button":
                return o
    return None


def tasti(*nomi):
    for n in nomi:
        subprocess.run(["xdotool", "key", "--delay", "40", n], check=True)
        time.sleep(0.15)


def controlla_nomi(finestra, dove):
    senza = []
    for o in nodi(finestra):
        ruolo = o.getRoleName()
        if ruolo in NOMINABILI and not o.name.strip():
            # An empty label says nothing, so it needs no name; anything shown does.
            if ruolo == "label" and not testo(o).strip():
                continue
            senza.append(f"{ruolo} showing {testo(o)!r}")
    if senza:
        fallisci(f"{dove}: controls without an accessible name: {senza}")
    print(f"ok   {dove}: every control on view has a name")


def controlla_scansione(pannello, dove):
    """Space from the first key visits the keys of the row in order and wraps."""
    chiavi = [c for c in pannello if c is not None and c.getRoleName() == "push button"
              and c.getState().contains(pyatspi.STATE_ENABLED) and visibile(c)]
    attesi = [c.name for c in chiavi]
    iniziale = attendi(fuoco, "focus on " + dove).name
    if iniziale != attesi[0]:
        fallisci(f"{dove}: focus starts on {iniziale!r}, not {attesi[0]!r}")
    visti = [iniziale]
    for _ in attesi:
        tasti("space")
        visti.append(attendi(fuoco, "focus").name)
    if visti != attesi + [attesi[0]]:
        fallisci(f"{dove}: space visited {visti}, expected {attesi + [attesi[0]]}")
    print(f"ok   {dove}: space steps {' > '.join(attesi)} and back")


def per_nome(finestra, ruolo, prefisso):
    for o in nodi(finestra):
        if o.getRoleName() == ruolo and o.name.startswith(prefisso):
            return o
    return None


VALORE = {"u": Decimal(1), "d": Decimal("0.1"), "c": Decimal("0.01"), "m": Decimal("0.001")}


def risposta_giusta(domanda, simbolo):
    parti = domanda.split()
    totale = sum(Decimal(n) * VALORE[s] for n, s in zip(parti[0::2], parti[1::2]))
    intero, _, decimali = format((totale / VALORE[simbolo]).normalize(), "f").partition(".")
    return intero, decimali


def italiano(intero, decimali):
    """How the screen shows a number: thousands by dots, decimals after a comma."""
    t = f"{int(intero):,}".replace(",", ".")
    return t + "," + decimali if decimali else t


def main():
    attendi(applicazione, "the program on the accessibility bus", 20)
    inizio = attendi(lambda: next((f for f in finestre() if f.getRoleName() == "frame"), None), "the start screen")
    print("ok   start screen on view:", inizio.name)
    controlla_nomi(inizio, "start screen")
    argomento = per_nome(inizio, "label", " unità")
    if argomento is None:
        fallisci("start screen: the first topic is not installed")
    righe = [o for o in nodi(inizio) if o.getRoleName() == "panel"]
    if not righe:
        fallisci("start screen: no row of keys")
    controlla_scansione(righe[0], "start screen, first row")

    # Kind "numero", symbols in order, then "Vai".
    tasti("Return", "Return", "Return")
    esercizio = attendi(lambda: next((f for f in finestre() if per_nome(f, "label", "domanda:")), None),
                        "the exercise screen")
    controlla_nomi(esercizio, "exercise screen")
    tastierino = per_nome(esercizio, "panel", "tastierino")
    controlla_scansione(tastierino, "exercise screen, key pad")

    domanda = per_nome(esercizio, "label", "domanda:").name.split(":", 1)[1]
    simbolo = per_nome(esercizio, "label", "simbolo:").name.split(":", 1)[1].strip()
    intero, decimali = risposta_giusta(domanda, simbolo)
    giusta = italiano(intero, decimali)
    print(f"     item {domanda.strip()!r} in {simbolo!r}: answering {giusta}")
    tasti(*intero, *(["comma", *decimali] if decimali else []))
    attendi(lambda: per_nome(esercizio, "label", "risposta: " + giusta), "the typed answer on screen")
    tasti("v", "Return")
    attendi(lambda: per_nome(esercizio, "label", "esito: Esatto"), "the right answer to be accepted")
    attendi(lambda: per_nome(esercizio, "label", "risposte esatte: 1"), "one right answer counted")
    print("ok   exercise: right answer typed, checked and counted")

    tasti("e", "Return")
    attendi(lambda: not any(per_nome(f, "label", "domanda:") for f in finestre()), "the exercise screen to close")
    print("ok   exercise screen closed with Esci")

    # What a screen reader offers on a key: its action. "Esci" ends the program.
    esci = next(o for o in nodi(inizio) if o.getRoleName() == "push button" and o.name == "Esci")
    azioni = esci.queryAction()
    azioni.doAction(next(i for i in range(azioni.nActions) if azioni.getName(i) in ("Press", "press", "click")))
    attendi(lambda: applicazione() is None, "the program to end")
    print("ok   Esci on the start screen ended the program")


if __name__ == "__main__":
    main()
