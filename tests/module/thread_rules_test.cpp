// SPDX-License-Identifier: MIT
// What several threads may do at once, and what they may do in turn: a test for each rule that
// docs/threads.md states and no other test holds. Run under the thread sanitizer.
#include <gtest/gtest.h>
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/collection.h>
#include <quarnfc/crash_dump.h>
#include <quarnfc/crc64.h>
#include <quarnfc/error.h>
#include <quarnfc/geographic.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/md5.h>
#include <quarnfc/plain.h>
#include <quarnfc/projected.h>
#include <quarnfc/string_collection.h>
#include <quarnfc/string_utils.h>
#include <quarnfc/time_utils.h>

#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/caller_buffer.h"
#include "tests/support/string_bytes.h"
#include "tests/support/threads.h"

namespace {

using quarnfc_test::Bytes;
using quarnfc_test::RunOnThreads;
using quarnfc_test::TakeText;

constexpr int kRuleThreads = 4;
constexpr int kRuleRounds = 200;

// Runs work on every thread kRuleRounds times; how often it was right.
template <class Work>
int RightOnThreads(Work work) {
  std::vector<int> right(kRuleThreads);
  RunOnThreads(kRuleThreads, [&right, work](int thread) {
    for (int round = 0; round < kRuleRounds; ++round) {
      right[static_cast<std::size_t>(thread)] += work() ? 1 : 0;
    }
  });
  int sum = 0;
  for (const int count : right) sum += count;
  return sum;
}

constexpr int kAll = kRuleThreads * kRuleRounds;

const unsigned char kData[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};

TEST(ThreadRulesThreads, TextFunctionsMayBeCalledAtOnce) {
  EXPECT_EQ(kAll, RightOnThreads([] {
              std::vector<char*> pieces;
              const int count = QNStringUtils::SplitStr("a,b,c", ',', pieces);
              const bool last = std::string(pieces.back()) == "c";
              QNStringUtils::FreeStrArr(pieces);
              return count == 3 && last &&
                     QNStringUtils::StrIsMatching("*.J?on", "a.json", false) &&
                     TakeText(qnUnionPath("c:\\d", "..\\e")) == "c:\\e";
            }));
}

TEST(ThreadRulesThreads, CodecsAndDigestsMayBeCalledAtOnce) {
  const std::string base32 = TakeText(QNBase32::qnEncodeBase32A(kData, sizeof kData));
  EXPECT_EQ(kAll, RightOnThreads([&] {
              char md5[33];
              QNMD5::qnGetMD5StrLowerA("abc", 3, md5);
              return TakeText(QNBase64::qnEncodeBase64A(kData, sizeof kData)) == "MTIzNDU2Nzg5" &&
                     TakeText(QNBase32::qnEncodeBase32A(kData, sizeof kData)) == base32 &&
                     TakeText(QNCRC64::qnGetCRC64StrA(kData, sizeof kData)) == "66A2364420E6C605" &&
                     std::string(md5) == "900150983cd24fb0d6963f7d28e17f72";
            }));
}

TEST(ThreadRulesThreads, TimesMayBeConvertedAtOnce) {
  EXPECT_EQ(kAll, RightOnThreads([] {
              const CQNString text = QNTimeUtils::FormatTime(1700000000);
              return QNTimeUtils::GetTimeFromStr(text) == 1700000000u;
            }));
}

TEST(ThreadRulesThreads, PredefinedSystemsHaveAnyNumberOfReaders) {
  EXPECT_EQ(kAll, RightOnThreads([] {
              const CQNGeoCoordinateSystem copy(CQNGeoCoordinateSystem::CGCS2000);
              const std::string wkt = TakeText(CQNGeoCoordinateSystem::WGS84.CreateWKT());
              return copy == CQNGeoCoordinateSystem::CGCS2000 && wkt.find("GEOGCS[") == 0;
            }));
}

TEST(ThreadRulesThreads, OneProjectedSystemHasAnyNumberOfReaders) {
  CQNProCoordinateSystem system;
  ASSERT_TRUE(system.setByUTMCode(50));
  const std::string wkt = TakeText(system.CreateWKT());
  EXPECT_EQ(kAll, RightOnThreads([&] { return TakeText(system.CreateWKT()) == wkt; }));
}

TEST(ThreadRulesThreads, EachThreadHasItsOwnErrorsAndDocuments) {
  EXPECT_EQ(kAll, RightOnThreads([] {
              const unsigned __int64 error =
                  QNErrorUtils::CreateError(CQNObject::eErrFileIO, "\xD6\xD0\xCE\xC4");
              const std::string message = TakeText(qnGetErrorA(error, nullptr));
              qnCloseHandle(error);
              CMyJsonObj object;
              return message == "\xD6\xD0\xCE\xC4" && object.Load("{\"a\":[1,{\"b\":null}]}") &&
                     Bytes(object.CreateJson(false)) == "{\"a\":[1,{\"b\":null}]}";
            }));
}

TEST(ThreadRulesThreads, ThreadsTakeTurnsWithOneDocument) {
  CMyJsonValue array(static_cast<const int*>(nullptr), 0);
  std::mutex mutex;
  EXPECT_EQ(kAll, RightOnThreads([&] {
              const std::lock_guard guard(mutex);
              return array.AddToArr(1, -1);
            }));
  EXPECT_EQ(kAll, array.ValueArrLength());
}

TEST(ThreadRulesThreads, ThreadsTakeTurnsWithOneErrorAndOneCollection) {
  auto* object = new CQNObject;
  object->SetError(CQNObject::eErrNone, "message");
  CQNStringCollection strings;
  std::mutex mutex;
  EXPECT_EQ(kAll, RightOnThreads([&] {
              const std::lock_guard guard(mutex);
              object->AddRef();
              strings.CloneAdd(object->GetErrorMsg());
              object->Release();
              return std::string(strings.GetStr(strings.Count() - 1)) == "message";
            }));
  object->Release();
  EXPECT_EQ(kAll, strings.Count());
}

// A tree that one thread has made may be destroyed by another, and its nodes used again.
TEST(ThreadRulesThreads, ADocumentPassesFromThreadToThread) {
  CMyJsonValue* document = nullptr;
  for (int round = 0; round < 50; ++round) {
    std::thread([&] {
      delete document;
      CQNString error;
      document = new CMyJsonValue;
      document->Load("{\"a\":[1,2,{\"b\":\"text\"}]}", error);
    }).join();
    EXPECT_TRUE(document->IsObj());
  }
  delete document;
}

TEST(ThreadRulesThreads, DumpsAndEntriesOfTheEventLogMayBeWrittenAtOnce) {
  const std::string folder = testing::TempDir();
  std::vector<std::thread> threads;
  threads.reserve(kRuleThreads);
  for (int i = 0; i < kRuleThreads; ++i) {
    threads.emplace_back([&folder, i] {
      for (int round = 0; round < 5; ++round) {
        const std::string path = folder + std::to_string(i) + ".dmp";
        QNErrorUtils::DbgDumpErrorFile(nullptr, path.c_str());
        EXPECT_EQ(std::filesystem::file_size(path), 27u);
        std::filesystem::remove(path);
        QNErrorUtils::WriteWindowsLog(4, "QuarnFC test entry");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
