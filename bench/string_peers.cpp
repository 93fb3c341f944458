// SPDX-License-Identifier: MIT
// The string benchmarks' peers that are libraries of the native target.
#include <absl/strings/match.h>
#include <absl/strings/str_replace.h>
#include <fnmatch.h>
#include <glib.h>

#include <string>

#include "row.h"
#include "string_data.h"

namespace {

using bench::Keep;
using bench::Opaque;
using bench::Row;

[[maybe_unused]] const bool g_added = [] {
  const std::string lower = bench::Letters(16), upper = bench::Upper(lower);
  Row("string compare without case", "16 B", "absl", [lower, upper] {
    Opaque(upper);
    Keep(absl::EqualsIgnoreCase(lower, upper));
  });
  Row("string replace text in 64 kB", "hov by XY", "absl", [text = bench::Letters(bench::kLong)] {
    Keep(absl::StrReplaceAll(text, {{"hov", "XY"}}));
  });
  for (const char* pattern : bench::kPatterns) {
    Row("string wildcard", pattern, "fnmatch",
        [pattern] { Keep(fnmatch(pattern, bench::kFileName, 0)); });
    Row("string wildcard", pattern, "GLib",
        [pattern] { Keep(g_pattern_match_simple(pattern, bench::kFileName)); });
  }
  return true;
}();

}  // namespace
