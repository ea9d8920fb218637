#!/usr/bin/env bash
# Installs what is missing, builds, and starts the desktop program.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build
if [ -x build/velmora ]; then
  exec build/velmora "$@"
else
  exec build/velmora-cli --help
fi
