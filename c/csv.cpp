// SPDX-License-Identifier: MIT
#include <quarnfc/c/csv.h>
#include <quarnfc/csv.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "c/csv_fields.h"
#include "c/guarded.h"
#include "c/path.h"
#include "c/text.h"

// A reader with its file, its header and the row last read.
struct QncCsv {
  explicit QncCsv(const char* utf8_path) : path(utf8_path) {}

  quarnfc::c::Path path;
  CQNCSVFileReader reader;
  std::vector<CQNString> header;
  std::vector<CQNString> row;
};

namespace {

using quarnfc::c::AnsiText;
using quarnfc::c::Failure;
using quarnfc::c::FieldIndex;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewUtf8;

// The string at index; null when there is none.
const CQNString* At(const std::vector<CQNString>& strings, int index) {
  const bool is_there = index >= 0 && static_cast<std::size_t>(index) < strings.size();
  return is_there ? &strings[static_cast<std::size_t>(index)] : nullptr;
}

char* NewUtf8At(const std::vector<CQNString>& strings, int index) {
  const CQNString* text = At(strings, index);
  return text == nullptr ? nullptr : NewUtf8(*text);
}

Failure ReaderFailure(const QncCsv& csv, int code) {
  return Failure(code, csv.path.InMessage(csv.reader.GetLastError()).c_str());
}

QncCsv* Open(const char* path) {
  auto csv = std::make_unique<QncCsv>(path);
  if (!csv->reader.Open(csv->path.get())) throw ReaderFailure(*csv, QNC_ERROR_FILE);
  csv->reader.GetFields(csv->header);
  return csv.release();
}

// The end of the file leaves no message.
int NextRow(QncCsv& csv) {
  if (csv.reader.NextRow(csv.row)) return 1;
  if (csv.reader.GetLastError()[0] == '\0') return 0;
  throw ReaderFailure(csv, QNC_ERROR_INVALID_DATA);
}

}  // namespace

QncCsv* qncCsvOpen(const char* path, CQNObject** error) {
  return GuardedNew(error, [=] { return Open(path); });
}

void qncCsvClose(QncCsv* csv) { delete csv; }

int qncCsvHeaderCount(const QncCsv* csv) {
  return csv == nullptr ? 0 : static_cast<int>(csv->header.size());
}

char* qncCsvHeader(const QncCsv* csv, int index, CQNObject** error) {
  return GuardedNew(error, [=] { return NewUtf8At(Given(csv)->header, index); });
}

int qncCsvHeaderIndex(const QncCsv* csv, const char* name, CQNObject** error) {
  return Guarded(error, -1, [=] { return FieldIndex(Given(csv)->header, AnsiText(name).get()); });
}

int qncCsvNextRow(QncCsv* csv, CQNObject** error) {
  return Guarded(error, -1, [=] { return NextRow(*Given(csv)); });
}

int qncCsvCount(const QncCsv* csv) {
  return csv == nullptr ? 0 : static_cast<int>(csv->row.size());
}

char* qncCsvText(const QncCsv* csv, int index, CQNObject** error) {
  return GuardedNew(error, [=] { return NewUtf8At(Given(csv)->row, index); });
}

char* qncCsvTextA(const QncCsv* csv, int index, CQNObject** error) {
  return GuardedNew(error, [=]() -> char* {
    const CQNString* text = At(Given(csv)->row, index);
    return text == nullptr ? nullptr : text->AllocANSIString();
  });
}

int qncCsvRewind(QncCsv* csv, CQNObject** error) {
  return Guarded(error, 0, [=] {
    Given(csv)->row.clear();
    if (!csv->reader.GoToFirstRow()) throw ReaderFailure(*csv, QNC_ERROR_FILE);
    return 1;
  });
}
