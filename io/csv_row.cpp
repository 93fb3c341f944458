// SPDX-License-Identifier: MIT
// The fields of a line, after RFC 4180 in its spirit, not to the letter:
//
//   line   = [ field { "," field } ]
//   field  = blanks ( quoted | plain )
//   quoted = '"' { byte but '"' | '""' } [ '"' bytes up to the next "," ]
//   plain  = bytes up to the next ","
//   blanks = { space | TAB }
//
// Deviations, all deliberate: blanks in front of a field are dropped, those behind a plain field
// are kept; what follows a closing quote is ignored; a quote inside a plain field is a byte like
// any other; a quoted field ends with its line at the latest; commas are found byte by byte, also
// where they are the second byte of a broken character.
//
// One pass over the line, in place, eight bytes at a time, which may read bytes behind it: doubled
// quotes are closed up in the line itself. UTF-8 is converted field by field through scratch
// buffers.
#include "io/csv_row.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/text/byte_search.h"
#include "core/text/transcode.h"
#include "io/csv_fields.h"

namespace quarnfc::io {
namespace {

// --- the fields of a line ---------------------------------------------------------------------

class LineSplitter {
 public:
  // A comma at the end of the line stops every search for one.
  LineSplitter(char* line, char* end, bool utf8, CsvFields& fields)
      : cursor_(line), end_(end), utf8_(utf8), fields_(fields) {
    *end = ',';
  }

  void Split() {
    while (cursor_ < end_) ReadField();
    if (separators_ >= fields_.Count()) fields_.Add("", 0);
  }

 private:
  void ReadField() {
    while (*cursor_ == ' ' || *cursor_ == '\t') ++cursor_;
    if (*cursor_ == '"') {
      ReadQuoted();
    } else {
      ReadPlain();
    }
  }

  // Up to the next comma or the end of the line; blanks in front of the comma are kept.
  void ReadPlain() {
    char* const start = cursor_;
    char* const end = PassSeparator();
    AppendField(start, end);
  }

  // Up to the closing quote, or to the end of the line without one; doubled quotes are made one by
  // moving the text to the left as it is read. What follows up to the next comma is ignored.
  void ReadQuoted() {
    char* const start = ++cursor_;
    char* end = start;
    for (;;) {
      char* const quote = FindByte(cursor_, end_, '"');
      const bool is_doubled = end_ - quote >= 2 && quote[1] == '"';
      const auto length = static_cast<std::size_t>(quote - cursor_) + is_doubled;
      if (end != cursor_) std::memmove(end, cursor_, length);
      end += length;
      cursor_ = quote + (is_doubled ? 2 : quote < end_);
      if (!is_doubled) break;
    }
    PassSeparator();
    AppendField(start, end);
  }

  // Goes on behind the next comma, or stays at the end of the line; returns where that is.
  char* PassSeparator() {
    char* const comma = FindPresentByte(cursor_, ',');
    cursor_ = comma;
    if (comma < end_) {
      ++cursor_;
      ++separators_;
    }
    return comma;
  }

  void AppendField(char* start, char* end) {
    const auto is_ascii = [](char ch) { return (ch & 0x80) == 0; };
    if (!utf8_ || std::all_of(start, end, is_ascii)) {
      fields_.Add(start, static_cast<std::size_t>(end - start));
      return;
    }
    *end = '\0';
    const WideScratch wide(Encoding::kUtf8, start);
    fields_.Add(CQNString(wide.Text()));
  }

  char* cursor_;
  char* const end_;
  const bool utf8_;
  CsvFields& fields_;
  std::size_t separators_ = 0;
};

}  // namespace

void SplitCsvLine(Line line, bool utf8, std::vector<CQNString>& row) {
  char* const line_end = line.text + line.length;
  char* const end = line_end[-1] == '\r' ? line_end - 1 : line_end;
  CsvFields fields(row);
  LineSplitter(line.text, end, utf8, fields).Split();
}

}  // namespace quarnfc::io
