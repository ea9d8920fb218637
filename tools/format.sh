#!/usr/bin/env bash
# Formats every C++ file of the tree with the repository's .clang-format;
# with --check, changes nothing and fails when a file is not formatted.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files '*.cpp' '*.h')
if [[ ${1:-} == --check ]]; then
  clang-format --dry-run -Werror "${files[@]}"
else
  clang-format -i "${files[@]}"
fi
