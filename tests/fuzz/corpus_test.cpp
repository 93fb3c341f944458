// SPDX-License-Identifier: MIT
// Every text of the fuzzers' corpora. A property that does not hold ends the program; the last line
// it printed names the text.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz_targets.h"

namespace {

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.good()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

class Corpus : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Corpus, HoldsItsProperty) {
  const std::filesystem::path folder = std::filesystem::path(QUARNFC_CORPORA) / GetParam().name;
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string text = ReadFile(entry.path());
    std::printf("%s: %s\n", GetParam().name, entry.path().filename().string().c_str());
    std::fflush(stdout);
    EXPECT_EQ(GetParam().run(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()), 0);
    ++count;
  }
  EXPECT_GT(count, 0) << folder;
}

INSTANTIATE_TEST_SUITE_P(AllTargets, Corpus, testing::ValuesIn(kFuzzTargets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
