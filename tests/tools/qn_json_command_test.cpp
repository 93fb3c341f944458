// SPDX-License-Identifier: MIT
// The command json, as the dispatcher runs it, and how it finds the place of a fault.
#include <gtest/gtest.h>

#include <quarnfc/ext/json_text.h>
#include <quarnfc/json_value.h>

#include <algorithm>
#include <string>
#include <vector>

#include "qn/command.h"
#include "qn/exit_code.h"
#include "qn/input_file.h"
#include "qn/json/lenient_fault.h"
#include "qn/json/shape.h"
#include "qn/text/excerpt.h"
#include "support/build_paths.h"
#include "tests/support/contains.h"
#include "tests/support/temp_file.h"
#include "tests/tools/run_qn.h"

namespace qn {

extern const Command kJsonCommand;

}  // namespace qn

namespace {

using qn_test::FullOutcome;
using qn_test::Outcome;
using quarnfc_test::Contains;
using quarnfc_test::TempFile;

FullOutcome RunJson(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "json");
  return qn_test::RunQn({&qn::kJsonCommand, 1}, arguments);
}

constexpr char kSettings[] = R"({"server": {"host": "maps.example", "port": 80}, "on": true,
  "none": null, "list": [1, 2]})";

// --- check --------------------------------------------------------------------------------------

TEST(QnJsonCheck, ReadableFileIsDescribedWithItsEncoding) {
  const std::pair<const char*, const char*> cases[] = {
      {kSettings, "an object with 4 members, UTF-8"},
      {"{}", "an object with 0 members, UTF-8"},
      {"{\"a\": 1}", "an object with 1 member, UTF-8"},
      {"[]", "an array with 0 elements, UTF-8"},
      {"\xEF\xBB\xBF[1, 2, 3, 4]", "an array with 4 elements, UTF-8 with mark"},
      {"[\"\xD6\xD0\"]", "an array with 1 element, code page"},
      {"[\"\xE4\xB8\xAD\"]",
       "an array with 1 element, UTF-8 without mark (the library takes it for the code page)"},
  };
  for (const auto& [text, description] : cases) {
    const TempFile file(text);
    EXPECT_EQ(RunJson({"check", file.path()}).output,
              std::string(file.path()) + ": " + description + "\n");
  }
  const TempFile wide(
      std::string("\xFF\xFE[\0"
                  "1\0]\0",
                  8));
  EXPECT_TRUE(Contains(RunJson({"check", wide.path()}).output, "UTF-16 (little-endian)\n"));
}

TEST(QnJsonCheck, LenientDescriptionsCountAlike) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"the first": "value"})", "an object with 1 member"},
      {R"({"the first": "value" "second": 2})", "an object with 2 members"},
      {R"(["the first element"])", "an array with 1 element"},
      {R"(["the first element", 2])", "an array with 2 elements"},
  };
  for (const auto& [text, description] : cases) {
    const TempFile file(text);
    const std::string output = RunJson({"check", "--lenient", file.path()}).output;
    EXPECT_EQ(output.substr(0, output.find(',')), std::string(file.path()) + ": " + description);
  }
}

