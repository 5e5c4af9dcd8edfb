#!/bin/sh
# Runs every libFuzzer target of a fuzz build for a while, each on a copy of its seed corpus.
# Usage: scripts/fuzz.sh BUILD_DIR SECONDS [TARGET...]
# The build writes fuzz/NAME.inputs beside each target: "seeds=" its seed folder and, where it has
# one, "dict=" its dictionary.
set -eu
build=$1
seconds=${2:-60}
[ $# -ge 2 ] && shift 2 || shift $#
src=$(cd "$(dirname "$0")/.." && pwd)
status=0
export LSAN_OPTIONS="suppressions=$src/tests/lsan.supp"
# The targets write their input to files on every run: in memory that goes three times as fast.
if [ -d /dev/shm ] && [ -w /dev/shm ]; then export TMPDIR=/dev/shm; fi
if [ $# -gt 0 ]; then targets=$*; else targets=$(ls "$build"/fuzz/ | grep '^fuzz_[a-z0-9_]*$' || true); fi
for name in $targets; do
    target="$build/fuzz/$name"
    [ -x "$target" ] || { echo "$name: no such fuzz target in $build/fuzz"; status=1; continue; }
    inputs="$target.inputs"
    seeds=$(sed -n 's/^seeds=//p' "$inputs" 2>/dev/null)
    dict=$(sed -n 's/^dict=//p' "$inputs" 2>/dev/null)
    if [ -z "$seeds" ] || [ -z "$(ls -A "$seeds" 2>/dev/null)" ]; then
        # Fuzzing from nothing finds little: a target without seeds is a fault of the build.
        echo "$name has no seeds (looked in '${seeds:-$inputs}')"
        status=1
        continue
    fi
    work="$build/fuzz-work/$name"
    rm -rf "$work/corpus"
    mkdir -p "$work/corpus" "$work/crashes"
    cp -r "$seeds"/. "$work/corpus/"
    echo "== $name for ${seconds}s, $(ls "$work/corpus" | wc -l) seeds from ${seeds#"$src"/}"
    if ! "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 \
        ${dict:+-dict="$dict"} -artifact_prefix="$work/crashes/" "$work/corpus" >"$work/log.txt" 2>&1; then
        echo "$name found a problem: see $work/log.txt and $work/crashes/"
        status=1
    fi
    # Coverage with the seeds alone, then at the end, and the corpus the run left.
    grep -E '^#[0-9]+\s+INITED' "$work/log.txt" | tail -n 1 || true
    grep -E '^#[0-9]+\s+DONE' "$work/log.txt" | tail -n 1 || true
    grep -E '^stat::(number_of_executed_units|peak_rss_mb)' "$work/log.txt" || true
done
exit $status
