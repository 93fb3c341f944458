// The command json, as the dispatcher runs it, and how it finds the place of a fault.
#include <gtest/gtest.h>

#include <quarnfc/json_value.h>

#include <algorithm>
#include <string>
#include <vector>

#include "command.h"
#include "exit_code.h"
#include "input_file.h"
#include "json_fault.h"
#include "json_shape.h"
#include "support/build_paths.h"
#include "tests/io/temp_file.h"
#include "tests/tools/run_qn.h"

namespace qn {

extern const Command kJsonCommand;

}  // namespace qn

namespace {

using io_test::TempFile;
using qn_test::FullOutcome;
using qn_test::Outcome;

FullOutcome RunJson(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "json");
  return qn_test::RunQn({&qn::kJsonCommand, 1}, arguments);
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

constexpr char kSettings[] = R"({"server": {"host": "maps.example", "port": 80}, "on": true,
  "none": null, "list": [1, 2]})";

// --- check --------------------------------------------------------------------------------------

TEST(QnJsonCheck, ReadableFileIsDescribed) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"check", file.path()}).output,
            std::string(file.path()) + ": an object with 4 members, code page\n");
  const TempFile marked("\xEF\xBB\xBF[1, 2, 3, 4]");
  EXPECT_EQ(RunJson({"check", marked.path()}).output,
            std::string(marked.path()) + ": an array with 4 elements, UTF-8 with mark\n");
}

