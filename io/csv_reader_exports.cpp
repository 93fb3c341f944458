// SPDX-License-Identifier: MIT
// What the functions on vectors stand on where each module has a standard library of its own.
#include "io/csv_reader_imp.h"

namespace {

void Store(const std::vector<CQNString>& strings, void* target, CQNString& (*append)(void*)) {
  for (const CQNString& text : strings) append(target) = text;
}

}  // namespace

bool CQNCSVFileReader::StoreFields(void* fields, CQNString& (*append)(void*)) const {
  Store(imp_->header, fields, append);
  return !imp_->header.empty();
}

bool CQNCSVFileReader::StoreNextRow(void* row, CQNString& (*append)(void*)) {
  std::vector<CQNString> strings;
  const bool is_read = imp_->ReadRow(strings);
  Store(strings, row, append);
  return is_read;
}
