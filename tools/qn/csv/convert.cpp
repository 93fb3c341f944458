// SPDX-License-Identifier: MIT
// qn csv to-json and stats.
#include <quarnfc/ext/csv_text.h>
#include <quarnfc/ext/json_text_edit.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

#include "qn/console.h"
#include "qn/csv/commands.h"
#include "qn/csv/input.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/output.h"

namespace qn::csv {
namespace {

using quarnfc::ext::CsvTextRow;
using quarnfc::ext::QuoteJson;

// --- to-json ------------------------------------------------------------------------------------

// A row as an object. Fields beyond the header have the number of their column, from 1, as key.
std::string JsonOf(const std::vector<std::string>& header, const CsvTextRow& row) {
  std::string json = "{";
  for (std::size_t i = 0; i < row.fields.size(); ++i) {
    std::string key = i < header.size() ? header[i] : std::to_string(i + 1);
    if (i >= header.size() && std::find(header.begin(), header.end(), key) != header.end()) {
      throw Failure("line " + std::to_string(row.line) +
                    ": the row has more fields than the header"
                    ", and '" +
                    key + "' is the name of a column already");
    }
    if (i > 0) json += ',';
    json += QuoteJson(key) + ":" + QuoteJson(row.fields[i]);
  }
  return json + "}";
}

void ExpectDifferentNames(const std::vector<std::string>& header) {
  std::set<std::string> names;
  for (const std::string& name : header) {
    if (!names.insert(name).second) throw Failure("column name '" + name + "' occurs twice");
  }
}

// --- stats --------------------------------------------------------------------------------------

struct ColumnStats {
  std::string name;
  unsigned long long empty = 0;
  unsigned long long numbers = 0;
  unsigned long long texts = 0;
  double least = 0;
  double most = 0;
  double sum = 0;

  void Add(const std::string& field) {
    double number = 0;
    const char* const end = field.data() + field.size();
    const auto result = std::from_chars(field.data(), end, number);
    if (field.empty()) {
      ++empty;
    } else if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) {
      ++texts;
    } else {
      least = numbers == 0 ? number : std::min(least, number);
      most = numbers == 0 ? number : std::max(most, number);
      sum += number;
      ++numbers;
    }
  }
};

std::string Shortest(double number) {
  char text[40];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string StatsAsText(const ColumnStats& stats) {
  std::string line = stats.name + ": " + std::to_string(stats.numbers) + " numbers, " +
                     std::to_string(stats.texts) + " texts, " + std::to_string(stats.empty) +
                     " empty";
  if (stats.numbers == 0) return line;
  return line + "; least " + Shortest(stats.least) + ", most " + Shortest(stats.most) + ", mean " +
         Shortest(stats.sum / static_cast<double>(stats.numbers));
}

std::string StatsAsJson(const ColumnStats& stats) {
  std::string json =
      "{\"column\":" + QuoteJson(stats.name) + ",\"numbers\":" + std::to_string(stats.numbers) +
      ",\"texts\":" + std::to_string(stats.texts) + ",\"empty\":" + std::to_string(stats.empty);
  if (stats.numbers > 0) {
    json += ",\"least\":" + Shortest(stats.least) + ",\"most\":" + Shortest(stats.most);
    // The sum of numbers may exceed what a number can be.
    if (std::isfinite(stats.sum)) {
      json += ",\"mean\":" + Shortest(stats.sum / static_cast<double>(stats.numbers));
    }
  }
  return json + "}";
}

}  // namespace

int RunToJson(Arguments arguments) {
  const Options options(
      arguments,
      {{"output", 'o', Takes::kValue}, {"ansi"}, {"lossy"}, kDelimiterOption, kCsvEncodingOption});
  options.ExpectPositional(0, 1);
  CsvInput input(options);
  ExpectDifferentNames(input.Header());
  const Encoding encoding = {options.Has("ansi") ? Charset::kAnsi : Charset::kUtf8, false};
  Output output(options.Value("output", "-"));
  output.Write("[");
  CsvTextRow row;
  while (input.Next(row)) {
    output.Write(input.RowsRead() == 1 ? "\n" : ",\n");
    output.Write(EncodeText(JsonOf(input.Header(), row), encoding, options.Has("lossy")));
  }
  output.Write("\n]\n");
  output.Commit();
  return kSuccess;
}

int RunStats(Arguments arguments) {
  const Options options(arguments, {{"json"}, kDelimiterOption, kCsvEncodingOption});
  options.ExpectPositional(0, 1);
  CsvInput input(options);
  std::vector<ColumnStats> columns;
  for (const std::string& name : input.Header()) columns.push_back({name});
  CsvTextRow row;
  while (input.Next(row)) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      columns[i].Add(i < row.fields.size() ? row.fields[i] : "");
    }
  }
  for (const ColumnStats& stats : columns) {
    PrintLine(options.Has("json") ? StatsAsJson(stats) : StatsAsText(stats));
  }
  return kSuccess;
}

}  // namespace qn::csv
