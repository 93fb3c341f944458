// SPDX-License-Identifier: MIT
// CSV with line ends in quoted fields, in pieces of any size, against its grammar on the whole
// text; the first row taken for the header; and rows written, which read as the same: a byte for
// the delimiter and the pieces, then the text.
#include <quarnfc/ext/csv_text.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/input.h"

namespace {

using quarnfc::ext::CsvTextReader;
using quarnfc::ext::CsvTextRow;
using Row = std::vector<std::string>;

class Reference {
 public:
  Reference(const std::string& text, char delimiter) : text_(text), delimiter_(delimiter) {}

  // False where a quoted field is not closed.
  bool Read(std::vector<Row>& rows) {
    while (at_ < text_.size()) {
      const std::size_t begin = at_;
      Row row;
      do {
        if (!ReadField(row.emplace_back())) return false;
      } while (TakeIf(delimiter_));
      const std::string source = text_.substr(begin, at_ - begin);
      TakeIf('\n');
      if (!IsBlank(source)) rows.push_back(row);
    }
    return true;
  }

 private:
  // A line of blanks, with a carriage return at its end or without.
  static bool IsBlank(std::string source) {
    if (!source.empty() && source.back() == '\r') source.pop_back();
    return source.find_first_not_of(" \t") == std::string::npos;
  }

  bool TakeIf(char ch) {
    const bool taken = at_ < text_.size() && text_[at_] == ch;
    if (taken) ++at_;
    return taken;
  }

  std::size_t FieldEnd() const {
    const char marks[] = {delimiter_, '\n', '\0'};
    return std::min(text_.find_first_of(marks, at_), text_.size());
  }

  bool ReadField(std::string& field) {
    while (at_ < FieldEnd() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
    const bool quoted = at_ < FieldEnd() && text_[at_] == '"';
    if (quoted && !ReadQuoted(field)) return false;
    const std::size_t end = FieldEnd();
    if (!quoted) field = text_.substr(at_, end - at_);
    at_ = end;
    const bool line_ends = end == text_.size() || text_[end] == '\n';
    if (!quoted && line_ends && !field.empty() && field.back() == '\r') field.pop_back();
    return true;
  }

  bool ReadQuoted(std::string& field) {
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"' && (at_ + 1 == text_.size() || text_[at_ + 1] != '"')) {
        ++at_;
        return true;
      }
      if (text_[at_] == '"') ++at_;
      field += text_[at_];
    }
    return false;
  }

  const std::string& text_;
  char delimiter_;
  std::size_t at_ = 0;
};

// Each field of a header leads to itself, unless another one has its name.
bool NamesLeadToTheirFields(const Row& header) {
  for (std::size_t i = 0; i < header.size(); ++i) {
    const bool is_alone = std::count(header.begin(), header.end(), header[i]) == 1;
    const std::size_t expected = is_alone ? i : quarnfc::ext::kNoCsvField;
    if (quarnfc::ext::FindCsvField(header, header[i]) != expected) return false;
  }
  return true;
}

bool ReadInPieces(const std::string& text, char delimiter, std::size_t piece,
                  std::vector<Row>& rows) {
  std::size_t at = 0;
  CsvTextReader reader(
      [&] {
        const std::string part = text.substr(at, piece);
        at += part.size();
        return part;
      },
      delimiter);
  CsvTextRow row;
  while (reader.Next(row)) rows.push_back(row.fields);
  return reader.Error().empty();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const unsigned how = input.Byte();
  const char delimiter = ",;\t|"[how % 4];
  const std::string text = input.Text();
  std::vector<Row> rows;
  std::vector<Row> expected;
  const bool is_read = ReadInPieces(text, delimiter, how / 4 % 16 + 1, rows);
  fuzz::Expect(is_read == Reference(text, delimiter).Read(expected));
  fuzz::Expect(rows == expected);
  fuzz::Expect(rows.empty() || NamesLeadToTheirFields(rows[0]));

  std::string written;
  for (const Row& row : rows) written += quarnfc::ext::WriteCsvRow(row, delimiter) + "\r\n";
  std::vector<Row> again;
  fuzz::Expect(ReadInPieces(written, delimiter, text.size() + 1, again) && again == rows);
  return 0;
}
