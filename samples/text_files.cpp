// SPDX-License-Identifier: MIT
// A value on its way from a table into settings: the table is CSV in any encoding, with line breaks
// in quotes; of the settings nothing but the value changes, no blank and no spelling, and their
// file is whole at every moment. Usage: sample_text_files [TABLE.csv]
#include <quarnfc/ext/csv_file.h>
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
using quarnfc::ext::CsvFileOptions;
using quarnfc::ext::CsvFileReader;
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
template <class Reader>
std::string FirstValue(Reader& rows, const char* name, std::string& error) {
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

std::string ValueOfFile(const char* path, std::string& error) {
  CsvFileOptions options;
  options.delimiter = ';';
  CsvFileReader rows;
  rows.Open(path, options);  // where it fails, there is no row, and an Error
  return FirstValue(rows, "longitude", error);
}

std::string ValueOfText(const char* bytes, std::string& error) {
  TextDecoder decoder;
  std::string utf8;
  if (!decoder.Decode(bytes, true, utf8)) {
    error = "no text from byte " + std::to_string(decoder.ErrorOffset()) + " on";
    return "";
  }
  CsvTextReader rows([&utf8] { return std::exchange(utf8, ""); }, ';');
  return FirstValue(rows, "longitude", error);
}

}  // namespace

int main(int argc, char** argv) {
  std::string error;
  const std::string value = argc > 1 ? ValueOfFile(argv[1], error) : ValueOfText(kTable, error);
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
