#!/bin/sh
# Runs every libFuzzer target of a fuzz build for a while, each on a copy of its seed corpus.
# Usage: scripts/fuzz.sh BUILD_DIR SECONDS
set -eu
build=$1
seconds=${2:-60}
src=$(cd "$(dirname "$0")/.." && pwd)
status=0
export LSAN_OPTIONS="suppressions=$src/tests/lsan.supp"
for target in "$build"/fuzz/fuzz_*; do
    [ -x "$target" ] || continue
    name=$(basename "$target")
    seeds=$(find "$src/tests" -type d -path "*corpus/${name#fuzz_}" | head -n 1)
    work="$build/fuzz-work/$name"
    mkdir -p "$work/corpus" "$work/crashes"
    [ -n "$seeds" ] && cp -r "$seeds"/. "$work/corpus/" 2>/dev/null || true
    echo "== $name for ${seconds}s"
    if ! "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 \
        -artifact_prefix="$work/crashes/" "$work/corpus" >"$work/log.txt" 2>&1; then
        echo "$name found a problem: see $work/log.txt and $work/crashes/"
        status=1
    fi
    grep -E '^(#[0-9]+\s+DONE|Done)' "$work/log.txt" | tail -n 1 || true
done
exit $status
