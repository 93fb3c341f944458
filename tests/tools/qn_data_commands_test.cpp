// SPDX-License-Identifier: MIT
// The commands csv, hash, base64, base32 and time, as the dispatcher runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "qn/command.h"
#include "qn/exit_code.h"
#include "qn/input_file.h"
#include "qn/output_file.h"
#include "tests/io/time_zone.h"
#include "tests/support/temp_file.h"
#include "tests/tools/run_qn.h"

namespace qn {

extern const Command kBase32Command;
extern const Command kBase64Command;
extern const Command kCsvCommand;
extern const Command kHashCommand;
extern const Command kTimeCommand;

}  // namespace qn

namespace {

using qn_test::Outcome;
using quarnfc_test::TempFile;

qn_test::FullOutcome RunQn(const std::vector<std::string>& arguments) {
  const qn::Command commands[] = {qn::kBase32Command, qn::kBase64Command, qn::kCsvCommand,
                                  qn::kHashCommand, qn::kTimeCommand};
  return qn_test::RunQn(commands, arguments);
}

// The outcome of a command that writes with -o, with what it wrote.
Outcome RunToFile(std::vector<std::string> arguments) {
  const TempFile target("");
  arguments.insert(arguments.end(), {"-o", target.path()});
  const int code = RunQn(arguments).code;
  return {code, qn::ReadInput(target.path())};
}

std::string RandomText(std::size_t size) {
  std::string text(size, '\0');
  unsigned state = 1;
  for (char& ch : text) ch = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  return text;
}

// --- csv --------------------------------------------------------------------------------------

constexpr char kCsv[] = "id,name\n1,\"a,\"\"b\"\"\"\n2, x \n";

TEST(QnCsv, HeadPrintsTheHeaderAndTheFirstRows) {
  const TempFile file(kCsv);
  EXPECT_EQ(RunQn({"csv", "head", "-n", "1", file.path()}),
            (Outcome{0, "id,name\n1,\"a,\"\"b\"\"\"\n"}));
  EXPECT_EQ(RunQn({"csv", "head", file.path()}).output, "id,name\n1,\"a,\"\"b\"\"\"\n2,x \n");
}

TEST(QnCsv, ColumnsPrintsTheHeaderFields) {
  const TempFile file(kCsv);
  EXPECT_EQ(RunQn({"csv", "columns", file.path()}), (Outcome{0, "id\nname\n"}));
}

TEST(QnCsv, CountPrintsTheNumberOfRows) {
  const TempFile file(kCsv);
  EXPECT_EQ(RunQn({"csv", "count", file.path()}), (Outcome{0, "2\n"}));
}

TEST(QnCsv, ToJsonWritesAnObjectForEachRow) {
  const TempFile file(kCsv);
  EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}),
            (Outcome{0,
                     "[\n{\"id\":\"1\",\"name\":\"a,\\\"b\\\"\"},\n"
                     "{\"id\":\"2\",\"name\":\"x \"}\n]\n"}));
}

TEST(QnCsv, ToJsonWritesUtf8UnlessAskedForTheCodePage) {
  const TempFile file("n\n\xD6\xD0\n");
  EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}).output, "[\n{\"n\":\"\xE4\xB8\xAD\"}\n]\n");
  EXPECT_EQ(RunToFile({"csv", "to-json", "--ansi", file.path()}).output,
            "[\n{\"n\":\"\xD6\xD0\"}\n]\n");
}

TEST(QnCsv, ToJsonNumbersFieldsBeyondTheHeader) {
  const TempFile file("a\n1,2\n");
  EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}).output, "[\n{\"a\":\"1\",\"2\":\"2\"}\n]\n");
}

TEST(QnCsv, ToJsonQuotesWhatNeedsIt) {
  const TempFile file("\"a\"\"b\",\"c\\d\"\n\"x\ny\",\"\t\"\n");
  EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}),
            (Outcome{0, "[\n{\"a\\\"b\":\"x\\ny\",\"c\\\\d\":\"\\t\"}\n]\n"}));
}

TEST(QnCsv, ToJsonRefusesKeysThatOccurTwice) {
  for (const char* text : {"a,a\n1,2\n", "2\nx,y\n"}) {
    const TempFile file(text);
    EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}), (Outcome{qn::kFailure, ""})) << text;
  }
}

