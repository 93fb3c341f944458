#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures the library beside its peers on this machine and prints one table: work, input, our time,
# the best peer and its time, the ratio of both and the ratio aimed at. A machine that does nothing
# else gives steady figures; compare ratios of one run, never times of different machines.
# Usage: bench.sh [PROGRAM...]     of codec_bench, json_bench, memory_bench, string_bench; else all
# QUARNFC_BENCH_REPETITIONS (5) sets how often each is measured; the median counts.
set -euo pipefail
source "$(dirname "$0")/lib.sh"

packages=(libbenchmark-dev rapidjson-dev libboost1.81-dev nlohmann-json3-dev libabsl-dev libfmt-dev
  libssl-dev libisal-dev)
programs=("$@")
[ $# -gt 0 ] || programs=(memory_bench string_bench json_bench codec_bench)
folder="$project/build/bench"
results="$folder/results"

# Everything at one optimisation level; the competitors take turns in random order.
install_peers() {
  local package missing=()
  for package in "${packages[@]}"; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] || logged bench-peers as_root apt-get -q -y install \
    --no-install-recommends "${missing[@]}"
}

build() {
  logged bench-configure cmake -S "$project" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_FLAGS_RELEASE="-O3 -DNDEBUG" -DCMAKE_C_FLAGS_RELEASE="-O3 -DNDEBUG" \
    -DQUARNFC_LTO=ON -DQUARNFC_BUILD_BENCH=ON -DQUARNFC_BUILD_TESTS=OFF -DQUARNFC_BUILD_TOOLS=OFF \
    -DQUARNFC_BUILD_SAMPLES=OFF
  logged bench-build cmake --build "$folder" --target benchmarks
}

measure() {
  mkdir -p "$results"
  "$folder/bin/$1" --benchmark_repetitions="${QUARNFC_BENCH_REPETITIONS:-5}" \
    --benchmark_enable_random_interleaving=true --benchmark_report_aggregates_only=true \
    --benchmark_format=csv >"$results/$1.csv" 2>"$results/$1.log" || {
    cat "$results/$1.log"
    die "$1 failed"
  }
}

# Reads lines of the programs ("work|input|who..._median",iterations,time,...) into the table.
table() {
  awk -v targets="$project/bench/targets.txt" '
    function nice(ns) {
      return ns < 1e4 ? sprintf("%.1f ns", ns) : ns < 1e7 ? sprintf("%.1f us", ns / 1e3) \
                                                          : sprintf("%.1f ms", ns / 1e6)
    }
    BEGIN {
      while ((getline line < targets) > 0)
        if (split(line, part, "|") == 3) target[part[1] "|" part[2]] = part[3]
      format = "%-36s %-20s %12s %12s  %-26s %6s %6s\n"
      printf format, "work", "input", "ours", "best peer", "", "ratio", "target"
    }
    /_median"/ {
      quote = index(substr($0, 2), "\"") + 1
      name = substr($0, 2, quote - 2)
      split(substr($0, quote + 2), field, ",")
      sub(/(\/threads:[0-9]+)?_median$/, "", name)
      sub(/\/threads:[0-9]+/, "", name)
      split(name, part, "|")
      row = part[1] "|" part[2]
      if (!(row in seen)) { seen[row] = 1; order[++rows] = row }
      if (part[3] == "QuarnFC") ours[row] = field[2]
      else if (!(row in best) || field[2] + 0 < best[row] + 0) { best[row] = field[2]; who[row] = part[3] }
    }
    END {
      for (i = 1; i <= rows; i++) {
        row = order[i]
        split(row, part, "|")
        aim = row in target ? target[row] : target[part[1] "|"]
        ratio = row in best ? sprintf("%.2f", ours[row] / best[row]) : "-"
        printf format, part[1], part[2], nice(ours[row]), row in best ? nice(best[row]) : "-", \
          who[row], ratio, aim
      }
    }' "$results"/*.csv
}

install_peers
step "Building at one optimisation level"
build
rm -f "$results"/*.csv
for program in "${programs[@]}"; do
  step "$program"
  measure "$program"
done
table
