#!/usr/bin/env bash
# Runs every libFuzzer target for a bounded time from the committed seed corpus.
# FUZZ_SECONDS sets the time per target (default 20).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"
seconds=${FUZZ_SECONDS:-20}
cmake -S "$root/fuzz" -B "$root/build/fuzz" -G Ninja -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build "$root/build/fuzz"
status=0
for corpus in "$root"/fuzz/corpus/*/; do
  name=$(basename "$corpus")
  exe="$root/build/fuzz/fuzz_$name"
  [ -x "$exe" ] || continue
  work=$(mktemp -d)
  echo "== fuzz_$name for ${seconds}s"
  if ! (cd "$work" && "$exe" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 \
          -print_final_stats=0 "$work" "$corpus" 2>"$work/log"); then
    tail -40 "$work/log"; status=1
  else
    grep -E '^Done' "$work/log" || true
  fi
  rm -rf "$work"
done
exit $status
