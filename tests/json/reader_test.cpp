// SPDX-License-Identifier: MIT
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "tests/json/json_support.h"

namespace {

using json_test::ArrayOf;
using json_test::Bytes;
using json_test::Compact;
using json_test::Read;
using json_test::Repeat;
using json_test::ValuePtr;

struct TextCase {
  std::string text;
  std::string result;  // the compact text of what was read, or the message
};

void ExpectObjects(std::initializer_list<TextCase> cases) {
  for (const auto& [text, result] : cases) {
    CMyJsonObj object;
    EXPECT_TRUE(object.Load(text.c_str())) << text << '\n' << Bytes(object.GetErrMsg());
    EXPECT_EQ(Compact(object), result) << text;
    EXPECT_EQ(Bytes(object.GetErrMsg()), "") << text;
  }
}

void ExpectObjectFailures(std::initializer_list<TextCase> cases) {
  for (const auto& [text, message] : cases) {
    CMyJsonObj object;
    object.AddItem("old", 1);
    EXPECT_FALSE(object.Load(text.c_str())) << text;
    EXPECT_EQ(object.ValueCount(), 0) << text;
    EXPECT_EQ(Bytes(object.GetErrMsg()), message) << text;
  }
}

void ExpectValues(std::initializer_list<TextCase> cases) {
  for (const auto& [text, result] : cases) {
    CMyJsonValue value;
    CQNString error("untouched");
    EXPECT_TRUE(value.Load(text.c_str(), error)) << text;
    EXPECT_EQ(Compact(value), result) << text;
    EXPECT_EQ(Bytes(error), "untouched") << text;
  }
}

void ExpectValueFailures(std::initializer_list<TextCase> cases) {
  for (const auto& [text, message] : cases) {
    const ValuePtr value = ArrayOf(1, 2);
    CQNString error;
    EXPECT_FALSE(value->Load(text.c_str(), error)) << text;
    EXPECT_TRUE(value->IsEmpty()) << text;
    EXPECT_EQ(value->ValueArrLength(), 0) << text;
    EXPECT_EQ(Bytes(error), message) << text;
  }
}

// --- objects ------------------------------------------------------------------------------------

TEST(JsonReader, ObjectsLoad) {
  ExpectObjects({
      {"{}", "{}"},
      {"  {}", "{}"},
      {" \t\r\n{ \t\r\n} \t\r\n", "{}"},
      {R"({"a":1})", R"({"a":1})"},
      {R"( { "a" : 1 , "b" : "x" } )", R"({"a":1,"b":"x"})"},
      {R"({"a":{"b":{"c":[1,{"d":true}]}}})", R"({"a":{"b":{"c":[1,{"d":true}]}}})"},
      {R"({"":1})", R"({"":1})"},
  });
}

TEST(JsonReader, CommasBetweenAndAfterMembersAreOptional) {
  ExpectObjects({
      {R"({"a":1 "b":2})", R"({"a":1,"b":2})"},
      {R"({"a":1,})", R"({"a":1})"},
      {R"({"a":"x""b":{}"c":[]"d":true"e":null"f":7 })",
       R"({"a":"x","b":{},"c":[],"d":true,"e":null,"f":7})"},
  });
}

TEST(JsonReader, MissingMemberValueReadsAsNull) {
  ExpectObjects({
      {R"({"a":,"b":null})", R"({"a":null,"b":null})"},
      {R"({"a":})", R"({"a":null})"},
      {R"({"a": , "b": })", R"({"a":null,"b":null})"},
      {R"({"a":null"b":nul})", R"({"a":null,"b":0})"},
  });
}

TEST(JsonReader, AnyTokenReadsAsANumber) {
  ExpectObjects({
      {R"({"a":abc})", R"({"a":0})"},
      {R"({"a":12abc})", R"({"a":12})"},
      {R"({"a":nan,"b":-inf,"c":NULL,"d":None})", R"({"a":0,"b":0,"c":0,"d":0})"},
      {R"({"a":{"b":tru}})", R"({"a":{"b":0}})"},
      {R"({"a":TRUE,"b":False})", R"({"a":0,"b":0})"},
      {R"({"a":1[2}3})", R"({"a":1})"},
      {R"({"a":1"b":2 })", R"({"a":1})"},
  });
}

TEST(JsonReader, DuplicateKeysKeepTheOrderOfTheText) {
  ExpectObjects({{R"({"a":1,"b":2,"a":3})", R"({"a":1,"b":2,"a":3})"}});
}

TEST(JsonReader, TextBehindTheOutermostObjectOrValueIsIgnored) {
  ExpectObjects({
      {R"({"a":1}{)", R"({"a":1})"},
      {R"({"a":1},,,)", R"({"a":1})"},
      {R"({"a":1}")", R"({"a":1})"},
      {"{}\xFF\x81", "{}"},
  });
  ExpectValues({
      {"[1]x", "[1]"},
      {"{}]", "{}"},
      {R"("s"")", R"("s")"},
      {"truex", "true"},
      {"1,\"", "1"},
  });
}

TEST(JsonReader, ObjectFailuresNameTheirReason) {
  ExpectObjectFailures({
      {"", "Can't find { "},
      {"  ", "Can't find { "},
      {"[1]", "Can't find { "},
      {"x{}", "Can't find { "},
      {"\xEF\xBB\xBF{}", "Can't find { "},
      // keys
      {R"({"abc)", "Invalid key: abc"},
      {R"({"abc\)", R"(Invalid key: abc\)"},
      {R"({"abc\")", R"(Invalid key: abc\")"},
      {R"({"a":1,"b)", "Invalid key: b"},
      // colons
      {R"({"a" 1})", "Can't find ':' : 1}"},
      {R"({"a")", "Can't find ':' : "},
      {R"({"a"  ,"b":1})", "Can't find ':' : ,\"b\":1}"},
      // strings
      {R"({"a":"x)", R"(Invalid string : "x)"},
      {R"({"a":["x)", R"(Invalid string : "x)"},
      {R"({"a":"x\")", R"(Invalid string : "x\")"},
      {R"({"a":"x\)", R"(Invalid string : "x\)"},
      // numbers
      {R"({"a":1)", "Invalid number : 1"},
      {R"({"a":)", "Invalid number : "},
      {R"({"a": 12abc)", "Invalid number : 12abc"},
      {R"({"a":[1)", "Invalid number : 1"},
      {R"({"a":[null)", "Invalid number : null"},
  });
}

TEST(JsonReader, ClosingFailureShowsTheTextFromOneByteBeforeTheFirstMember) {
  ExpectObjectFailures({
      {"{", "Can't find '}' : {"},
      {"{  ", "Can't find '}' :  "},
      {R"({"a":1 )", R"(Can't find '}' : {"a":1 )"},
      {R"({ "a":1 )", R"(Can't find '}' :  "a":1 )"},
      {"{\t\n\"a\":1 ", "Can't find '}' : \n\"a\":1 "},
      {"{,}", "Can't find '}' : {,}"},
      {"{a:1}", "Can't find '}' : {a:1}"},
      {R"({"a":1,,})", R"(Can't find '}' : {"a":1,,})"},
      {R"({"a":1])", R"(Can't find '}' : {"a":1])"},
      {R"({"a":nullx})", R"(Can't find '}' : {"a":nullx})"},
      {R"({"a":truex})", R"(Can't find '}' : {"a":truex})"},
      {R"({"a":])", R"(Can't find '}' : {"a":])"},
  });
}

TEST(JsonReader, InnermostObjectGivesTheReason) {
  ExpectObjectFailures({
      {R"({"a":{"b":1 )", R"(Can't find '}' : {"b":1 )"},
      {R"({"a":{"b":{ )", "Can't find '}' :  "},
      {R"({"a":{"b" 1}})", "Can't find ':' : 1}}"},
      {R"({"a":[{"b":[)", R"(Can't find '}' : {"b":[)"},
  });
}

TEST(JsonReader, ArrayWithoutEndLeavesTheReasonToTheObjectAroundIt) {
  ExpectObjectFailures({
      {R"({"a":[)", R"(Can't find '}' : {"a":[)"},
      {R"({"a":[ )", R"(Can't find '}' : {"a":[ )"},
      {R"({"a":[1,)", R"(Can't find '}' : {"a":[1,)"},
      {R"({"a":[1 )", R"(Can't find '}' : {"a":[1 )"},
      {R"({ "o":[[{"i":[[1, )", R"(Can't find '}' : {"i":[[1, )"},
      {R"({ "o":[[1, )", R"(Can't find '}' :  "o":[[1, )"},
      {R"({"a":[{},[ )", R"(Can't find '}' : {"a":[{},[ )"},
  });
}

// An element that starts at "}" would be an empty number and leave the reader where it is.
TEST(JsonReader, ClosingBraceInAnArrayFailsLikeTheEndOfTheText) {
  ExpectObjectFailures({
      {R"({"a":[1})", R"(Can't find '}' : {"a":[1})"},
      {R"({"a":[})", R"(Can't find '}' : {"a":[})"},
      {R"({"a":[1,})", R"(Can't find '}' : {"a":[1,})"},
      {R"({"a":[[}]})", R"(Can't find '}' : {"a":[[}]})"},
  });
  ExpectValueFailures({{"[}", ""}, {"[1}", ""}, {"[1,}", ""}, {"[,}", ""}, {"[[}", ""}});
}

TEST(JsonReader, SnippetIsCutToFiftyBytes) {
  const std::string x49 = Repeat("x", 49);
  ExpectObjectFailures({
      {"{\"" + x49, "Invalid key: " + x49},
      {"{\"" + x49 + "y", "Invalid key: " + x49 + "y"},
      {"{\"" + x49 + "yz", "Invalid key: " + x49 + "y"},
      {R"({"a":")" + Repeat("x", 100), "Invalid string : \"" + x49},
      {"{\"a\"" + Repeat("x", 100), "Can't find ':' : " + x49 + "x"},
  });
}

