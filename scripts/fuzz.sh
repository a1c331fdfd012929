#!/usr/bin/env bash
# Runs every libFuzzer target for a bounded time from the committed seed corpus.
# FUZZ_SECONDS sets the time per target (default 20). Whatever a target finds
# (crash-*, timeout-*, oom-* files) is kept in FUZZ_FINDINGS (default
# build/fuzz/findings), so that a finding outlives the run's scratch corpus.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"
seconds=${FUZZ_SECONDS:-20}
findings=${FUZZ_FINDINGS:-$root/build/fuzz/findings}
cmake -S "$root/fuzz" -B "$root/build/fuzz" -G Ninja -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build "$root/build/fuzz"
mkdir -p "$findings"
status=0
for corpus in "$root"/fuzz/corpus/*/; do
  name=$(basename "$corpus")
  exe="$root/build/fuzz/fuzz_$name"
  [ -x "$exe" ] || continue
  work=$(mktemp -d)
  echo "== fuzz_$name for ${seconds}s"
  if ! (cd "$work" && "$exe" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 \
          -artifact_prefix="$findings/fuzz_$name-" -print_final_stats=1 "$work" "$corpus" 2>"$work/log"); then
    tail -40 "$work/log"; status=1
  else
    grep -E '^Done|^stat::number_of_executed_units' "$work/log" || true
  fi
  rm -rf "$work"
done
exit $status
