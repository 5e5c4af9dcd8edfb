#!/bin/sh
# The whole process of a search against grep over the same book files, in one hyperfine run: the
# quick search for "love god", the query language's "love god", and `grep -ric love` over the
# KJV's two testament folders. Usage: scripts/search-speed.sh [BUILD_DIR]
set -eu
build=${1:-build}
sh "$(dirname "$0")/setup.sh" hyperfine
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$build/program"
hyperfine -N --warmup 10 --runs 100 --export-markdown "$work/result.md" \
    'grep -ric love KJV/oldtest KJV/newtest' \
    './quillstone-cli --dir . --translation KJV search "love god"' \
    './quillstone-cli --dir . --translation KJV search --mode query "love god"' \
    './quillstone-cli --dir . --translation KJV books'
cat "$work/result.md"
