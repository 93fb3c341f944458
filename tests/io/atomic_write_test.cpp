// SPDX-License-Identifier: MIT
// Files that are whole or stay as they were.
#include <quarnfc/ext/json_write.h>
#include <quarnfc/ext/owners.h>
#include <quarnfc/file_utils.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/temp_folder.h"

namespace {

using quarnfc::ext::ErrorHandle;
using quarnfc_test::TempFolder;

bool WriteTo(const std::string& path, const std::string& bytes, unsigned __int64* error = nullptr) {
  return QNFileUtils::WriteFileAtomicA(path.c_str(), bytes.data(), bytes.size(), error);
}

TEST(AtomicWrite, AFileIsCreatedAndReplacedAndNothingElseStays) {
  const TempFolder folder;
  ErrorHandle error;
  EXPECT_TRUE(WriteTo(folder.PathOf("a.json"), std::string("ab\0\r\n", 5), error.Out()));
  EXPECT_FALSE(static_cast<bool>(error));
  EXPECT_EQ(folder.Read("a.json"), std::string("ab\0\r\n", 5));
  const std::string large(3000000, 'x');
  EXPECT_TRUE(WriteTo(folder.PathOf("a.json"), large));
  EXPECT_EQ(folder.Read("a.json"), large);
  EXPECT_TRUE(QNFileUtils::WriteFileAtomicA(folder.PathOf("a.json").c_str(), nullptr, 7, nullptr));
  EXPECT_EQ(folder.Read("a.json"), "");
  EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicWrite, AWidePathNamesFilesThatTheCodePageCannot) {
  const TempFolder folder;
  // U+1F600 and U+4E2D.
  const std::filesystem::path path =
      folder.path() / std::filesystem::path(u"\U0001F600\u4E2D.json");
  const std::u16string wide = path.u16string();
  EXPECT_TRUE(QNFileUtils::WriteFileAtomicW(reinterpret_cast<const wchar_t*>(wide.c_str()), "abc",
                                            3, nullptr));
  EXPECT_EQ(std::filesystem::file_size(path), 3u);
  EXPECT_TRUE(QNFileUtils::WriteFileAtomicW(reinterpret_cast<const wchar_t*>(wide.c_str()), nullptr,
                                            7, nullptr));
  EXPECT_EQ(std::filesystem::file_size(path), 0u);
  EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicWrite, AMissingFolderIsCodeTwo) {
  const TempFolder folder;
  const std::string path = (folder.path() / "none" / "a.json").string();
  ErrorHandle error;
  EXPECT_FALSE(WriteTo(path, "x", error.Out()));
  EXPECT_EQ(error.Code(), 2u);
  EXPECT_EQ(error.Message().find("Quarn: Can't save " + path + ", error: 0x"), 0u);
  EXPECT_FALSE(WriteTo(path, "x")) << "nobody need ask";
}

TEST(AtomicWrite, AFolderAndNoPathAreRefused) {
  const TempFolder folder;
  ErrorHandle error;
  EXPECT_FALSE(WriteTo(folder.path().string(), "x", error.Out()));
  EXPECT_EQ(error.Code(), 14u);
  EXPECT_EQ(error.Message(), "Quarn: Can't save " + folder.path().string() + ", error: 0x5");
  EXPECT_FALSE(QNFileUtils::WriteFileAtomicA(nullptr, "x", 1, error.Out()));
  EXPECT_EQ(error.Message(), "Quarn: Can't save , error: 0x57");
  EXPECT_FALSE(QNFileUtils::WriteFileAtomicW(nullptr, "x", 1, error.Out()));
  EXPECT_EQ(error.Code(), 14u);
}

TEST(AtomicWrite, AReaderMeetsOldContentsOrNewOnes) {
  const TempFolder folder;
  const std::string old_text(200000, 'o');
  const std::string new_text(300000, 'n');
  folder.Write("a", old_text);
  std::vector<std::thread> writers;
  for (const std::string* text : {&old_text, &new_text}) {
    writers.emplace_back([&, text] {
      for (int i = 0; i < 20; ++i) WriteTo(folder.PathOf("a"), *text);
    });
  }
  for (int i = 0; i < 50; ++i) {
    const std::string found = folder.Read("a");
    // Windows refuses to open the file in the moment it is replaced.
    if (!found.empty()) {
      EXPECT_TRUE(found == old_text || found == new_text);
    }
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicWrite, ADocumentThatJsonCannotSayLeavesTheFile) {
  const TempFolder folder;
  folder.Write("a.json", "old");
  ErrorHandle error;
  const CMyJsonValue infinite(std::numeric_limits<double>::infinity());
  EXPECT_FALSE(quarnfc::ext::SaveJson(folder.PathOf("a.json").c_str(), infinite, error.Out()));
  EXPECT_EQ(error.Code(), 5u);
  EXPECT_EQ(folder.Read("a.json"), "old");
  const int numbers[] = {1, 2};
  EXPECT_TRUE(quarnfc::ext::SaveJson(folder.PathOf("a.json").c_str(), CMyJsonValue(numbers, 2)));
  EXPECT_EQ(folder.Read("a.json"), "[\n  1,\n  2\n]");
}

}  // namespace
