// SPDX-License-Identifier: MIT
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <string>

#include "tests/json/json_support.h"

namespace {

using json_test::Bytes;
using json_test::Compact;
using json_test::Indented;
using json_test::Read;
using json_test::Repeat;
using json_test::TakeText;
using json_test::ValuePtr;

// --- scalars ------------------------------------------------------------------------------------

TEST(JsonWriter, ScalarsAreWrittenBare) {
  for (const bool indent : {false, true}) {
    EXPECT_EQ(Bytes(CMyJsonValue("s").CreateJson(indent)), "\"s\"");
    EXPECT_EQ(Bytes(CMyJsonValue("").CreateJson(indent)), "\"\"");
    EXPECT_EQ(Bytes(CMyJsonValue(5.0).CreateJson(indent)), "5");
    EXPECT_EQ(Bytes(CMyJsonValue(true).CreateJson(indent)), "true");
    EXPECT_EQ(Bytes(CMyJsonValue(false).CreateJson(indent)), "false");
    EXPECT_EQ(Bytes(CMyJsonValue().CreateJson(indent)), "");
  }
}

TEST(JsonWriter, ExactlyFiveBytesAreEscaped) {
  const std::map<char, std::string> escapes = {
      {'\\', R"("\\")"}, {'"', R"("\"")"}, {'\t', R"("\t")"}, {'\r', R"("\r")"}, {'\n', R"("\n")"}};
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    const auto escaped = escapes.find(text[0]);
    EXPECT_EQ(Compact(CMyJsonValue(text.c_str())),
              escaped != escapes.end() ? escaped->second : '"' + text + '"')
        << byte;
  }
}

TEST(JsonWriter, EscapesAreFoundAtEveryPlaceOfATextOfAnyLength) {
  const std::string escaped = "\\\"\t\r\n", escapes = "\\\"trn";
  for (const char filler : {'x', '\x01', '\x0E', '\xDC', '\xFF'}) {
    for (std::size_t length = 1; length < 36; ++length) {
      for (std::size_t place = 0; place < length; ++place) {
        const std::size_t which = (length + place) % escaped.size();
        std::string text(length, filler), expected = text;
        text[place] = escaped[which];
        expected.replace(place, 1, {'\\', escapes[which]});
        ASSERT_EQ(Compact(CMyJsonValue(text.c_str())), '"' + expected + '"');
      }
      const std::string plain(length, filler);
      ASSERT_EQ(Compact(CMyJsonValue(plain.c_str())), '"' + plain + '"');
    }
  }
}

TEST(JsonWriter, RandomTextsAreEscapedByteByByte) {
  std::mt19937 random(1);
  const std::map<char, char> escapes = {
      {'\\', '\\'}, {'"', '"'}, {'\t', 't'}, {'\r', 'r'}, {'\n', 'n'}};
  for (int i = 0; i < 5000; ++i) {
    std::string text, expected;
    for (auto left = random() % 40; left > 0; --left) {
      text += static_cast<char>(1 + random() % (i % 2 != 0 ? 255 : 95));
      const auto escape = escapes.find(text.back());
      if (escape != escapes.end()) expected += '\\';
      expected += escape != escapes.end() ? escape->second : text.back();
    }
    ASSERT_EQ(Compact(CMyJsonValue(text.c_str())), '"' + expected + '"');
  }
}

TEST(JsonWriter, EscapingIsByBytesAlsoInDoubleByteCharacters) {
  EXPECT_EQ(Compact(CMyJsonValue("\x81\x5Cx")), "\"\x81\x5C\x5Cx\"");
}

TEST(JsonWriter, TextThatEndsLikeALayoutIsKept) {
  EXPECT_EQ(Compact(CMyJsonValue("a }\t\r\n")), R"("a }\t\r\n")");
  EXPECT_EQ(Compact(CMyJsonValue("\"tmp\":")), R"("\"tmp\":")");
}

TEST(JsonWriter, NumbersHaveFifteenDecimalPlacesAndNoTrailingZeros) {
  const struct {
    double number;
    const char* text;
  } cases[] = {
      {0, "0"},
      {-0.0, "-0"},
      {1, "1"},
      {10, "10"},
      {-100, "-100"},
      {1.5, "1.5"},
      {0.1, "0.1"},
      {100.25, "100.25"},
      {1e-15, "0.000000000000001"},
      {5e-16, "0.000000000000001"},
      {1e-16, "0"},
      {-1e-16, "-0"},
      {1e-20, "0"},
      {1e20, "100000000000000000000"},
      {0.3, "0.3"},
      {65.6, "65.599999999999994"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {123456789.125, "123456789.125"},
      {4503599627370495.5, "4503599627370495.5"},
      {9007199254740993.0, "9007199254740992"},
      {std::numeric_limits<double>::denorm_min(), "0"},
      {std::numeric_limits<double>::infinity(), "inf"},
      {-std::numeric_limits<double>::infinity(), "-inf"},
      {std::copysign(std::nan(""), 1.0), "nan"},
      {std::copysign(std::nan(""), -1.0), "-nan(ind)"},
  };
  for (const auto& [number, text] : cases) {
    EXPECT_EQ(Compact(CMyJsonValue(number)), text);
  }
}

TEST(JsonWriter, LargestNumberHasAllItsDigits) {
  const std::string text = Compact(CMyJsonValue(std::numeric_limits<double>::max()));
  EXPECT_EQ(text.size(), 309u);
  EXPECT_EQ(text.substr(0, 20), "17976931348623157081");
  EXPECT_EQ(text.substr(300), "124858368");
}

// --- compact layout -----------------------------------------------------------------------------

TEST(JsonWriter, CompactTextIsTheShortestFormOfWhatWasRead) {
  for (const std::string text :
       {R"({})", R"({"a":1,"s":"x\"y","n":[1,2.5],"o":[{"k":true}]})",
        R"({"a":{},"b":[],"c":null})", R"({"a":[[],[[1]],{"b":[{}]}],"d":{"e":{"f":false}}})"}) {
    CMyJsonObj object;
    ASSERT_TRUE(object.Load(text.c_str()));
    EXPECT_EQ(Compact(object), text);
    EXPECT_EQ(Compact(CMyJsonValue(object.Clone())), text);
  }
}

