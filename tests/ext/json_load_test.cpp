// SPDX-License-Identifier: MIT
// Strict JSON into the document model and out of it. The code page is 936 in every run.
#include <quarnfc/ext/json_access.h>
#include <quarnfc/ext/json_load.h>
#include <quarnfc/ext/json_write.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using quarnfc::ext::JsonDocument;
using quarnfc::ext::JsonFault;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::LoadJsonAnsi;
using quarnfc::ext::LoadJsonUtf8;
using quarnfc::ext::WriteJson;
using std::string_literals::operator""s;

std::string Written(const std::unique_ptr<CMyJsonValue>& value) {
  return value == nullptr ? "refused" : WriteJson(*value).value_or("not written");
}

TEST(JsonLoad, DocumentsComeBackAsTheyWere) {
  const std::string texts[] = {
      "null",
      "true",
      "0",
      "-0",
      "0.1",
      "1e+300",
      "5e-324",
      "9007199254740992",
      "\"\"",
      "\"\xE4\xB8\xAD\"",
      R"("\"\\\b\f\n\r\t\u0001/")",
      "[]",
      "{}",
      R"([null,1,"a",[2,[]],{"b":null}])",
      R"({"":1,"a\\b":[true,false],"\n":{"x":{}}})",
  };
  for (const std::string& text : texts) {
    EXPECT_EQ(Written(LoadJsonUtf8(text)), text);
    EXPECT_EQ(Written(LoadJsonUtf8("\xEF\xBB\xBF " + text + "\n")), text) << "mark and blanks";
  }
}

TEST(JsonLoad, EscapesBecomeTextInTheCodePage) {
  const auto value = LoadJsonUtf8(R"({"\u4e2d":"\u20AC\u0041"})");
  ASSERT_NE(value, nullptr);
  EXPECT_STREQ(value->CreateJson(false),
               "{\"\xD6\xD0\":\"\x80"
               "A\"}");
  EXPECT_EQ(Written(value),
            "{\"\xE4\xB8\xAD\":\"\xE2\x82\xAC"
            "A\"}");
}

TEST(JsonLoad, AnsiTextIsReadAsUtf8Is) {
  const auto value = LoadJsonAnsi("{\"\xD6\xD0\":\"\xCF\xE6\"}");
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(Written(value), "{\"\xE4\xB8\xAD\":\"\xE6\xB9\x98\"}");
}

TEST(JsonLoad, WhatIsRefusedSaysWhyAndWhere) {
  const struct {
    std::string text;
    JsonFault fault;
    std::size_t offset, line, column;
  } cases[] = {
      {"", JsonFault::kEnd, 0, 1, 1},
      {"{\n  \"a\": 1,\n  \"\xE4\xB8\xAD\": tru}", JsonFault::kValue, 21, 3, 8},
      {"\xEF\xBB\xBF[1,]", JsonFault::kValue, 6, 1, 4},
      {"[1] x", JsonFault::kTrailing, 4, 1, 5},
      {"[\"a\", \"\xF0\x9F\x98\x80\"]", JsonFault::kCodePage, 6, 1, 7},
      {"{\"\xF0\x9F\x98\x80\":1}", JsonFault::kCodePage, 1, 1, 2},
      {"[1, \"a\\u0000b\"]", JsonFault::kZero, 4, 1, 5},
      {"[1, 1e999]", JsonFault::kNumberRange, 4, 1, 5},
      {"{\"a\":1,\n\"\\u0061\":2}", JsonFault::kDuplicateKey, 8, 2, 1},
      {"[\"\xFF\"]", JsonFault::kUtf8, 2, 1, 3},
  };
  for (const auto& each : cases) {
    JsonTextError error;
    EXPECT_EQ(LoadJsonUtf8(each.text, &error), nullptr) << each.text;
    EXPECT_EQ(error.fault, each.fault) << each.text << ": " << error.Message();
    EXPECT_EQ(error.offset, each.offset) << each.text;
    EXPECT_EQ(error.line, each.line) << each.text;
    EXPECT_EQ(error.column, each.column) << each.text;
    EXPECT_EQ(LoadJsonUtf8(each.text), nullptr) << "nobody need ask";
  }
}

