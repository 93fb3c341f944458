// SPDX-License-Identifier: MIT
#include "qn/csv/input.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "qn/errors.h"

namespace qn {
namespace {

std::string PathFrom(const Options& options) {
  return options.Positional().empty() ? "-" : options.Positional()[0];
}

std::optional<Encoding> EncodingOf(const Options& options) {
  if (!options.Has("encoding")) return std::nullopt;
  return EncodingFromName(options.Value("encoding"));
}

}  // namespace

char DelimiterFrom(const Options& options) {
  const std::string delimiter = options.Value("delimiter", ",");
  if (delimiter == "tab" || delimiter == "\\t") return '\t';
  if (delimiter.size() != 1 || delimiter == "\"" || delimiter == "\n") {
    throw UsageError("--delimiter takes one character, or tab");
  }
  return delimiter[0];
}

CsvInput::CsvInput(const Options& options)
    : stream_(PathFrom(options), EncodingOf(options)),
      delimiter_(DelimiterFrom(options)),
      reader_([this] { return stream_.Next(); }, delimiter_) {
  if (reader_.Next(header_)) return;
  throw Failure(reader_.Error().empty() ? "the file has no header row" : reader_.Error());
}

bool CsvInput::Next(quarnfc::ext::CsvTextRow& row) {
  if (!reader_.Next(row)) {
    if (!reader_.Error().empty()) throw Failure(reader_.Error());
    return false;
  }
  ++rows_read_;
  return true;
}

std::size_t CsvInput::Column(const std::string& name) const {
  const std::vector<std::string>& names = header_.fields;
  const auto found = std::find(names.begin(), names.end(), name);
  if (found != names.end()) {
    if (std::find(found + 1, names.end(), name) != names.end()) {
      throw Failure("several columns are called '" + name + "'");
    }
    return static_cast<std::size_t>(found - names.begin());
  }
  std::size_t number = 0;
  const char* const end = name.data() + name.size();
  const auto result = std::from_chars(name.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || number < 1 || number > names.size()) {
    throw Failure("there is no column '" + name + "'");
  }
  return number - 1;
}

}  // namespace qn
