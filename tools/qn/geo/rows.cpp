// SPDX-License-Identifier: MIT
#include "qn/geo/rows.h"

#include <quarnfc/ext/csv_text.h>
#include <quarnfc/ext/json_text_edit.h>

#include <algorithm>
#include <span>
#include <string_view>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"

namespace qn {
namespace {

using quarnfc::ext::CsvTextReader;
using quarnfc::ext::CsvTextRow;
using quarnfc::ext::QuoteJson;

// The usual names of the two columns, in lower case.
constexpr std::string_view kXNames[] = {"longitude", "lon", "lng", "easting", "east"};
constexpr std::string_view kYNames[] = {"latitude", "lat", "northing", "north"};
constexpr std::string_view kX[] = {"x"};
constexpr std::string_view kY[] = {"y"};

char Lower(char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch; }

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The first column that bears one of the names.
std::optional<std::size_t> FindColumn(const std::vector<std::string>& header,
                                      std::span<const std::string_view> names) {
  for (const std::string_view name : names) {
    for (std::size_t i = 0; i < header.size(); ++i) {
      if (SameName(Trim(header[i]), name)) return i;
    }
  }
  return std::nullopt;
}

struct ColumnPair {
  std::size_t x;
  std::size_t y;
};

std::size_t NamedColumn(const std::vector<std::string>& header, const std::string& name,
                        const char* option) {
  const std::string_view names[] = {name};
  const auto column = FindColumn(header, names);
  if (!column) throw Failure("the header has no column '" + name + "', which " + option + " names");
  return *column;
}

// Some call the north-south axis X, so that columns of that name say nothing alone.
ColumnPair ColumnsByLetter(const std::vector<std::string>& header, std::optional<AxisOrder> order) {
  const auto x = FindColumn(header, kX);
  const auto y = FindColumn(header, kY);
  if (!x || !y) throw Failure("the header has no columns for points; name them with --x and --y");
  if (!order) {
    throw Failure(
        "the columns are called x and y, which mean east and north to some and the"
        " reverse to others: say --order en, or ne where x is north");
  }
  return *order == AxisOrder::kEastNorth ? ColumnPair{*x, *y} : ColumnPair{*y, *x};
}

ColumnPair FindColumns(const std::vector<std::string>& header, const CsvColumns& columns,
                       std::optional<AxisOrder> order) {
  if (columns.x.empty() != columns.y.empty()) throw UsageError("give both --x and --y");
  if (!columns.x.empty()) {
    return {NamedColumn(header, columns.x, "--x"), NamedColumn(header, columns.y, "--y")};
  }
  const auto x = FindColumn(header, kXNames);
  const auto y = FindColumn(header, kYNames);
  return x && y ? ColumnPair{*x, *y} : ColumnsByLetter(header, order);
}

AxisOrder OrderOf(const PointFormat& format) {
  return format.order.value_or(AxisOrder::kEastNorth);
}

std::string AddedHeader(const PointFormat& format, char delimiter) {
  const char* const east = format.degrees_out ? "to_longitude" : "to_easting";
  const char* const north = format.degrees_out ? "to_latitude" : "to_northing";
  const bool east_first = OrderOf(format) == AxisOrder::kEastNorth;
  return std::string(1, delimiter) + (east_first ? east : north) + delimiter +
         (east_first ? north : east);
}

Point PointOf(std::string_view x, std::string_view y, bool degrees) {
  Point point;
  if (!ReadCoordinate(x, degrees, point.x) || !ReadCoordinate(y, degrees, point.y)) {
    throw Failure("no coordinates");
  }
  return point;
}

std::string ConvertedRow(const CsvTextRow& row, const ColumnPair& columns, char delimiter,
                         const PointFormat& format, const PointConversion& convert, BadRows& bad) {
  const std::string none(2, delimiter);
  if (std::max(columns.x, columns.y) >= row.fields.size()) {
    bad.Add(row.line, "the row is too short");
    return none;
  }
  try {
    const Point point = PointOf(row.fields[columns.x], row.fields[columns.y], format.degrees_in);
    return delimiter + FormatPoint(convert(point), format.decimals, OrderOf(format), delimiter);
  } catch (const Failure& failure) {
    bad.Add(row.line, failure.what());
    return none;
  }
}

// Takes a word off the front of a line, with the blanks or the comma behind it.
std::string_view TakeWord(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  const std::size_t end = std::min(line.find_first_of(" \t,"), line.size());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(end);
  const std::string_view rest = Trim(line);
  if (rest.starts_with(',')) line = rest.substr(1);
  return word;
}

std::string JsonLine(std::size_t number, const std::string& members) {
  return "{\"line\":" + std::to_string(number) + "," + members + "}\n";
}

std::string PointLine(const Point& point, std::size_t number, std::string_view rest,
                      const PointFormat& format) {
  if (format.json) {
    const std::string text = std::string(Trim(rest));
    return JsonLine(number, PointMembers(point, format.decimals, format.degrees_out) +
                                (text.empty() ? "" : ",\"rest\":" + QuoteJson(text)));
  }
  const char* const gap = rest.empty() || rest[0] == ' ' || rest[0] == '\t' ? "" : "\t";
  return FormatPoint(point, format.decimals, OrderOf(format), '\t') + gap + std::string(rest) +
         "\n";
}

// The line that comes out for one that goes in, with its end; "" for none.
std::string ConvertedLine(std::string_view line, std::size_t number, const PointFormat& format,
                          const PointConversion& convert, BadRows& bad) {
  if (Trim(line).empty() || Trim(line).starts_with('#')) {
    return format.json ? "" : std::string(line) + "\n";
  }
  std::string_view rest = line;
  const std::string_view first = TakeWord(rest);
  const std::string_view second = TakeWord(rest);
  const bool east_first = OrderOf(format) == AxisOrder::kEastNorth;
  try {
    const Point point = convert(
        PointOf(east_first ? first : second, east_first ? second : first, format.degrees_in));
    return PointLine(point, number, rest, format);
  } catch (const Failure& failure) {
    bad.Add(number, failure.what());
    return format.json ? JsonLine(number, "\"error\":" + QuoteJson(failure.what()))
                       : "*\t*\t" + std::string(line) + "\n";
  }
}

}  // namespace

void BadRows::Add(std::size_t line, const std::string& why) {
  constexpr std::size_t kMostReported = 20;
  const std::string message = "line " + std::to_string(line) + ": " + why;
  if (strict_) throw Failure(message);
  if (++count_ <= kMostReported) PrintError(message);
}

int BadRows::Finish() const {
  if (count_ == 0) return kSuccess;
  PrintError(std::to_string(count_) + (count_ == 1 ? " row was" : " rows were") + " not converted");
  return kFailure;
}

void ConvertCsv(TextStream& input, Output& output, const CsvColumns& columns,
                const PointFormat& format, const PointConversion& convert, BadRows& bad) {
  CsvTextReader reader([&] { return input.Next(); }, columns.delimiter);
  CsvTextRow row;
  if (!reader.Next(row)) {
    throw Failure(reader.Error().empty() ? "the file has no header row" : reader.Error());
  }
  const ColumnPair pair = FindColumns(row.fields, columns, format.order);
  output.Write(MarkOf(input.Found()));
  std::string text = row.source + AddedHeader(format, columns.delimiter) + "\n";
  while (reader.Next(row)) {
    text += row.source + ConvertedRow(row, pair, columns.delimiter, format, convert, bad) + "\n";
    if (text.size() < 64 * 1024) continue;
    output.Write(EncodeText(text, input.Found(), false));
    text.clear();
  }
  output.Write(EncodeText(text, input.Found(), false));
  if (!reader.Error().empty()) throw Failure(reader.Error());
}

void ConvertLines(TextStream& input, Output& output, const PointFormat& format,
                  const PointConversion& convert, BadRows& bad) {
  std::string pending;
  std::size_t number = 0;
  for (bool more = true; more;) {
    std::string piece = input.Next();
    more = !piece.empty();
    // The last line may lack its end.
    if (!more && !pending.empty()) piece.assign(1, '\n');
    pending += piece;
    std::string text;
    std::size_t begin = 0;
    for (std::size_t end = pending.find('\n'); end != std::string::npos;
         end = pending.find('\n', begin)) {
      std::string_view line = std::string_view(pending).substr(begin, end - begin);
      if (line.ends_with('\r')) line.remove_suffix(1);
      text += ConvertedLine(line, ++number, format, convert, bad);
      begin = end + 1;
    }
    pending.erase(0, begin);
    output.Write(format.json ? text : EncodeText(text, input.Found(), false));
  }
}

}  // namespace qn
