#!/usr/bin/env bash
# Draws the plot of docs/performance.md from the JSON output of zelt-bench:
# time per list entry against entries per list, for json-c's parse, the whole
# load, write + save and the two serializers. Needs python3 and gnuplot
# (Debian: gnuplot-nox).
#
# Usage: bench/plot-performance.sh <zelt-bench output.json> [picture.png]
# The JSON comes from a run such as
#   build/release/bench/zelt-bench --benchmark_repetitions=3 \
#     --benchmark_out=performance.json --benchmark_out_format=json
set -euo pipefail
input=$1
output=${2:-$(dirname "$0")/../docs/performance.png}
data=$(mktemp)
trap 'rm -f "$data"' EXIT

# One block per job, in the order of the legend: entries per list and
# nanoseconds per list entry, from the medians where the run has them.
python3 - "$input" >"$data" <<'PY'
import json, sys
jobs = [("JsoncParse", "json-c parse"),
        ("JsoncParseAndFree", "json-c parse + free"),
        ("WholeLoad", "whole load (import + root read)"),
        ("WriteAndSave", "write + save"),
        ("JsoncSerialize", "json-c serializer"),
        ("Serialize", "library serializer")]
runs = json.load(open(sys.argv[1]))["benchmarks"]
has_medians = any(r.get("aggregate_name") == "median" for r in runs)
figures = {}
for run in runs:
    if run.get("error_occurred"):
        continue
    if has_medians and run.get("aggregate_name") != "median":
        continue
    name, entries = run["run_name"].split("/")[:2]
    if int(entries) > 0 and "per_entry" in run:
        figures.setdefault(name, {})[int(entries)] = run["per_entry"] * 1e9
for name, title in jobs:
    print(f'"{title}"')
    for entries, nanoseconds in sorted(figures.get(name, {}).items()):
        print(entries, f"{nanoseconds:.2f}")
    print("\n")
PY

gnuplot <<GNUPLOT
set terminal pngcairo size 900,640 font "sans,11"
set output "$output"
set title "Time per list entry (four lists of N entries each)"
set xlabel "entries per list (N)"
set ylabel "ns per list entry"
set logscale x
set xrange [500:2000000]
set xtics ("1,000" 1000, "10,000" 10000, "100,000" 100000, "1,000,000" 1000000)
set yrange [0:*]
set key below
set grid
plot for [i=0:5] "$data" index i using 1:2 with linespoints linewidth 2 pointtype 7 title columnheader(1)
GNUPLOT
echo "wrote $output"
