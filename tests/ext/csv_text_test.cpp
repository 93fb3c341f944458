// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <quarnfc/ext/csv_text.h>
#include <quarnfc/qn_string.h>

#include <string>
#include <vector>

namespace quarnfc::ext {
namespace {

struct Read {
  std::vector<CsvTextRow> rows;
  std::string error;
};

// Reads a text handed out in pieces of a size.
Read ReadAll(const std::string& text, std::size_t piece, char delimiter = ',') {
  std::size_t at = 0;
  CsvTextReader reader(
      [&] {
        std::string next = text.substr(at, piece);
        at += next.size();
        return next;
      },
      delimiter);
  Read read;
  CsvTextRow row;
  while (reader.Next(row)) read.rows.push_back(row);
  read.error = reader.Error();
  return read;
}

TEST(CsvText, RowsHaveFieldsSourceAndLineWhateverThePieces) {
  const std::string text =
      "id,name\r\n1,\"a,\"\"b\"\"\"\r\n\n\r\n2, x \n3,\"two\nlines\" "
      "ignored,\n4,a\"b\r\n\"q\"\r\nlast";
  const std::vector<std::vector<std::string>> fields = {
      {"id", "name"}, {"1", "a,\"b\""}, {"2", "x "}, {"3", "two\nlines", ""}, {"4", "a\"b"},
      {"q"},          {"last"}};
  const std::vector<std::size_t> lines = {1, 2, 5, 6, 8, 9, 10};
  for (std::size_t piece : {1u, 2u, 3u, 7u, 1000u}) {
    const Read read = ReadAll(text, piece);
    EXPECT_EQ(read.error, "");
    ASSERT_EQ(read.rows.size(), fields.size()) << piece;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(read.rows[i].fields, fields[i]) << i;
      EXPECT_EQ(read.rows[i].line, lines[i]) << i;
    }
    EXPECT_EQ(read.rows[1].source, "1,\"a,\"\"b\"\"\"");
    EXPECT_EQ(read.rows[2].source, "2, x ");
  }
}

TEST(CsvText, DelimiterIsTheHosts) {
  EXPECT_EQ(ReadAll("a;b,c\n", 100, ';').rows[0].fields, (std::vector<std::string>{"a", "b,c"}));
  EXPECT_EQ(ReadAll("a\t\tb\n", 100, '\t').rows[0].fields,
            (std::vector<std::string>{"a", "", "b"}));
}

TEST(CsvText, EmptyTextHasNoRows) {
  for (const char* text : {"", "\n", "\r\n \n\t"}) EXPECT_TRUE(ReadAll(text, 100).rows.empty());
}

TEST(CsvText, QuotedFieldThatDoesNotEndIsAnError) {
  const Read read = ReadAll("a,b\n1,\"x\n2,3\n", 4);
  EXPECT_EQ(read.rows.size(), 1u);
  EXPECT_EQ(read.error, "line 2: a quoted field is not closed");
}

TEST(CsvText, RowsReachTheirStatedLengthAndNoFurther) {
  constexpr std::size_t kLongest = CsvTextReader::kLongestRow;
  const std::string longest(kLongest, 'x');
  const Read read = ReadAll(longest + "\n" + longest + "x\nlast\n", 1 << 20);
  ASSERT_EQ(read.rows.size(), 1u);
  EXPECT_EQ(read.rows[0].source.size(), kLongest);
  EXPECT_EQ(read.error, "line 2: the row is too long");
}

// Blanks in front, a quoted field, what is ignored behind it, and fields without anything.
TEST(CsvText, EveryByteOfARowCountsForItsLength) {
  constexpr std::size_t kQuarter = CsvTextReader::kLongestRow / 4;
  std::string empty_fields(kQuarter, ' ');
  for (std::size_t i = 0; i < kQuarter; i += 1000) empty_fields[i] = ',';
  const std::string row = std::string(kQuarter, ' ') + '"' + std::string(kQuarter, 'x') + '"' +
                          std::string(kQuarter, 'y') + empty_fields;
  const Read read = ReadAll("a\n" + row + "\nlast\n", 1 << 20);
  EXPECT_EQ(read.rows.size(), 1u);
  EXPECT_EQ(read.error, "line 2: the row is too long");
}

TEST(CsvText, WrittenRowsReadBack) {
  const std::vector<std::vector<std::string>> rows = {{"a", "", "b c"},
                                                      {""},
                                                      {"", "", ""},
                                                      {" a", "\tb", "c "},
                                                      {"x\"y", "1,2", "l\nm", "r\r", "\r\n"}};
  for (const char delimiter : {',', ';', '\t'}) {
    for (const auto& row : rows) {
      const Read read = ReadAll(WriteCsvRow(row, delimiter) + "\r\n", 100, delimiter);
      ASSERT_EQ(read.rows.size(), 1u);
      EXPECT_EQ(read.rows[0].fields, row);
    }
  }
  EXPECT_EQ(WriteCsvField("plain"), "plain");
  EXPECT_EQ(WriteCsvField("a\"b"), "\"a\"\"b\"");
}

TEST(CsvText, FieldIsFoundByAName) {
  const std::vector<std::string> header = {"id", "name", "", "id", std::string("a\0b", 3)};
  EXPECT_EQ(FindCsvField(header, "name"), 1u);
  EXPECT_EQ(FindCsvField(header, ""), 2u);
  EXPECT_EQ(FindCsvField(header, std::string_view("a\0b", 3)), 4u);
  // Which of the two?
  EXPECT_EQ(FindCsvField(header, "id"), kNoCsvField);
  EXPECT_EQ(FindCsvField(header, "Name"), kNoCsvField);
  EXPECT_EQ(FindCsvField(header, "a"), kNoCsvField);
  EXPECT_EQ(FindCsvField(std::vector<std::string>(), ""), kNoCsvField);
}

TEST(CsvText, FieldIsFoundByANameInRowsOfTheFileReader) {
  const std::vector<CQNString> header = {"id", "\xC3\xFB", "id"};
  EXPECT_EQ(FindCsvField(header, "\xC3\xFB"), 1u);
  EXPECT_EQ(FindCsvField(header, "id"), kNoCsvField);
}

}  // namespace
}  // namespace quarnfc::ext
