// SPDX-License-Identifier: MIT
// Commands that write files, interrupted while they read: what was there stays, and nothing is
// added.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "tests/tools/interruptible_qn.h"

namespace {

struct Interrupted {
  const char* name;
  std::vector<std::string> arguments;  // without "-o TARGET"
  std::string start;                   // of standard input
  std::string piece;                   // which goes on with this, again and again
};

void PrintTo(const Interrupted& command, std::ostream* out) { *out << command.name; }

const Interrupted kInterrupted[] = {
    {"GeoConvertRows",
     {"geo", "convert", "--from", "lonlat", "--to", "4547", "--csv", "-"},
     "lon,lat\n",
     "112.938814,28.228209\n"},
    {"GeoConvertLines",
     {"geo", "convert", "--from", "lonlat", "--to", "4547"},
     "",
     "112.938814 28.228209\n"},
    {"CsvSelect", {"csv", "select", "-c", "b"}, "a,b\n", "1,2\n"},
    {"CsvFilter", {"csv", "filter", "-w", "b=2"}, "a,b\n", "1,2\n"},
    {"CsvToJson", {"csv", "to-json"}, "a,b\n", "1,2\n"},
    {"JsonFormat", {"json", "format", "-"}, "[", "1,\n"},
    {"JsonSet", {"json", "set", "-", "[0]", "2"}, "[", "1,\n"},
    {"JsonDelete", {"json", "del", "-", "[0]"}, "[", "1,\n"},
    {"JsonMerge", {"json", "merge", "-", "-"}, "{\"a\":[", "1,\n"},
    {"Base64Encode", {"base64", "encode"}, "", "abc"},
    {"Base64Decode", {"base64", "decode"}, "", "YWJj\n"},
};

class QnInterrupt : public testing::TestWithParam<Interrupted> {};

TEST_P(QnInterrupt, LeavesTheTargetAsItWasAndEndsWith130) {
  const std::filesystem::path folder = testing::TempDir() + "qn_interrupt_test";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  const std::filesystem::path target = folder / "target";
  std::ofstream(target) << "old";

  std::vector<std::string> arguments = GetParam().arguments;
  arguments.insert(arguments.end(), {"-o", target.string()});
  InterruptibleQn qn(arguments);
  std::string input = GetParam().start;
  while (input.size() < 2 * 1024 * 1024) input += GetParam().piece;
  ASSERT_TRUE(qn.Feed(input));
  ASSERT_TRUE(qn.Runs());
  qn.Interrupt();
  EXPECT_EQ(qn.Wait(), 130);

  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(names, std::vector<std::string>{"target"});
  std::ifstream left(target);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(left), {}), "old");
}

INSTANTIATE_TEST_SUITE_P(Commands, QnInterrupt, testing::ValuesIn(kInterrupted),
                         [](const auto& command) { return std::string(command.param.name); });

// A command that writes no file ends the same way.
TEST(QnInterruptHash, EndsWith130) {
  InterruptibleQn qn({"hash", "sha256sum"});
  ASSERT_TRUE(qn.Feed(std::string(2 * 1024 * 1024, 'x')));
  qn.Interrupt();
  EXPECT_EQ(qn.Wait(), 130);
}

}  // namespace
