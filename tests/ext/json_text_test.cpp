// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <quarnfc/ext/json_text.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "support/build_paths.h"
#include "tests/ext/parsed_json.h"

namespace quarnfc::ext {
namespace {

using json_text_test::Parsed;

// --- the texts by which readers are compared ----------------------------------------------------

std::string Unescaped(const std::string& line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\') {
      text += line[i];
      continue;
    }
    text += static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
    i += 3;
  }
  return text;
}

std::map<std::string, std::string> ConformanceCases() {
  std::ifstream file(QUARNFC_TEST_DATA "/json/rfc8259-cases.txt", std::ios::binary);
  std::map<std::string, std::string> cases;
  std::string line;
  while (std::getline(file, line)) {
    const std::size_t tab = line.find('\t');
    if (line[0] != '#') cases[line.substr(0, tab)] = Unescaped(line.substr(tab + 1));
  }
  std::string deep;
  for (int i = 0; i < 50000; ++i) deep += "[{\"\":";
  cases["n_structure_open_array_object"] = deep + "\n";
  cases["n_structure_100000_opening_arrays"] = std::string(100000, '[');
  return cases;
}

TEST(JsonTextConformance, EveryValidTextIsAcceptedAndEveryInvalidOneRefused) {
  std::map<char, int> count;
  JsonTextLimits no_limit;
  no_limit.max_depth = 1'000'000;
  for (const auto& [name, text] : ConformanceCases()) {
    ++count[name[0]];
    JsonText json;
    JsonTextError error;
    const bool accepted = json.Parse(text, &error, no_limit);
    if (name[0] != 'i') {
      EXPECT_EQ(accepted, name[0] == 'y') << name << ": " << error.Message();
    }
    EXPECT_EQ(accepted, error.fault == JsonFault::kNone) << name;
  }
  EXPECT_EQ(count, (std::map<char, int>{{'y', 95}, {'n', 188}, {'i', 35}}));
}

TEST(JsonTextConformance, WhatTheGrammarLeavesOpenIsDecided) {
  const std::map<std::string, std::string> cases = ConformanceCases();
  const std::map<std::string, bool> decisions = {
      {"i_number_huge_exp", true},
      {"i_number_too_big_pos_int", true},
      {"i_structure_500_nested_arrays", true},
      {"i_string_1st_surrogate_but_2nd_missing", false},
      {"i_string_inverted_surrogates_U+1D11E", false},
      {"i_string_overlong_sequence_2_bytes", false},
      {"i_string_UTF-16LE_with_BOM", false},
      {"i_structure_UTF-8_BOM_empty_object", false},
  };
  for (const auto& [name, accepted] : decisions) {
    JsonText json;
    ASSERT_TRUE(cases.count(name)) << name;
    EXPECT_EQ(json.Parse(cases.at(name)), accepted) << name;
  }
}

// --- errors -------------------------------------------------------------------------------------

TEST(JsonText, FaultsAreToldWithTheirPlace) {
  const struct {
    const char* text;
    JsonFault fault;
    std::size_t offset;
    std::size_t line;
    std::size_t column;
  } cases[] = {
      {"", JsonFault::kEnd, 0, 1, 1},
      {"{\"a\":1", JsonFault::kEnd, 6, 1, 7},
      {"[1,]", JsonFault::kValue, 3, 1, 4},
      {"[nul]", JsonFault::kValue, 1, 1, 2},
      {"{\"a\":1,}", JsonFault::kKey, 7, 1, 8},
      {"{\n  \"port\" 80\n}", JsonFault::kColon, 11, 2, 10},
      {"{\"\xE4\xB8\xAD\" 1}", JsonFault::kColon, 7, 1, 6},
      {"[1 2]", JsonFault::kCommaOrEnd, 3, 1, 4},
      {"[01]", JsonFault::kNumber, 1, 1, 2},
      {"[1.]", JsonFault::kNumber, 3, 1, 4},
      {"[\"\\x\"]", JsonFault::kEscape, 2, 1, 3},
      {"[\"\\u12\"]", JsonFault::kEscape, 2, 1, 3},
      {"[\"\\ud800\"]", JsonFault::kSurrogate, 2, 1, 3},
      {"[\"\t\"]", JsonFault::kControl, 2, 1, 3},
      {"[\"\xD6\xD0\"]", JsonFault::kUtf8, 2, 1, 3},
      {"{} {}", JsonFault::kTrailing, 3, 1, 4},
      {"[\"abc]", JsonFault::kUnfinishedText, 1, 1, 2},
  };
  for (const auto& each : cases) {
    JsonText json;
    JsonTextError error;
    EXPECT_FALSE(json.Parse(each.text, &error)) << each.text;
    EXPECT_EQ(error.fault, each.fault) << each.text << ": " << error.Message();
    EXPECT_EQ(error.offset, each.offset) << each.text;
    EXPECT_EQ(error.line, each.line) << each.text;
    EXPECT_EQ(error.column, each.column) << each.text;
  }
}

