// SPDX-License-Identifier: MIT
// Strings beside std::string, the C library and fmt; absl and fnmatch are in string_peers.cpp.
#include <fmt/format.h>
#include <quarnfc/quarnfc.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "machine_limit.h"
#include "row.h"
#include "string_data.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Row;

using bench::kLong;
using bench::Letters;
using bench::Opaque;

// Chinese characters of code page 936 between Latin words.
std::string Chinese(std::size_t length) {
  std::string text;
  while (text.size() < length) text += "\xD6\xD0\xB9\xFA word \xB2\xE2\xBB\xE6";
  return text;
}

void AddConstruction() {
  const std::string text = Letters(16);
  Row("string construct + destroy", "16 B", kOurs, [text] { Keep(CQNString(Opaque(text))); });
  Row("string construct + destroy", "16 B", "std::string",
      [text] { Keep(std::string(Opaque(text))); });
  const CQNString ours(text.c_str());
  Row("string copy + destroy", "16 B", kOurs, [ours] { Keep(CQNString(ours)); });
  Row("string copy + destroy", "16 B", "std::string", [text] { Keep(std::string(text)); });
  const auto shared = std::make_shared<std::string>(text);
  Row("string copy + destroy", "16 B", "shared buffer",
      [shared] { Keep(std::shared_ptr<std::string>(shared)); });
}

void AddComparison() {
  for (const std::size_t length : {std::size_t{16}, std::size_t{100}}) {
    const std::string left = Letters(length), right = left;
    const std::string input = std::to_string(length) + " B";
    const CQNString ours(left.c_str());
    Row("string compare equal", input, kOurs, [ours, right] { Keep(ours.Compare(Opaque(right))); });
    Row("string compare equal", input, "std::string", [left, right] {
      Opaque(right);
      Keep(left.compare(right));
    });
  }
  const std::string lower = Letters(16), upper = bench::Upper(lower);
  const CQNString ours(lower.c_str());
  Row("string compare without case", "16 B", kOurs,
      [ours, upper] { Keep(ours.CompareNoCase(Opaque(upper))); });
  Row("string compare without case", "16 B", "tolower by hand", [lower, upper] {
    const char* right = Opaque(upper);
    Keep(std::equal(lower.begin(), lower.end(), right,
                    [](char a, char b) { return std::tolower(a) == std::tolower(b); }));
  });
}

void AddJoining() {
  const std::string text = Letters(16), hundred = Letters(100);
  const CQNString ours(text.c_str()), ours_hundred(hundred.c_str());
  Row("string concatenate", "16 + 16 B", kOurs, [ours] { Keep(ours + ours); });
  Row("string concatenate", "16 + 16 B", "std::string", [text] { Keep(text + text); });
  Row("string middle", "16 of 100 B", kOurs, [ours_hundred] { Keep(ours_hundred.Mid(40, 16)); });
  Row("string middle", "16 of 100 B", "std::string", [hundred] { Keep(hundred.substr(40, 16)); });
}

template <class String, class Piece>
void Append(const Piece& piece, int count) {
  String text;
  for (int i = 0; i < count; ++i) text += piece;
  Keep(text);
}

