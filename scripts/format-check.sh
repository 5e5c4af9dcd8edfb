#!/bin/sh
# Fails when a source file of the tree is not formatted as .clang-format says; prints the places.
set -eu
cd "$(dirname "$0")/.."
command -v clang-format >/dev/null || { echo "clang-format is not installed (make test installs it)"; exit 1; }
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
echo "formatting: every source file as .clang-format says"
