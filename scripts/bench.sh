#!/bin/sh
# Runs the benchmarks and prints the medians of five repetitions.
set -eu
build=${1:-build}
for b in "$build"/bench/bench_*; do
    [ -x "$b" ] || continue
    echo "== $(basename "$b")"
    QT_QPA_PLATFORM=offscreen "$b" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true 2>&1 | grep -E 'median|^Run on' || true
done
