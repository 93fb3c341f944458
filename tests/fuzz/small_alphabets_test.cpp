// SPDX-License-Identifier: MIT
// Every text of a small alphabet up to a length, through the functions of the fuzzers, which
// compare with slow references.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz_targets.h"

namespace {

using namespace std::string_view_literals;

struct Exhaustive {
  const char* name;       // of the target
  std::string_view head;  // in front of each text
  std::string_view alphabet;
  std::size_t length;
};

// The two bytes D6 D0 are one character; either may also stand alone. A zero ends the first of two
// texts.
constexpr Exhaustive kCases[] = {
    {"wildcard", "", "*?aA\0\xD6"sv, 6},
    {"path_join", "a\\b\0"sv, ".\\/:a\xD6"sv, 6},
    {"path_join", "", ".\\/:\0"sv, 6},
    {"path_join", "", " \\.a\0"sv, 6},
    {"csv_row", "\0"sv, "\", a\r\xD6"sv, 6},
    {"csv_row", "\1"sv, "\", \xE4\xB8\xAD"sv, 6},
    {"csv_text", "\0"sv, "\", a\r\n"sv, 6},
    {"split", ",\0"sv, ", a\xD6"sv, 7},
    {"split", ",\1"sv, ", a"sv, 8},
    {"split", ",\2"sv, ", a"sv, 8},
    {"split", ",\3"sv, ", a"sv, 8},
    {"search", "a\0"sv, "a \0\xD6\xD0"sv, 6},
    {"search", "\xD6\2"sv, "a\t\0\xD6\xD0"sv, 6},
    {"json", "\0"sv, "{}[]\":,1"sv, 5},
    {"json", "\0{\"a\":"sv, "}]\"\\,tn"sv, 5},
    {"json", "a\0[\"\xD6"sv, "}]\"\\,\xD6u"sv, 5},
    {"json_tree", "\0"sv, "{}[]\":,1"sv, 5},
    {"json_tree", "\1{\"a\":"sv, "}]\"\\,tn"sv, 5},
    {"json_tree", "\0["sv, "1e.-+0,]"sv, 5},
    {"json_tree", "\0[\""sv, "]\"\\a\xD6\xD0"sv, 5},
    {"strict_json", "", "{}[]\":,1"sv, 5},
    {"strict_json", "[", "1e.-+0,]"sv, 5},
    {"strict_json", "\"\\", "\\uDd8C0\""sv, 6},
    {"date_time", "2001-1-1 "sv, "0-1: "sv, 6},
    {"date_time", "20"sv, "0-1: /"sv, 6},
    {"wkt", "", "A[]\",1 "sv, 6},
    {"wkt", "A[B[", "1.-+],"sv, 6},
    {"wkt_system", "", "A[(])\",1 "sv, 5},
    {"utf", "", "a\xC3\xA9\xE4\xED\xF0\xF4\x90"sv, 5},
    {"codec", "", "A=/a\0"sv, 6},
    {"string_edit", "ab\0"sv, "\x01\x04\0a\xD6"sv, 5},
    {"code_page", "\3"sv, "a\xC3\xA9\xE4\xB8\xF0"sv, 5},
};

const FuzzTarget& TargetOf(const Exhaustive& exhaustive) {
  for (const FuzzTarget& target : kFuzzTargets) {
    if (exhaustive.name == std::string_view(target.name)) return target;
  }
  std::abort();
}

// The text that ends the program, should one, is named by what was being run.
class Texts {
 public:
  explicit Texts(const Exhaustive& exhaustive)
      : exhaustive_(exhaustive), target_(TargetOf(exhaustive)), text_(exhaustive.head) {}

  void Run(std::size_t more) {
    ++count_;
    target_.run(reinterpret_cast<const std::uint8_t*>(text_.data()), text_.size());
    if (more == 0) return;
    for (const char ch : exhaustive_.alphabet) {
      text_.push_back(ch);
      Run(more - 1);
      text_.pop_back();
    }
  }

  long Count() const { return count_; }

 private:
  const Exhaustive& exhaustive_;
  const FuzzTarget& target_;
  std::string text_;
  long count_ = 0;
};

class SmallAlphabet : public testing::TestWithParam<Exhaustive> {};

TEST_P(SmallAlphabet, EveryTextHoldsTheProperty) {
  Texts texts(GetParam());
  texts.Run(GetParam().length);
  std::printf("%s: %ld texts\n", GetParam().name, texts.Count());
  EXPECT_GT(texts.Count(), 1000);
}

INSTANTIATE_TEST_SUITE_P(AllCases, SmallAlphabet, testing::ValuesIn(kCases), [](const auto& test) {
  return std::string(test.param.name) + "_" + std::to_string(test.index);
});

}  // namespace
