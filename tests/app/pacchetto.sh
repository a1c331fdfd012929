#!/usr/bin/env bash
# Builds the Debian package, unpacks it into a scratch root the way dpkg lays it
# out, and runs the installed program from a class folder of its own: a whole
# exercise from the keyboard on a virtual display, read back over the
# accessibility bus as a screen reader reads it.
# Usage: pacchetto.sh BUILD_DIR. Exits 77 (skipped) when a tool is missing.
set -euo pipefail
build=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)

for tool in cpack dpkg-deb xvfb-run xdotool dbus-run-session appstreamcli desktop-file-validate lintian; do
  command -v "$tool" >/dev/null || { echo "SKIP: $tool is not installed"; exit 77; }
done
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || { echo "SKIP: python3-pyatspi is not installed"; exit 77; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

echo "== package"
(cd "$work" && cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/out" >"$work/cpack.log") ||
  { cat "$work/cpack.log"; exit 1; }
deb=$(ls "$work"/out/*.deb)
dpkg -x "$deb" "$work/root"

prog="$work/root/usr/lib/composizione"
fallisci() { echo "FAIL: $*"; exit 1; }
[ -x "$prog/composizione" ] || fallisci "no executable in the program folder"
[ -s "$prog/positivo.wav" ] || fallisci "the sound is not beside the executable"
desktop="$work/root/usr/share/applications/org.example.composizione.desktop"
grep -qx 'Name=Composizione' "$desktop" || fallisci "no menu entry named Composizione"
avvia=$(sed -n 's/^Exec=//p' "$desktop" | cut -d' ' -f1)
[ -x "$work/root$avvia" ] || fallisci "the menu entry starts $avvia, which the package does not hold"
icona=$(sed -n 's/^Icon=//p' "$desktop")
ls "$work"/root/usr/share/icons/hicolor/*/apps/"$icona".* >/dev/null || fallisci "no icon $icona"
[ -s "$work/root/usr/share/man/man1/composizione.1.gz" ] || fallisci "no manual page"
echo "ok   program folder, sound, menu entry, launcher, icon and manual page"
appstreamcli validate-tree --no-net "$work/root" || fallisci "the AppStream metadata or menu entry do not validate"
! desktop-file-validate "$desktop" | grep . || fallisci "the menu entry does not validate"
lintian --fail-on error,warning "$deb" 2>"$work/lintian.log" || { cat "$work/lintian.log"; fallisci "lintian"; }
echo "ok   appstreamcli, desktop-file-validate and lintian find nothing to report"

classe="$work/classe"
mkdir "$classe"
cd "$classe"

echo "== an exercise from the keyboard"
export prog here work
xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- bash -c '
  QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$prog/composizione" 2>"$work/xcb.log" &
  pid=$!
  # With the voice off (no access file), nothing of speech-dispatcher is loaded.
  ( sleep 3; grep -q libspeechd "/proc/$pid/maps" 2>/dev/null && echo speechd > "$work/voce.caricata" ) &
  stato=0
  /usr/bin/python3 "$here/guida_atspi.py" composizione || stato=$?
  if [ $stato -ne 0 ]; then kill "$pid" 2>/dev/null; cat "$work/xcb.log"; exit $stato; fi
  wait "$pid" || { echo "FAIL: the program ended with status $?"; cat "$work/xcb.log"; exit 1; }
' 2> >(grep -v -e "^dbus-daemon" -e "SpiRegistry" >&2)
[ ! -e "$work/voce.caricata" ] || fallisci "libspeechd was loaded with the voice off"
extra=$(find "$classe" -mindepth 1 ! -name 'composizione*')
[ -z "$extra" ] || fallisci "files other than the program's own landed in the class folder: $extra"
echo "ok   exercise done; the class folder holds only: $(ls "$classe" | tr '\n' ' ')"
