// SPDX-License-Identifier: MIT
// The private record of CQNCSVFileReader.
#ifndef QUARNFC_IO_CSV_READER_IMP_H_
#define QUARNFC_IO_CSV_READER_IMP_H_

#include <quarnfc/csv.h>
#include <quarnfc/qn_string.h>

#include <vector>

#include "io/line_source.h"

// What all copies of a reader share.
struct CQNCSVFileReaderImp {
  // Reads the next row in place of what row holds; a failure leaves it empty.
  bool ReadRow(std::vector<CQNString>& row);

  quarnfc::io::LineSource lines;
  CQNString path;
  CQNString last_error;
  std::vector<CQNString> header;
  int readers = 1;

 private:
  bool ReadRowOver(std::vector<CQNString>& row);
};

#endif  // QUARNFC_IO_CSV_READER_IMP_H_