TEST(JsonLoad, PlacesInAnsiTextCountItsOwnBytes) {
  const struct {
    std::string text;
    JsonFault fault;
    std::size_t offset, line, column;
  } cases[] = {
      {"[\"\xD6\xD0\xD6\xD0\",\n\"\xD6\xD0\" x]", JsonFault::kCommaOrEnd, 14, 2, 5},
      {"[\"\xD6\xD0\",\n \"\xFE\x20\"]", JsonFault::kAnsi, 9, 2, 3},
  };
  for (const auto& each : cases) {
    JsonTextError error;
    EXPECT_EQ(LoadJsonAnsi(each.text, &error), nullptr);
    EXPECT_EQ(error.fault, each.fault) << error.Message();
    EXPECT_EQ(error.offset, each.offset);
    EXPECT_EQ(error.line, each.line);
    EXPECT_EQ(error.column, each.column);
  }
}

TEST(JsonLoad, TheDepthIsWhatTheLimitsSayAndTakesNoStack) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
  };
  JsonTextError error;
  EXPECT_NE(LoadJsonUtf8(nested(1000)), nullptr);
  EXPECT_EQ(LoadJsonUtf8(nested(1001), &error), nullptr);
  EXPECT_EQ(error.fault, JsonFault::kDepth);
  const std::string deep = nested(200000);
  EXPECT_EQ(Written(LoadJsonUtf8(deep, nullptr, {200000})), deep);
}

TEST(JsonWrite, ALayoutHasOneItemPerLine) {
  const auto value = LoadJsonUtf8(R"({"a":[1,{}],"b":[],"c":{"d":null}})");
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(WriteJson(*value, {2, "\r\n"}),
            "{\r\n  \"a\": [\r\n    1,\r\n    {}\r\n  ],\r\n  \"b\": [],\r\n  \"c\": {\r\n"
            "    \"d\": null\r\n  }\r\n}");
}

TEST(JsonWrite, NumbersAreShortestAndReadBackEqual) {
  for (const double number :
       {0.1, 1.0 / 3, 1e21, 123456789012345680.0, -2.5e-7, std::numeric_limits<double>::max(),
        std::numeric_limits<double>::denorm_min()}) {
    const CMyJsonValue value(number);
    const std::string text = WriteJson(value).value();
    const auto again = LoadJsonUtf8(text);
    ASSERT_NE(again, nullptr) << text;
    EXPECT_EQ(again->ValueNumber(), number) << text;
    EXPECT_LE(text.size(), 24u);
  }
  EXPECT_EQ(WriteJson(CMyJsonValue(0.1)), "0.1");
}

TEST(JsonWrite, WhatJsonCannotSayIsRefused) {
  EXPECT_EQ(WriteJson(CMyJsonValue(std::numeric_limits<double>::infinity())), std::nullopt);
  EXPECT_EQ(WriteJson(CMyJsonValue(std::numeric_limits<double>::quiet_NaN())), std::nullopt);
  EXPECT_EQ(WriteJson(CMyJsonValue("a\xD6")), std::nullopt);
  CMyJsonObj object;
  object.AddItem("\xFE\x20", 1);
  CMyJsonValue value(object.Clone());
  EXPECT_EQ(WriteJson(value), std::nullopt);
}

TEST(JsonWrite, AnOwningDocumentTakesWhatIsLoaded) {
  const JsonDocument document(LoadJsonUtf8(R"({"servers":[{"port":8080}]})").release());
  EXPECT_EQ(document.ValueOr("servers[0]\\port", 0), 8080);
}

}  // namespace
