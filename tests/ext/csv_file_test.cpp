// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <quarnfc/ext/csv_file.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <ios>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/temp_folder.h"

namespace quarnfc::ext {
namespace {

// Chinese characters, and one that code page 936 lacks in this form.
constexpr char16_t kName[] = u"\u540D\u79F0 \u00E9.csv";

class CsvFile : public testing::Test {
 protected:
  // Writes the file and opens it.
  bool OpenWith(const std::string& bytes, const CsvFileOptions& options = {}) {
    std::ofstream(folder_.path() / kName, std::ios::binary) << bytes;
    return rows_.Open(Utf8FromUtf16(Path()), options);
  }

  std::u16string Path() const { return (folder_.path() / kName).u16string(); }

  // Every row, its fields joined with "|", and how it ended.
  std::string All() {
    std::string all;
    CsvTextRow row;
    while (rows_.Next(row)) {
      for (const std::string& field : row.fields) all += field + "|";
      all += "\n";
    }
    EXPECT_TRUE(row.fields.empty());
    return all + rows_.Error();
  }

  quarnfc_test::TempFolder folder_;
  CsvFileReader rows_;
};

TEST_F(CsvFile, RowsAreUtf8WhateverTheFileIsIn) {
  const std::string expected = "\xE5\x90\x8D|b|\n\xE9\x95\xBF|2|\n";
  const std::u16string text = u"\u540D,b\n\u957F,2\n";
  const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size() * 2);
  const std::pair<std::string, TextEncoding> files[] = {
      {"\xE5\x90\x8D,b\n\xE9\x95\xBF,2\n", {Charset::kUtf8, false}},
      {"\xEF\xBB\xBF\xE5\x90\x8D,b\n\xE9\x95\xBF,2\n", {Charset::kUtf8, true}},
      {"\xC3\xFB,b\n\xB3\xA4,2\n", {Charset::kAnsi, false}},
      {"\xFF\xFE" + std::string(bytes), {Charset::kUtf16Le, true}}};
  for (const auto& [file, encoding] : files) {
    ASSERT_TRUE(OpenWith(file));
    EXPECT_EQ(All(), expected);
    EXPECT_EQ(rows_.Encoding(), encoding);
  }
}

TEST_F(CsvFile, WideNamesOpenTheSameFile) {
  ASSERT_TRUE(OpenWith("a;b\n1;\"x\ny\"\n", {';', {}, false}));
  EXPECT_EQ(All(), "a|b|\n1|x\ny|\n");
  ASSERT_TRUE(rows_.OpenW(WideChars(Path())));
  EXPECT_EQ(All(), "a;b|\n1;\"x|\ny\"|\n");
}

TEST_F(CsvFile, ANamedEncodingIsTakenAsItIs) {
  ASSERT_TRUE(OpenWith("\xC2\xA5,1\n", {',', TextEncoding{Charset::kAnsi, false}, false}));
  EXPECT_EQ(All(), "\xE6\xA5\xBC|1|\n");
}

TEST_F(CsvFile, RowsInFrontOfAFaultAreHandedOutAndNoOther) {
  const std::string good = "\xE5\x90\x8D,b\n1,2\n";
  const CsvFileOptions utf8{',', TextEncoding{Charset::kUtf8, false}, false};
  ASSERT_TRUE(OpenWith(good + "3,x\xFF\n5,6\n", utf8));
  EXPECT_EQ(All(), "\xE5\x90\x8D|b|\n1|2|\nbyte 13: there is no text");
  CsvTextRow row;
  EXPECT_FALSE(rows_.Next(row));
  ASSERT_TRUE(OpenWith(good + "3,\xE5\x90", utf8));  // a character that is cut off
  EXPECT_EQ(All(), "\xE5\x90\x8D|b|\n1|2|\nbyte 12: there is no text");
  ASSERT_TRUE(OpenWith(good + "3,x\xFF\n5,6\n", {',', utf8.encoding, true}));
  EXPECT_EQ(All(), "\xE5\x90\x8D|b|\n1|2|\n3|x\xEF\xBF\xBD|\n5|6|\n");
  ASSERT_TRUE(OpenWith("a\n\"b\n"));
  EXPECT_EQ(All(), "a|\nline 2: a quoted field is not closed");
}

TEST_F(CsvFile, FilesLongerThanAPieceKeepEveryRow) {
  std::string file;
  std::string expected;
  for (int i = 0; i < 30000; ++i) {
    const std::string number = std::to_string(i);
    file += number + ",\xE9\x95\xBF\n";
    expected += number + "|\xE9\x95\xBF|\n";
  }
  ASSERT_TRUE(OpenWith(file));
  EXPECT_EQ(All(), expected);
}

TEST_F(CsvFile, AnEmptyFileHasNoRows) {
  ASSERT_TRUE(OpenWith(""));
  EXPECT_EQ(All(), "");
}

TEST_F(CsvFile, WhatCannotBeOpenedHasNoRowsAndSaysWhy) {
  ASSERT_TRUE(OpenWith("a\n"));
  const std::u16string half_a_pair = {0xD800, 0};
  EXPECT_FALSE(rows_.Open("no such folder/file.csv"));
  EXPECT_EQ(All(), "the file cannot be opened");
  EXPECT_FALSE(rows_.OpenW(WideChars(half_a_pair)));
  EXPECT_FALSE(rows_.OpenW(nullptr));
  EXPECT_EQ(CsvFileReader().Error(), "the file cannot be opened");
  // A folder can be opened on some systems, but not read.
  if (rows_.Open(Utf8FromUtf16(folder_.path().u16string()))) {
    EXPECT_EQ(All(), "the file cannot be read");
  }
}

TEST_F(CsvFile, AMovedReaderGoesOn) {
  ASSERT_TRUE(OpenWith("a\nb\n"));
  CsvTextRow row;
  EXPECT_TRUE(rows_.Next(row));
  CsvFileReader moved(std::move(rows_));
  EXPECT_TRUE(moved.Next(row));
  EXPECT_EQ(row.fields, std::vector<std::string>{"b"});
  EXPECT_FALSE(moved.Next(row));
  EXPECT_EQ(moved.Error(), "");
}

}  // namespace
}  // namespace quarnfc::ext
