#!/usr/bin/env bash
# Remakes every screenshot that docs/guida.md and README.md show, on a virtual
# screen of the given size, by using the program as a person does.
#
#   bash scripts/screenshots.sh [WIDTHxHEIGHT] [FOLDER]     (default 1280x800 docs/screenshots)
#
# The program is built (or brought up to date) first, then started in an empty
# scratch folder, so it starts as on a new machine: level 1, "1 cifra", no files.
# It runs under Xvfb with no window manager: every window opens at the top-left
# corner of the screen, without a title bar, and a window larger than the screen
# is cut at its edge, as the pictures then show. Keys go in with xdotool (space
# steps, Enter chooses, the digit and letter keys of each pad); the menu bars
# answer neither Alt nor F10, so their entries are clicked with the mouse. What
# is on view is read back over AT-SPI (scripts/screenshots_atspi.py) to wait for
# each screen and to find the menu entries. Every wait has a time limit
# (ATTESA seconds, default 20); a screen that does not appear stops the script
# with a message and no picture is left half made.
#
# Pictures: inizio.png, autore.png, opzioni.png, accesso.png, schede.png,
# esercizio.png, esercizio-aiuto.png, stampa-esercizio.png, risultati.png. The
# results screen shows the exercise done here after twelve earlier ones, which
# the folder gets from docs/screenshots/risultati-precedenti.csv.
set -euo pipefail

qui=$(cd "$(dirname "$0")" && pwd)
radice=$(cd "$qui/.." && pwd)

if [ "${1:-}" = "--dentro" ]; then
  dentro=1
  shift
else
  dentro=0
fi
misura=${1:-1280x800}
cartella=${2:-$radice/docs/screenshots}
[[ $misura =~ ^([0-9]+)x([0-9]+)$ ]] || { echo "screenshots: size must be WIDTHxHEIGHT, not '$misura'" >&2; exit 2; }
larghezza=${BASH_REMATCH[1]}
altezza=${BASH_REMATCH[2]}
export ATTESA=${ATTESA:-20}
programma=$radice/build/default/src/composizione

