// SPDX-License-Identifier: MIT
#include "geo/wkt_reader.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "geo/messages.h"
#include "tests/geo/geo_support.h"

namespace quarnfc::geo {
namespace {

using geo_test::Formatted;

// The message of a refused text, or "accepted".
std::string Read(const char* text, CWKTDef& root) {
  CQNString error;
  if (root.Parse(text, error)) return error.IsEmpty() ? "accepted" : "message left";
  return static_cast<const char*>(error);
}

std::string Read(const std::string& text) {
  CWKTDef root;
  return Read(text.c_str(), root);
}

// A tree written out again: quoted texts in quotes, bare words as they are, numbers after '#'.
std::string Dump(const CWKTDef& node) {
  std::string text = static_cast<const char*>(node.Keyword()) + std::string("[");
  for (const CWKTDefValue* value : node.Values()) {
    if (text.back() != '[') text += ',';
    const std::string own = static_cast<const char*>(value->Text());
    switch (value->Kind()) {
      case WktKind::kNode:
        text += Dump(*value->Node());
        break;
      case WktKind::kQuotedText:
        text += '"' + own + '"';
        break;
      case WktKind::kBareWord:
        text += own;
        break;
      case WktKind::kNumber: {
        CQNString number;
        number.Format("#%g", value->Number());
        text += number;
        break;
      }
    }
  }
  return text + ']';
}

std::string Tree(const std::string& text) {
  CWKTDef root;
  const std::string result = Read(text.c_str(), root);
  return result == "accepted" ? Dump(root) : result;
}

TEST(WktReader, NestedTextBecomesATree) {
  EXPECT_EQ(Tree("A[\"x\",B[1,C[word]],D[]]"), "A[\"x\",B[#1,C[word]],D[]]");
  EXPECT_EQ(Tree("UNIT[]"), "UNIT[]");
}

TEST(WktReader, BlanksAroundTokensAreIgnored) {
  EXPECT_EQ(Tree(" \t\r\nA \r\n[ \"x\" , B [ 1 ,\tword\n] ]\r\n \t"), "A[\"x\",B[#1,word]]");
}

TEST(WktReader, BlanksInsideAWordStay) {
  EXPECT_EQ(Tree("A[ two words ,B[]]"), "A[two words,B[]]");
  EXPECT_EQ(Tree("A[\" x \",B[]]"), "A[\" x \",B[]]");
}

TEST(WktReader, CommasAreLenient) {
  EXPECT_EQ(Tree("A[,,\"x\",,,B[1,,2] C[3],,D[],,]"), "A[\"x\",B[#1,#2],C[#3],D[]]");
}

TEST(WktReader, KeywordKeepsItsCaseAndMayBeAnyUnquotedToken) {
  EXPECT_EQ(Tree("GeogCS[]"), "GeogCS[]");
  EXPECT_EQ(Tree(",[]"), ",[]");
  EXPECT_EQ(Tree("[[]"), "[[]");
  EXPECT_EQ(Tree("12[]"), "12[]");
  EXPECT_EQ(Tree("A\"[]"), "A\"[]");
}

TEST(WktReader, QuotedTextsNumbersAndWordsAreToldApart) {
  const struct {
    const char* value;
    const char* dump;
  } cases[] = {
      {"\"117\"", "\"117\""},
      {"\"\"", "\"\""},
      {"\",\"", "\",\""},
      {"\"[\"", "\"[\""},
      {"\"]\"", "\"]\""},
      {"117", "#117"},
      {"-1.5", "#-1.5"},
      {"+2", "#2"},
      {".5", "#0.5"},
      {"5.", "#5"},
      {"1.5-2", "#1.5"},
      {"1.2.3", "#1.2"},
      {"-", "#0"},
      {"+-5", "#0"},
      {"++5", "#0"},
      {"--5", "#0"},
      {".", "#0"},
      {"-.5", "#-0.5"},
      {"1e5", "1e5"},
      {"1e2", "1e2"},
      {"0x10", "0x10"},
      {"1 2", "1 2"},
      {"inf", "inf"},
      {"nan", "nan"},
      {"EAST", "EAST"},
      {"a\"b", "a\"b"},
      {"1,5", "#1,#5"},
      {"(1)", "(1)"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Tree(std::string("A[") + c.value + ",B[]]"), std::string("A[") + c.dump + ",B[]]");
  }
}

TEST(WktReader, NumbersBeyondTheRangeOfDoubleAreInfiniteOrZero) {
  const std::string digits(400, '9');
  EXPECT_EQ(Tree("A[" + digits + ",-" + digits + ",+" + digits + ",B[]]"),
            "A[#inf,#-inf,#inf,B[]]");
  const std::string tiny = "0." + std::string(400, '0') + "1";
  EXPECT_EQ(Tree("A[" + tiny + ",-" + tiny + ",+" + tiny + ",B[]]"), "A[#0,#-0,#0,B[]]");
}

TEST(WktReader, AxisHasAQuotedTextAndABareWord) {
  CWKTDef root;
  ASSERT_EQ(Read("A[AXIS[\"X\",NORTH]]", root), "accepted");
  const CWKTDef* axis = root.Find("A\\AXIS");
  ASSERT_NE(axis, nullptr);
  ASSERT_EQ(axis->Values().size(), 2u);
  EXPECT_EQ(axis->Values()[0]->Kind(), WktKind::kQuotedText);
  EXPECT_EQ(axis->Values()[1]->Kind(), WktKind::kBareWord);
  EXPECT_EQ(axis->Node(), axis);
  EXPECT_EQ(axis->Kind(), WktKind::kNode);
}

TEST(WktReader, ValueHoldsItsTextAndKind) {
  const CWKTDefValue quoted(CQNString("EAST"), false);
  EXPECT_EQ(quoted.Kind(), WktKind::kQuotedText);
  EXPECT_STREQ(quoted.Text(), "EAST");
  EXPECT_EQ(quoted.Node(), nullptr);
  EXPECT_EQ(CWKTDefValue(CQNString("EAST"), true).Kind(), WktKind::kBareWord);
  const char* null_text = nullptr;
  EXPECT_STREQ(CWKTDefValue(CQNString(null_text), true).Text(), "");
}

TEST(WktReader, NullTextIsRefused) {
  CWKTDef root;
  EXPECT_EQ(Read(nullptr, root), messages::kNullText);
}

TEST(WktReader, TextWithoutAKeywordAndABracketIsRefused) {
  for (const char* text :
       {"", " \r\n", "GEOGCS", "GEOGCS(\"x\")", "\"A\"[]", "A,[]", "A]", "\"A", "A B", ",", "]"}) {
    EXPECT_EQ(Read(text), messages::kNoKey) << text;
  }
}

TEST(WktReader, BracketsMustMatch) {
  for (const char* text : {
           "A[", "A[B[]", "A[B[1]", "A[B[1],",   // never closed
           "UNIT[\"metre\",1]", "A[1]", "A[x]",  // the root's list must end with a node
           "A[[", "A[B[],[", "A[,[]]",           // a bracket without a keyword
       }) {
    EXPECT_EQ(Read(text), messages::kBracketsDoNotMatch) << text;
  }
}

TEST(WktReader, NothingButBlanksMayFollowTheRoot) {
  EXPECT_EQ(Read("A[] \t\r\n"), "accepted");
  for (const char* tail : {"]", "[", ",", " word", " word,", "\"quoted\"", "\"open", "B[]", "\v"}) {
    EXPECT_EQ(Read(std::string("A[]") + tail), messages::kBracketsDoNotMatch) << tail;
  }
}

TEST(WktReader, ValueNeedsAnEndMark) {
  EXPECT_EQ(Read("GEOGCS[\"WGS 84\""), Formatted(messages::kNoEndMark, "WGS 84"));
  EXPECT_EQ(Read("A[\"x\" "), Formatted(messages::kNoEndMark, "x"));
  EXPECT_EQ(Read("A[\"x\" \"y\"]"), Formatted(messages::kNoEndMark, "x"));
  EXPECT_EQ(Read("A[\"\" \"y\"]"), Formatted(messages::kNoEndMark, ""));
  EXPECT_EQ(Read("A[\"x\" word"), Formatted(messages::kNoEndMark, "x"));
  EXPECT_EQ(Read("A[\"x\" \"open]"), Formatted(messages::kNoEndMark, "x"));
  EXPECT_EQ(Read("A[B[\"%d%n\""), Formatted(messages::kNoEndMark, "%d%n"));
}

TEST(WktReader, EndMarkMustBeACommaOrAClosingBracket) {
  EXPECT_EQ(Read("A[\"x\"[1]]"), Formatted(messages::kNoValidEndMark, "x"));
  EXPECT_EQ(Read("A[\"x\" y,1]"), Formatted(messages::kNoValidEndMark, "x"));
  EXPECT_EQ(Read("A[\"x\" y]"), Formatted(messages::kNoValidEndMark, "x"));
}

TEST(WktReader, TokensThatCannotBeDelimitedReadAsTheEnd) {
  EXPECT_EQ(Read("A[word"), messages::kBracketsDoNotMatch);
  EXPECT_EQ(Read("A[\"open"), messages::kBracketsDoNotMatch);
  EXPECT_EQ(Read("A[1,\"open]]"), messages::kBracketsDoNotMatch);
}

// 乕 is 81 5B and 乚 81 5D in code page 936: their second bytes are those of the brackets.
TEST(WktReader, SecondBytesOfCharactersNeverDelimit) {
  EXPECT_EQ(Tree("\x81\x5B[\x81\x5D,\x81\x5B\x81\x5D z,B[]]"),
            "\x81\x5B[\x81\x5D,\x81\x5B\x81\x5D z,B[]]");
  EXPECT_EQ(Tree("A[\"\x81\x5D\",B[\"\x81\x5B\"]]"), "A[\"\x81\x5D\",B[\"\x81\x5B\"]]");
}

TEST(WktReader, BrokenCharactersDoNotSwallowDelimiters) {
  EXPECT_EQ(Tree("A[x\x81,B[]]"), "A[x\x81,B[]]");
  EXPECT_EQ(Tree("A[\"x\x81\",B[]]"), "A[\"x\x81\",B[]]");
  EXPECT_EQ(Read("A[x\x81"), messages::kBracketsDoNotMatch);
}

TEST(WktReader, ControlBytesAreOrdinaryText) {
  EXPECT_EQ(Tree("A[\x01\x7F,\"\x02\n\",B[]]"), "A[\x01\x7F,\"\x02\n\",B[]]");
}

TEST(WktReader, PathsFindNodes) {
  CWKTDef root;
  ASSERT_EQ(Read("GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",1,2]],DATUM[SPHEROID[3],OTHER[]]]", root),
            "accepted");
  const CWKTDef* spheroid = root.Find("GEOGCS\\DATUM\\SPHEROID");
  ASSERT_NE(spheroid, nullptr);
  EXPECT_EQ(Dump(*spheroid), "SPHEROID[\"s\",#1,#2]");
  for (const char* path : {" GEOGCS \\ DATUM \\SPHEROID", "geogcs\\datum\\spheroid",
                           "\\GEOGCS\\\\DATUM\\ \\SPHEROID\\"}) {
    EXPECT_EQ(root.Find(path), spheroid) << path;
  }
  EXPECT_EQ(root.Find("GEOGCS"), &root);
  for (const char* path : {"", "\\", " ", "DATUM", "PROJCS", "GEOGCS\\SPHEROID", "GEOGCS\\g",
                           "GEOGCS\\DATUM\\OTHER", "GEOGCS\\GEOGCS", "GEOGCS/DATUM"}) {
    EXPECT_EQ(root.Find(path), nullptr) << path;
  }
  EXPECT_EQ(root.Find(nullptr), nullptr);
}

