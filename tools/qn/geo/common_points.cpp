// SPDX-License-Identifier: MIT
#include "qn/geo/common_points.h"

#include <algorithm>

#include "qn/errors.h"
#include "qn/geo/point.h"

namespace qn {
namespace {

std::vector<std::string_view> FieldsOf(std::string_view line) {
  constexpr std::string_view kSeparators = " \t\r,;";
  std::vector<std::string_view> fields;
  while (true) {
    line.remove_prefix(std::min(line.find_first_not_of(kSeparators), line.size()));
    if (line.empty()) return fields;
    const std::size_t length = std::min(line.find_first_of(kSeparators), line.size());
    fields.push_back(line.substr(0, length));
    line.remove_prefix(length);
  }
}

bool IsHeader(const std::vector<std::string_view>& fields) {
  double ignored = 0;
  return std::none_of(fields.begin(), fields.end(),
                      [&](std::string_view field) { return ReadNumber(field, ignored); });
}

// False when the fields are no point. A name may be a number, too: the count of fields tells.
bool ReadRow(const std::vector<std::string_view>& fields, CommonPointRow& row) {
  const bool named = fields.size() == 5 || fields.size() == 7;
  if (!named && fields.size() != 4 && fields.size() != 6) return false;
  if (named) row.name = fields[0];
  for (std::size_t i = named ? 1 : 0; i < fields.size(); ++i) {
    row.numbers.emplace_back();
    if (!ReadNumber(fields[i], row.numbers.back())) return false;
  }
  return true;
}

}  // namespace

std::vector<CommonPointRow> ReadCommonPoints(std::string_view text, const std::string& file) {
  std::vector<CommonPointRow> rows;
  bool first = true;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::vector<std::string_view> fields = FieldsOf(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (fields.empty() || fields[0].starts_with('#')) continue;
    const bool header = first && IsHeader(fields);
    first = false;
    if (header) continue;
    CommonPointRow row = {std::to_string(number), {}};
    const std::string place = file + ":" + std::to_string(number) + ": ";
    if (!ReadRow(fields, row)) {
      throw Failure(place + "no point in two systems; write [NAME] X Y X' Y' or with Z and Z'");
    }
    if (!rows.empty() && rows[0].numbers.size() != row.numbers.size()) {
      throw Failure(place + "the points in front have another number of coordinates");
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace qn
