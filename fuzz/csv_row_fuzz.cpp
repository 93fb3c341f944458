// SPDX-License-Identifier: MIT
// One line of a CSV file: a byte that says whether it is UTF-8, then the line.
#include "io/csv_row.h"

#include <string>
#include <vector>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool utf8 = (input.Byte() & 1) != 0;
  const std::string line = input.Text();
  if (line.empty()) return 0;

  // A buffer of the very size, so that a step beyond it shows.
  std::vector<char> buffer(line.begin(), line.end());
  buffer.push_back('\0');
  std::vector<CQNString> row;
  quarnfc::io::SplitCsvLine({buffer.data(), line.size()}, utf8, row);
  fuzz::Expect(!row.empty());
  fuzz::Expect(row.size() <= line.size() + 1);
  return 0;
}
