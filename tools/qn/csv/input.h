// SPDX-License-Identifier: MIT
// CSV files as the commands see them: any encoding, any size, any delimiter.
#ifndef QN_CSV_INPUT_H_
#define QN_CSV_INPUT_H_

#include <quarnfc/ext/csv_text.h>

#include <string>
#include <vector>

#include "qn/options.h"
#include "qn/text/text_stream.h"

namespace qn {

inline constexpr OptionSpec kDelimiterOption = {"delimiter", 'd', Takes::kValue};
inline constexpr OptionSpec kCsvEncodingOption = {"encoding", '\0', Takes::kValue};

// From --delimiter: one character, or "tab"; a comma without the option. Throws UsageError.
char DelimiterFrom(const Options& options);

class CsvInput {
 public:
  // Opens the first positional argument, or standard input without one, and reads the header row.
  // Throws Failure, also when there is none.
  explicit CsvInput(const Options& options);

  const std::vector<std::string>& Header() const { return header_.fields; }
  char Delimiter() const { return delimiter_; }

  // False at the end. Throws Failure when the file cannot be read on.
  bool Next(quarnfc::ext::CsvTextRow& row);

  unsigned long long RowsRead() const { return rows_read_; }

  // The number of a column given by its name in the header or, when no column has it as name, by
  // its number from 1. Throws Failure when there is none, or when several have the name.
  std::size_t Column(const std::string& name) const;

 private:
  TextStream stream_;
  char delimiter_;
  quarnfc::ext::CsvTextReader reader_;
  quarnfc::ext::CsvTextRow header_;
  unsigned long long rows_read_ = 0;
};

}  // namespace qn

#endif  // QN_CSV_INPUT_H_