if [ $dentro -eq 0 ]; then
  # Tools, installed when missing (as root), as the other scripts do.
  mancanti=()
  for p in xvfb xauth imagemagick xdotool dbus at-spi2-core python3-pyatspi; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || mancanti+=("$p")
  done
  if [ ${#mancanti[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    echo "Installing: ${mancanti[*]}"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${mancanti[@]}" >/dev/null
  fi
  "$radice/scripts/deps.sh"
  # The program as the sources stand now; a failed build shows its own output.
  costruzione=$(mktemp)
  if ! { [ -f "$radice/build/default/build.ninja" ] || (cd "$radice" && nice -n 10 cmake --preset default); } \
      >"$costruzione" 2>&1 ||
    ! nice -n 10 cmake --build "$radice/build/default" --target composizione >>"$costruzione" 2>&1; then
    cat "$costruzione" >&2
    rm -f "$costruzione"
    echo "screenshots: FAIL: the program does not build" >&2
    exit 1
  fi
  rm -f "$costruzione"
  mkdir -p "$cartella"
  cartella=$(cd "$cartella" && pwd)
  # The D-Bus session and the accessibility bus announce themselves: those lines
  # are left out of what is shown.
  errori=$(mktemp)
  set +e
  xvfb-run -a -s "-screen 0 ${larghezza}x${altezza}x24 -nolisten tcp" \
    dbus-run-session -- bash "$0" --dentro "$misura" "$cartella" 2>"$errori" |
    { grep -v -e "SpiRegistry" || true; }
  stato=${PIPESTATUS[0]}
  grep -v -e "^dbus-daemon" -e "SpiRegistry" -e "Activating service" -e "Successfully activated" "$errori" >&2
  rm -f "$errori"
  exit "$stato"
fi

# ---- from here on: inside the virtual screen and its D-Bus session ----

lavoro=$(mktemp -d)
registro=$lavoro/programma.log
pid=""
finito=0
chiudi() {
  if [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null; then
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  fi
  if [ $finito -eq 0 ] && [ -s "$registro" ]; then
    echo "---- the program's output ----" >&2
    tail -n 30 "$registro" >&2
  fi
  rm -rf "$lavoro"
}
trap chiudi EXIT

fallisci() {
  echo "screenshots: FAIL at $misura: $*" >&2
  if [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null; then
    import -window root "$lavoro/fallito.png" 2>/dev/null &&
      cp "$lavoro/fallito.png" "$cartella/.fallito-$misura.png" &&
      echo "screenshots: the screen at that moment is in $cartella/.fallito-$misura.png" >&2
  fi
  exit 1
}

vivo() {
  kill -0 "$pid" 2>/dev/null || fallisci "the program has ended ($*)"
}

a11y() {
  /usr/bin/python3 "$qui/screenshots_atspi.py" "$@" || fallisci "$*"
}

# The id of the visible window whose title matches the pattern, once it is there.
finestra() {
  local id
  id=$(timeout "$ATTESA" xdotool search --sync --onlyvisible --name "$1" 2>/dev/null | tail -n 1) ||
    fallisci "no window titled /$1/ after $ATTESA s"
  [ -n "$id" ] || fallisci "no window titled /$1/"
  echo "$id"
}

# The id of a visible window matching the pattern other than the one given
# (the exercise screen has the start screen's title).
altra_finestra() {
  local id fine=$((SECONDS + ATTESA))
  while :; do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | grep -vx "$2" | tail -n 1) || true
    [ -n "$id" ] && break
    [ $SECONDS -lt $fine ] || fallisci "no second window titled /$1/ after $ATTESA s"
    sleep 0.1
  done
  echo "$id"
}

# Waits until no visible window has a title matching the pattern.
sparita() {
  local fine=$((SECONDS + ATTESA))
  while xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; do
    [ $SECONDS -lt $fine ] || fallisci "the window titled /$1/ is still there after $ATTESA s"
    sleep 0.1
  done
}

# Gives the keyboard to a window: with no window manager nobody else does when
# the window in front goes away.
tastiera_a() {
  timeout "$ATTESA" xdotool windowfocus --sync "$1" || fallisci "window $1 does not take the keyboard"
  sleep 0.2
}

tasti() {
  vivo "before keys $*"
  xdotool key --delay 120 "$@"
  sleep 0.2
}

# A click on the menu entry whose name starts with the given text; the mouse
# then goes to the screen's corner so that nothing is drawn as hovered.
menu() {
  local xy
  xy=$(a11y centro "menu item" "$1")
  xdotool mousemove $xy click 1
  sleep 0.2
  xdotool mousemove $((larghezza - 1)) $((altezza - 1))
}

# Key $3 (space or Tab) until the key named $1 has the focus (at most $2 presses).
fino_a() {
  local n=0 f
  while f=$(a11y fuoco) || exit 1; [ "$f" != "$1" ]; do
    [ $n -lt "$2" ] || fallisci "$3 did not reach the key '$1' in $2 presses (the focus is on '$f')"
    tasti "$3"
    n=$((n + 1))
  done
}

# The whole screen, once two looks 0.3 s apart agree (nothing left moving).
foto() {
  vivo "before $1"
  local prima="" ora fine=$((SECONDS + ATTESA))
  while :; do
    ora=$(import -window root rgb:- | md5sum)
    [ "$ora" = "$prima" ] && break
    [ $SECONDS -lt $fine ] || fallisci "the screen did not settle for $1"
    prima=$ora
    sleep 0.3
  done
  import -window root "$lavoro/$1"
  mv "$lavoro/$1" "$cartella/$1"
  echo "$cartella/$1"
}

# Types an answer on the keypad: digits and the comma go in directly.
scrivi() {
  local t=$1 c chiavi=()
  for ((i = 0; i < ${#t}; i++)); do
    c=${t:i:1}
    case $c in
      [0-9]) chiavi+=("$c") ;;
      ,) chiavi+=(comma) ;;
      .) ;; # the thousands dot is put in by the program
      *) fallisci "cannot type '$c'" ;;
    esac
  done
  tasti "${chiavi[@]}"
}

cd "$lavoro"
cp "$radice/docs/screenshots/risultati-precedenti.csv" composizioneRisultati.csv
rm -f "$cartella/.fallito-$misura.png"
QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$programma" >"$registro" 2>&1 &
pid=$!
xdotool mousemove $((larghezza - 1)) $((altezza - 1))

# Start screen, once the curtains have opened.
inizio=$(finestra ': composizione$')
a11y attendi "push button" "numero"
a11y assente "*" "tendina"
tastiera_a "$inizio"
foto inizio.png

# About box, from the menu; Enter closes it.
menu "Autore"
autore=$(finestra '^Autore$')
tastiera_a "$autore"
a11y attendi "push button" "Chiudi"
foto autore.png
tasti Return
sparita '^Autore$'
tastiera_a "$inizio"

# Options panel, from the menu; "E" and Enter leave it.
menu "Opzioni"
opzioni=$(finestra '^PANNELLO OPZIONI$')
tastiera_a "$opzioni"
a11y attendi "push button" "Impostazioni predefinite"
foto opzioni.png
tasti e Return
sparita '^PANNELLO OPZIONI$'
tastiera_a "$inizio"

# Access panel, from the menu; "E" and Enter leave it.
menu "Accesso"
accesso=$(finestra '^Accesso$')
tastiera_a "$accesso"
a11y attendi "push button" "Memorizza"
foto accesso.png
tasti e Return
sparita '^Accesso$'
tastiera_a "$inizio"

# An exercise: "numero", symbols in order, "Vai".
fino_a "numero" 3 space
tasti Return
a11y attendi "label" "Trova il numero"
tasti Return
a11y attendi "label" "Usa i simboli ordinati"
tasti Return
esercizio=$(altra_finestra ': composizione$' "$inizio")
a11y attendi "label" "domanda:"
foto esercizio.png

# A wrong answer: 0 is never right, since every count is at least 1.
tasti 0 v Return
a11y attendi "push button" "SI"
a11y attendi "label" "esito: Errato"
foto esercizio-aiuto.png

# "NO", a second wrong answer, then "SI": the program shows the answer.
tasti n Return
a11y attendi "label" "risposta: ?"
tasti 1 v Return
a11y attendi "push button" "SI"
tasti Return
a11y attendi "label" "risposta giusta:"
tasti Return

# Items 2 to 20: mostly right answers, some wrong first, so that the record
# shows every kind of line.
for n in $(seq 2 20); do
  a11y attendi "label" "esercizio numero: $n"
  giusta=$(a11y risposta)
  case $n in
    6 | 13)  # wrong, then the answer shown
      tasti 0 v Return
      a11y attendi "push button" "SI"
      tasti Return
      a11y attendi "label" "risposta giusta:"
      ;;
    9 | 17)  # wrong, "NO", then right
      tasti 0 v Return
      a11y attendi "push button" "NO"
      tasti n Return
      a11y attendi "label" "risposta: ?"
      scrivi "$giusta"
      tasti v Return
      a11y attendi "label" "esito: Esatto"
      ;;
    *)
      scrivi "$giusta"
      tasti v Return
      a11y attendi "label" "esito: Esatto"
      ;;
  esac
  if [ "$n" -lt 20 ]; then
    tasti a
  fi
