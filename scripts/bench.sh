#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures the library beside its peers on this machine, natively and for Windows under Wine, and
# prints one table: work, input, the ratio aimed at, and for each target our time, the best peer, the
# ratio of both (a star where it misses), and what the bytes alone cost where that is known. A machine
# that does nothing else gives steady figures: compare ratios of one run, never times of different
# machines. Takes about 15 minutes.
# Usage: bench.sh [OPTION...] [PROGRAM...]
#   PROGRAM           codec, geo, growth, http, io, json, memory, start or string; else all
#   --native          leaves Windows out
#   --markdown        prints the table as Markdown, with the date and the processor
#   --save FILE       keeps our times; --compare FILE shows changes against such a file
#   --smoke           runs everything once and natively, for no measurement's sake
# QUARNFC_BENCH_REPETITIONS (5) sets how often each is measured; the median counts.
# The plot of growth is written to build/bench/growth.svg.
set -euo pipefail
source "$(dirname "$0")/lib.sh"

packages=(libbenchmark-dev rapidjson-dev libboost1.81-dev nlohmann-json3-dev libabsl-dev libfmt-dev
  libssl-dev libisal-dev liblzma-dev libproj-dev libgeographiclib-dev libcsv-dev libglib2.0-dev
  pkgconf)
repetitions="${QUARNFC_BENCH_REPETITIONS:-5}"
min_time=0.1
windows=yes
table_options=()
programs=()
markdown=no
while [ $# -gt 0 ]; do
  case $1 in
    --native) windows=no ;;
    --smoke) windows=no min_time=0.001 repetitions=1 ;;
    --markdown) markdown=yes table_options+=(--markdown) ;;
    --save | --compare)
      table_options+=("$1" "$2")
      shift
      ;;
    -*) die "unknown option $1" ;;
    *) programs+=("$1") ;;
  esac
  shift
done
[ ${#programs[@]} -gt 0 ] || programs=(codec geo growth http io json memory start string)
native="$project/build/bench"
cross="$project/build/bench-windows"

install_peers() {
  local package missing=()
  for package in "${packages[@]}"; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] || logged bench-peers as_root apt-get -q -y install \
    --no-install-recommends "${missing[@]}"
}

# build FOLDER [CMAKE OPTION...]: everything at one optimisation level.
build() {
  local folder=$1
  shift
  logged "${folder##*/}-configure" cmake -S "$project" -B "$folder" -G Ninja \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O3 -DNDEBUG" \
    -DCMAKE_C_FLAGS_RELEASE="-O3 -DNDEBUG" -DQUARNFC_LTO=ON -DQUARNFC_BUILD_BENCH=ON \
    -DQUARNFC_BUILD_TESTS=OFF -DQUARNFC_BUILD_TOOLS=OFF -DQUARNFC_BUILD_SAMPLES=OFF "$@"
  logged "${folder##*/}-build" cmake --build "$folder" --target "${programs[@]/%/_bench}"
}

# Google Benchmark for Windows, from the source package of what is installed natively.
build_benchmark_for_windows() {
  local folder="$cross/google-benchmark" apt
  [ ! -f "$folder/installed/lib/libbenchmark.a" ] || return 0
  mkdir -p "$folder"/{lists/partial,cache,parts,source}
  for file in /etc/apt/sources.list.d/*.sources; do
    sed 's/^Types: deb$/Types: deb-src/' "$file" >"$folder/parts/${file##*/}"
  done
  apt=(apt-get -q -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$folder/parts"
    -o "Dir::State::lists=$folder/lists" -o "Dir::Cache=$folder/cache")
  logged benchmark-list "${apt[@]}" update
  (cd "$folder" && logged benchmark-source "${apt[@]}" source --download-only benchmark)
  tar -x -f "$folder"/benchmark_*.orig.tar.gz -C "$folder/source" --strip-components=1
  logged benchmark-configure cmake -S "$folder/source" -B "$folder/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$project/cmake/toolchain-mingw-w64.cmake" -DCMAKE_BUILD_TYPE=Release \
    -DBENCHMARK_ENABLE_TESTING=OFF -DBENCHMARK_ENABLE_WERROR=OFF -DBENCHMARK_INSTALL_DOCS=OFF \
    -DCMAKE_INSTALL_PREFIX="$folder/installed"
  logged benchmark-build cmake --build "$folder/build" --target install
}

# measure FOLDER NAME COMMAND...: the competitors take turns in random order.
measure() {
  local results="$1/results" name=$2
  shift 2
  mkdir -p "$results"
  "$@" --benchmark_repetitions="$repetitions" --benchmark_min_time="$min_time" \
    --benchmark_enable_random_interleaving=true --benchmark_format=json \
    >"$results/$name.json" 2>"$results/$name.log" || {
    cat "$results/$name.log"
    die "$name failed"
  }
}

measure_all() {
  local name
  rm -rf "$native/results" "$cross/results"
  for name in "${programs[@]}"; do
    step "$name" >&2
    measure "$native" "$name" "$native/bin/${name}_bench"
    [ "$windows" = no ] ||
      measure "$cross" "$name" "$project/scripts/run-wine.sh" "$cross/bin/${name}_bench.exe"
  done
}

print_machine() {
  printf 'Measured on %s on %s, %s cores, %s.\n\n' "$(date -u +%Y-%m-%d)" \
    "$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)" "$(nproc)" \
    "$(c++ --version | head -n 1)"
}

install_peers >&2
step "Building at one optimisation level" >&2
build "$native" >&2
if [ "$windows" = yes ]; then
  build_benchmark_for_windows >&2
  build "$cross" -DCMAKE_TOOLCHAIN_FILE="$project/cmake/toolchain-mingw-w64.cmake" \
    -Dbenchmark_DIR="$cross/google-benchmark/installed/lib/cmake/benchmark" >&2
fi
measure_all
runs=("Linux=$native/results")
[ "$windows" = no ] || runs+=("Windows (Wine)=$cross/results")
[ "$markdown" = no ] || print_machine
python3 "$project/scripts/bench_table.py" "${table_options[@]}" "$project/bench/targets.txt" \
  "${runs[@]}"
if [ -f "$native/results/growth.json" ]; then
  python3 "$project/scripts/plot_growth.py" "$native/results/growth.json" "$native/growth.svg"
fi
