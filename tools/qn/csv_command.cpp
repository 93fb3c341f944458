// qn csv: looks into CSV files and turns them into JSON, row by row.
#include <quarnfc/csv.h>
#include <quarnfc/json_object.h>

#include <algorithm>
#include <new>
#include <set>
#include <vector>

#include "command.h"
#include "console.h"
#include "errors.h"
#include "exit_code.h"
#include "library_buffer.h"
#include "options.h"
#include "output.h"

namespace qn {
namespace {

using Row = std::vector<CQNString>;

std::string_view View(const CQNString& text) {
  return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

// A CSV file that shows how many rows were read.
class CsvInput {
 public:
  explicit CsvInput(const std::string& path) : progress_(DisplayText(path) + ", rows") {
    const std::string library_path = PathForLibrary(path);
    if (!reader_.Open(library_path.c_str())) {
      throw Failure(FileMessage(reader_.GetLastError(), path));
    }
    reader_.GetFields(header_);
  }

  const Row& Header() const { return header_; }
  unsigned long long RowsRead() const { return rows_read_; }

  // False at the end of the file. Throws Failure when it cannot be read on.
  bool Next(Row& row) {
    if (!reader_.NextRow(row)) {
      if (*reader_.GetLastError() != '\0') throw Failure(reader_.GetLastError());
      return false;
    }
    if (++rows_read_ % 4096 == 0) progress_.Update(rows_read_, 0);
    return true;
  }

 private:
  CQNCSVFileReader reader_;
  Row header_;
  unsigned long long rows_read_ = 0;
  Progress progress_;
};

// --- head, columns, count ---------------------------------------------------------------------

// A field as CSV text: in quotes where it could be read back as something else.
std::string CsvField(const CQNString& field) {
  const std::string_view text = View(field);
  const bool plain = text.find_first_of("\",") == std::string_view::npos &&
                     (text.empty() || (text[0] != ' ' && text[0] != '\t'));
  if (plain) return std::string(text);
  std::string quoted = "\"";
  for (const char ch : text) quoted.append(ch == '"' ? 2 : 1, ch);
  return quoted + '"';
}

void PrintRow(const Row& row) {
  std::string line = CsvField(row[0]);
  for (std::size_t i = 1; i < row.size(); ++i) line += ',' + CsvField(row[i]);
  PrintLine(line.empty() ? "\"\"" : line);
}

int RunHead(std::span<const std::string> arguments) {
  const Options options(arguments, {{"rows", 'n', Takes::kValue}});
  options.ExpectPositional(1, 1);
  const long long rows = options.Number("rows", 10, 0, 1'000'000'000'000);
  CsvInput input(options.Positional()[0]);
  PrintRow(input.Header());
  Row row;
  for (long long i = 0; i < rows && input.Next(row); ++i) PrintRow(row);
  return kSuccess;
}

int RunColumns(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const CsvInput input(options.Positional()[0]);
  for (const CQNString& name : input.Header()) PrintLine(View(name));
  return kSuccess;
}

int RunCount(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  CsvInput input(options.Positional()[0]);
  Row row;
  while (input.Next(row)) {
  }
  PrintLine(std::to_string(input.RowsRead()));
  return kSuccess;
}

// --- to-json ----------------------------------------------------------------------------------

// Whether a key can be written without escapes.
bool CanBeKey(const CQNString& name) {
  const std::string_view key = View(name);
  return name.FindOneOf("\"\\") < 0 && std::none_of(key.begin(), key.end(), [](char ch) {
           return static_cast<unsigned char>(ch) < ' ';
         });
}

// The library writes keys as they are, so a key must not need escapes, and must not occur twice.
void CheckKeys(const Row& header) {
  std::set<std::string_view> keys;
  for (const CQNString& name : header) {
    const std::string shown = "column name '" + std::string(View(name)) + "' ";
    if (!CanBeKey(name)) throw Failure(shown + "cannot be a JSON key");
    if (!keys.insert(View(name)).second) throw Failure(shown + "occurs twice");
  }
}

// Fields beyond the header have the number of their column, from 1, as key.
std::string KeyOf(const Row& header, std::size_t column) {
  return column < header.size() ? std::string(View(header[column])) : std::to_string(column + 1);
}

std::string JsonOf(const Row& header, const Row& row, bool ansi) {
  CMyJsonObj object;
  for (std::size_t i = 0; i < row.size(); ++i) {
    object.AddItem(KeyOf(header, i).c_str(), static_cast<const char*>(row[i]));
  }
  if (ansi) return std::string(View(object.CreateJson(false)));
  return LibraryBuffer<char>(object.CreateUTF8Json(false)).get();
}

int RunToJson(std::span<const std::string> arguments) {
  const Options options(arguments, {{"output", 'o', Takes::kValue}, {"ansi", '\0'}});
  options.ExpectPositional(1, 1);
  CsvInput input(options.Positional()[0]);
  CheckKeys(input.Header());
  Output output(options.Value("output", "-"));
  output.Write("[");
  Row row;
  while (input.Next(row)) {
    output.Write(input.RowsRead() == 1 ? "\n" : ",\n");
    output.Write(JsonOf(input.Header(), row, options.Has("ansi")));
  }
  output.Write("\n]\n");
  output.Commit();
  return kSuccess;
}

constexpr Command kCsvCommands[] = {
    {"head", "Print the header and the first rows",
     "usage: qn csv head [-n ROWS] FILE\n"
     "\n"
     "Prints the header row and the first rows as CSV, fields trimmed and quoted where needed.\n"
     "\n"
     "  -n, --rows ROWS   how many rows; 10 when not given\n",
     RunHead},
    {"columns", "Print the names of the columns",
     "usage: qn csv columns FILE\n"
     "\n"
     "Prints the fields of the header row, one a line.\n",
     RunColumns},
    {"count", "Count the rows",
     "usage: qn csv count FILE\n"
     "\n"
     "Prints the number of rows behind the header row. Any size of file takes the same memory.\n",
     RunCount},
    {"to-json", "Rows to JSON objects",
     "usage: qn csv to-json [--ansi] [-o OUTPUT] FILE\n"
     "\n"
     "Writes a JSON array with an object for each row, its keys the fields of the header row and\n"
     "its values strings, in UTF-8. Fields beyond the header have their column number as key.\n"
     "Any size of file takes the same memory.\n"
     "\n"
     "      --ansi            write in the process code page instead\n"
     "  -o, --output OUTPUT   write to a file; it is whole or not there\n"
     "\n"
     "Exit code 1: the file cannot be read, or a column name occurs twice or cannot be a key.\n",
     RunToJson}};

}  // namespace

extern const Command kCsvCommand;
const Command kCsvCommand = {"csv", "CSV files",
                             "usage: qn csv head|columns|count|to-json [OPTION...] FILE\n"
                             "\n"
                             "A file is in the process code page, or in UTF-8 with mark.\n",
                             nullptr, kCsvCommands};

}  // namespace qn