TEST(JsonWriter, EmptyElementsLeaveOnlyTheirCommas) {
  const auto null = [] { return new CMyJsonValue; };
  CMyJsonValue* one[] = {null()};
  CMyJsonValue* leading[] = {null(), new CMyJsonValue(1)};
  CMyJsonValue* several[] = {null(), new CMyJsonValue(1), null(), null()};
  EXPECT_EQ(Compact(CMyJsonValue(one, 1)), "[]");
  const CMyJsonValue leading_array(leading, 2);
  EXPECT_EQ(Compact(leading_array), "[,1]");
  EXPECT_EQ(Compact(*Read(Compact(leading_array))), "[0,1]");
  const CMyJsonValue several_array(several, 4);
  EXPECT_EQ(Compact(several_array), "[,1,,]");
  EXPECT_EQ(Indented(several_array), "[,1,,]");
}

TEST(JsonWriter, NullPointersInAnArrayAreWrittenLikeEmptyElements) {
  CMyJsonValue* elements[] = {nullptr, new CMyJsonValue(1), nullptr};
  const CMyJsonValue array(elements, 3);
  EXPECT_EQ(Compact(array), "[,1,]");
  const ValuePtr clone(array.Clone());
  EXPECT_EQ(clone->ValueArrItem(0), nullptr);
  EXPECT_EQ(Compact(*clone), "[,1,]");
}

TEST(JsonWriter, KeysAreWrittenWithoutEscapes) {
  CMyJsonObj object;
  object.AddItem("a\"b", 1);
  object.AddItem("c\\d\t", 2);
  EXPECT_EQ(Compact(object), "{\"a\"b\":1,\"c\\d\t\":2}");
  CMyJsonObj reread;
  EXPECT_FALSE(reread.Load(object.CreateJson(false)));
}

// --- indented layout ----------------------------------------------------------------------------

struct LayoutCase {
  const char* text;
  std::string indented;
};

TEST(JsonWriter, IndentedObjects) {
  const LayoutCase cases[] = {
      {"{}", "{\r\n}"},
      {R"({"a":1})", "{\r\n\t\"a\":1\r\n}"},
      {R"({"a":1,"b":null})", "{\r\n\t\"a\":1,\r\n\t\"b\":null\r\n}"},
      {R"({"a":[]})", "{\r\n\t\"a\":[]\r\n}"},
      {R"({"a":{}})", "{\r\n\t\"a\":{\r\n\t}\r\n}"},
      {R"({"a":{"b":{"c":1}},"d":2})",
       "{\r\n\t\"a\":{\r\n\t\t\"b\":{\r\n\t\t\t\"c\":1\r\n\t\t}\r\n\t},\r\n\t\"d\":2\r\n}"},
      {R"({"a":1,"s":"x\"y","n":[1,2.5],"o":[{"k":true}]})",
       "{\r\n"
       "\t\"a\":1,\r\n"
       "\t\"s\":\"x\\\"y\",\r\n"
       "\t\"n\":[1,2.5],\r\n"
       "\t\"o\":[\r\n"
       "\t\t{\r\n"
       "\t\t\t\"k\":true\r\n"
       "\t\t}\r\n"
       "\t]\r\n"
       "}"},
  };
  for (const auto& [text, indented] : cases) {
    CMyJsonObj object;
    ASSERT_TRUE(object.Load(text));
    EXPECT_EQ(Indented(object), indented);
    EXPECT_EQ(Indented(CMyJsonValue(object.Clone())), indented);
  }
}