TEST(WktReader, FirstParameterOfItsNameDecides) {
  const struct {
    const char* nodes;
    bool found;
    double value;
  } cases[] = {
      {"PARAMETER[\"k\",2]", true, 2.0},
      {"parameter[\"K\",2,3]", true, 2.0},
      {"PARAMETER[\"k\",2],PARAMETER[\"k\",3]", true, 2.0},
      {"PARAMETER[\"j\",1],PARAMETER[\"k\",3]", true, 3.0},
      {"PARAMETER[\"k\"],PARAMETER[\"k\",3]", true, 3.0},  // too few values: no parameter
      {"PARAMETER[k,2],PARAMETER[\"k\",3]", true, 3.0},    // an unquoted name: no parameter
      {"PARAMETER[\"k\",\"2\"],PARAMETER[\"k\",3]", false, -1.0},
      {"PARAMETER[\"k\",1e2]", false, -1.0},
      {"PARAMETER[\"k\",N[]]", false, -1.0},
      {"OTHER[\"k\",2]", false, -1.0},
      {"B[PARAMETER[\"k\",2]]", false, -1.0},
  };
  for (const auto& c : cases) {
    CWKTDef root;
    ASSERT_EQ(Read((std::string("P[") + c.nodes + "]").c_str(), root), "accepted") << c.nodes;
    double value = -1.0;
    EXPECT_EQ(root.FindParameter("k", value), c.found) << c.nodes;
    EXPECT_EQ(value, c.value) << c.nodes;
  }
}