TEST(QnJsonCheck, BrokenFileShowsMessageCodeAndPlace) {
  const TempFile file("{\n\t\"server\": {\n\t\t\"port\" 80\n\t}\n}");
  const FullOutcome run = RunJson({"check", file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_EQ(run.output, "");
  EXPECT_TRUE(Holds(run.errors,
                    "Can't find ':' : 80\\n\\t}\\n} (error code 5)\n"
                    "line 3, column 10: a key without a colon behind it\n"
                    "      \"port\" 80\n"
                    "             ^\n"))
      << run.errors;
}

TEST(QnJsonCheck, ColumnsCountCharacters) {
  for (const char* text : {"{\"\xD6\xD0\xB9\xFA\" 1, \"b\": 2}",
                           "\xEF\xBB\xBF{\"\xE4\xB8\xAD\xE5\x9B\xBD\" 1, \"b\": 2}"}) {
    const TempFile file(text);
    EXPECT_TRUE(Holds(RunJson({"check", file.path()}).errors, "line 1, column 7:")) << text;
  }
}

TEST(QnJsonCheck, MissingFileShowsTheLibrarysMessageAndCode) {
  const std::string path = TempFile::NewPath();
  const FullOutcome run = RunJson({"check", path});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Holds(run.errors, ": Quarn: Can't open " + path + ", error: 0x2 (error code 2)\n"));
}

TEST(QnJsonCheck, RefusedLengthHasNoPlace) {
  const TempFile file("{}");
  const FullOutcome run = RunJson({"check", file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_TRUE(Holds(run.errors, " file length is invalid (error code 5)\n")) << run.errors;
  EXPECT_FALSE(Holds(run.errors, "line "));
}

TEST(QnJsonCheck, ErrorDocumentIsTheLibrarys) {
  const std::string path = "no_such_file.json";
  EXPECT_EQ(static_cast<const Outcome&>(RunJson({"check", "--json", path})),
            (Outcome{qn::kFailure,
                     "{\n\t\"Error\":{\n\t\t\"DisplayText\":\"Quarn: Can't open no_such_file.json, "
                     "error: 0x2\",\n\t\t\"ErrorCode\":2\n\t}\n}\n"}));
  const TempFile broken("{\"abcdefg\" 1}");
  EXPECT_TRUE(Holds(RunJson({"check", "--json", "--utf8", broken.path()}).output,
                    "\"\xE6\x97\xA0\xE6\x95\x88\xE7\x9A\x84json\xEF\xBC\x8C"
                    "Can't find ':' : 1}\""));
  const TempFile good(kSettings);
  EXPECT_EQ(static_cast<const Outcome&>(RunJson({"check", "--json", good.path()})),
            (Outcome{qn::kSuccess, "{\n\t\"Error\":{\n\t\t\"ErrorCode\":0\n\t}\n}\n"}));
}

// --- the place of a fault -----------------------------------------------------------------------

struct FaultCase {
  std::string text;
  std::size_t offset;
};

TEST(QnJsonFault, OffsetIsWhereTheReaderStopped) {
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
    const auto fault = qn::FindJsonFault(each.text);
    ASSERT_TRUE(fault.has_value()) << each.text;
    EXPECT_EQ(fault->offset, each.offset) << each.text;
    EXPECT_TRUE(fault->certain) << each.text;
  }
  EXPECT_FALSE(qn::FindJsonFault(good).has_value());
}

TEST(QnJsonFault, FirstOfSeveralPlacesIsMarkedUncertain) {
  std::string text;
  for (int i = 0; i < 30; ++i) text += "{\"a\":";
  const auto fault = qn::FindJsonFault(text + "1 ");
  ASSERT_TRUE(fault.has_value());
  EXPECT_LE(fault->offset, text.size());

  const std::string bad = R"({"name":"roads","width":1,"colour":"#ffffff","shown":true;})";
  const auto twice = qn::FindJsonFault("[" + bad + "," + bad + "]");
  ASSERT_TRUE(twice.has_value());
  EXPECT_EQ(twice->offset, 1u);
  EXPECT_FALSE(twice->certain);
}

TEST(QnJsonFault, PlacesStartAtLineAndColumnOne) {
  const qn::JsonPlace first = qn::PlaceOf("ab\r\ncd", 0);
  EXPECT_EQ(first.line, 1u);
  EXPECT_EQ(first.column, 1u);
  const qn::JsonPlace second = qn::PlaceOf("ab\r\ncd", 5);
  EXPECT_EQ(second.line, 2u);
  EXPECT_EQ(second.column, 2u);
  EXPECT_EQ(second.excerpt, "    cd\n     ^");
  EXPECT_EQ(qn::PlaceOf("ab\n", 3).line, 2u);
  EXPECT_EQ(qn::PlaceOf("", 0).column, 1u);
}

TEST(QnJsonFault, LongLinesAreCutAroundThePlace) {
  const std::string line(1000, 'x');
  const qn::JsonPlace place = qn::PlaceOf(line, 500);
  EXPECT_EQ(place.column, 501u);
  EXPECT_EQ(place.excerpt, "    ..." + std::string(75, 'x') + "...\n" + std::string(47, ' ') + "^");
}

// --- format -------------------------------------------------------------------------------------

TEST(QnJsonFormat, WritesTheLibrarysLayout) {
  const TempFile file(R"({"a": [1, 2], "b": null})");
  EXPECT_EQ(RunJson({"format", "--compact", file.path()}).output, "{\"a\":[1,2],\"b\":null}\n");
  EXPECT_EQ(RunJson({"format", file.path()}).output, "{\n\t\"a\":[1,2],\n\t\"b\":null\n}\n");
}

TEST(QnJsonFormat, FileIsInTheCodePageOrInUtf8WithMark) {
  const TempFile file("{\"key\": \"\xD6\xD0\"}");
  const TempFile target("");
  ASSERT_EQ(RunJson({"format", "--utf8", "-o", target.path(), file.path()}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(target.path()), "\xEF\xBB\xBF{\r\n\t\"key\":\"\xE4\xB8\xAD\"\r\n}");
  const TempFile back("");
  ASSERT_EQ(RunJson({"format", "-o", back.path(), target.path()}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(back.path()), "{\r\n\t\"key\":\"\xD6\xD0\"\r\n}");
}

TEST(QnJsonFormat, CharactersThatWouldBeLostAreRefusedUnlessAsked) {
  const TempFile file("\xEF\xBB\xBF{\"key\": \"\xF0\x9F\x98\x80\"}");
  const TempFile target("before");
  EXPECT_EQ(RunJson({"format", "-o", target.path(), file.path()}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(target.path()), "before");
  EXPECT_EQ(RunJson({"format", "--lossy", "-o", target.path(), file.path()}).code, qn::kSuccess);
}

TEST(QnJsonFormat, KeysThatWouldNotReadBackAreRefused) {
  for (const char* text : {R"([1, {"a\"b": 1}])", R"([1, {"a\\b": 1}])"}) {
    const TempFile file(text);
    const TempFile target("before");
    EXPECT_EQ(RunJson({"format", "-o", target.path(), file.path()}).code, qn::kFailure) << text;
    EXPECT_EQ(qn::ReadInput(target.path()), "before") << text;
  }
}

// --- get ----------------------------------------------------------------------------------------

TEST(QnJsonGet, PrintsStringsAsTheyAreAndTheRestAsJson) {
  const TempFile file(kSettings);
  const std::pair<const char*, const char*> cases[] = {
      {"server\\host", "maps.example\n"},
      {"server\\port", "80\n"},
      {"on", "true\n"},
      {"none", "null\n"},
      {"list", "[1,2]\n"},
  };
  for (const auto& [path, text] : cases) {
    EXPECT_EQ(static_cast<const Outcome&>(RunJson({"get", file.path(), path})),
              (Outcome{qn::kSuccess, text}));
  }
  EXPECT_EQ(RunJson({"get", "--compact", file.path(), "server"}).output,
            "{\"host\":\"maps.example\",\"port\":80}\n");
}

TEST(QnJsonGet, CaseCountsUnlessIgnored) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"get", file.path(), "SERVER\\Port"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"get", "-i", file.path(), "SERVER\\Port"}).output, "80\n");
}

