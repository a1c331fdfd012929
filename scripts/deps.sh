#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need, when missing.
set -euo pipefail
packages=(cmake ninja-build g++ qt6-base-dev libasound2-dev libspeechd-dev speech-dispatcher speech-dispatcher-espeak-ng libgl-dev libqt6printsupport6
          libbenchmark-dev cups clang libclang-rt-dev xvfb xauth poppler-utils fonts-liberation fonts-urw-base35 fonts-dejavu-core
          dpkg-dev xdotool dbus at-spi2-core python3-pyatspi
          appstream desktop-file-utils lintian man-db)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