TEST(JsonReader, SnippetIsCutBetweenTheBytesOfACharacter) {
  ExpectObjectFailures({
      {"{\"x" + Repeat("\xD6\xD0", 30), "Invalid key: x" + Repeat("\xD6\xD0", 24) + "\xD6"},
  });
}

TEST(JsonReader, NullTextFailsLikeATextWithoutABrace) {
  CMyJsonObj object;
  object.AddItem("old", 1);
  EXPECT_FALSE(object.Load(nullptr));
  EXPECT_EQ(Bytes(object.GetErrMsg()), "Can't find { ");
  EXPECT_EQ(object.ValueCount(), 0);
}

TEST(JsonReader, LoadClearsTheMessageOfAnEarlierFailure) {
  CMyJsonObj object;
  EXPECT_FALSE(object.Load("x"));
  EXPECT_TRUE(object.Load(R"({"a":1})"));
  EXPECT_EQ(Bytes(object.GetErrMsg()), "");
  EXPECT_TRUE(object.Load(R"({"b":2})"));
  EXPECT_EQ(Compact(object), R"({"b":2})");
}

TEST(JsonReader, TextMayBePartOfWhatItReplaces) {
  CMyJsonObj object;
  object.AddItem("text", R"({"a":"b"})");
  const char* text = nullptr;
  ASSERT_TRUE(object.ValueEx("text", text, true));
  EXPECT_TRUE(object.Load(text));
  EXPECT_EQ(Compact(object), R"({"a":"b"})");

  CQNString error;
  CMyJsonValue value(R"("in\"ner")");
  EXPECT_TRUE(value.Load(value.ValueStr(), error));
  EXPECT_STREQ(value.ValueStr(), "in\"ner");
  CMyJsonValue array(R"([1,"x")");
  EXPECT_FALSE(array.Load(array.ValueStr(), error));
}