TEST(QnCsv, ToJsonOfUtf8WithoutMarkIsThatText) {
  const TempFile file("n\n\xE4\xB8\xAD\xF0\x9F\x98\x80\n");
  EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}),
            (Outcome{0, "[\n{\"n\":\"\xE4\xB8\xAD\xF0\x9F\x98\x80\"}\n]\n"}));
  EXPECT_EQ(RunToFile({"csv", "to-json", "--ansi", file.path()}).code, qn::kFailure);
  EXPECT_EQ(RunToFile({"csv", "to-json", "--ansi", "--lossy", file.path()}).output,
            "[\n{\"n\":\"\xD6\xD0?\"}\n]\n");
}

TEST(QnCsv, FailureLeavesTheOutputFileAsItWas) {
  const TempFile file("h\n1\n\"2\n");
  EXPECT_EQ(RunToFile({"csv", "to-json", file.path()}), (Outcome{qn::kFailure, ""}));
  EXPECT_EQ(RunQn({"csv", "count", file.path()}), (Outcome{qn::kFailure, ""}));
}

TEST(QnCsv, SelectPrintsColumnsByNameOrNumber) {
  const TempFile file("a;b;3\n1;\"x;y\";z\n2\n");
  EXPECT_EQ(RunQn({"csv", "select", "-d", ";", "-c", "b", "-c", "1", file.path()}),
            (Outcome{0, "b;a\n\"x;y\";1\n;2\n"}));
  EXPECT_EQ(RunQn({"csv", "select", "-d", ";", "-c", "3", file.path()}).output, "3\nz\n\"\"\n");
  EXPECT_EQ(RunQn({"csv", "select", "-c", "q", file.path()}).code, qn::kFailure);
  EXPECT_EQ(RunQn({"csv", "select", file.path()}).code, qn::kUsageError);
}

TEST(QnCsv, FilterPrintsRowsThatMeetEveryCondition) {
  const TempFile file("name,n\na,1\nab,2.5\nb,10\nab,x\n");
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"name=ab"}, "name,n\nab,2.5\nab,x\n"},
      {{"name!=ab"}, "name,n\na,1\nb,10\n"},
      {{"name~a", "n<=2.5"}, "name,n\na,1\nab,2.5\n"},
      {{"n>2"}, "name,n\nab,2.5\nb,10\n"},
      {{"n>=10"}, "name,n\nb,10\n"},
      {{"n<1"}, "name,n\n"},
      {{"2=x"}, "name,n\nab,x\n"},
  };
  for (const auto& [conditions, output] : cases) {
    std::vector<std::string> arguments = {"csv", "filter", file.path()};
    for (const std::string& each : conditions) arguments.insert(arguments.end(), {"-w", each});
    EXPECT_EQ(RunQn(arguments), (Outcome{0, output})) << conditions[0];
  }
  for (const char* wrong : {"name", "n<x", "=", "n"}) {
    EXPECT_EQ(RunQn({"csv", "filter", "-w", wrong, file.path()}).code, qn::kUsageError) << wrong;
  }
  EXPECT_EQ(RunQn({"csv", "filter", "-w", "q=1", file.path()}).code, qn::kFailure);
}

TEST(QnCsv, StatsDescribeTheColumns) {
  const TempFile file("n,t\n1,a\n2.5,\n,nan\n-4\n");
  EXPECT_EQ(RunQn({"csv", "stats", file.path()}),
            (Outcome{0,
                     "n: 3 numbers, 0 texts, 1 empty; least -4, most 2.5, mean "
                     "-0.16666666666666666\nt: 0 numbers, 2 texts, 2 empty\n"}));
  EXPECT_EQ(RunQn({"csv", "stats", "--json", file.path()}).output,
            "{\"column\":\"n\",\"numbers\":3,\"texts\":0,\"empty\":1,\"least\":-4,\"most\":2.5,"
            "\"mean\":-0.16666666666666666}\n"
            "{\"column\":\"t\",\"numbers\":0,\"texts\":2,\"empty\":2}\n");
}

TEST(QnCsv, MissingFileFails) {
  EXPECT_EQ(RunQn({"csv", "count", TempFile::NewPath()}).code, qn::kFailure);
}

