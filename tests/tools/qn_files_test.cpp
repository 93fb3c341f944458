// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>

#include "qn/errors.h"
#include "qn/input_file.h"
#include "qn/output_file.h"

namespace {

constexpr char kBytes[] = "a\r\n\x1A\0b";
const std::string kContent(kBytes, sizeof(kBytes) - 1);

class QnFiles : public testing::Test {
 protected:
  ~QnFiles() override { std::remove(path_.c_str()); }

  std::optional<std::string> Content() const {
    try {
      return qn::ReadInput(path_);
    } catch (const qn::Failure&) {
      return std::nullopt;
    }
  }

  void Put(const std::string& content) const {
    qn::OutputFile file(path_);
    file.Write(content);
    file.Commit();
  }

  const std::string path_ = "qn_files_test.out";
};

TEST_F(QnFiles, WhatIsWrittenIsReadBackByteForByte) {
  Put(kContent);
  EXPECT_EQ(Content(), kContent);
}

TEST_F(QnFiles, AnEmptyFileReadsAsNothing) {
  Put("");
  EXPECT_EQ(Content(), "");
}

TEST_F(QnFiles, AnExistingFileIsReplaced) {
  Put("a longer old content");
  Put(kContent);
  EXPECT_EQ(Content(), kContent);
}

TEST_F(QnFiles, WithoutCommitTheTargetStaysAsItWas) {
  { qn::OutputFile(path_).Write("lost"); }
  EXPECT_EQ(Content(), std::nullopt);
  Put("kept");
  std::string name;
  {
    qn::OutputFile file(path_);
    file.Write("lost");
    name = file.Name();
  }
  EXPECT_EQ(Content(), "kept");
  EXPECT_THROW(qn::ReadInput(name), qn::Failure) << "the temporary file is still there";
}

TEST_F(QnFiles, OthersMayWriteTheTemporaryFile) {
  {
    qn::OutputFile file(path_);
    FILE* other = std::fopen(file.Name().c_str(), "wb");
    ASSERT_NE(other, nullptr);
    std::fputs("by another", other);
    std::fclose(other);
    file.Commit();
  }
  EXPECT_EQ(Content(), "by another");
}

TEST_F(QnFiles, FilesThatCannotBeOpenedAreFailures) {
  EXPECT_THROW(qn::ReadInput("no such folder/file"), qn::Failure);
  EXPECT_THROW(qn::OutputFile("no such folder/file"), qn::Failure);
}

}  // namespace
