// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <quarnfc/ext/json_text_edit.h>

#include <set>
#include <string>
#include <vector>

#include "tests/ext/parsed_json.h"

namespace quarnfc::ext {
namespace {

using json_text_test::Parsed;

std::string Replaced(const std::string& text, const char* pointer, const char* value) {
  const JsonText json = Parsed(text);
  return ApplyJsonEdits(text, {ReplaceJsonValue(*json.Root().Find(pointer), value)});
}

std::string Removed(const std::string& text, const std::set<std::size_t>& indexes) {
  const JsonText json = Parsed(text);
  const auto removed = [&](std::size_t index) { return indexes.count(index) != 0; };
  std::string result = ApplyJsonEdits(text, RemoveJsonItems(json.Root(), removed));
  Parsed(result);
  return result;
}

std::string Appended(const std::string& text, const char* key, const char* value) {
  const JsonText json = Parsed(text);
  std::optional<std::string> member;
  if (key != nullptr) member = key;
  std::string result =
      ApplyJsonEdits(text, {AppendJsonItems(json, json.Root(), {{member, value}})});
  Parsed(result);
  return result;
}

TEST(JsonTextEdit, ReplacingAValueKeepsEveryOtherByte) {
  EXPECT_EQ(Replaced("{ \"a\" : 1.50 ,\r\n\t\"b\":\"\\u4e2d\" , \"c\":[null , 1e-7]}", "/a", "2"),
            "{ \"a\" : 2 ,\r\n\t\"b\":\"\\u4e2d\" , \"c\":[null , 1e-7]}");
  EXPECT_EQ(Replaced("[null,1e-7]", "/0", "{}"), "[{},1e-7]");
  EXPECT_EQ(Replaced(" 1 ", "", "2"), " 2 ");
}

TEST(JsonTextEdit, NewItemsTakeTheLayoutOfTheLast) {
  EXPECT_EQ(Appended("{}", "k", "1"), "{\"k\": 1}");
  EXPECT_EQ(Appended("{\"a\":1}", "k", "2"), "{\"a\":1,\"k\":2}");
  EXPECT_EQ(Appended("{\"a\": 1}", "k", "2"), "{\"a\": 1, \"k\": 2}");
  EXPECT_EQ(Appended("[1]", nullptr, "2"), "[1,2]");
  EXPECT_EQ(Appended("{\"a\": 1, \"b\": 2}", "k", "3"), "{\"a\": 1, \"b\": 2, \"k\": 3}");
  EXPECT_EQ(Appended("{\r\n\t\"a\":1\r\n}", "\"", "2"), "{\r\n\t\"a\":1,\r\n\t\"\\\"\":2\r\n}");
  EXPECT_EQ(Appended("[]", nullptr, "1"), "[1]");
  EXPECT_EQ(Appended("[ 1 , 2 ]", nullptr, "3"), "[ 1 , 2, 3 ]");
}

TEST(JsonTextEdit, InsertedElementsTakeTheLayoutOfTheOthers) {
  const auto inserted = [](const std::string& text, std::size_t index) {
    const JsonText json = Parsed(text);
    std::string result = ApplyJsonEdits(text, {InsertJsonElement(json, json.Root(), index, "9")});
    Parsed(result);
    return result;
  };
  EXPECT_EQ(inserted("[1,2]", 0), "[9,1,2]");
  EXPECT_EQ(inserted("[ 1, 2 ]", 1), "[ 1, 9, 2 ]");
  EXPECT_EQ(inserted("[\n  1,\n  [2]\n]", 1), "[\n  1,\n  9,\n  [2]\n]");
  EXPECT_EQ(inserted("[\r\n\t1\r\n]", 0), "[\r\n\t9,\r\n\t1\r\n]");
  EXPECT_EQ(inserted("[1, 2]", 2), "[1, 2, 9]");
  EXPECT_EQ(inserted("[]", 0), "[9]");
}

TEST(JsonTextEdit, RemovedItemsTakeOneCommaWithThem) {
  const std::string text = "{\n  \"a\": 1,\n  \"b\": 2,\n  \"c\": 3\n}";
  EXPECT_EQ(Removed(text, {0}), "{\n  \"b\": 2,\n  \"c\": 3\n}");
  EXPECT_EQ(Removed(text, {1}), "{\n  \"a\": 1,\n  \"c\": 3\n}");
  EXPECT_EQ(Removed(text, {2}), "{\n  \"a\": 1,\n  \"b\": 2\n}");
  EXPECT_EQ(Removed(text, {0, 1}), "{\n  \"c\": 3\n}");
  EXPECT_EQ(Removed(text, {0, 2}), "{\n  \"b\": 2\n}");
  EXPECT_EQ(Removed(text, {1, 2}), "{\n  \"a\": 1\n}");
  EXPECT_EQ(Removed(text, {0, 1, 2}), "{}");
  EXPECT_EQ(Removed("[1, [2], 3]", {1}), "[1, 3]");
}

TEST(JsonTextEdit, QuotedTextReadsBack) {
  const std::pair<std::string, const char*> cases[] = {
      {"", R"("")"},
      {"a\"b\\c/", R"("a\"b\\c/")"},
      {"\b\f\n\r\t", R"("\b\f\n\r\t")"},
      {std::string("\0\x1F\x7F", 3), "\"\\u0000\\u001f\x7F\""},
      {"\xE4\xB8\xAD\xF0\x9F\x98\x80", "\"\xE4\xB8\xAD\xF0\x9F\x98\x80\""},
  };
  for (const auto& [text, json] : cases) {
    EXPECT_EQ(QuoteJson(text), json);
    EXPECT_EQ(Parsed(json).Root().String(), text);
  }
  EXPECT_EQ(QuoteJson("\xD6\xD0"), "\"\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace quarnfc::ext
