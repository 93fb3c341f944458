// SPDX-License-Identifier: MIT
// CSV read piece by piece, and fields written so that every reader reads them back.
//
// CsvTextReader takes UTF-8, or any text in which the delimiter and the quote stand for themselves,
// from wherever the host has it, and hands out rows in constant memory. It stands beside
// CQNCSVFileReader, which reads files only, knows one delimiter and ends a field with its line.
//
//   file  = *( row line-end )           line-end = LF | CR LF, missing behind the last row or not
//   row   = field *( delimiter field )
//   field = blanks quoted ignored | blanks plain
//   quoted = DQUOTE *( any but DQUOTE | DQUOTE DQUOTE ) DQUOTE
//
// As in CQNCSVFileReader, blanks before a field are dropped, those behind a plain one belong to it,
// and what stands between a closing quote and the next delimiter is ignored. Unlike there a quoted
// field may hold line ends (RFC 4180), and lines without anything are passed over however they end.
//
// Header only; needs nothing but the standard library. One thread at a time uses a reader.
//
// Example:
//   std::vector<std::string> pieces{"code;name\n1;\"Wu;", "han\"\n"};
//   pieces.emplace_back();  // an empty piece is the end
//   std::size_t next = 0;
//   quarnfc::ext::CsvTextReader rows([&] { return pieces[next++]; }, ';');
//   quarnfc::ext::CsvTextRow row;
//   rows.Next(row);         // == true
//   quarnfc::ext::FindCsvField(row.fields, "name");  // == 1u
//   rows.Next(row);         // == true
//   row.fields[1];          // == "Wu;han"
//   row.line;               // == 2u
//   rows.Next(row);         // == false
//   rows.Error().empty();   // == true
#ifndef QUARNFC_EXT_CSV_TEXT_H_
#define QUARNFC_EXT_CSV_TEXT_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnfc::ext {

struct CsvTextRow {
  std::vector<std::string> fields;
  std::string source;    // the row as it stands, without its line end
  std::size_t line = 0;  // of its start, from 1
};

class CsvTextReader {
 public:
  // Gives the next piece of the text, and "" at its end.
  using Source = std::function<std::string()>;

  // A row may have so many bytes, a CR at its end included: a quote that is never closed must not
  // swallow a file, nor a text without line ends the memory.
  static constexpr std::size_t kLongestRow = 16 * 1024 * 1024;

  explicit CsvTextReader(Source source, char delimiter = ',')
      : source_(std::move(source)), delimiter_(delimiter) {}

  // The next row; false at the end, or when a row cannot be read: then there is an Error.
  bool Next(CsvTextRow& row) {
    while (error_.empty() && !AtEnd()) {
      if (!ReadRow(row)) return false;
      if (row.source.find_first_not_of(" \t") != std::string::npos) return true;
    }
    return false;
  }

  // In English, with the line; empty as long as nothing is wrong.
  const std::string& Error() const { return error_; }

 private:
  bool AtEnd() {
    if (at_ < piece_.size()) return false;
    if (ended_) return true;
    piece_ = source_();
    at_ = 0;
    ended_ = piece_.empty();
    return ended_;
  }

  // Only after AtEnd has been false.
  char Peek() const { return piece_[at_]; }

  void Take(CsvTextRow& row) { row.source += piece_[at_++]; }

  static bool IsTooLong(const CsvTextRow& row) { return row.source.size() > kLongestRow; }

  // Of a row that is too long nothing more is taken.
  bool AtRowEnd(const CsvTextRow& row) { return IsTooLong(row) || AtEnd() || Peek() == '\n'; }
  bool AtFieldEnd(const CsvTextRow& row) { return AtRowEnd(row) || Peek() == delimiter_; }

  bool ReadRow(CsvTextRow& row) {
    row.fields.clear();
    row.source.clear();
    row.line = line_;
    for (bool more = true; more;) {
      row.fields.emplace_back();
      if (!ReadField(row)) return Fail(row, "a quoted field is not closed");
      more = !AtRowEnd(row);
      if (more) Take(row);
    }
    if (IsTooLong(row)) return Fail(row, "the row is too long");
    if (!AtEnd()) ++at_;
    ++line_;
    DropCarriageReturn(row);
    return true;
  }

  // False when a quoted field is not closed.
  bool ReadField(CsvTextRow& row) {
    while (!AtFieldEnd(row) && (Peek() == ' ' || Peek() == '\t')) Take(row);
    last_quoted_ = !AtFieldEnd(row) && Peek() == '"';
    if (last_quoted_) return ReadQuoted(row);
    while (!AtFieldEnd(row)) {
      row.fields.back() += Peek();
      Take(row);
    }
    return true;
  }

  bool ReadQuoted(CsvTextRow& row) {
    Take(row);
    for (;;) {
      if (AtEnd() || IsTooLong(row)) return false;
      const char ch = Peek();
      Take(row);
      if (ch == '\n') ++line_;
      if (ch == '"') {
        if (AtEnd() || Peek() != '"') break;
        Take(row);
      }
      row.fields.back() += ch;
    }
    while (!AtFieldEnd(row)) Take(row);
    return true;
  }

  void DropCarriageReturn(CsvTextRow& row) {
    if (row.source.empty() || row.source.back() != '\r') return;
    row.source.pop_back();
    // Behind a closing quote it was ignored.
    if (!last_quoted_) row.fields.back().pop_back();
  }

  bool Fail(const CsvTextRow& row, const char* why) {
    error_ = "line " + std::to_string(row.line) + ": " + why;
    return false;
  }

  Source source_;
  const char delimiter_;
  std::string piece_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  bool ended_ = false;
  bool last_quoted_ = false;
  std::string error_;
};

// What FindCsvField returns for a name that leads nowhere.
inline constexpr std::size_t kNoCsvField = static_cast<std::size_t>(-1);

// The index of the field that is name, byte for byte: of the row that a host takes for the header,
// read by CsvTextReader (std::string) or by CQNCSVFileReader (CQNString). kNoCsvField when there is
// none, or more than one: a name that two columns share says nothing about which of them is meant.
template <class Text>
std::size_t FindCsvField(const std::vector<Text>& fields, std::string_view name) {
  std::size_t found = kNoCsvField;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (std::string_view(fields[i]) != name) continue;
    if (found != kNoCsvField) return kNoCsvField;
    found = i;
  }
  return found;
}

// A field as CSV: in quotes where it could be read back as something else.
inline std::string WriteCsvField(std::string_view text, char delimiter = ',') {
  const bool blank_outside =
      !text.empty() && (text.front() == ' ' || text.front() == '\t' || text.back() == '\r');
  const bool plain = !blank_outside && text.find_first_of("\"\r\n") == std::string_view::npos &&
                     text.find(delimiter) == std::string_view::npos;
  if (plain) return std::string(text);
  std::string quoted = "\"";
  for (const char ch : text) quoted.append(ch == '"' ? 2 : 1, ch);
  return quoted += '"';
}

// A row without line end. One that would read as a line without anything, such as a single empty
// field or empty ones with tabs between them, begins with a field in quotes.
inline std::string WriteCsvRow(const std::vector<std::string>& fields, char delimiter = ',') {
  std::string row;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) row += delimiter;
    row += WriteCsvField(fields[i], delimiter);
  }
  return row.find_first_not_of(" \t") == std::string::npos ? "\"\"" + row : row;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_CSV_TEXT_H_
