// SPDX-License-Identifier: MIT
// The library's release rules, indexes and exceptions in today's C++: owners, range-for, and
// failures as values. Counts the rows of a table by the text in their second field.
// Usage: sample_owners_and_ranges TABLE.csv
#include <quarnfc/ext/json_access.h>
#include <quarnfc/ext/outcome.h>
#include <quarnfc/ext/owners.h>
#include <quarnfc/ext/ranges.h>
#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <stdexcept>
#include <string>

using quarnfc::ext::AnsiFromUtf8;
using quarnfc::ext::Attempt;
using quarnfc::ext::JsonDocument;
using quarnfc::ext::Members;
using quarnfc::ext::Outcome;
using quarnfc::ext::OwnedBuffer;
using quarnfc::ext::Rows;
using quarnfc::ext::StrictAnsiFromUtf8;
using quarnfc::ext::StringArray;
using quarnfc::ext::TextLoss;
using quarnfc::ext::Utf8FromAnsi;
using quarnfc::ext::ValueOr;

namespace {

// How many rows have each text in their second field, as members of an object.
JsonDocument CountNames(CQNCSVFileReader& reader) {
  JsonDocument counts;
  counts.Load("{}");
  CMyJsonObj& object = *counts.Root().ValueObj();
  for (const std::vector<CQNString>& row : Rows(reader)) {
    if (row.size() < 2) throw std::runtime_error("a row has one field only");
    const std::string place = "/" + std::string(row[1]);
    object.SetItem(row[1], counts.ValueOr(place, 0) + 1, true, false);
  }
  return counts;
}

// A text that the code page must be able to hold: the first character that it cannot is named.
void PrintLabel(const char* utf8) {
  TextLoss loss;
  if (const auto ansi = StrictAnsiFromUtf8(utf8, &loss)) {
    std::printf("a label of %zu bytes\n", ansi->size());
  } else {
    std::printf("the code page lacks U+%04X at byte %zu\n",
                static_cast<unsigned int>(loss.character), loss.offset);
  }
}

}  // namespace

int main(int argc, char** argv) {
  CQNCSVFileReader reader;
  if (argc != 2 || !reader.Open(argv[1])) return 2;

  // What is thrown inside becomes a problem.
  const Outcome<JsonDocument> counts = Attempt([&] { return CountNames(reader); });
  if (!counts) {
    std::puts(counts.Problem().message.c_str());
    return 1;
  }
  for (const auto& [key, value] : Members(*counts.Value().Root().ValueObj())) {
    const std::string name = Utf8FromAnsi(static_cast<const char*>(key));
    std::printf("%s: %d\n", name.c_str(), ValueOr(*value, "", 0));
  }
  const OwnedBuffer<char> text(counts.Value().Root().CreateUTF8Json(false));
  std::printf("%zu bytes of JSON\n", std::string(text.get()).size());

  StringArray words(AnsiFromUtf8("one; two;;three").c_str(), ';');
  words.Adjust(true, true);
  for (const char* word : words) std::puts(word);

  PrintLabel("\xE9\x95\xBF\xE6\xB2\x99");  // Changsha
  PrintLabel("a \xF0\x9F\x98\x80");        // an emoji
  return 0;
}
