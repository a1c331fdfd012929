#!/usr/bin/env bash
# Renews the reviewed pictures of the screens in tests/data/schermate, after a
# change meant to alter how a screen looks. The picture test is built and run
# with SCHERMATE_RINNOVA=1: every picture that came out otherwise is written
# over the old one, and the list of them is printed. Look at each of them
# before committing (git shows them as changed; `git difftool` or any image
# viewer puts old and new side by side).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"
cd "$root"
[ -f build/default/build.ninja ] || cmake --preset default >/dev/null
cmake --build build/default --target tst_schermate
(cd build/default/tests && SCHERMATE_RINNOVA=1 QT_QPA_PLATFORM=offscreen ./tst_schermate)
git status --short -- tests/data/schermate
