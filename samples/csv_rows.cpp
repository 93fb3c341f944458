// SPDX-License-Identifier: MIT
// The rows of a CSV file: prints how many there are and the longest of its first fields.
#include <quarnfc/quarnfc.h>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  CQNCSVFileReader reader;
  if (!reader.Open(argv[1])) {
    std::printf("%s\n", reader.GetLastError());
    return 1;
  }
  std::vector<CQNString> header;
  reader.GetFields(header);

  std::vector<CQNString> row;
  CQNString longest;
  int rows = 0;
  while (reader.NextRow(row)) {
    ++rows;
    if (row[0].GetLength() > longest.GetLength()) longest = row[0];
  }
  std::printf("%d rows of %d columns; the longest %s is %s\n", rows,
              static_cast<int>(header.size()), static_cast<const char*>(header[0]),
              static_cast<const char*>(longest));
  return rows > 0 ? 0 : 1;
}
