#!/usr/bin/env bash
# Runs clang-tidy with the repository's .clang-tidy over every C++ file the
# build compiles (src/, cli/, tests/, bench/); fails on any finding.
# Usage: tools/tidy.sh [BUILD_DIR]   (default build; configured if missing)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
if [[ ! -f $build/compile_commands.json ]]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
# Qt's generated sources must exist before their users can be read.
cmake --build "$build" --target velmora_ui_autogen >/dev/null 2>&1 || true
mapfile -t files < <(git ls-files 'src/*.cpp' 'cli/*.cpp' 'tests/*.cpp' 'bench/*.cpp')
run-clang-tidy -quiet -p "$build" -j "$(nproc)" -extra-arg=-Wno-unknown-warning-option \
  "${files[@]/#/$PWD/}" 2>/dev/null | grep -E '(warning|error):' | sort -u >"$build/tidy.log" || true
if [[ -s $build/tidy.log ]]; then
  cat "$build/tidy.log"
  echo "clang-tidy: $(wc -l <"$build/tidy.log") findings" >&2
  exit 1
fi
echo "clang-tidy: no findings"
