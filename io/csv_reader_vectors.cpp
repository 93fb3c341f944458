// SPDX-License-Identifier: MIT
// The functions on vectors, where host and library share the standard library.
#include "io/csv_reader_imp.h"

bool CQNCSVFileReader::GetFields(std::vector<CQNString>& fields) const {
  fields = imp_->header;
  return !fields.empty();
}

bool CQNCSVFileReader::NextRow(std::vector<CQNString>& row) { return imp_->ReadRow(row); }
