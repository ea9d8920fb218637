#!/usr/bin/env bash
# Installs the Debian 12 packages the build and tests need, only those missing.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config libsqlite3-dev
  qt6-base-dev qt6-base-dev-tools qt6-qpa-plugins libqt6printsupport6 qt6-svg-dev libgl-dev
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  clang libclang-rt-14-dev clang-format clang-tidy
  fonts-dejavu-core xvfb xauth imagemagick poppler-utils
  dpkg-dev librsvg2-bin desktop-file-utils appstream lintian
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