// --- values -------------------------------------------------------------------------------------

TEST(JsonReader, ValuesOfEveryTypeLoad) {
  ExpectValues({
      {" {\"a\":1}", "{\"a\":1}"},
      {"\t\"s\"", "\"s\""},
      {"\r\n[1,[2]]", "[1,[2]]"},
      {"true", "true"},
      {"false", "false"},
      {"trueX", "true"},
      {"123 ", "123"},
      {"123,", "123"},
      {"123}", "123"},
      {"123]", "123"},
      {"null ", "0"},
      {"} ", "0"},
      {",", "0"},
      {"tru\n", "0"},
  });
}

TEST(JsonReader, NumberMustBeFollowedByADelimiterEvenAtTheEnd) {
  const std::string invalid = "\xCE\xDE\xD0\xA7\xB5\xC4json\xD7\xD6\xB7\xFB\xB4\xAE";
  ExpectValueFailures(
      {{"123", invalid}, {"null", invalid}, {"", invalid}, {"   ", invalid}, {"1x", invalid}});
}

TEST(JsonReader, UnterminatedTopLevelStringFailsAndEmptiesTheText) {
  for (const char* text : {R"(")", R"("abc)", R"("abc\)", R"("abc\")"}) {
    CMyJsonValue value("old");
    CQNString error;
    EXPECT_FALSE(value.Load(text, error));
    EXPECT_EQ(Bytes(error), "\xCE\xDE\xD0\xA7\xB5\xC4\xD7\xD6\xB7\xFB\xB4\xAE");
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_STREQ(value.ValueStr(), "");
  }
}

