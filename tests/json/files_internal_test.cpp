// SPDX-License-Identifier: MIT
// The debugger output of the JSON file functions.

#include <gtest/gtest.h>
#include <quarnfc/json_files.h>

#include <cstdio>
#include <string>

#include "tests/support/captured_debug_output.h"

namespace {

using quarnfc_test::CapturedDebugOutput;

using Texts = std::vector<std::string>;

TEST(JsonFilesDebugOutput, FailureToOpenIsShownWithAndWithoutAnErrorHandle) {
  const CapturedDebugOutput output;
  CMyJsonObj object;
  CMyJsonValue value;
  EXPECT_FALSE(QNJsonUtils::ReadJsonFile("c:\\x.json", object, nullptr));
  EXPECT_FALSE(QNJsonUtils::ReadJsonFileEx("c:\\x.json", value, nullptr));
  EXPECT_EQ(output.Texts(), Texts(2, "Quarn: Can't open c:\\x.json, error: 0x2"));
}

TEST(JsonFilesDebugOutput, FailureToSaveIsShown) {
  const CapturedDebugOutput output;
  const std::string folder = testing::TempDir();
  EXPECT_FALSE(QNJsonUtils::SaveJsonFile(folder.c_str(), CMyJsonObj(), nullptr));
  EXPECT_FALSE(QNJsonUtils::SaveJsonFileEx(folder.c_str(), CMyJsonValue(), true, nullptr));
  ASSERT_EQ(output.Texts().size(), 2u);
  for (const std::string& text : output.Texts()) {
    EXPECT_EQ(text.find("Quarn: Can't save " + folder + ", error: 0x"), 0u) << text;
  }
}

TEST(JsonFilesDebugOutput, InvalidLengthIsShownAndInvalidTextIsNot) {
  const std::string path = testing::TempDir() + "quarnfc_debug_output.json";
  for (const char* text : {"{}", "neither {} nor []"}) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs(text, file);
    std::fclose(file);
    const CapturedDebugOutput output;
    CMyJsonObj object;
    EXPECT_FALSE(QNJsonUtils::ReadJsonFile(path.c_str(), object, nullptr));
    const bool refused = std::string(text) == "{}";
    EXPECT_EQ(output.Texts(), Texts(refused, "Quarn: " + path + " file length is invalid"));
  }
  std::remove(path.c_str());
}

}  // namespace
