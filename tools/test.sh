#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the normal build,
# the Debian package made from it and checked, the core tests under
# AddressSanitizer + UndefinedBehaviorSanitizer, and the puzzle-file fuzzer
# for 60 seconds.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh
jobs=$(nproc)
fuzz_seconds=${VELMORA_FUZZ_SECONDS:-60}

echo "== Normal build and all tests"
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$jobs"
QT_QPA_PLATFORM=offscreen ctest --test-dir build --output-on-failure -j "$jobs"

echo "== The Debian package"
tools/check-package.sh build

echo "== Core and command-line tests under ASan + UBSan"
cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVELMORA_SANITIZE=ON \
  -DVELMORA_GUI=OFF -DVELMORA_BENCH=OFF >/dev/null
cmake --build build-sanitize -j "$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-sanitize --output-on-failure -j "$jobs"

echo "== Fuzzing the puzzle-file reader for ${fuzz_seconds} s"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELMORA_FUZZ=ON \
  -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build build-fuzz -j "$jobs" --target puzzle_file_fuzz
corpus=$(mktemp -d)
cp fuzz/corpus/* "$corpus"/
build-fuzz/fuzz/puzzle_file_fuzz -max_total_time="$fuzz_seconds" -max_len=4096 -timeout=10 \
  -print_final_stats=1 "$corpus" 2>&1 | tail -n 12
rm -rf "$corpus"
echo "All tests passed."