TEST(JsonReader, OtherTopLevelFailuresLeaveTheText) {
  for (const char* text : {"{", "[", "5", "[1}"}) {
    CMyJsonValue value("old");
    CQNString error;
    EXPECT_FALSE(value.Load(text, error));
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_STREQ(value.ValueStr(), "old");
  }
}

TEST(JsonReader, NullTextOfAValueHasItsOwnMessage) {
  const ValuePtr value = ArrayOf(1);
  CQNString error;
  EXPECT_FALSE(value->Load(nullptr, error));
  EXPECT_EQ(Bytes(error), "json\xD7\xD6\xB7\xFB\xB4\xAE\xCE\xAANULL");
  EXPECT_TRUE(value->IsEmpty());
}

TEST(JsonReader, FailuresOfATopLevelValueAreThoseOfItsRules) {
  ExpectValueFailures({
      {"{", "Can't find '}' : {"},
      {R"({"a":"x)", R"(Invalid string : "x)"},
      {"[\"x", "Invalid string : \"x"},
      {"[1,22", "Invalid number : 22"},
      {"[{\"a\" 1}]", "Can't find ':' : 1}]"},
      {"[", ""},
      {"[1,", ""},
      {"[[1],[", ""},
      {"[{}", ""},
  });
}

TEST(JsonReader, ArrayWithoutEndKeepsWhatTheCallersErrorHeld) {
  CMyJsonValue value;
  CQNString error("mine");
  EXPECT_FALSE(value.Load("[1,", error));
  EXPECT_EQ(Bytes(error), "mine");
}

// The reason of an object that does not end is set only while the error text is empty.
TEST(JsonReader, ErrorTextThatIsNotEmptyHidesTheClosingFailureAlone) {
  CMyJsonValue value;
  CQNString error("mine");
  EXPECT_FALSE(value.Load("{\"a\":1 ", error));
  EXPECT_EQ(Bytes(error), "mine");
  EXPECT_FALSE(value.Load("{\"a\" 1}", error));
  EXPECT_EQ(Bytes(error), "Can't find ':' : 1}");
}

// --- arrays -------------------------------------------------------------------------------------

TEST(JsonReader, ArraysLoad) {
  ExpectValues({
      {"[]", "[]"},
      {"[ \t\r\n]", "[]"},
      {"[1,2,3]", "[1,2,3]"},
      {"[1 2\t3\r\n4]", "[1,2,3,4]"},
      {"[1,2,]", "[1,2]"},
      {"[[],[[]],{}]", "[[],[[]],{}]"},
      {R"(["a""b"[1]{"c":2}truefalse 7])", R"(["a","b",[1],{"c":2},true,false,7])"},
      {R"([1,"x",true,[],{}])", R"([1,"x",true,[],{}])"},
      {"[1\"a\"]", "[1]"},
      {"[1[2]]", "[1]"},
      {"[abc\"de fg\"]", "[0,0]"},
  });
}

