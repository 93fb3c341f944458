// SPDX-License-Identifier: MIT
// How lines become fields.
#include <gtest/gtest.h>

#include "tests/io/csv_rows.h"

namespace io_test {
namespace {

// The fields of one line, read as the second row of a file.
Row Fields(const std::string& line) {
  CsvFile file("header\n" + line);
  const std::vector<Row> rows = RestOfRows(file.Reader());
  EXPECT_EQ(rows.size(), 1u) << line;
  return rows.empty() ? Row{"(no row)"} : rows[0];
}

struct Case {
  const char* line;
  Row fields;
};

void ExpectFields(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(Fields(c.line), c.fields) << c.line;
    EXPECT_EQ(Fields(std::string(c.line) + "\n"), c.fields) << c.line << " LF";
    EXPECT_EQ(Fields(std::string(c.line) + "\r\n"), c.fields) << c.line << " CR LF";
    EXPECT_EQ(Fields(std::string(c.line) + "\r"), c.fields) << c.line << " CR";
  }
}

TEST(CsvFields, SeparatorsCutTheLine) {
  ExpectFields({{"a", {"a"}},
                {"a,b,c", {"a", "b", "c"}},
                {",", {"", ""}},
                {",a", {"", "a"}},
                {",,", {"", "", ""}},
                {"x,,y,", {"x", "", "y", ""}}});
}

TEST(CsvFields, LeadingBlanksAreDroppedAndTrailingOnesKept) {
  ExpectFields({{"  x  ", {"x  "}},
                {"a,  x  ,b", {"a", "x  ", "b"}},
                {"a,\t x\t ", {"a", "x\t "}},
                {"a, ,b", {"a", "", "b"}},
                {"a, ", {"a", ""}},
                {" , ", {"", ""}},
                {"a, , ", {"a", "", ""}}});
}

TEST(CsvFields, QuotedFieldsHoldSeparatorsBlanksAndDoubledQuotes) {
  ExpectFields({{"a, \"b,\"\"c\"\"\" ,d", {"a", "b,\"c\"", "d"}},
                {"\"\"", {""}},
                {"\"\",\"\"", {"", ""}},
                {"\" a \t\"", {" a \t"}},
                {"\"\"\"\"", {"\""}},
                {"\"\"\"\"\"\"", {"\"\""}},
                {"\"a\"\"\"\"b\"", {"a\"\"b"}},
                {"\"a\",", {"a", ""}}});
}

TEST(CsvFields, TextBetweenAClosingQuoteAndTheCommaIsIgnored) {
  ExpectFields({{"\"a\"xyz,b", {"a", "b"}},
                {"\"a\" \"b\",c", {"a", "c"}},
                {"\"a\"xyz", {"a"}},
                {"\"a\"  ", {"a"}}});
}

TEST(CsvFields, UnterminatedQuoteRunsToTheEndOfItsLine) {
  ExpectFields({{"\"a,b", {"a,b"}},
                {"\"", {""}},
                {"x,\"a\"\"b, c", {"x", "a\"b, c"}},
                {"\"a\"\"", {"a\""}}});
  CsvFile file("h\n\"a,b\nc,d\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"a,b"}, {"c", "d"}}));
}

TEST(CsvFields, QuoteInsideAnUnquotedFieldIsOrdinary) {
  ExpectFields({{"a\"b\",c", {"a\"b\"", "c"}}, {"1\"2", {"1\"2"}}});
}

TEST(CsvFields, OnlyOneCarriageReturnEndsALine) {
  EXPECT_EQ(Fields("a\r\r\n"), (Row{"a\r"}));
  EXPECT_EQ(Fields("a\rb,c"), (Row{"a\rb", "c"}));
  EXPECT_EQ(Fields("\"a\r\n"), (Row{"a"}));
}

TEST(CsvFields, ScanningIsByBytes) {
  // A first byte of a double-byte character does not swallow the separator that follows it.
  EXPECT_EQ(Fields("\xD6,\xD0"), (Row{"\xD6", "\xD0"}));
  EXPECT_EQ(Fields("\"\xD6\",b"), (Row{"\xD6", "b"}));
}

TEST(CsvFields, FourHundredKilobytesOfDoubledQuotesBecomeOneField) {
  const std::string quotes(200000, '"');
  EXPECT_EQ(Fields('"' + quotes + '"'), (Row{quotes.substr(100000)}));
}

TEST(CsvFields, ManyFieldsInOneLine) { EXPECT_EQ(Fields(std::string(100000, ',')), Row(100001)); }

// --- UTF-8 ------------------------------------------------------------------------------------

constexpr char kMark[] = "\xEF\xBB\xBF";

TEST(CsvFields, Utf8BecomesAnsi) {
  CsvFile file(std::string(kMark) + "\xE5\x90\x8D,b\n\"\xE4\xB8\xAD\"\"\xE6\x96\x87\",x\n");
  EXPECT_EQ(Header(file.Reader()), (Row{"\xC3\xFB", "b"}));
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{"\xD6\xD0\"\xCE\xC4", "x"}}));
}

TEST(CsvFields, LongUtf8FieldBecomesAnsi) {
  std::string utf8;
  std::string ansi;
  for (int i = 0; i < 100000; ++i) {
    utf8 += "\xE4\xB8\xAD";
    ansi += "\xD6\xD0";
  }
  CsvFile file(std::string(kMark) + "h\n" + utf8 + "\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{ansi}}));
}

TEST(CsvFields, Utf8WithoutAMarkIsTakenAsBytes) {
  CsvFile file("\xE5\x90\x8D\n");
  EXPECT_EQ(Header(file.Reader()), (Row{"\xE5\x90\x8D"}));
}

TEST(CsvFields, Utf8CharacterOutsideTheCodePageBecomesTheDefaultCharacter) {
  CsvFile file(std::string(kMark) + "a\xF0\x9F\x98\x80z\n");  // an emoji: two UTF-16 units
  EXPECT_EQ(Header(file.Reader()), (Row{"a??z"}));
}

TEST(CsvFields, MalformedUtf8KeepsWhatIsWellFormed) {
  for (const char* malformed : {"\x80", "\xFF", "\xC3", "\xE4\xB8", "\xC0\xAF", "\xED\xA0\x80"}) {
    CsvFile file(std::string(kMark) + "a" + malformed + ",b\n");
    const Row header = Header(file.Reader());
    ASSERT_EQ(header.size(), 2u);
    EXPECT_EQ(header[0][0], 'a');
    EXPECT_EQ(header[1], "b");
  }
}

TEST(CsvFields, MarkAloneIsAnEmptyFile) {
  CsvFile file(kMark);
  EXPECT_FALSE(file.Opened());
  EXPECT_EQ(Message(file.Reader()), kNoHeader);
}

TEST(CsvFields, MarkInsideTheFileIsText) {
  CsvFile file(std::string("a\n") + kMark + "b\n");
  EXPECT_EQ(RestOfRows(file.Reader()), (std::vector<Row>{{std::string(kMark) + "b"}}));
}

}  // namespace
}  // namespace io_test
