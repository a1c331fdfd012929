#!/usr/bin/env bash
# A long run outside CI: the random-use test with many events per screen under
# ASan+UBSan, then every libFuzzer target for minutes instead of seconds.
#   SOAK_EVENTI        random events per screen (default 100000)
#   SOAK_SEME          seed of the random run (default: the clock, so that each
#                      soak walks new paths; it is printed, and replays the run)
#   SOAK_FUZZ_MINUTES  minutes per fuzz target (default 10; SOAK_FUZZ_SECONDS
#                      instead, for a short trial of the script itself)
# Logs and findings stay in build/soak/<date-time>/; the exit status is 1 when
# anything was found.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
eventi=${SOAK_EVENTI:-100000}
seme=${SOAK_SEME:-$(date +%s)}
secondi=${SOAK_FUZZ_SECONDS:-$(( ${SOAK_FUZZ_MINUTES:-10} * 60 ))}
out="$root/build/soak/$(date +%Y%m%d-%H%M%S)"
mkdir -p "$out/findings"
"$root/scripts/deps.sh"

echo "== random use: $eventi events per screen, seed $seme, ASan+UBSan"
cmake --preset asan -S "$root" >/dev/null
cmake --build "$root/build/asan" --target tst_casuale >/dev/null
inizio=$(date +%s)
casuale=0
# QtTest gives up on a test function after five minutes; one screen's events
# take longer than that here, so the watchdog is scaled to 20 ms an event and
# still catches a program that hangs.
(cd "$out" && env QTEST_FUNCTION_TIMEOUT=$((eventi * 20 > 300000 ? eventi * 20 : 300000)) QT_QPA_PLATFORM=offscreen \
   ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
   CASUALE_EVENTI="$eventi" CASUALE_SEME="$seme" "$root/build/asan/tests/tst_casuale") \
  >"$out/casuale.log" 2>&1 || casuale=$?
durata=$(( $(date +%s) - inizio ))
grep -E 'events, |^FAIL|^Totals' "$out/casuale.log" || true

echo "== fuzzing: $secondi seconds per target"
fuzz=0
FUZZ_SECONDS="$secondi" FUZZ_FINDINGS="$out/findings" "$root/scripts/fuzz.sh" 2>&1 |
  tee "$out/fuzz.log" || fuzz=$?

inviati=$(awk '/ events, / { for (i = 2; i <= NF; i++) if ($i == "events,") n += $(i - 1) } END { print n + 0 }' "$out/casuale.log")
echo
echo "== soak summary ($out)"
printf 'random use: %s events sent in %d min %02d s, seed %s, exit status %d\n' \
  "$inviati" $((durata / 60)) $((durata % 60)) "$seme" "$casuale"
awk '/^== fuzz_/ { t = $2 } /^stat::number_of_executed_units/ { printf "%s: %s executions\n", t, $2 }' "$out/fuzz.log"
trovati=()
[ "$casuale" -eq 0 ] || trovati+=("$out/casuale.log")
mapfile -t -O ${#trovati[@]} trovati < <(find "$out/findings" -type f | sort)
if [ ${#trovati[@]} -eq 0 ] && [ "$fuzz" -eq 0 ]; then
  echo "findings: none"
else
  echo "findings:"; [ ${#trovati[@]} -eq 0 ] || printf '  %s\n' "${trovati[@]}"
  [ "$fuzz" -eq 0 ] || echo "  (a fuzz target failed: see $out/fuzz.log)"
  exit 1
fi
