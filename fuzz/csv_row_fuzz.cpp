// SPDX-License-Identifier: MIT
// One line of a CSV file: a byte that says whether it is UTF-8, then the line.
#include "io/csv_row.h"

#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/reference.h"

namespace {

bool IsBlank(char ch) { return ch == ' ' || ch == '\t'; }

// The fields after the grammar, on a copy: a quoted field ends with its quote, what follows up to
// the next comma is ignored; a plain one is what stands up to the next comma.
std::vector<std::string> Fields(std::string line) {
  if (line.back() == '\r') line.pop_back();
  std::vector<std::string> fields;
  std::size_t at = 0;
  for (;;) {
    while (at < line.size() && IsBlank(line[at])) ++at;
    const bool quoted = at < line.size() && line[at] == '"';
    std::string field;
    for (++at; quoted && at < line.size(); ++at) {
      if (line[at] == '"' && line.substr(++at, 1) != "\"") break;
      field += line[at];
    }
    if (!quoted) --at;
    const std::size_t comma = std::min(line.find(',', at), line.size());
    fields.push_back(quoted ? field
                            : line.substr(std::min(at, comma), comma - std::min(at, comma)));
    if (comma == line.size()) return fields;
    at = comma + 1;
  }
}

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char ch) { return (ch & 0x80) == 0; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool utf8 = (input.Byte() & 1) != 0;
  const std::string line = input.Text();
  if (line.empty()) return 0;

  // A buffer of the very size with its slack, so that a step beyond it shows.
  std::vector<char> buffer(line.begin(), line.end());
  buffer.resize(line.size() + 1 + quarnfc::io::Line::kSlack);
  std::vector<CQNString> row;
  quarnfc::io::SplitCsvLine({buffer.data(), line.size()}, utf8, row);
  fuzz::Expect(!row.empty());
  fuzz::Expect(row.size() <= line.size() + 1);
  const std::vector<std::string> fields = Fields(line);
  fuzz::Expect(row.size() == fields.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (utf8 && !IsAscii(fields[i])) continue;
    fuzz::Expect(fuzz::BytesOf(row[i]) == fields[i]);
  }
  return 0;
}