void AddAppending() {
  const std::string piece = Letters(64);
  const CQNString ours(piece.c_str());
  Row("string append to 100 kB", "64 B pieces", kOurs, [ours] { Append<CQNString>(ours, 1600); });
  Row("string append to 100 kB", "64 B pieces", "std::string",
      [piece] { Append<std::string>(piece, 1600); });
  Row("string append to 100 kB", "characters", kOurs, [] { Append<CQNString>('x', 100'000); });
  Row("string append to 100 kB", "characters", "std::string",
      [] { Append<std::string>('x', 100'000); });
}

void AddSearch(const std::string& input, const std::string& haystack, const std::string& needle) {
  const std::string text = haystack + needle + '#';
  const CQNString ours(text.c_str());
  Row("string find text in 64 kB", input, kOurs,
      [ours, needle] { Keep(ours.Find(Opaque(needle))); });
  Row("string find text in 64 kB", input, "strstr",
      [text, needle] { Keep(std::strstr(text.c_str(), Opaque(needle))); });
  Row("string find character in 64 kB", input, kOurs, [ours] { Keep(ours.Find('#')); });
  Row("string find character in 64 kB", input, "strchr",
      [text] { Keep(std::strchr(Opaque(text), '#')); });
  const CQNString reverse(('#' + haystack).c_str());
  Row("string find last character in 64 kB", input, kOurs,
      [reverse] { Keep(reverse.ReverseFind('#')); });
  Row("string find last character in 64 kB", input, "strrchr",
      [line = '#' + haystack] { Keep(std::strrchr(Opaque(line), '#')); });
  for (const char* work : {"string find text in 64 kB", "string find character in 64 kB",
                           "string find last character in 64 kB"}) {
    bench::ReadLimit(work, input, kLong);
  }
}

void AddReplacement() {
  const std::string text = Letters(kLong);
  const CQNString ours(text.c_str());
  Row("string replace text in 64 kB", "hov by XY", kOurs, [ours] {
    CQNString copy(ours);
    Keep(copy.Replace("hov", "XY"));
  });
  Row("string replace text in 64 kB", "hov by XY", "std::string", [text] {
    std::string copy(text);
    for (std::size_t at = 0; (at = copy.find("hov", at)) != std::string::npos; at += 2) {
      copy.replace(at, 3, "XY");
    }
    Keep(copy);
  });
  Row("string replace character in 64 kB", "a by b", kOurs, [ours] {
    CQNString copy(ours);
    Keep(copy.Replace('a', 'b'));
  });
  Row("string replace character in 64 kB", "a by b", "std::replace", [text] {
    std::string copy(text);
    std::replace(copy.begin(), copy.end(), 'a', 'b');
    Keep(copy);
  });
  bench::CopyLimit("string replace text in 64 kB", "hov by XY", kLong);
  bench::CopyLimit("string replace character in 64 kB", "a by b", kLong);
  bench::CopyLimit("string upper case of 64 kB", "ASCII", kLong);
  Row("string upper case of 64 kB", "ASCII", kOurs, [ours] {
    CQNString copy(ours);
    copy.MakeUpper();
    Keep(copy);
  });
  Row("string upper case of 64 kB", "ASCII", "std::transform", [text] {
    std::string copy(text);
    std::transform(copy.begin(), copy.end(), copy.begin(), [](char ch) {
      return ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 32) : ch;
    });
    Keep(copy);
  });
}

void AddFormatting() {
  const std::string name = "name";
  Row("string format", "%s|%5d|%.3f", kOurs, [name] {
    CQNString text;
    text.Format("%s|%5d|%.3f", Opaque(name), 42, 3.25);
    Keep(text);
  });
  Row("string format", "%s|%5d|%.3f", "snprintf", [name] {
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "%s|%5d|%.3f", Opaque(name), 42, 3.25);
    Keep(std::string(buffer));
  });
  Row("string format", "%s|%5d|%.3f", "fmt",
      [name] { Keep(fmt::format("{}|{:5}|{:.3f}", Opaque(name), 42, 3.25)); });
}

void AddSplitting() {
  std::string text = Letters(kLong);
  for (std::size_t i = 9; i < text.size(); i += 10) text[i] = ',';
  Row("string split 64 kB", "10 B pieces", kOurs, [text] {
    std::vector<char*> pieces;
    QNStringUtils::SplitStr(text.c_str(), ',', pieces);
    Keep(pieces);
    QNStringUtils::FreeStrArr(pieces);
  });
  Row("string split 64 kB", "10 B pieces", "memchr + new[]", [text] {
    std::vector<char*> pieces;
    const char* at = text.c_str();
    const char* const end = at + text.size();
    while (at < end) {
      const void* found = std::memchr(at, ',', static_cast<std::size_t>(end - at));
      const char* stop = found != nullptr ? static_cast<const char*>(found) : end;
      const auto length = static_cast<std::size_t>(stop - at);
      pieces.push_back(new char[length + 1]);
      std::memcpy(pieces.back(), at, length);
      pieces.back()[length] = '\0';
      at = stop + 1;
    }
    Keep(pieces);
    for (char* piece : pieces) delete[] piece;
  });
}

void AddMatching() {
  for (const char* pattern : bench::kPatterns) {
    Row("string wildcard", pattern, kOurs,
        [pattern] { Keep(QNStringUtils::StrIsMatching(pattern, bench::kFileName, true)); });
  }
}

}  // namespace

int main(int argc, char** argv) {
  AddConstruction();
  AddComparison();
  AddJoining();
  AddAppending();
  AddSearch("ASCII", Letters(kLong), "quick brown");
  AddSearch("code page 936", Chinese(kLong), "\xB3\xC7\xCA\xD0");
  AddReplacement();
  AddFormatting();
  AddSplitting();
  AddMatching();
  return bench::Run(argc, argv);
}
