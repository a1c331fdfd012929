#!/usr/bin/env bash
# Builds the program and starts it. Settings and records are kept in the current folder.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"
cmake --preset default -S "$root" >/dev/null
cmake --build "$root/build/default" --target composizione
exec "$root/build/default/src/composizione"
