#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What the tests reach of the library: the lines of each parser that the corpus of its fuzzer runs
# through, then lines and branches (without those of exceptions) of each folder by every native test.
# Lines that no test can reach stand in coverage_explained.txt, each with its reason. Fails below a
# bar, on a line that is neither reached nor explained, and on an explanation that is not needed.
# Usage: coverage.sh            both
#        coverage.sh corpora    the first part alone
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/tally.sh"
cd "$project"

build=build/coverage
objects=$build/CMakeFiles/quarnfc_objects.dir
status=0

forget() { find "$build" -name '*.gcda' -delete; }

# measure OUTPUT FOLDER...: what has been counted in folders of objects, as JSON.
measure() {
  local output=$1
  shift
  logged "gcovr-$(basename "$output" .json)" gcovr -r "$project" --json "$output" \
    --exclude-unreachable-branches --gcov-ignore-parse-errors -j "$(nproc)" "$@"
}

# folders_of FILE...: the folders of the objects that the files are compiled into. What is inline in a
# header counts in the one object that the linker takes it from.
folders_of() {
  local file
  for file in "$@"; do
    case $file in
      *.h) printf '%s\n' "$objects" "$build/tests/fuzz" ;;
      *) echo "$objects/$(dirname "$file")" ;;
    esac
  done | sort -u
}

# corpus TARGET FILE...: how much of the files the corpus of a fuzzer reaches.
corpus() {
  local target=$1 folders
  shift
  mapfile -t folders < <(folders_of "$@")
  forget
  logged "corpus-$target" "$build/bin/quarnfc_fuzz_tests" --gtest_filter="*HoldsItsProperty/$target"
  measure "$build/corpus-$target.json" "${folders[@]}"
  scripts/coverage_report.py corpus "$target" "$build/corpus-$target.json" "$@" || status=1
}

corpora() {
  step 'Lines of each parser that its corpus reaches'
  corpus codec codec/base32.cpp codec/base64.cpp codec/bit_text.h
  corpus code_page core/text/code_page.cpp
  corpus cookie platform/posix/internet/cookie_store.cpp platform/posix/internet/chunk_reader.cpp
  corpus csv_row io/csv_row.cpp
  corpus csv_text include/quarnfc/ext/csv_text.h
  corpus date_time io/time_utils.cpp
  corpus format core/text/format_text.cpp core/text/format_spec.cpp
  corpus format_item core/text/format_number.cpp
  corpus http_response platform/posix/internet/head.cpp
  corpus json json/text_reader.cpp json/text_rules.cpp json/load.cpp
  corpus json_tree json/text_reader.cpp json/text_rules.cpp json/load.cpp json/decimal.cpp \
    json/number_text.cpp json/text_writer.cpp
  corpus line net/file_lines.cpp
  corpus path_join core/text/path_join.cpp
  corpus search core/text/string_search.cpp core/text/string_trim.cpp
  corpus split core/text/string_array.cpp core/text/string_array_vectors.cpp
  corpus strict_json include/quarnfc/ext/json_text_reader.h
  corpus string_edit core/text/string_edit.cpp
  corpus string_record core/text/string_record.cpp
  corpus url platform/posix/internet/url.cpp net/url.cpp
  corpus utf platform/posix/utf8.h
  corpus wildcard core/text/wildcard.cpp
  corpus wkt geo/wkt_reader.cpp geo/wkt_tokenizer.cpp geo/wkt_tree.cpp geo/wkt_number.cpp \
    geo/set_from_wkt.cpp
  corpus wkt_system include/quarnfc/ext/wkt_text.h include/quarnfc/ext/wkt_system.h
}

whole() {
  step 'Lines and branches of each folder that the tests reach'
  build_preset coverage
  forget
  run_programs coverage '*' quarnfc_tests quarnfc_internal_tests quarnfc_failing_memory_tests \
    quarnfc_fuzz_tests quarnfc_net_class_tests quarnfc_curl_tests quarnfc_net_tests
  report
  [ "$failed" -eq 0 ] || status=1
  # What a host sees whose libcurl is too old, which takes a process of its own.
  logged checks-coverage ctest --test-dir "$build" -R '^requests_want_libcurl$' --no-tests=error
  measure "$build/whole.json" "$objects"
  scripts/coverage_report.py folders "$build/whole.json" || status=1
}

[ "${1:-}" = '' ] || [ "$1" = corpora ] || die 'usage: coverage.sh [corpora]'
"$project/scripts/setup.sh" --checks
configure_preset coverage
build_preset coverage quarnfc_fuzz_tests
corpora
[ "${1:-}" = corpora ] || whole
[ "$status" -eq 0 ] || die 'the tests reach less than they should'
printf 'every folder and every corpus is above its bar\n'
