// SPDX-License-Identifier: MIT
// qn csv head, columns, count, select and filter.
#include <quarnfc/ext/csv_text.h>

#include <charconv>
#include <optional>

#include "qn/console.h"
#include "qn/csv/commands.h"
#include "qn/csv/input.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/output.h"

namespace qn::csv {
namespace {

using quarnfc::ext::CsvTextRow;
using quarnfc::ext::WriteCsvRow;

using Fields = std::vector<std::string>;

// Writes rows as text on standard output, or as UTF-8 into a file.
class RowWriter {
 public:
  RowWriter(const Options& options, char delimiter) : delimiter_(delimiter) {
    if (options.Has("output")) output_.emplace(options.Value("output"));
  }

  void Write(const Fields& fields) {
    const std::string line = WriteCsvRow(fields, delimiter_) + "\n";
    output_ ? output_->Write(line) : Print(line);
  }

  void Commit() {
    if (output_) output_->Commit();
  }

 private:
  const char delimiter_;
  std::optional<Output> output_;
};

constexpr OptionSpec kOutput = {"output", 'o', Takes::kValue};

// --- filter -------------------------------------------------------------------------------------

enum class Relation { kEqual, kUnequal, kLess, kAtMost, kGreater, kAtLeast, kHolds };

struct Operator {
  std::string_view sign;
  Relation relation;
};

// Longer ones first.
constexpr Operator kOperators[] = {
    {"!=", Relation::kUnequal}, {"<=", Relation::kAtMost}, {">=", Relation::kAtLeast},
    {"=", Relation::kEqual},    {"<", Relation::kLess},    {">", Relation::kGreater},
    {"~", Relation::kHolds},
};

bool IsNumber(const std::string& text, double& number) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return !text.empty() && result.ec == std::errc() && result.ptr == end;
}

class Condition {
 public:
  Condition(const std::string& text, const CsvInput& input) {
    const std::size_t at = text.find_first_of("!<>=~", 1);
    for (const Operator& each : kOperators) {
      if (at == std::string::npos || text.compare(at, each.sign.size(), each.sign) != 0) continue;
      column_ = input.Column(text.substr(0, at));
      relation_ = each.relation;
      value_ = text.substr(at + each.sign.size());
      break;
    }
    if (column_ == kNone) {
      throw UsageError("'" + DisplayText(text) + "' is no condition; write COLUMN=VALUE");
    }
    const bool numeric = IsNumber(value_, number_);
    const bool ordered = relation_ != Relation::kEqual && relation_ != Relation::kUnequal &&
                         relation_ != Relation::kHolds;
    if (ordered && !numeric) throw UsageError("'" + DisplayText(value_) + "' is no number");
  }

  bool Fits(const Fields& fields) const {
    const std::string field = column_ < fields.size() ? fields[column_] : "";
    switch (relation_) {
      case Relation::kEqual:
        return field == value_;
      case Relation::kUnequal:
        return field != value_;
      case Relation::kHolds:
        return field.find(value_) != std::string::npos;
      default:
        return FitsAsNumber(field);
    }
  }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // What is no number is neither less nor greater.
  bool FitsAsNumber(const std::string& field) const {
    double number = 0;
    if (!IsNumber(field, number)) return false;
    if (relation_ == Relation::kLess) return number < number_;
    if (relation_ == Relation::kAtMost) return number <= number_;
    if (relation_ == Relation::kGreater) return number > number_;
    return number >= number_;
  }

  std::size_t column_ = kNone;
  Relation relation_ = Relation::kEqual;
  std::string value_;
  double number_ = 0;
};

}  // namespace

int RunHead(Arguments arguments) {
  const Options options(arguments,
                        {{"rows", 'n', Takes::kValue}, kDelimiterOption, kCsvEncodingOption});
  options.ExpectPositional(0, 1);
  const long long rows = options.Number("rows", 10, 0, 1'000'000'000'000);
  CsvInput input(options);
  RowWriter writer(options, input.Delimiter());
  writer.Write(input.Header());
  CsvTextRow row;
  for (long long i = 0; i < rows && input.Next(row); ++i) writer.Write(row.fields);
  return kSuccess;
}

int RunColumns(Arguments arguments) {
  const Options options(arguments, {kDelimiterOption, kCsvEncodingOption});
  options.ExpectPositional(0, 1);
  const CsvInput input(options);
  for (const std::string& name : input.Header()) PrintLine(name);
  return kSuccess;
}

int RunCount(Arguments arguments) {
  const Options options(arguments, {kDelimiterOption, kCsvEncodingOption});
  options.ExpectPositional(0, 1);
  CsvInput input(options);
  CsvTextRow row;
  while (input.Next(row)) {
  }
  PrintLine(std::to_string(input.RowsRead()));
  return kSuccess;
}

int RunSelect(Arguments arguments) {
  const Options options(
      arguments, {{"column", 'c', Takes::kValues}, kDelimiterOption, kCsvEncodingOption, kOutput});
  options.ExpectPositional(0, 1);
  if (!options.Has("column")) throw UsageError("--column is needed");
  CsvInput input(options);
  std::vector<std::size_t> columns;
  for (const std::string& name : options.Values("column")) columns.push_back(input.Column(name));
  RowWriter writer(options, input.Delimiter());
  const auto write = [&](const Fields& fields) {
    Fields selected;
    for (const std::size_t column : columns) {
      selected.push_back(column < fields.size() ? fields[column] : "");
    }
    writer.Write(selected);
  };
  write(input.Header());
  CsvTextRow row;
  while (input.Next(row)) write(row.fields);
  writer.Commit();
  return kSuccess;
}

int RunFilter(Arguments arguments) {
  const Options options(
      arguments, {{"where", 'w', Takes::kValues}, kDelimiterOption, kCsvEncodingOption, kOutput});
  options.ExpectPositional(0, 1);
  if (!options.Has("where")) throw UsageError("--where is needed");
  CsvInput input(options);
  std::vector<Condition> conditions;
  for (const std::string& text : options.Values("where")) conditions.emplace_back(text, input);
  RowWriter writer(options, input.Delimiter());
  writer.Write(input.Header());
  CsvTextRow row;
  while (input.Next(row)) {
    bool fits = true;
    for (const Condition& condition : conditions) fits = fits && condition.Fits(row.fields);
    if (fits) writer.Write(row.fields);
  }
  writer.Commit();
  return kSuccess;
}

}  // namespace qn::csv