TEST(JsonReader, ArraysHaveNoNull) {
  ExpectObjects({{R"({"a":[null,,2]})", R"({"a":[0,0,2]})"}});
  ExpectValues({
      {"[,]", "[0]"},
      {"[,,]", "[0,0]"},
      {"[null]", "[0]"},
      {"[ , 1]", "[0,1]"},
      {"[1,,2]", "[1,0,2]"},
  });
}

// --- strings ------------------------------------------------------------------------------------

TEST(JsonReader, EscapesAreDecoded) {
  const TextCase cases[] = {
      {R"(x\u0041)", "xu0041"},
      {R"(x\"y)", "x\"y"},
      {R"(\/)", "/"},
      {R"(\\)", "\\"},
      {R"(\\\\n)", "\\\\n"},
      {R"(\t\r\n)", "\t\r\n"},
      {R"(\b\f\a\T\')", "bfaT'"},
      {R"(a\tb\\c)", "a\tb\\c"},
      {"\x01\x1F\x7F\t\r\n", "\x01\x1F\x7F\t\r\n"},
      {"\xD6\xD0\xCE\xC4", "\xD6\xD0\xCE\xC4"},
      {"", ""},
  };
  for (const auto& [raw, decoded] : cases) {
    CMyJsonObj object;
    const std::string quoted = '"' + raw + '"';
    std::string text("{");
    text.append(quoted).append(":").append(quoted).append("}");
    ASSERT_TRUE(object.Load(text.c_str())) << raw;
    CQNString key;
    CMyJsonValue* value = nullptr;
    object.Item(0, key, value);
    EXPECT_EQ(Bytes(key), decoded);
    EXPECT_EQ(value->ValueStr(), decoded);
    EXPECT_EQ(Read("\"" + raw + "\"")->ValueStr(), decoded);
    EXPECT_EQ(Read("[\"" + raw + "\"]")->ValueArrItem(0)->ValueStr(), decoded);
  }
}

// Scanning is by bytes: the second byte of a character counts as a backslash or as a quote.
TEST(JsonReader, DoubleByteCharactersAreNotUnitsOfTheText) {
  const ValuePtr value = Read("\"\x81\x5C\x5Cx\"");
  EXPECT_STREQ(value->ValueStr(), "\x81\x5Cx");
}

TEST(JsonReader, LongStringsLoad) {
  for (const std::size_t length : {63u, 64u, 65u, 512u, 513u, 100000u}) {
    const std::string text = Repeat("y", length);
    EXPECT_EQ(Read("\"" + text + "\"")->ValueStr(), text);
    EXPECT_EQ(Read("\"" + Repeat("\\n", length) + "\"")->ValueStr(), Repeat("\n", length));
  }
}

// --- numbers ------------------------------------------------------------------------------------

struct NumberCase {
  std::string token;
  double number;
};

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void ExpectNumbers(std::initializer_list<NumberCase> cases) {
  for (const auto& [token, number] : cases) {
    const double read = Read(token + " ")->ValueNumber();
    EXPECT_TRUE(json_test::SameNumber(read, number)) << token.substr(0, 60) << ' ' << read;
  }
}

TEST(JsonNumber, LongestNumericPrefixCounts) {
  ExpectNumbers({
      {"0", 0},
      {"-0", -0.0},
      {"5", 5},
      {"+5", 5},
      {"-5", -5},
      {"007", 7},
      {"5.", 5},
      {".5", 0.5},
      {"-.5", -0.5},
      {"+.5", 0.5},
      {"1.5e3", 1500},
      {"1E3", 1000},
      {"1e+3", 1000},
      {"1e-3", 0.001},
      {"1e", 1},
      {"1e+", 1},
      {"1e-x", 1},
      {"1.2.3", 1.2},
      {"1-2", 1},
      {"5e3x", 5000},
      {"12abc", 12},
      {".e5", 0},
      {".", 0},
      {"-", 0},
      {"+", 0},
      {"+-5", 0},
      {"-+5", 0},
      {"--5", 0},
      {"e5", 0},
      {"abc", 0},
      {"1e0000003", 1000},
  });
}

