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
// One pass over the line, in place: fields are cut and doubled quotes closed up in the line itself.
// UTF-8 is converted field by field through scratch buffers.
#include "io/csv_row.h"

#include <algorithm>
#include <cstddef>

#include "core/text/transcode.h"

namespace quarnfc::io {
namespace {

// --- the fields of a line ---------------------------------------------------------------------

class LineSplitter {
 public:
  LineSplitter(char* line, bool utf8, std::vector<CQNString>& row)
      : cursor_(line), utf8_(utf8), row_(row) {}

  void Split() {
    while (*cursor_ != '\0') ReadField();
    if (separators_ >= row_.size()) row_.emplace_back();
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
    char* const end = FindSeparator();
    PassSeparator(end);
    AppendField(start, end);
  }

  // Up to the closing quote, or to the end of the line without one; doubled quotes are made one by
  // moving the text to the left as it is read. What follows up to the next comma is ignored.
  void ReadQuoted() {
    char* const start = ++cursor_;
    char* end = start;
    for (; *cursor_ != '\0'; *end++ = *cursor_++) {
      if (*cursor_ == '"' && *++cursor_ != '"') break;
    }
    PassSeparator(FindSeparator());
    AppendField(start, end);
  }

  char* FindSeparator() const {
    char* end = cursor_;
    while (*end != ',' && *end != '\0') ++end;
    return end;
  }

  // Goes on behind the comma at end, or stays at the end of the line.
  void PassSeparator(char* end) {
    cursor_ = end;
    if (*end != ',') return;
    ++cursor_;
    ++separators_;
  }

  void AppendField(char* start, char* end) {
    const bool ascii = std::none_of(start, end, [](char ch) { return (ch & 0x80) != 0; });
    if (!utf8_ || ascii) {
      row_.emplace_back(start, static_cast<int>(end - start));
      return;
    }
    *end = '\0';
    const WideScratch wide(Encoding::kUtf8, start);
    row_.emplace_back(wide.Text());
  }

  char* cursor_;
  const bool utf8_;
  std::vector<CQNString>& row_;
  std::size_t separators_ = 0;
};

}  // namespace

void SplitCsvLine(Line line, bool utf8, std::vector<CQNString>& row) {
  char& last = line.text[line.length - 1];
  if (last == '\r') last = '\0';
  LineSplitter(line.text, utf8, row).Split();
}

}  // namespace quarnfc::io
