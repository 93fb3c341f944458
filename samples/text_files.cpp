// SPDX-License-Identifier: MIT
// A value on its way from a table into settings: the table is CSV in any encoding, with line breaks
// in quotes; of the settings nothing but the value changes, no blank and no spelling, and their
// file is whole at every moment. Usage: sample_text_files [TABLE.csv]
#include <quarnfc/ext/csv_text.h>
#include <quarnfc/ext/encoded_text.h>
#include <quarnfc/ext/json_text.h>
#include <quarnfc/ext/json_text_edit.h>
#include <quarnfc/ext/owners.h>
#include <quarnfc/file_utils.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

using quarnfc::ext::ApplyJsonEdits;
using quarnfc::ext::CsvTextReader;
using quarnfc::ext::CsvTextRow;
using quarnfc::ext::ErrorHandle;
using quarnfc::ext::FindCsvField;
using quarnfc::ext::JsonText;
using quarnfc::ext::ReplaceJsonValue;
using quarnfc::ext::TextDecoder;
using quarnfc::ext::WriteCsvRow;

namespace {

constexpr char kTable[] = "code;longitude;note\n430100;112.982279;\"first line\nsecond line\"\n";

constexpr char kSettings[] = R"({
  "center": {"longitude": 1.10e2, "latitude": 28.19409},
  "title":  "\u957f\u6c99"
})";

int Fail(const std::string& why) {
  std::fprintf(stderr, "%s\n", why.c_str());
  return 1;
}

std::string ReadAll(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The field called name in the first row behind the header.
std::string FirstValue(const std::string& utf8, const char* name, std::string& error) {
  std::string rest = utf8;
  CsvTextReader rows([&rest] { return std::exchange(rest, ""); }, ';');
  CsvTextRow header;
  CsvTextRow row;
  const bool found = rows.Next(header) && rows.Next(row);
  const std::size_t index = FindCsvField(header.fields, name);  // none is beyond every row
  if (found && index < row.fields.size()) {
    std::printf("line %zu: %s\n", row.line, WriteCsvRow(row.fields).c_str());
    return row.fields[index];
  }
  error = rows.Error().empty() ? "there is no row, or no such field" : rows.Error();
  return "";
}

}  // namespace

int main(int argc, char** argv) {
  TextDecoder decoder;
  std::string table;
  if (!decoder.Decode(argc > 1 ? ReadAll(argv[1]) : kTable, true, table)) {
    return Fail("no text from byte " + std::to_string(decoder.ErrorOffset()) + " on");
  }
  std::string error;
  const std::string value = FirstValue(table, "longitude", error);
  if (!error.empty()) return Fail(error);

  JsonText settings;
  if (!settings.Parse(kSettings)) return Fail("the settings are no JSON");
  const auto longitude = settings.Root().Find("/center/longitude");
  if (!longitude) return Fail("the settings have no longitude");
  const std::string text = ApplyJsonEdits(settings.Text(), {ReplaceJsonValue(*longitude, value)});
  std::puts(text.c_str());

  ErrorHandle failure;
  const char* const path = "sample_text_files.json";
  if (!QNFileUtils::WriteFileAtomicA(path, text.data(), text.size(), failure.Out())) {
    return Fail(failure.Message());
  }
  const bool whole = ReadAll(path) == text;
  std::remove(path);
  return whole && text.find("{\"longitude\": 112.982279, ") != std::string::npos ? 0 : 1;
}