TEST(JsonNumber, HexInfinityNanAndOtherExponentsAreNoNumbers) {
  ExpectNumbers({{"0x10", 0},
                 {"-0x1p3", -0.0},
                 {"inf", 0},
                 {"-inf", 0},
                 {"+infinity", 0},
                 {"nan", 0},
                 {"-nan(1)", 0},
                 {"1d5", 1},
                 {"1D5", 1},
                 {"1'000", 1}});
}

TEST(JsonNumber, ConversionIsCorrectlyRounded) {
  ExpectNumbers({
      {"0.1", 0x1.999999999999ap-4},
      {"9007199254740993", 9007199254740992.0},
      {"9007199254740993.0000000000000000000000000000000000000001", 9007199254740994.0},
      {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},
      {"2.2250738585072014e-308", 0x1p-1022},
      {"4.9406564584124654e-324", 0x1p-1074},
      {"2.4703282292062328e-324", 0x1p-1074},
      {"1.7976931348623157e308", std::numeric_limits<double>::max()},
      {"1.00000000000000011102230246251565404236316680908203124", 1.0},
      {"1.00000000000000011102230246251565404236316680908203126", 0x1.0000000000001p0},
      {"123456789012345678901234567890", 123456789012345678901234567890.0},
      // Half-way between two numbers, with every power of ten that a number of 19 digits leaves
      // room for: the even one.
      {"4503599627370496.5", 4503599627370496.0},
      {"4503599627370497.5", 4503599627370498.0},
      {"2251799813685248.25", 2251799813685248.0},
      {"2251799813685248.75", 2251799813685249.0},
      {"1125899906842624.125", 1125899906842624.0},
      {"1125899906842624.375", 1125899906842624.5},
      {"562949953421312.0625", 562949953421312.0},
      {"562949953421312.1875", 562949953421312.25},
  });
}

TEST(JsonNumber, OutOfRangeBecomesInfinityOrZero) {
  const std::string zeros = Repeat("0", 400);
  ExpectNumbers({
      {"1e400", kInfinity},
      {"-1e400", -kInfinity},
      {"1.8e308", kInfinity},
      {"1e99999999999999999999", kInfinity},
      {"1e-400", 0},
      {"-1e-400", -0.0},
      {"2e-324", 0},
      {"1e-99999999999999999999", 0},
      {"1" + zeros, kInfinity},
      {"-" + zeros + "1" + zeros, -kInfinity},
      {"0." + zeros + "1", 0},
      {"-0." + zeros + "1", -0.0},
      {"0." + zeros + "1e401", 1},
      {"1" + zeros + "e-400", 1},
      {"0." + zeros + "1e+800", kInfinity},
      {"1" + zeros + "e-800", 0},
      {"0e999999", 0},
      {Repeat("9", 100000), kInfinity},
      {"0." + Repeat("0", 100000) + "1", 0},
  });
}

TEST(JsonNumber, LocaleWithADecimalCommaChangesNothing) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  const char* set = nullptr;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252"}) {
    if (set == nullptr) set = std::setlocale(LC_NUMERIC, name);
  }
  if (set == nullptr || *std::localeconv()->decimal_point != ',') {
    std::setlocale(LC_NUMERIC, before.c_str());
    GTEST_SKIP() << "no locale with a decimal comma on this system";
  }
  const std::string written = Compact(*Read("[1.5,-2.25e1,1,5]"));
  std::setlocale(LC_NUMERIC, before.c_str());
  EXPECT_EQ(written, "[1.5,-22.5,1,5]");
}

}  // namespace