#if !defined(_WIN32)
// Names of files are UTF-8 here, and so is what is printed.
TEST(QnCsv, ChineseNameOfAMissingFileIsReadableInTheMessage) {
  EXPECT_EQ(RunQn({"csv", "count", "没有.csv"}).errors,
            "qn: cannot open 没有.csv: " + std::string(std::strerror(ENOENT)) + "\n");
}
#endif

// --- hash -------------------------------------------------------------------------------------

TEST(QnHash, PrintsDigestAndName) {
  const TempFile file("123456789");
  const std::string name = file.path();
  EXPECT_EQ(RunQn({"hash", "crc64", file.path()}),
            (Outcome{0, "qn-crc64 (" + name + ") = 66A2364420E6C605\n"}));
  EXPECT_EQ(RunQn({"hash", "md5", file.path()}).output,
            "qn-md5 (" + name + ") = 25f9e794323b453885f5181f1b624d0b\n");
  // A standard digest has the standard form.
  EXPECT_EQ(RunQn({"hash", "hmac-sha256", "--key", "key", file.path()}).output.substr(64),
            "  " + name + "\n");
}

TEST(QnHash, StandardDigestsHaveTheFormOfTheStandardTools) {
  // RFC 1321 and FIPS 180-4 for "abc"; the library's own MD5 packs bytes of 80 and above its way.
  const TempFile file("abc");
  const std::string name = file.path();
  EXPECT_EQ(RunQn({"hash", "md5sum", file.path()}),
            (Outcome{0, "900150983cd24fb0d6963f7d28e17f72  " + name + "\n"}));
  EXPECT_EQ(RunQn({"hash", "sha256sum", file.path()}),
            (Outcome{0, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad  " +
                            name + "\n"}));
  const TempFile high("\xFF");
  EXPECT_EQ(RunQn({"hash", "md5sum", high.path()}).output.substr(0, 32),
            "00594fd4f42ba43fc1ca0427a0576295");
  EXPECT_NE(RunQn({"hash", "md5", high.path()}).output.find("qn-md5 ("), std::string::npos);
}

TEST(QnHash, PiecesMakeTheDigestOfTheWhole) {
  // Larger than what is read at once, and not a multiple of it.
  const TempFile file(std::string(3 * 1024 * 1024 + 7, 'x'));
  EXPECT_EQ(RunQn({"hash", "sha256sum", file.path()}).output.substr(0, 64),
            "2d4e7639119cfc09b3615864bd82ef299c4d26e3524a23a31fc37185216617f1");
  EXPECT_NE(RunQn({"hash", "crc64", file.path()}).output.find(") = D9EAF30AD43650AA"),
            std::string::npos);
}

TEST(QnHash, ListsOfTheStandardToolsAreRead) {
  const TempFile file("abc");
  const std::string name = file.path();
  std::string doubled;
  for (const char ch : name) doubled += ch == '\\' ? "\\\\" : std::string(1, ch);
  const std::string digest = "900150983CD24FB0D6963F7D28E17F72";
  const TempFile list(digest + "  " + name + "\n" + digest + " *" + name + "\n\\" + digest + "  " +
                      doubled + "\n");
  const std::string ok = name + ": OK\n";
  EXPECT_EQ(RunQn({"hash", "md5sum", "-c", list.path()}), (Outcome{0, ok + ok + ok}));
  const TempFile broken(digest + name + "\n" + digest + " \n");
  EXPECT_EQ(RunQn({"hash", "md5sum", "-c", broken.path()}).code, qn::kFailure);
}