TEST(JsonWriter, IndentedArraysInObjects) {
  const LayoutCase cases[] = {
      {R"({"a":[{},{}]})", "{\r\n\t\"a\":[\r\n\t\t{\r\n\t\t},\r\n\t\t{\r\n\t\t}\r\n\t]\r\n}"},
      // an object that is not the first element begins no new line of its own
      {R"({"a":[1,{},2]})", "{\r\n\t\"a\":[1,\t\t{\r\n\t\t},\r\n2]\r\n}"},
      // arrays in arrays leave an empty line between them
      {R"({"a":[[1],[2]]})", "{\r\n\t\"a\":[\r\n\t[1],\r\n\r\n\t[2]\r\n\t]\r\n}"},
      {R"({"a":[[[]]]})", "{\r\n\t\"a\":[\r\n\t[\r\n\t\t[]\r\n\t\t]\r\n\t]\r\n}"},
      {R"({"a":[1,[2]]})", "{\r\n\t\"a\":[1,\r\n\t[2]\r\n\t]\r\n}"},
      {R"({"a":[[1],{"b":[{}]}]})",
       "{\r\n\t\"a\":[\r\n\t[1],\r\n\t\t{\r\n\t\t\t\"b\":[\r\n\t\t\t\t{\r\n\t\t\t\t}\r\n\t\t\t]"
       "\r\n\t\t}\r\n\t]\r\n}"},
  };
  for (const auto& [text, indented] : cases) {
    CMyJsonObj object;
    ASSERT_TRUE(object.Load(text));
    EXPECT_EQ(Indented(object), indented) << text;
  }
}

TEST(JsonWriter, IndentedTopLevelArraysKeepTheIndentationOfAMember) {
  const LayoutCase cases[] = {
      {"[]", "[]"},
      {"[1,2]", "[1,2]"},
      {R"([{"a":1}])", "[\r\n\t\t{\r\n\t\t\t\"a\":1\r\n\t\t}\r\n\t]"},
      {"[[]]", "[\r\n\t[]\r\n\t]"},
      {"[[1],2]", "[\r\n\t[1],\r\n2]"},
  };
  for (const auto& [text, indented] : cases) EXPECT_EQ(Indented(*Read(text)), indented);
}

TEST(JsonWriter, NothingIsLostAtTheBoundariesOfPieces) {
  for (const int length : {500, 509, 510, 511, 512, 513, 514, 2000}) {
    const std::string text(static_cast<std::size_t>(length), 'x');
    std::string document = R"({"a":"#","b":["#",{"c":"#"},"#"],"d":"#"})";
    for (std::size_t at = 0; (at = document.find('#')) != std::string::npos;) {
      document.replace(at, 1, text);
    }
    CMyJsonObj object;
    ASSERT_TRUE(object.Load(document.c_str()));
    EXPECT_EQ(Compact(object), document);
  }
}

// --- UTF-8 --------------------------------------------------------------------------------------

TEST(JsonWriter, UTF8TextIsTheSameTextConverted) {
  CMyJsonObj object;
  object.AddItem("\xD6\xD0", "\xCE\xC4 \x80");  // Chinese characters and the euro sign
  EXPECT_EQ(Compact(object), "{\"\xD6\xD0\":\"\xCE\xC4 \x80\"}");
  const std::string compact = "{\"\xE4\xB8\xAD\":\"\xE6\x96\x87 \xE2\x82\xAC\"}";
  EXPECT_EQ(TakeText(object.CreateUTF8Json(false)), compact);
  EXPECT_EQ(TakeText(CMyJsonValue(object.Clone()).CreateUTF8Json(false)), compact);
  EXPECT_EQ(TakeText(object.CreateUTF8Json(true)),
            "{\r\n\t\"\xE4\xB8\xAD\":\"\xE6\x96\x87 \xE2\x82\xAC\"\r\n}");
}

TEST(JsonWriter, UTF8TextOfAnEmptyValueIsEmpty) {
  EXPECT_EQ(TakeText(CMyJsonValue().CreateUTF8Json(true)), "");
}

TEST(JsonWriter, UTF8ConversionHasNoLengthAtWhichItFails) {
  // The text has two quotes and a terminator more; the scratch buffers end at 64, 128, 256, 512.
  for (const int limit : {64, 128, 256, 512, 5000}) {
    for (int count = limit - 5; count <= limit + 3; ++count) {
      const auto length = static_cast<std::size_t>(count);
      EXPECT_EQ(TakeText(CMyJsonValue(Repeat("\xD6\xD0", length).c_str()).CreateUTF8Json(false)),
                "\"" + Repeat("\xE4\xB8\xAD", length) + "\"");
    }
  }
}

// --- reading back -------------------------------------------------------------------------------

TEST(JsonWriter, ScalarsButBareNumbersReadBack) {
  for (const char* text : {"\"s\"", "true", "false", "[1,{}]", "{\"a\":[]}"}) {
    const ValuePtr value = Read(text);
    EXPECT_TRUE(json_test::SameTree(*value, *Read(Indented(*value))));
    EXPECT_TRUE(json_test::SameTree(*value, *Read(Compact(*value))));
  }
  CMyJsonValue number(5.0);
  CQNString error;
  EXPECT_FALSE(number.Load(CMyJsonValue(5.0).CreateJson(false), error));
  EXPECT_EQ(Read("5 ")->ValueNumber(), 5);
  EXPECT_EQ(Read("5\r\n")->ValueNumber(), 5);
}

}  // namespace