done

# The end of the exercise: "Stampa" opens the printout screen.
a11y attendi "push button" "Ricomincia"
tasti Return
finestra '^FINESTRA DI STAMPA' >/dev/null
a11y attendi "label" "Riga 20:"
foto stampa-esercizio.png

# Back to the start screen: "ESCI" on the printout, "Ricomincia", a right
# answer (only then is "Esci" of the keypad available), "Esci".
fino_a "ESCI" 4 space
tasti Return
sparita '^FINESTRA DI STAMPA'
tastiera_a "$esercizio"
fino_a "Ricomincia" 2 space
tasti Return
a11y attendi "label" "esercizio numero: 1"
giusta=$(a11y risposta)
scrivi "$giusta"
tasti v Return
a11y attendi "label" "esito: Esatto"
tasti e
a11y fuoco-su "Esci"
tasti Return
a11y assente "label" "domanda:"
tastiera_a "$inizio"

# The results, the exercise just done among the earlier ones; "Esci" leaves.
menu "Risultati"
risultati=$(finestra '^Risultati$')
tastiera_a "$risultati"
a11y attendi "label" "Riga 20:"
foto risultati.png
fino_a "Esci" 5 space
tasti Return
sparita '^Risultati$'
tastiera_a "$inizio"

# Worksheets: "numero o simbolo", symbols in order, 30 lines, the pupils' sheet.
menu "Stampa schede"
schede=$(finestra '^STAMPA SCHEDE')
tastiera_a "$schede"
fino_a "NUMERO O SIMBOLO" 3 space
tasti Return
a11y fuoco-su "Simboli ordinati"
tasti Return
fino_a "Visualizza scheda alunni" 12 Tab
tasti Return
a11y attendi "label" "Riga 30:"
foto schede.png
fino_a "ESCI" 12 Tab
tasti Return
sparita '^STAMPA SCHEDE'
tastiera_a "$inizio"

finito=1
echo "screenshots: 9 pictures at $misura in $cartella"