TEST(QnJsonCheck, BrokenFileShowsLineColumnReasonAndMark) {
  const TempFile file("{\n\t\"server\": {\n\t\t\"port\" 80\n\t}\n}");
  const FullOutcome run = RunJson({"check", file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "qn: " + std::string(file.path()) +
                            ":3:10: a colon is expected behind the key\n"
                            "      \"port\" 80\n"
                            "             ^\n");
}

TEST(QnJsonCheck, WhatTheLibraryOverlooksIsRefused) {
  for (const char* text : {"{\"abcdef\":1,}", "{\"a\":1 \"b\":2}", "{\"a\":[1,,2]}", "{\"a\":tru}",
                           "{\"a\":01.5.}", "{\"a\":1} trailing"}) {
    const TempFile file(std::string(text) + "\n\n");
    EXPECT_EQ(RunJson({"check", file.path()}).code, qn::kFailure) << text;
    EXPECT_EQ(RunJson({"check", "--lenient", file.path()}).code, qn::kSuccess) << text;
  }
}

TEST(QnJsonCheck, ColumnsCountCharacters) {
  for (const char* text :
       {"{\"\xD6\xD0\xB9\xFA\" 1, \"b\": 2}", "{\"\xE4\xB8\xAD\xE5\x9B\xBD\" 1, \"b\": 2}",
        "\xEF\xBB\xBF{\"\xE4\xB8\xAD\xE5\x9B\xBD\" 1, \"b\": 2}"}) {
    const TempFile file(text);
    EXPECT_TRUE(Contains(RunJson({"check", file.path()}).errors, ":1:7: ")) << text;
  }
  const TempFile file("\xEF\xBB\xBF{\"\xE4\xB8\xAD\xE5\x9B\xBD\" 1, \"b\": 2}");
  EXPECT_TRUE(Contains(RunJson({"check", "--lenient", file.path()}).errors, "line 1, column 7:"));
}

TEST(QnJsonCheck, SeveralFilesAreAllChecked) {
  const TempFile good("[1]");
  const TempFile bad("[1");
  const std::string missing = TempFile::NewPath();
  const FullOutcome run = RunJson({"check", missing, bad.path(), good.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Contains(run.output, good.path()));
  EXPECT_TRUE(Contains(run.errors, "cannot open " + missing));
  EXPECT_TRUE(Contains(run.errors, std::string(bad.path()) + ":1:3: the text ends too early"));
}

TEST(QnJsonCheck, KeysThatOccurTwiceAreNoted) {
  const TempFile file("{\"a\": 1,\n \"\\u0061\": 2}");
  const FullOutcome run = RunJson({"check", file.path()});
  EXPECT_EQ(run.code, qn::kSuccess);
  EXPECT_EQ(run.errors, "qn: note: " + std::string(file.path()) +
                            ":2:2: the key \"\\u0061\" occurs again in its object\n");
}

TEST(QnJsonCheck, ResultsForProgramsAreLinesOfJson) {
  const TempFile good("{\"a\":1,\"a\":2}");
  const TempFile bad("[1,\n2 3]");
  quarnfc::ext::JsonText json;
  ASSERT_TRUE(json.Parse(RunJson({"check", "--json", good.path()}).output));
  EXPECT_EQ(json.Root().Find("/valid")->Source(), "true");
  EXPECT_EQ(json.Root().Find("/duplicateKeys")->Source(), "1");
  const FullOutcome run = RunJson({"check", "--json", bad.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  ASSERT_TRUE(json.Parse(run.output)) << run.output;
  EXPECT_EQ(json.Root().Find("/line")->Source(), "2");
  EXPECT_EQ(json.Root().Find("/column")->Source(), "3");
  EXPECT_EQ(json.Root().Find("/offset")->Source(), "6");
}

TEST(QnJsonCheck, BytesThatAreNoTextAreRefused) {
  const TempFile file("[\"\xD6\xD0 \xFE \"]");
  const FullOutcome run = RunJson({"check", file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Contains(run.errors, "byte 5 is no text in code page, and the file is no UTF-8"))
      << run.errors;
}

TEST(QnJsonCheckLenient, BrokenFileShowsMessageCodeAndPlace) {
  const TempFile file("{\n\t\"server\": {\n\t\t\"port\" 80\n\t}\n}");
  const FullOutcome run = RunJson({"check", "--lenient", file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_EQ(run.output, "");
  EXPECT_TRUE(Contains(run.errors,
                       "Can't find ':' : 80\\n\\t}\\n} (error code 5)\n"
                       "line 3, column 10: a key without a colon behind it\n"
                       "      \"port\" 80\n"
                       "             ^\n"))
      << run.errors;
}

TEST(QnJsonCheckLenient, MissingFileShowsTheLibrarysMessageAndCode) {
  const std::string path = TempFile::NewPath();
  const FullOutcome run = RunJson({"check", "--lenient", path});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Contains(run.errors, "Quarn: Can't open " + path + ", error: 0x2 (error code 2)\n"));
}

TEST(QnJsonCheckLenient, RefusedLengthHasNoPlace) {
  const TempFile file("{}");
  const FullOutcome run = RunJson({"check", "--lenient", file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Contains(run.errors, " file length is invalid (error code 5)\n")) << run.errors;
  EXPECT_FALSE(Contains(run.errors, "line "));
}

TEST(QnJsonCheckLenient, ErrorDocumentIsTheLibrarys) {
  const std::string path = "no_such_file.json";
  EXPECT_EQ(static_cast<const Outcome&>(RunJson({"check", "--lenient", "--json", path})),
            (Outcome{qn::kFailure,
                     "{\n\t\"Error\":{\n\t\t\"DisplayText\":\"Quarn: Can't open no_such_file.json, "
                     "error: 0x2\",\n\t\t\"ErrorCode\":2\n\t}\n}\n"}));
  const TempFile broken("{\"abcdefg\" 1}");
  EXPECT_TRUE(Contains(RunJson({"check", "--lenient", "--json", "--utf8", broken.path()}).output,
                       "\"\xE6\x97\xA0\xE6\x95\x88\xE7\x9A\x84json\xEF\xBC\x8C"
                       "Can't find ':' : 1}\""));
  const TempFile good(kSettings);
  EXPECT_EQ(static_cast<const Outcome&>(RunJson({"check", "--lenient", "--json", good.path()})),
            (Outcome{qn::kSuccess, "{\n\t\"Error\":{\n\t\t\"ErrorCode\":0\n\t}\n}\n"}));
}

// --- the place of a fault -----------------------------------------------------------------------

struct FaultCase {
  std::string text;
  std::size_t offset;
};

TEST(QnJsonLenientFault, OffsetIsWhereTheReaderStopped) {
  const std::string good = R"({"name":"roads","width":1,"colour":"#ffffff","shown":true},)";
  const std::string bad = R"({"name":"roads","width":1,"colour":"#ffffff","shown":true;},)";
  const std::string member = R"("a":1,"b":2,"c":3,"d":4,"e":5,"f":6,"g":7,"h":8,"i":9,"j":0)";
  const std::string run(60, '1');
  const FaultCase cases[] = {
      {R"({"a":1)", 5},
      {R"({"a":1 )", 0},
      {R"({"a":"x)", 5},
      {R"({"a)", 2},
      {R"( [1,2)", 4},
      {" [1,2 ", 1},
      {"  123", 2},
      {"[" + good + good + bad + good + "1]", 1 + 2 * good.size()},
      {"{\"x\":" + member.substr(4) + ",\"a\" " + member.substr(4) + "}", 6 + member.size()},
      {"[" + run + ",{\"a\":" + run, 1 + run.size() + 6},
      {"[\"" + run + "\",\"" + run, 1 + run.size() + 3},
      {"{\"" + run + "\":1,\"" + run, 2 + run.size() + 5},
  };
  for (const FaultCase& each : cases) {
    const auto fault = qn::FindLenientFault(each.text);
    ASSERT_TRUE(fault.has_value()) << each.text;
    EXPECT_EQ(fault->offset, each.offset) << each.text;
    EXPECT_TRUE(fault->certain) << each.text;
  }
  EXPECT_FALSE(qn::FindLenientFault(good).has_value());
}

TEST(QnJsonLenientFault, FirstOfSeveralPlacesIsMarkedUncertain) {
  std::string text;
  for (int i = 0; i < 30; ++i) text += "{\"a\":";
  const auto fault = qn::FindLenientFault(text + "1 ");
  ASSERT_TRUE(fault.has_value());
  EXPECT_LE(fault->offset, text.size());

  const std::string bad = R"({"name":"roads","width":1,"colour":"#ffffff","shown":true;})";
  const auto twice = qn::FindLenientFault("[" + bad + "," + bad + "]");
  ASSERT_TRUE(twice.has_value());
  EXPECT_EQ(twice->offset, 1u);
  EXPECT_FALSE(twice->certain);
}

TEST(QnExcerpt, ShowsTheLineWithAMarkBelowThePlace) {
  EXPECT_EQ(qn::Excerpt("ab\r\ncd\nx", 5), "    cd\n     ^");
  EXPECT_EQ(qn::Excerpt("", 0), "    \n    ^");
  EXPECT_EQ(qn::Excerpt("\t\xE4\xB8\xAD x", 5), "     \xE4\xB8\xAD x\n        ^");
}

TEST(QnExcerpt, LongLinesAreCutAroundThePlace) {
  EXPECT_EQ(qn::Excerpt(std::string(1000, 'x'), 500),
            "    ..." + std::string(75, 'x') + "...\n" + std::string(47, ' ') + "^");
}

// --- format -------------------------------------------------------------------------------------

TEST(QnJsonFormat, WritesTheLibrarysLayoutUnlessAskedForAnother) {
  const TempFile file(R"({"a": [1, 2], "b": null, "c": [ {} , [ ], "x"], "d": []})");
  EXPECT_EQ(RunJson({"format", "--compact", file.path()}).output,
            "{\"a\":[1,2],\"b\":null,\"c\":[{},[],\"x\"],\"d\":[]}\n");
  EXPECT_EQ(RunJson({"format", "--indent", "1", file.path()}).output,
            "{\n \"a\": [\n  1,\n  2\n ],\n \"b\": null,\n \"c\": [\n  {},\n  [],\n  \"x\"\n ],\n"
            " \"d\": []\n}\n");
}

TEST(QnJsonFormat, TheLayoutIsThatOfTheLibrarysWriter) {
  for (const char* text :
       {R"({"a": [1, 2], "b": null})", R"([{"x":1},{"y":[[1,2],[3]]},4,[5,{"z":{}}]])",
        R"({"o":{"p":{"q":[true,false,"s"]}},"e":[],"f":{},"g":[[]],"h":[{}]})",
        "[[[1],[2]],[]]"}) {
    const TempFile file(std::string(text) + "          ");
    const TempFile target("");
    ASSERT_EQ(RunJson({"format", "-o", target.path(), file.path()}).code, qn::kSuccess);
    CMyJsonValue value;
    CQNString reason;
    ASSERT_TRUE(value.Load(text, reason));
    EXPECT_EQ(qn::ReadInput(target.path()), static_cast<const char*>(value.CreateJson(true)));
  }
}

std::string Times(const std::string& text, std::size_t count) {
  std::string repeated;
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

TEST(QnJsonFormat, WhatLiesBelowAHundredLevelsStandsOnOneLine) {
  const std::string deep = Times("{\"a\":[1,", 60) + "2" + Times("]}", 60);  // 120 levels
  const TempFile file(deep);
  std::string expected;
  for (std::size_t level = 0; level < 100; level += 2) {
    expected += "{\n" + std::string(level + 1, ' ') + "\"a\": [\n" + std::string(level + 2, ' ') +
                "1,\n" + std::string(level + 2, ' ');
  }
  expected += Times("{\"a\":[1,", 10) + "2" + Times("]}", 10);
  for (std::size_t level = 100; level > 0; level -= 2) {
    expected += "\n" + std::string(level - 1, ' ') + "]\n" + std::string(level - 2, ' ') + "}";
  }
  EXPECT_EQ(RunJson({"format", "--indent", "1", file.path()}).output, expected + "\n");
}

// Indented to the end each of these would have gigabytes.
TEST(QnJsonFormat, TextsOfAnyDepthGrowInProportion) {
  const std::size_t levels = 40000;
  for (const auto& [open, close] : {std::pair("[", "]"), std::pair("{\"a\":[0,", "]}")}) {
    const std::string deep = Times(open, levels) + "0" + Times(close, levels);
    const TempFile file(deep);
    const TempFile target("");
    for (const std::vector<std::string>& style : {std::vector<std::string>{}, {"--indent", "16"}}) {
      std::vector<std::string> arguments = {"format", "-o", target.path(), file.path()};
      arguments.insert(arguments.end(), style.begin(), style.end());
      ASSERT_EQ(RunJson(arguments).code, qn::kSuccess);
      std::string text = qn::ReadInput(target.path());
      EXPECT_LT(text.size(), deep.size() + 1000000);
      std::erase_if(text,
                    [](char ch) { return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n'; });
      EXPECT_TRUE(text == deep);
    }
  }
}

TEST(QnJsonFormat, ScalarsKeepTheirSpelling) {
  const char* const text =
      R"(["\u4e2d\/",1e-300,1.50,-0,12345678901234567890,[null,0.1],{"\u0061":"\n"}])";
  const TempFile file(text);
  EXPECT_EQ(RunJson({"format", "-c", file.path()}).output, text + std::string("\n"));
}

TEST(QnJsonFormat, EncodingIsKeptOrTheOneAskedFor) {
  const TempFile file("{\"key\": \"\xD6\xD0\"}");
  const TempFile target("");
  ASSERT_EQ(RunJson({"format", "-o", target.path(), file.path()}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(target.path()), "{\r\n\t\"key\":\"\xD6\xD0\"\r\n}");
  ASSERT_EQ(RunJson({"format", "--utf8", "-o", target.path(), file.path()}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(target.path()), "\xEF\xBB\xBF{\r\n\t\"key\":\"\xE4\xB8\xAD\"\r\n}");
  const TempFile back("");
  ASSERT_EQ(RunJson({"format", "--to", "code-page", "-o", back.path(), target.path()}).code,
            qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(back.path()), "{\r\n\t\"key\":\"\xD6\xD0\"\r\n}");
  ASSERT_EQ(RunJson({"format", "-c", "--to", "utf-16be", "-o", back.path(), target.path()}).code,
            qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(back.path()),
            std::string("\xFE\xFF\0{\0\"\0k\0e\0y\0\"\0:\0\"\x4E\x2D\0\"\0}", 24));
}

TEST(QnJsonFormat, Utf8WithoutMarkStaysText) {
  const TempFile file("{\"key\": \"\xE4\xB8\xAD\xE6\x96\x87\"}");
  const TempFile target("");
  ASSERT_EQ(RunJson({"format", "--utf8", "-c", "-o", target.path(), file.path()}).code, 0);
  EXPECT_EQ(qn::ReadInput(target.path()), "\xEF\xBB\xBF{\"key\":\"\xE4\xB8\xAD\xE6\x96\x87\"}");
}

TEST(QnJsonFormat, CharactersThatWouldBeLostAreRefusedUnlessAsked) {
  const TempFile file("\xEF\xBB\xBF{\"key\": \"\xF0\x9F\x98\x80\"}");
  const TempFile target("before");
  const FullOutcome run =
      RunJson({"format", "--to", "code-page", "-o", target.path(), file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Contains(run.errors, "U+1F600")) << run.errors;
  EXPECT_EQ(qn::ReadInput(target.path()), "before");
  EXPECT_EQ(
      RunJson({"format", "-c", "--to", "code-page", "--lossy", "-o", target.path(), file.path()})
          .code,
      qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(target.path()), "{\"key\":\"?\"}");
}

// --- get, keys, length --------------------------------------------------------------------------

TEST(QnJsonGet, PrintsStringsAsTheyAreAndTheRestAsJson) {
  const TempFile file(kSettings);
  const std::pair<const char*, const char*> cases[] = {
      {"server\\host", "maps.example\n"},
      {"server\\port", "80\n"},
      {"/server/port", "80\n"},
      {"on", "true\n"},
      {"none", "null\n"},
      {"list", "[1,2]\n"},
      {"list[1]", "2\n"},
      {"/list/0", "1\n"},
  };
  for (const auto& [path, text] : cases) {
    EXPECT_EQ(static_cast<const Outcome&>(RunJson({"get", file.path(), path})),
              (Outcome{qn::kSuccess, text}));
  }
  EXPECT_EQ(RunJson({"get", "--compact", file.path(), "server"}).output,
            "{\"host\":\"maps.example\",\"port\":80}\n");
  EXPECT_EQ(RunJson({"get", "--json", file.path(), "server\\host"}).output, "\"maps.example\"\n");
}

TEST(QnJsonGet, NumbersAndEscapesAreRight) {
  const TempFile file(R"({"tiny": 1e-20, "big": 12345678901234567890, "s": "\u4e2d\ud83d\ude00"})");
  EXPECT_EQ(RunJson({"get", file.path(), "tiny"}).output, "1e-20\n");
  EXPECT_EQ(RunJson({"get", file.path(), "big"}).output, "12345678901234567890\n");
#if !defined(_WIN32)  // redirected output has the code page there
  EXPECT_EQ(RunJson({"get", file.path(), "s"}).output, "\xE4\xB8\xAD\xF0\x9F\x98\x80\n");
#else
  EXPECT_EQ(RunJson({"get", file.path(), "s"}).code, qn::kFailure);
#endif
}

TEST(QnJsonGet, NumbersAreAsShortAsTheyReadBack) {
  const std::pair<const char*, const char*> cases[] = {
      {"1.50", "1.5"},
      {"1.0", "1"},
      {"100", "100"},
      {"100000.0", "100000"},
      {"1e2", "100"},
      {"1E+2", "100"},
      {"12345e-2", "123.45"},
      {"0.10e1", "1"},
      {"-0.50", "-0.5"},
      {"0.0", "0"},
      {"-0.0e5", "-0"},
      {"114.30550", "114.3055"},
      {"38500000.000", "38500000"},
      // Nothing gets longer than it is.
      {"1e5", "1e5"},
      {"1.0e5", "1e5"},
      {"1E-20", "1e-20"},
      {"12e10", "12e10"},
      {"0.00000001", "0.00000001"},
      {"5.00e-324", "5e-324"},
      // No digit is lost, whether a double holds it or not.
      {"9007199254740993", "9007199254740993"},
      {"9007199254740993.0", "9007199254740993"},
      {"12345678901234567890", "12345678901234567890"},
      {"0.1000000000000000055511151231257827", "0.1000000000000000055511151231257827"},
      {"1e400", "1e400"},
      {"1.0e99999999999", "1.0e99999999999"},
      {"0e99999999999", "0e99999999999"},
  };
  for (const auto& [spelled, shown] : cases) {
    const TempFile file("{\"n\": " + std::string(spelled) + "}");
    EXPECT_EQ(RunJson({"get", file.path(), "n"}).output, std::string(shown) + "\n");
    EXPECT_EQ(RunJson({"get", "-c", file.path(), ""}).output,
              "{\"n\":" + std::string(shown) + "}\n");
    EXPECT_EQ(RunJson({"format", "-c", file.path()}).output,
              "{\"n\":" + std::string(spelled) + "}\n");
  }
}

TEST(QnJsonGet, CaseCountsUnlessIgnored) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"get", file.path(), "SERVER\\Port"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"get", "-i", file.path(), "SERVER\\Port"}).output, "80\n");
}

TEST(QnJsonGet, MembersThatAreNotThereFail) {
  const TempFile file(kSettings);
  for (const char* path : {"server/host", "list\\0", "list[2]", "list[-]", "list[01]", "/list/x",
                           "server\\host\\x", "server[0]", "/~2", "[0]"}) {
    EXPECT_EQ(RunJson({"get", file.path(), path}).code, qn::kFailure) << path;
  }
  const TempFile array("[1, 2, 3, 4, 5]");
  EXPECT_EQ(RunJson({"get", array.path(), "a"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"get", array.path(), "[4]"}).output, "5\n");
}

TEST(QnJsonGet, KeysThatLookLikeElementsAreFoundFirst) {
  const TempFile file(R"({"a[0]": 1, "a": [2], "m": [[3, 4]]})");
  EXPECT_EQ(RunJson({"get", file.path(), "a[0]"}).output, "1\n");
  EXPECT_EQ(RunJson({"get", file.path(), "/a/0"}).output, "2\n");
  EXPECT_EQ(RunJson({"get", file.path(), "m[0][1]"}).output, "4\n");
}

TEST(QnJsonGet, KeyThatOccursTwiceIsRefused) {
  const TempFile file(R"({"a": 1, "b": 2, "a": 3})");
  EXPECT_EQ(RunJson({"get", file.path(), "a"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"get", file.path(), "b"}).output, "2\n");
}

TEST(QnJsonKeys, OfAnObjectAreListed) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"keys", file.path()}).output, "server\non\nnone\nlist\n");
  EXPECT_EQ(RunJson({"keys", "--json", file.path(), "server"}).output, "[\"host\",\"port\"]\n");
  EXPECT_EQ(RunJson({"keys", file.path(), "list"}).code, qn::kFailure);
}

TEST(QnJsonLength, CountsMembersElementsAndCharacters) {
  const TempFile file("{\"list\": [1, [2]], \"s\": \"\xE4\xB8\xAD\\n\", \"n\": 1}");
  EXPECT_EQ(RunJson({"length", file.path()}).output, "3\n");
  EXPECT_EQ(RunJson({"length", file.path(), "list"}).output, "2\n");
  EXPECT_EQ(RunJson({"length", file.path(), "s"}).output, "2\n");
  EXPECT_EQ(RunJson({"length", file.path(), "n"}).code, qn::kFailure);
}

// --- set, del, merge ----------------------------------------------------------------------------

TEST(QnJsonSet, ValueIsOneWholeJsonValueAndAStringOtherwise) {
  const std::pair<const char*, const char*> cases[] = {
      {"5", "5"},
      {"-0.25", "-0.25"},
      {"1e3", "1e3"},
      {" true ", "true"},
      {"null", "null"},
      {"[1,\"x\"]", "[1,\"x\"]"},
      {"{\"b\":2}", "{\"b\":2}"},
      {"\"5\"", "\"5\""},
      {"text", "\"text\""},
      {"007", "\"007\""},
      {"1.", "\"1.\""},
      {"", "\"\""},
      {"-", "\"-\""},
      {"1 2", "\"1 2\""},
      {"trueish", "\"trueish\""},
      {"inf", "\"inf\""},
      {"0x10", "\"0x10\""},
      {"a\"b\\c", "\"a\\\"b\\\\c\""},
  };
  for (const auto& [value, json] : cases) {
    const TempFile file(R"({"a": "before"})");
    ASSERT_EQ(RunJson({"set", "--", file.path(), "a", value}).code, qn::kSuccess) << value;
    EXPECT_EQ(qn::ReadInput(file.path()), "{\"a\": " + std::string(json) + "}");
  }
}

TEST(QnJsonSet, ValueThatBeginsLikeJsonAndIsNoneIsRefused) {
  for (const char* value : {"\"x\"y\"", "{\"a\" 1}", "[1,]", "[draft", "\"x", "{}{}"}) {
    const TempFile file(kSettings);
    EXPECT_EQ(RunJson({"set", file.path(), "on", value}).code, qn::kFailure) << value;
    EXPECT_EQ(qn::ReadInput(file.path()), kSettings);
    EXPECT_EQ(RunJson({"set", "-s", file.path(), "on", value}).code, qn::kSuccess) << value;
    EXPECT_EQ(RunJson({"get", file.path(), "on"}).output, std::string(value) + "\n");
  }
}

TEST(QnJsonSet, NothingElseChanges) {
  const std::string before =
      "{ \"esc\":\"\\u4e2d\\ud83d\\ude00\\b\\/\",\n\t\"nulls\" : [null,  null],\r\n"
      "  \"tiny\":1e-20, \"key\\\"\": 1.50 ,\"port\" :80,\"big\":12345678901234567890 }\n";
  std::string after = before;
  after.replace(after.find("80"), 2, "9090");
  const TempFile file(before);
  ASSERT_EQ(RunJson({"set", file.path(), "port", "9090"}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(file.path()), after);
}

TEST(QnJsonSet, EncodingOfTheFileIsKept) {
  const std::pair<std::string, std::string> cases[] = {
      {"\xEF\xBB\xBF{\"key\": \"\xE4\xB8\xAD\"}",
       "\xEF\xBB\xBF{\"key\": \"\xE4\xB8\xAD\", \"b\": \"\xE5\x9B\xBD\"}"},
      {"{\"key\": \"\xE4\xB8\xAD\"}", "{\"key\": \"\xE4\xB8\xAD\", \"b\": \"\xE5\x9B\xBD\"}"},
      {"{\"key\": \"\xD6\xD0\"}", "{\"key\": \"\xD6\xD0\", \"b\": \"\xB9\xFA\"}"},
      {std::string("\xFF\xFE{\0}\0", 6),
       std::string("\xFF\xFE{\0\"\0b\0\"\0:\0 \0\"\0\xFD\x56\"\0}\0", 22)},
  };
  for (const auto& [before, after] : cases) {
    const TempFile file(before);
    ASSERT_EQ(RunJson({"set", file.path(), "b", "\xE5\x9B\xBD"}).code, qn::kSuccess);
    EXPECT_EQ(qn::ReadInput(file.path()), after);
  }
}

TEST(QnJsonSet, PlainAsciiBecomesTheCodePageThatTheLibraryReads) {
  const TempFile file("{\"key\": 1}");
  const FullOutcome run = RunJson({"set", file.path(), "key", "\xE4\xB8\xAD"});
  EXPECT_EQ(run.code, qn::kSuccess);
  EXPECT_TRUE(Contains(run.errors, "code page")) << run.errors;
  EXPECT_EQ(qn::ReadInput(file.path()), "{\"key\": \"\xD6\xD0\"}");
  ASSERT_EQ(RunJson({"set", "--to", "utf-8-mark", file.path(), "key", "\xE4\xB8\xAD"}).code, 0);
  EXPECT_EQ(qn::ReadInput(file.path()), "\xEF\xBB\xBF{\"key\": \"\xE4\xB8\xAD\"}");
}

TEST(QnJsonSet, CharacterThatTheEncodingLacksIsRefused) {
  const TempFile file("{\"key\": \"\xD6\xD0\"}");
  EXPECT_EQ(RunJson({"set", file.path(), "b", "\xF0\x9F\x98\x80"}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(file.path()), "{\"key\": \"\xD6\xD0\"}");
  EXPECT_EQ(RunJson({"set", "--lossy", file.path(), "b", "\xF0\x9F\x98\x80"}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(file.path()), "{\"key\": \"\xD6\xD0\", \"b\": \"?\"}");
}

TEST(QnJsonSet, MissingMembersAreAddedUnlessOnlyExistingOnesMayChange) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"set", "--only-existing", file.path(), "x\\y", "1"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"set", file.path(), "on\\y", "1"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"set", file.path(), "x[0]", "1"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"set", file.path(), "list[3]", "1"}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(file.path()), kSettings);
  EXPECT_EQ(RunJson({"set", file.path(), "x\\y\\8080", "1"}).code, qn::kSuccess);
  EXPECT_EQ(RunJson({"get", "--compact", file.path(), "x"}).output, "{\"y\":{\"8080\":1}}\n");
  EXPECT_EQ(RunJson({"set", file.path(), "list[2]", "3"}).code, qn::kSuccess);
  EXPECT_EQ(RunJson({"set", file.path(), "/list/-", "4"}).code, qn::kSuccess);
  EXPECT_EQ(RunJson({"get", file.path(), "list"}).output, "[1,2,3,4]\n");
}

TEST(QnJsonSet, OutputFileLeavesTheSourceAlone) {
  const TempFile file(kSettings);
  const TempFile target("");
  ASSERT_EQ(RunJson({"set", "-i", "-o", target.path(), file.path(), "ON", "false"}).code, 0);
  EXPECT_EQ(qn::ReadInput(file.path()), kSettings);
  EXPECT_EQ(RunJson({"get", target.path(), "on"}).output, "false\n");
}

TEST(QnJsonSet, BrokenFileIsLeftAsItIs) {
  const TempFile file("{\"a\": 1,}");
  EXPECT_EQ(RunJson({"set", file.path(), "a", "2"}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(file.path()), "{\"a\": 1,}");
}

TEST(QnJsonDelete, RemovesMembersAndElements) {
  const TempFile file("{\n  \"a\": 1,\n  \"b\": [1, 2, 3],\n  \"c\": {\"d\": null}\n}\n");
  ASSERT_EQ(RunJson({"del", file.path(), "b[1]", "/c/d", "a"}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(file.path()), "{\n  \"b\": [1, 3],\n  \"c\": {}\n}\n");
  EXPECT_EQ(RunJson({"del", file.path(), "b", "nothing"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"del", file.path(), ""}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(file.path()), "{\n  \"b\": [1, 3],\n  \"c\": {}\n}\n");
}

TEST(QnJsonMerge, FollowsTheExamplesOfTheStandard) {
  // RFC 7396, appendix A.
  const char* const cases[][3] = {
      {R"({"a":"b"})", R"({"a":"c"})", R"({"a":"c"})"},
      {R"({"a":"b"})", R"({"b":"c"})", R"({"a":"b","b":"c"})"},
      {R"({"a":"b"})", R"({"a":null})", R"({})"},
      {R"({"a":"b","b":"c"})", R"({"a":null})", R"({"b":"c"})"},
      {R"({"a":["b"]})", R"({"a":"c"})", R"({"a":"c"})"},
      {R"({"a":"c"})", R"({"a":["b"]})", R"({"a":["b"]})"},
      {R"({"a":{"b":"c"}})", R"({"a":{"b":"d","c":null}})", R"({"a":{"b":"d"}})"},
      {R"({"a":[{"b":"c"}]})", R"({"a":[1]})", R"({"a":[1]})"},
      {R"(["a","b"])", R"(["c","d"])", R"(["c","d"])"},
      {R"({"a":"b"})", R"(["c"])", R"(["c"])"},
      {R"({"a":"foo"})", "null", "null"},
      {R"({"a":"foo"})", "\"bar\"", "\"bar\""},
      {R"({"e":null})", R"({"a":1})", R"({"e":null,"a":1})"},
      {"[1,2]", R"({"a":"b","c":null})", R"({"a":"b"})"},
      {"{}", R"({"a":{"bb":{"ccc":null}}})", R"({"a":{"bb":{}}})"},
      // Several at once: all members go, one comes.
      {R"({"a":1,"b":2})", R"({"a":null,"c":3,"b":null})", R"({"c":3})"},
      {R"({"a":1,"b":2,"c":3})", R"({"c":null,"b":4,"d":5})", R"({"a":1,"b":4,"d":5})"},
  };
  for (const auto& [before, patch, after] : cases) {
    const TempFile file(before);
    const TempFile change(patch);
    EXPECT_EQ(RunJson({"merge", file.path(), change.path()}).code, qn::kSuccess) << patch;
    EXPECT_EQ(RunJson({"get", "-c", "--json", file.path(), ""}).output, std::string(after) + "\n");
  }
}

// --- several files ------------------------------------------------------------------------------

TEST(QnJsonFiles, OneValueIsShownOfEachWithItsNameInFront) {
  const TempFile one(R"({"a": {"b": [1, 2]}})");
  const TempFile two(R"({"a": {"b": "text", "c": 3}})");
  const std::string first = std::string(one.path()) + "\n";
  const std::string second = std::string(two.path()) + "\n";
  EXPECT_EQ(RunJson({"get", "-c", "-p", "/a/b", one.path(), two.path()}),
            (Outcome{0, first + "[1,2]\n" + second + "text\n"}));
  EXPECT_EQ(RunJson({"keys", "--path", "a", one.path(), two.path()}),
            (Outcome{0, first + "b\n" + second + "b\nc\n"}));
  EXPECT_EQ(RunJson({"length", "--path", "a\\b", one.path(), two.path()}),
            (Outcome{0, first + "2\n" + second + "4\n"}));
  // One file has no name in front.
  EXPECT_EQ(RunJson({"length", "--path", "", two.path()}), (Outcome{0, "1\n"}));
}

TEST(QnJsonFiles, AFileWithoutTheValueIsAFailure) {
  const TempFile one(R"({"a": 1})");
  const TempFile two(R"({"b": 1})");
  const FullOutcome run = RunJson({"get", "--path", "a", one.path(), two.path()});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.output, std::string(one.path()) + "\n1\n" + two.path() + "\n");
  EXPECT_EQ(RunJson({"get", one.path(), two.path(), "a"}).code, 2);
  EXPECT_EQ(RunJson({"get", "--path", "a"}).code, 2);
}

TEST(QnJsonFiles, AFileThatFailsIsNamedAndTheOthersFollow) {
  const TempFile one(R"({"b": 1})");
  const TempFile two(R"({"a": 2})");
  const FullOutcome run = RunJson({"get", "--path", "a", one.path(), two.path()});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.output, std::string(one.path()) + "\n" + two.path() + "\n2\n");
  EXPECT_EQ(run.errors, "qn: " + std::string(one.path()) + ": there is no value 'a'\n");
  const std::string missing = TempFile::NewPath();
  const FullOutcome shape = RunJson({"shape", missing, two.path()});
  EXPECT_EQ(shape.code, 1);
  EXPECT_TRUE(Contains(shape.errors, missing)) << shape.errors;
  EXPECT_TRUE(Contains(shape.output, "an object with 1 member,"));
}

TEST(QnJsonFiles, OneValueIsSetInEach) {
  const TempFile one("{\"a\": 1.50, \"b\":2}");
  const TempFile broken("{\"a\": 1,}");
  const TempFile two("{ \"c\" : [ ] }\r\n");
  const FullOutcome run =
      RunJson({"set", "-p", "a", "--value", "[3]", one.path(), broken.path(), two.path()});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(Contains(run.errors, std::string(broken.path()) + ":1:9: ")) << run.errors;
  EXPECT_EQ(qn::ReadInput(one.path()), "{\"a\": [3], \"b\":2}");
  EXPECT_EQ(qn::ReadInput(broken.path()), "{\"a\": 1,}");
  EXPECT_EQ(qn::ReadInput(two.path()), "{ \"c\" : [ ], \"a\" : [3] }\r\n");
  EXPECT_EQ(RunJson({"set", "-p", "/x/y", "--value", "1", "--only-existing", one.path()}).code, 1);
  EXPECT_EQ(qn::ReadInput(one.path()), "{\"a\": [3], \"b\":2}");
}

TEST(QnJsonFiles, ValuesAreRemovedFromEachThatHasThemAll) {
  const TempFile one("{\"a\": 1, \"b\": 1.50, \"c\": 3}");
  const TempFile without("{\"a\": 1, \"c\": 3}");
  const TempFile two("{\"b\": {\"d\": 1}, \"a\": [] }");
  const FullOutcome run =
      RunJson({"del", "--path", "a", "-p", "/b", one.path(), without.path(), two.path()});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.errors, "qn: " + std::string(without.path()) + ": there is no value '/b'\n");
  EXPECT_EQ(qn::ReadInput(one.path()), "{\"c\": 3}");
  EXPECT_EQ(qn::ReadInput(without.path()), "{\"a\": 1, \"c\": 3}");
  EXPECT_EQ(qn::ReadInput(two.path()), "{}");
}

TEST(QnJsonFiles, EachIsFormattedInItsPlaceAndEncoding) {
  const TempFile one("[1.50,\n{\"a\":2}]\n");
  const TempFile broken("[1");
  const TempFile two("\xEF\xBB\xBF{\"\xE4\xB8\xAD\": []}");
  const FullOutcome run =
      RunJson({"format", "--in-place", "--indent", "2", one.path(), broken.path(), two.path()});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_TRUE(Contains(run.errors, std::string(broken.path()) + ":1:3: ")) << run.errors;
  EXPECT_EQ(qn::ReadInput(one.path()), "[\n  1.50,\n  {\n    \"a\": 2\n  }\n]\n");
  EXPECT_EQ(qn::ReadInput(broken.path()), "[1");
  EXPECT_EQ(qn::ReadInput(two.path()), "\xEF\xBB\xBF{\n  \"\xE4\xB8\xAD\": []\n}");
  // Again: nothing is left to be done.
  EXPECT_EQ(RunJson({"format", "--in-place", "--indent", "2", one.path()}).code, 0);
  EXPECT_EQ(qn::ReadInput(one.path()), "[\n  1.50,\n  {\n    \"a\": 2\n  }\n]\n");
  EXPECT_EQ(RunJson({"format", "--in-place", one.path()}).code, 0);
  EXPECT_TRUE(qn::ReadInput(one.path()).ends_with("]\r\n"));
  EXPECT_EQ(RunJson({"format", "--in-place", "-c", "--to", "utf-16le", one.path()}).code, 0);
  EXPECT_EQ(qn::ReadInput(one.path()).substr(0, 4), std::string("\xFF\xFE[\000", 4));
}

TEST(QnJsonFiles, OneOutputOfSeveralFilesIsRefused) {
  const TempFile one("[1]");
  const TempFile two("[2]");
  const std::string a = one.path(), b = two.path();
  const std::vector<std::string> cases[] = {
      {"format", a, b},
      {"format", "--in-place", "-o", b, a},
      {"format", "--in-place", "-"},
      {"set", "-p", "a", "--value", "1", "-o", b, a, b},
      {"set", "-p", "a", a},
      {"set", "--value", "1", a, b},
      {"set", "-p", "a", "--value", "1"},
      {"del", "-p", "a", "-o", b, a, b},
      {"del", "-p", "a"},
  };
  for (const auto& arguments : cases) EXPECT_EQ(RunJson(arguments).code, qn::kUsageError);
  EXPECT_EQ(qn::ReadInput(a), "[1]");
  EXPECT_EQ(qn::ReadInput(b), "[2]");
}

// --- shape --------------------------------------------------------------------------------------

std::string ShapeOf(const std::string& text) {
  quarnfc::ext::JsonText json;
  EXPECT_TRUE(json.Parse(text, nullptr, {1'000'000}));
  return qn::DescribeJsonShape(json.Root());
}

TEST(QnJsonShape, CountsTypesDepthArraysAndKeys) {
  EXPECT_EQ(ShapeOf(R"({"a":[{"k":1,"k":2},{"k":null}],"b":"x","c":[true]})"),
            "values    3 objects, 2 arrays, 1 strings, 2 numbers, 1 booleans, 1 nulls\n"
            "depth     3\n"
            "longest arrays\n"
            "  2       a\n"
            "  1       c\n"
            "keys, and how often they occur\n"
            "  level 1 a, b, c\n"
            "  level 3 k (3)\n");
}

TEST(QnJsonShape, DocumentsWithoutMembersOrArraysAreShort) {
  EXPECT_EQ(ShapeOf("\"x\""), "values    1 strings\ndepth     0\n");
  EXPECT_EQ(ShapeOf("[]"),
            "values    1 arrays\ndepth     1\nlongest arrays\n  0       (the document)\n");
}

TEST(QnJsonShape, ListsAreCut) {
  std::string keys = "{";
  for (char key = 'a'; key <= 'j'; ++key) keys += std::string("\"") + key + "\":[],";
  const std::string shape = ShapeOf(keys + "\"z\":1}");
  EXPECT_TRUE(Contains(shape, "level 1 a, b, c, d, e, f, g, h and 3 more\n")) << shape;
  EXPECT_EQ(std::count(shape.begin(), shape.end(), '\n'), 10);
}

TEST(QnJsonShape, DepthIsNoDanger) {
  const std::size_t depth = 200'000;
  const std::string shape = ShapeOf(std::string(depth, '[') + std::string(depth, ']'));
  EXPECT_TRUE(Contains(shape, "depth     200000\n"));
}

TEST(QnJsonShape, RealFileIsDescribed) {
  const FullOutcome run = RunJson({"shape", QUARNFC_TEST_DATA "/json/canada.json"});
  EXPECT_EQ(run.code, qn::kSuccess);
  EXPECT_TRUE(
      Contains(run.output, "values    4 objects, 56045 arrays, 4 strings, 111126 numbers\n"));
}

// --- all ----------------------------------------------------------------------------------------

TEST(QnJson, WrongCommandLinesAreUsageErrors) {
  const std::vector<std::string> cases[] = {{},
                                            {"check"},
                                            {"check", "--indent", "b"},
                                            {"get", "a"},
                                            {"set", "a", "b"},
                                            {"del", "a"},
                                            {"merge", "a"},
                                            {"get", "--encoding", "latin", "a", "b"},
                                            {"shape"},
                                            {"format"},
                                            {"format", "--tabs", "a"}};
  for (const auto& arguments : cases) EXPECT_EQ(RunJson(arguments).code, qn::kUsageError);
}

TEST(QnJson, HelpIsEverywhere) {
  for (const char* command :
       {"check", "del", "format", "get", "keys", "length", "merge", "set", "shape"}) {
    const FullOutcome run = RunJson({command, "--help"});
    EXPECT_EQ(run.code, qn::kSuccess);
    EXPECT_TRUE(run.output.starts_with("usage: qn json " + std::string(command))) << command;
  }
}

}  // namespace
