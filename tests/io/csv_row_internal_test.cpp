// SPDX-License-Identifier: MIT
// Every short line over the characters that matter, against the splitting rules written down step
// by step, with the moves and cuts they speak of.
#include "io/csv_row.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/io/csv_rows.h"

namespace {

using io_test::Row;
using io_test::ToRow;

bool IsBlank(char ch) { return ch == ' ' || ch == '\t'; }

// Leaves the cursor behind the closing quote, or at the end of the line; returns the field.
std::string PlainQuoted(std::string& line, std::size_t& cursor) {
  const std::size_t start = ++cursor;
  for (; cursor < line.size(); ++cursor) {
    if (line[cursor] != '"') continue;
    if (cursor + 1 < line.size() && line[cursor + 1] == '"') {
      line.erase(cursor, 1);  // the rest of the line moves left by one
    } else {
      return line.substr(start, cursor++ - start);
    }
  }
  return line.substr(start);
}

Row PlainSplit(std::string line) {
  if (line.back() == '\r') line.pop_back();
  Row row;
  std::size_t separators = 0;
  std::size_t cursor = 0;
  while (cursor < line.size()) {
    while (cursor < line.size() && IsBlank(line[cursor])) ++cursor;
    std::string field;
    const bool quoted = cursor < line.size() && line[cursor] == '"';
    if (quoted) field = PlainQuoted(line, cursor);
    const std::size_t comma = std::min(line.find(',', cursor), line.size());
    if (!quoted) field = line.substr(cursor, comma - cursor);
    cursor = comma;
    if (comma < line.size()) {
      ++cursor;
      ++separators;
    }
    row.push_back(field);
  }
  if (separators >= row.size()) row.emplace_back();
  return row;
}

Row Split(const std::string& line) {
  std::vector<char> buffer(line.begin(), line.end());
  buffer.resize(line.size() + 1 + quarnfc::io::Line::kSlack);
  std::vector<CQNString> fields;
  quarnfc::io::SplitCsvLine({buffer.data(), line.size()}, false, fields);
  return ToRow(fields);
}

TEST(CsvRow, EveryShortLineSplitsByThePlainRules) {
  constexpr char kCharacters[] = {'a', ',', '"', ' ', '\t', '\r'};
  constexpr std::size_t kCount = sizeof(kCharacters);
  constexpr std::size_t kLongest = 7;
  std::size_t lines = 1;
  for (std::size_t length = 1; length <= kLongest; ++length) {
    lines *= kCount;
    for (std::size_t number = 0; number < lines; ++number) {
      std::string line;
      for (std::size_t rest = number; line.size() < length; rest /= kCount) {
        line.push_back(kCharacters[rest % kCount]);
      }
      ASSERT_EQ(Split(line), PlainSplit(line)) << line;
    }
  }
}

// --- rows in place of the rows before -----------------------------------------------------------

void SplitOver(std::vector<CQNString>& fields, const std::string& line) {
  std::vector<char> buffer(line.begin(), line.end());
  buffer.resize(line.size() + 1 + quarnfc::io::Line::kSlack);
  quarnfc::io::SplitCsvLine({buffer.data(), line.size()}, false, fields);
}

std::vector<int> Capacities(const std::vector<CQNString>& fields) {
  std::vector<int> capacities;
  capacities.reserve(fields.size());
  for (const CQNString& field : fields) capacities.push_back(field.GetAllocLength());
  return capacities;
}

std::string Letters(std::size_t length) { return std::string(length, 'x'); }

TEST(CsvRow, ARowInPlaceOfAnotherIsAsInAnEmptyVector) {
  const std::string lines[] = {"a,b,c",
                               "\r",
                               "a,,c,d,e",
                               ",,,",
                               "a,b,c,d,e,f,g",
                               "\"q\"\"q\",b",
                               Letters(64) + "," + Letters(65) + ",x",
                               Letters(128) + "," + Letters(129) + "," + Letters(512),
                               Letters(513) + "," + Letters(600) + ",",
                               Letters(600) + "," + Letters(513) + "," + Letters(7)};
  for (const std::string& before : lines) {
    for (const std::string& line : lines) {
      std::vector<CQNString> fields, fresh;
      SplitOver(fields, before);
      SplitOver(fields, line);
      SplitOver(fresh, line);
      EXPECT_EQ(ToRow(fields), ToRow(fresh)) << line << " over " << before;
      EXPECT_EQ(Capacities(fields), Capacities(fresh)) << line << " over " << before;
    }
  }
}

TEST(CsvRow, ARowInPlaceOfAnotherLeavesTheFieldsThatAreShared) {
  std::vector<CQNString> fields;
  SplitOver(fields, "one,two,three");
  const std::vector<CQNString> kept = fields;
  fields[1].LockBuffer();
  SplitOver(fields, "1,2,3");
  EXPECT_EQ(ToRow(kept), Row({"one", "two", "three"}));
  EXPECT_EQ(ToRow(fields), Row({"1", "2", "3"}));
  const CQNString copy = fields[1];
  EXPECT_EQ(static_cast<const char*>(copy), static_cast<const char*>(fields[1])) << "not locked";
}

TEST(CsvRow, LongFieldsWithQuotesSplitByThePlainRules) {
  unsigned seed = 1;
  for (int round = 0; round < 3000; ++round) {
    std::string line;
    for (int i = 0; i < 60; ++i) {
      seed = seed * 1103515245 + 12345;
      line += "abcdefgh\"\", \t,\xB5,\xE3"[seed >> 16 & 15];
    }
    ASSERT_EQ(Split(line), PlainSplit(line)) << line;
  }
}

}  // namespace