TEST(JsonText, RefusedTextLeavesTheDocumentAsItWas) {
  JsonText json = Parsed("[1]");
  EXPECT_FALSE(json.Parse("[2"));
  EXPECT_EQ(json.Text(), "[1]");
  EXPECT_EQ(json.Root().Count(), 1u);
  EXPECT_EQ(JsonText().Root().Source(), "null");
}

TEST(JsonText, DepthIsLimitedAsAsked) {
  JsonText json;
  JsonTextError error;
  JsonTextLimits limits;
  limits.max_depth = 2;
  EXPECT_TRUE(json.Parse("[[1],{}]", nullptr, limits));
  EXPECT_FALSE(json.Parse("[[[1]]]", &error, limits));
  EXPECT_EQ(error.fault, JsonFault::kDepth);
  EXPECT_EQ(error.offset, 2u);
}

// --- values -------------------------------------------------------------------------------------

TEST(JsonText, ValuesKeepTheirSpelling) {
  const JsonText json =
      Parsed(R"( {"n": 1.50E+00 , "s": "\u4e2d/\/", "l": [ null, true,false ]} )");
  const JsonTextNode root = json.Root();
  EXPECT_EQ(root.Member("n")->Source(), "1.50E+00");
  EXPECT_EQ(root.Member("s")->Source(), R"("\u4e2d/\/")");
  EXPECT_EQ(root.Member("l")->Source(), "[ null, true,false ]");
  double number = 0;
  EXPECT_TRUE(root.Member("n")->Number(number));
  EXPECT_EQ(number, 1.5);
  EXPECT_FALSE(root.Number(number));
  EXPECT_FALSE(Parsed("1e999").Root().Number(number));
}

TEST(JsonText, StringsAreUnescaped) {
  const std::pair<const char*, std::string> cases[] = {
      {R"("")", ""},
      {R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t"},
      {R"("\u0041\u00e9\u4E2D")", "A\xC3\xA9\xE4\xB8\xAD"},
      {R"("\ud83d\uDE00!")", "\xF0\x9F\x98\x80!"},
      {R"("\u0000x")", std::string("\0x", 2)},
  };
  for (const auto& [json, text] : cases) EXPECT_EQ(Parsed(json).Root().String(), text) << json;
}

TEST(JsonText, ItemsComeInTheOrderOfTheText) {
  const JsonText json = Parsed(R"({"b":[1,[2]],"a":{},"b":3})");
  std::string keys;
  std::vector<JsonKind> kinds;
  for (const auto& item : json.Root().Items()) {
    keys += item.key->String();
    kinds.push_back(item.value.Kind());
  }
  EXPECT_EQ(keys, "bab");
  EXPECT_EQ(kinds, (std::vector<JsonKind>{JsonKind::kArray, JsonKind::kObject, JsonKind::kNumber}));
  EXPECT_EQ(json.Root().Count(), 3u);
  for (const char* empty : {"[]", "{}", "1", "\"x\""}) {
    const JsonText none = Parsed(empty);
    for (const auto& item : none.Root().Items()) ADD_FAILURE() << empty << item.value.Begin();
  }
}

TEST(JsonText, DuplicateKeysAreReportedAndTheLastOneCounts) {
  const JsonText json = Parsed(R"({"a":1,"x":{"k":1,"\u006b":2},"a":3})");
  const std::vector<JsonTextNode> duplicates = json.DuplicateKeys();
  ASSERT_EQ(duplicates.size(), 2u);
  EXPECT_EQ(duplicates[0].String(), "a");
  EXPECT_EQ(duplicates[1].Source(), R"("\u006b")");
  EXPECT_EQ(json.Root().Member("a")->Source(), "3");
}

TEST(JsonText, PointersLeadToValues) {
  // The document and the pointers of RFC 6901, section 5.
  const JsonText json = Parsed(
      R"({"foo":["bar","baz"],"":0,"a/b":1,"c%d":2,"e^f":3,"g|h":4,"i\\j":5,"k\"l":6," ":7,"m~n":8})");
  const std::pair<const char*, const char*> cases[] = {
      {"/foo/0", "\"bar\""}, {"/", "0"},     {"/a~1b", "1"}, {"/c%d", "2"}, {"/e^f", "3"},
      {"/g|h", "4"},         {"/i\\j", "5"}, {"/k\"l", "6"}, {"/ ", "7"},   {"/m~0n", "8"},
  };
  for (const auto& [pointer, source] : cases) {
    const auto node = json.Root().Find(pointer);
    ASSERT_TRUE(node.has_value()) << pointer;
    EXPECT_EQ(node->Source(), source) << pointer;
  }
  EXPECT_EQ(json.Root().Find("")->Source(), json.Text());
  for (const char* nothing : {"foo", "/foo/2", "/foo/00", "/foo/-", "/foo/", "/foo/0/x", "/m~n",
                              "/m~", "/foo/99999999999999999999"}) {
    EXPECT_FALSE(json.Root().Find(nothing).has_value()) << nothing;
  }
}

}  // namespace
}  // namespace quarnfc::ext