TEST(QnJsonGet, MembersThatAreNotThereFail) {
  const TempFile file(kSettings);
  for (const char* path : {"", "server/host", "list\\0", "server\\host\\x"}) {
    EXPECT_EQ(RunJson({"get", file.path(), path}).code, qn::kFailure) << path;
  }
  const TempFile array("[1, 2, 3, 4, 5]");
  EXPECT_EQ(RunJson({"get", array.path(), "a"}).code, qn::kFailure);
}

// --- set ----------------------------------------------------------------------------------------

TEST(QnJsonSet, ValueIsJsonWhereItLooksLikeItAndAStringOtherwise) {
  const std::pair<const char*, const char*> cases[] = {
      {"5", "5"},
      {"-0.25", "-0.25"},
      {"1e3", "1000"},
      {"true", "true"},
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
      {"[draft", "\"[draft\""},
  };
  for (const auto& [value, json] : cases) {
    const TempFile file(R"({"a": "before"})");
    ASSERT_EQ(RunJson({"set", "--", file.path(), "a", value}).code, qn::kSuccess) << value;
    EXPECT_EQ(RunJson({"format", "--compact", file.path()}).output,
              "{\"a\":" + std::string(json) + "}\n");
  }
}

TEST(QnJsonSet, StringOptionTakesTheValueAsItIs) {
  const TempFile file(R"({"a": "before"})");
  ASSERT_EQ(RunJson({"set", "-s", file.path(), "a", "[1]"}).code, qn::kSuccess);
  EXPECT_EQ(RunJson({"get", file.path(), "a"}).output, "[1]\n");
}

TEST(QnJsonSet, BrokenValueLeavesTheFileAsItWas) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"set", file.path(), "on", "{\"a\" 1}"}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(file.path()), kSettings);
}

