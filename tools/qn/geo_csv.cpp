#include "geo_csv.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <vector>

#include "errors.h"

namespace qn {
namespace {

// The usual names of the two columns, in lower case.
constexpr std::string_view kXNames[] = {"longitude", "lon", "lng", "easting", "east", "x"};
constexpr std::string_view kYNames[] = {"latitude", "lat", "northing", "north", "y"};

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The field at the start of row, which is cut off with its comma. Quotes protect commas and are
// removed when they surround the whole field.
std::string_view TakeField(std::string_view& row) {
  bool quoted = false;
  std::size_t end = 0;
  for (; end < row.size() && (quoted || row[end] != ','); ++end) quoted ^= row[end] == '"';
  std::string_view field = Trim(row.substr(0, end));
  row.remove_prefix(std::min(end + 1, row.size()));
  if (field.size() >= 2 && field.front() == '"' && field.back() == '"') {
    field = field.substr(1, field.size() - 2);
  }
  return field;
}

std::vector<std::string_view> Fields(std::string_view row) {
  std::vector<std::string_view> fields;
  while (!row.empty()) fields.push_back(TakeField(row));
  return fields;
}

char Lower(char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch; }

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

// The column called wanted or, without a wish, the first that bears one of the usual names.
std::size_t FindColumn(const std::vector<std::string_view>& header, std::string_view wanted,
                       std::span<const std::string_view> usual, const char* option) {
  if (!wanted.empty()) usual = std::span(&wanted, 1);
  for (const std::string_view name : usual) {
    const auto field = std::find_if(header.begin(), header.end(),
                                    [&](std::string_view each) { return SameName(each, name); });
    if (field != header.end()) return static_cast<std::size_t>(field - header.begin());
  }
  throw Failure(std::string("the header has no such column; name it with ") + option);
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

Point ReadPoint(std::string_view line, std::size_t x_column, std::size_t y_column, int number) {
  const std::vector<std::string_view> fields = Fields(line);
  Point point;
  if (std::max(x_column, y_column) >= fields.size() || !ReadNumber(fields[x_column], point.x) ||
      !ReadNumber(fields[y_column], point.y)) {
    throw Failure("line " + std::to_string(number) + " has no coordinates");
  }
  return point;
}

}  // namespace

bool ReadNumber(std::string_view text, double& number) {
  text = Trim(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

std::string FormatPoint(const Point& point, int decimals) {
  std::string text;
  for (const double value : {point.x, point.y}) {
    char digits[400];
    const auto result =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    if (!text.empty()) text += ',';
    text.append(digits, result.ptr);
  }
  return text;
}

std::string ConvertCsv(std::string_view csv, const CsvColumns& columns, int decimals,
                       std::string_view added_header, const PointConversion& convert) {
  const std::string_view mark = csv.starts_with("\xEF\xBB\xBF") ? csv.substr(0, 3) : "";
  std::string result(mark);
  csv.remove_prefix(mark.size());
  const std::string_view header_line = TakeLine(csv);
  const std::vector<std::string_view> header = Fields(header_line);
  const std::size_t x_column = FindColumn(header, columns.x, kXNames, "--x");
  const std::size_t y_column = FindColumn(header, columns.y, kYNames, "--y");
  result.append(header_line).append(",").append(added_header).append("\n");
  for (int number = 2; !csv.empty(); ++number) {
    const std::string_view line = TakeLine(csv);
    if (Trim(line).empty()) continue;
    const Point point = ReadPoint(line, x_column, y_column, number);
    result.append(line).append(",").append(FormatPoint(convert(point), decimals)).append("\n");
  }
  return result;
}

}  // namespace qn