TEST(QnHash, GoesOnAfterAMissingFile) {
  const TempFile file("123456789");
  const std::string missing = TempFile::NewPath();
  const qn_test::FullOutcome run = RunQn({"hash", "crc64", missing, file.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_EQ(run.output, "qn-crc64 (" + std::string(file.path()) + ") = 66A2364420E6C605\n");
  EXPECT_NE(run.errors.find(missing), std::string::npos);
}

TEST(QnHash, FilesAreComparedWithAList) {
  const TempFile file("123456789");
  const std::string name = file.path();
  for (const std::vector<std::string>& command : {std::vector<std::string>{"hash", "md5"},
                                                  {"hash", "md5sum"},
                                                  {"hash", "sha256sum"},
                                                  {"hash", "crc64"},
                                                  {"hash", "hmac-sha256", "-k", "key"}}) {
    std::vector<std::string> make = command;
    make.push_back(name);
    const TempFile list(RunQn(make).output + "\r\n");
    std::vector<std::string> check = command;
    check.insert(check.end(), {"-c", list.path()});
    EXPECT_EQ(RunQn(check), (Outcome{0, name + ": OK\n"}));
  }
  const TempFile wrong("qn-crc64 (" + name + ") = 0\nqn-crc64 (" + name + "x) = 0\nnothing\n");
  const qn_test::FullOutcome run = RunQn({"hash", "crc64", "--check", wrong.path()});
  EXPECT_EQ(run.code, qn::kFailure);
  EXPECT_EQ(run.output, name + ": FAILED\n");
  EXPECT_NE(run.errors.find("3 of 3 are wrong"), std::string::npos) << run.errors;
  const TempFile empty("");
  EXPECT_EQ(RunQn({"hash", "crc64", "-c", empty.path()}).code, qn::kFailure);
}

TEST(QnHash, MissingFileIsNamedWithItsReason) {
  const std::string path = TempFile::NewPath();
  const std::string reason = std::strerror(ENOENT);
  const qn_test::FullOutcome outcome = RunQn({"hash", "md5", path});
  EXPECT_EQ(outcome.code, qn::kFailure);
  EXPECT_EQ(outcome.errors, "qn: cannot open " + path + ": " + reason + "\n");
}

TEST(QnHash, KeyFileEqualsTheSameKeyOnTheCommandLine) {
  const TempFile file("data");
  const TempFile key("the key");
  EXPECT_EQ(RunQn({"hash", "hmac-sha256", "--key-file", key.path(), file.path()}),
            RunQn({"hash", "hmac-sha256", "-k", "the key", file.path()}));
}

TEST(QnHash, HmacNeedsExactlyOneKey) {
  const TempFile file("data");
  EXPECT_EQ(RunQn({"hash", "hmac-sha256", file.path()}).code, qn::kUsageError);
  EXPECT_EQ(RunQn({"hash", "hmac-sha256", "-k", "a", "--key-file", "b", file.path()}).code,
            qn::kUsageError);
}

// --- base64 and base32 ------------------------------------------------------------------------

TEST(QnBase, PiecesJoinToTheTextOfTheWholeAndBack) {
  const TempFile file(RandomText(3'000'001));
  const std::string data = qn::ReadInput(file.path());
  for (const char* codec : {"base64", "base32"}) {
    const Outcome encoded = RunToFile({codec, "encode", file.path()});
    ASSERT_EQ(encoded.code, 0);
    EXPECT_EQ(encoded.output.find('\n'), encoded.output.size() - 1);
    const TempFile text(encoded.output);
    const Outcome decoded = RunToFile({codec, "decode", text.path()});
    EXPECT_EQ(decoded.code, 0);
    EXPECT_TRUE(decoded.output == data) << codec;
  }
}

TEST(QnBase, TextMayBeWrapped) {
  const TempFile data(RandomText(100'000));
  const TempFile wrapped(RunToFile({"base64", "encode", "-w", "76", data.path()}).output);
  const std::string text = qn::ReadInput(wrapped.path());
  EXPECT_EQ(text.find('\n'), 76u);
  EXPECT_EQ(text.find('\n', 77), 153u);
  EXPECT_EQ(RunToFile({"base64", "decode", wrapped.path()}).output, qn::ReadInput(data.path()));
  const TempFile short_text("foo");
  EXPECT_EQ(RunToFile({"base64", "encode", "-w", "2", short_text.path()}).output, "Zm\n9v\n");
  EXPECT_EQ(RunToFile({"base64", "encode", "-w", "4", short_text.path()}).output, "Zm9v\n");
  const TempFile crlf("Zm\r\n9v\r\n\r\n");
  EXPECT_EQ(RunToFile({"base64", "decode", crlf.path()}), (Outcome{0, "foo"}));
}

TEST(QnBase, WhatFollowsThePaddingIsRefused) {
  for (const char* text : {"Zg==Zm9v", "Zg== Zm9v", "Zg=Z", "Zg==!",
                           "Zg===", "Zg=", "Zm9v=", "Zm9vZ", "=", "=Zm9v", "Z===", "Z"}) {
    const TempFile file(text);
    EXPECT_EQ(RunToFile({"base64", "decode", file.path()}), (Outcome{qn::kFailure, ""})) << text;
  }
  for (const char* text : {"m", "mzx", "mzxwqa", "my=junk"}) {
    const TempFile file(text);
    EXPECT_EQ(RunToFile({"base32", "decode", file.path()}).code, qn::kFailure) << text;
  }
  const std::pair<const char*, const char*> good[] = {
      {"Zg==", "f"}, {"Zg==\n", "f"}, {"Zg", "f"}, {"Zm8=", "fo"}, {"", ""}, {"Zg=\n=", "f"}};
  for (const auto& [text, data] : good) {
    const TempFile file(text);
    EXPECT_EQ(RunToFile({"base64", "decode", file.path()}), (Outcome{0, data})) << text;
  }
}

TEST(QnBase, BlanksInsideAreIgnoredOnlyWhenAsked) {
  const TempFile file("Zm\n9v YmFy\n");
  EXPECT_EQ(RunQn({"base64", "decode", file.path()}).code, qn::kFailure);
  EXPECT_EQ(RunToFile({"base64", "decode", "-i", file.path()}), (Outcome{0, "foobar"}));
}

TEST(QnBase, BlanksMayFillWholePieces) {
  const std::string blanks(3'000'000, ' ');
  const TempFile behind("Zm9v" + blanks);
  EXPECT_EQ(RunToFile({"base64", "decode", behind.path()}), (Outcome{0, "foo"}));
  const TempFile inside("Zm9v" + blanks + "YmFy");
  EXPECT_EQ(RunQn({"base64", "decode", inside.path()}).code, qn::kFailure);
  EXPECT_EQ(RunToFile({"base64", "decode", "-i", inside.path()}), (Outcome{0, "foobar"}));
}

TEST(QnBase, ForeignCharacterLeavesTheOutputFileAsItWas) {
  const TempFile file(std::string(2'000'000, 'A') + "!");
  EXPECT_EQ(RunToFile({"base64", "decode", file.path()}), (Outcome{qn::kFailure, ""}));
}

// --- time -------------------------------------------------------------------------------------

TEST(QnTime, FormatsAndParses) {
  const io_test::TimeZone zone("UTC0");
  EXPECT_EQ(RunQn({"time", "format", "1704443400"}), (Outcome{0, "2024-01-05 08:30:00\n"}));
  EXPECT_EQ(RunQn({"time", "parse", "2024-01-05 08:30:00"}), (Outcome{0, "1704443400\n"}));
}

TEST(QnTime, GoesOnBehindTheYear2106) {
  const io_test::TimeZone zone("UTC0");
  const std::pair<const char*, const char*> cases[] = {
      {"4294967295", "2106-02-07 06:28:15"},
      {"4294967296", "2106-02-07 06:28:16"},
      {"32503680000", "3000-01-01 00:00:00"},
  };
  for (const auto& [seconds, text] : cases) {
    EXPECT_EQ(RunQn({"time", "format", seconds}), (Outcome{0, text + std::string("\n")}));
    EXPECT_EQ(RunQn({"time", "parse", text}), (Outcome{0, seconds + std::string("\n")}));
  }
}

TEST(QnTime, RefusesWhatIsNoTime) {
  EXPECT_EQ(RunQn({"time", "parse", "2024-01- 05"}).code, qn::kFailure);
  EXPECT_EQ(RunQn({"time", "parse", "2107-02-30"}).code, qn::kFailure);
  EXPECT_EQ(RunQn({"time", "parse", "3001-01-01"}).code, qn::kFailure);
  for (const char* seconds : {"", "x", "1x", "32535129600", "99999999999999999999"}) {
    EXPECT_EQ(RunQn({"time", "format", seconds}).code, qn::kUsageError) << seconds;
  }
}

TEST(QnTime, NowIsATime) {
  EXPECT_EQ(RunQn({"time", "now"}).output.size(), std::string("2024-01-05 08:30:00\n").size());
  EXPECT_GT(std::stoull(RunQn({"time", "now", "--seconds"}).output), 1704443400u);
}

}  // namespace
