#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the formatting and
# clang-tidy checks, the normal build,
# the Debian package made from it and checked, the core tests under
# AddressSanitizer + UndefinedBehaviorSanitizer, and every fuzzer in fuzz/
# (puzzle file, all.col, velmora.cfg, the sort's source, the play script),
# which share VELMORA_FUZZ_SECONDS (120 unless set) evenly.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh
jobs=$(nproc)
fuzz_seconds=${VELMORA_FUZZ_SECONDS:-120}

echo "== Formatting"
tools/format.sh --check

echo "== Normal build and all tests"
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$jobs"
QT_QPA_PLATFORM=offscreen ctest --test-dir build --output-on-failure -j "$jobs"

echo "== clang-tidy"
tools/tidy.sh build

echo "== The Debian package"
tools/check-package.sh build

echo "== Core and command-line tests under ASan + UBSan"
cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVELMORA_SANITIZE=ON \
  -DVELMORA_GUI=OFF -DVELMORA_BENCH=OFF >/dev/null
cmake --build build-sanitize -j "$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-sanitize --output-on-failure -j "$jobs"

echo "== Fuzzing every reader for ${fuzz_seconds} s in all"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELMORA_FUZZ=ON \
  -DCMAKE_CXX_COMPILER=clang++ >/dev/null
harnesses=()
for src in fuzz/*_fuzz.cpp; do harnesses+=("$(basename "$src" .cpp)"); done
cmake --build build-fuzz -j "$jobs" --target "${harnesses[@]}"
# The harnesses write their files in a private folder under TMPDIR: memory
# when there is some, since every save syncs its file to the disk.
shm=/dev/shm
[[ -d $shm && -w $shm ]] || shm=${TMPDIR:-/tmp}
work=$(mktemp -d -p "$shm" velmora-fuzz.XXXXXX)
trap 'rm -rf "$work"' EXIT
count=${#harnesses[@]}
failed=0
for i in "${!harnesses[@]}"; do
  name=${harnesses[$i]}
  seconds=$((fuzz_seconds / count + (i < fuzz_seconds % count ? 1 : 0)))
  ((seconds > 0)) || seconds=1
  mkdir -p "$work/$name/corpus" "$work/$name/tmp"
  cp "fuzz/corpus/${name%_fuzz}"/* "$work/$name/corpus"/
  log=$work/$name/log
  status=0
  TMPDIR=$work/$name/tmp "build-fuzz/fuzz/$name" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
    -print_final_stats=1 -artifact_prefix="$PWD/build-fuzz/$name-" "$work/$name/corpus" >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  cov=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
  if ((status == 0)); then
    echo "$name: ${seconds} s, ${runs:-?} runs, ${rate:-?} exec/s, ${cov:-cov: ?}, nothing found"
  else
    echo "$name: FAILED (exit $status) after ${runs:-?} runs; the input is in build-fuzz/$name-*"
    grep -E '^(==[0-9]+==|SUMMARY|.*runtime error)' "$log" | head -n 20 || tail -n 30 "$log"
    failed=1
  fi
done
((failed == 0)) || exit 1
echo "All tests passed."