TEST(QnJsonSet, EncodingOfTheFileIsKept) {
  const TempFile marked("\xEF\xBB\xBF{\"key\": \"\xE4\xB8\xAD\"}");
  ASSERT_EQ(RunJson({"set", marked.path(), "b", "1"}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(marked.path()),
            "\xEF\xBB\xBF{\r\n\t\"key\":\"\xE4\xB8\xAD\",\r\n\t\"b\":1\r\n}");
  const TempFile plain("{\"key\": \"\xD6\xD0\"}");
  ASSERT_EQ(RunJson({"set", plain.path(), "b", "1"}).code, qn::kSuccess);
  EXPECT_EQ(qn::ReadInput(plain.path()), "{\r\n\t\"key\":\"\xD6\xD0\",\r\n\t\"b\":1\r\n}");
}

TEST(QnJsonSet, MissingMembersAreAddedUnlessOnlyExistingOnesMayChange) {
  const TempFile file(kSettings);
  EXPECT_EQ(RunJson({"set", "--only-existing", file.path(), "x\\y", "1"}).code, qn::kFailure);
  EXPECT_EQ(RunJson({"set", file.path(), "on\\y", "1"}).code, qn::kFailure);
  EXPECT_EQ(qn::ReadInput(file.path()), kSettings);
  EXPECT_EQ(RunJson({"set", file.path(), "x\\y", "1"}).code, qn::kSuccess);
  EXPECT_EQ(RunJson({"get", "--compact", file.path(), "x"}).output, "{\"y\":1}\n");
}

TEST(QnJsonSet, OutputFileLeavesTheSourceAlone) {
  const TempFile file(kSettings);
  const TempFile target("");
  ASSERT_EQ(RunJson({"set", "-i", "-o", target.path(), file.path(), "ON", "false"}).code, 0);
  EXPECT_EQ(qn::ReadInput(file.path()), kSettings);
  EXPECT_EQ(RunJson({"get", target.path(), "on"}).output, "false\n");
}

// --- shape --------------------------------------------------------------------------------------

std::string ShapeOf(const std::string& text) {
  CMyJsonValue value;
  CQNString reason;
  EXPECT_TRUE(value.Load(text.c_str(), reason));
  return qn::DescribeJsonShape(value);
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
  const std::string shape = ShapeOf(keys + "}");
  EXPECT_TRUE(Holds(shape, "level 1 a, b, c, d, e, f, g, h and 2 more\n")) << shape;
  EXPECT_EQ(std::count(shape.begin(), shape.end(), '\n'), 10);
}

TEST(QnJsonShape, DepthIsNoDanger) {
  const std::size_t depth = 200'000;
  const std::string shape = ShapeOf(std::string(depth, '[') + std::string(depth, ']'));
  EXPECT_TRUE(Holds(shape, "depth     200000\n"));
}

TEST(QnJsonShape, RealFileIsDescribed) {
  const FullOutcome run = RunJson({"shape", QUARNFC_TEST_DATA "/json/canada.json"});
  EXPECT_EQ(run.code, qn::kSuccess);
  EXPECT_TRUE(Holds(run.output, "values    4 objects, 56045 arrays, 4 strings, 111126 numbers\n"));
}

// --- all ----------------------------------------------------------------------------------------

TEST(QnJson, WrongCommandLinesAreUsageErrors) {
  const std::vector<std::string> cases[] = {
      {},        {"check"},  {"check", "a", "b"},        {"get", "a"}, {"set", "a", "b"},
      {"shape"}, {"format"}, {"format", "--indent", "a"}};
  for (const auto& arguments : cases) EXPECT_EQ(RunJson(arguments).code, qn::kUsageError);
}

TEST(QnJson, HelpIsEverywhere) {
  for (const char* command : {"check", "format", "get", "set", "shape"}) {
    const FullOutcome run = RunJson({command, "--help"});
    EXPECT_EQ(run.code, qn::kSuccess);
    EXPECT_TRUE(run.output.starts_with("usage: qn json " + std::string(command))) << command;
  }
}

}  // namespace
