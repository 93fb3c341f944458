// SPDX-License-Identifier: MIT
#include <quarnfc/json_files.h>
#include <quarnfc/plain.h>

#include <cstdio>
#include <vector>

#include "tests/json/json_support.h"
#include "tests/support/threads.h"

namespace {

constexpr int kFileThreads = 4;
constexpr int kFileRounds = 25;

std::string PathOf(int thread) {
  return testing::TempDir() + "quarnfc_file_threads_" + std::to_string(thread) + ".json";
}

// The message of a file that is not there.
std::string MessageOfMissing(const std::string& path) {
  unsigned __int64 error = 0;
  CMyJsonObj object;
  QNJsonUtils::ReadJsonFile(path.c_str(), object, &error);
  const std::string message = json_test::TakeText(qnGetErrorA(error, nullptr));
  qnCloseHandle(error);
  return message;
}

// Saves a text of its own as UTF-8 and reads it back; the number of rounds in which that worked.
int SaveAndRead(int thread) {
  const std::string path = PathOf(thread);
  const std::string text = "\xD6\xD0\xCE\xC4 of thread " + std::to_string(thread);
  const CMyJsonValue saved(text.c_str());
  const std::string missing = path + ".missing";
  const std::string message = "Quarn: Can't open " + missing + ", error: 0x2";
  int good = 0;
  for (int round = 0; round < kFileRounds; ++round) {
    CMyJsonValue read;
    const bool done = QNJsonUtils::SaveJsonFileEx(path.c_str(), saved, true, nullptr) &&
                      QNJsonUtils::ReadJsonFileEx(path.c_str(), read, nullptr);
    if (done && read.ValueStr() == text && MessageOfMissing(missing) == message) ++good;
  }
  std::remove(path.c_str());
  return good;
}

TEST(JsonFileThreads, DifferentFilesAreSavedAndReadAtOnce) {
  std::vector<int> good(kFileThreads);
  quarnfc_test::RunOnThreads(kFileThreads, [&good](int thread) {
    good[static_cast<std::size_t>(thread)] = SaveAndRead(thread);
  });
  EXPECT_EQ(good, std::vector<int>(kFileThreads, kFileRounds));
}

}  // namespace