constexpr int kMany = 300'000;

std::string Repeat(const std::string& piece, int count) {
  std::string text;
  text.reserve(piece.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

TEST(WktReader, DeepNestingIsReadAndDestroyedWithoutRecursion) {
  EXPECT_EQ(Read(Repeat("A[", kMany) + Repeat("]", kMany)), "accepted");
  EXPECT_EQ(Read(Repeat("A[\"x\",", kMany)), messages::kBracketsDoNotMatch);
  CWKTDef root;
  ASSERT_EQ(Read((Repeat("A[", kMany) + Repeat("]", kMany)).c_str(), root), "accepted");
  EXPECT_NE(root.Find("A\\A\\A\\A"), nullptr);
}

TEST(WktReader, LongListsAreRead) {
  CWKTDef root;
  ASSERT_EQ(Read(("A[" + Repeat("1,x,\"y\",", kMany / 2) + "B[]]").c_str(), root), "accepted");
  EXPECT_EQ(root.Values().size(), static_cast<std::size_t>(kMany / 2 * 3 + 1));
}

TEST(WktReader, MegabytesInOneTokenAreReadAndQuotedInMessages) {
  const std::string long_text(8'000'000, 'x');
  EXPECT_EQ(Read("A[\"" + long_text + "\""), Formatted(messages::kNoEndMark, long_text));
  EXPECT_EQ(Read("A[\"" + long_text + "\" y]"), Formatted(messages::kNoValidEndMark, long_text));
  EXPECT_EQ(Read("A[" + long_text + ",B[" + long_text + "]]"), "accepted");
  EXPECT_EQ(Read("A[" + std::string(8'000'000, '7') + ",B[]]"), "accepted");
  EXPECT_EQ(Read(long_text), messages::kNoKey);
  EXPECT_EQ(Read("A[" + Repeat("\"", 1'000'001)), Formatted(messages::kNoEndMark, ""));
  EXPECT_EQ(Read("A[]" + std::string(8'000'000, ' ')), "accepted");
}

}  // namespace
}  // namespace quarnfc::geo
