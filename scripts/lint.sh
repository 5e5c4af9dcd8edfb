#!/bin/sh
# The tree's formatting (clang-format) and a modest set of static checks (clang-tidy, see
# .clang-tidy) over the program's own code; fails on the first kind of finding it reports.
# Usage: scripts/lint.sh [BUILD_DIR]   (the build writes compile_commands.json there)
set -eu
build=${1:-build}
cd "$(dirname "$0")/.."
sh scripts/format-check.sh
files=$(git ls-files 'app/*.cpp' 'scripture/*.cpp' 'settings/*.cpp' 'bookmarks/*.cpp' 'library/*.cpp' \
    'platform/*.cpp' 'tools/*.cpp')
# shellcheck disable=SC2086
run-clang-tidy -quiet -p "$build" -j "$(nproc)" $files
