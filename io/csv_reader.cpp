// SPDX-License-Identifier: MIT
#include <quarnfc/csv.h>

#include <utility>

#include "io/csv_reader_imp.h"
#include "io/csv_row.h"
#include "io/messages.h"

bool CQNCSVFileReaderImp::ReadRow(std::vector<CQNString>& row) {
  if (ReadRowOver(row)) return true;
  row.clear();
  return false;
}

bool CQNCSVFileReaderImp::ReadRowOver(std::vector<CQNString>& row) {
  if (!lines.IsOpen()) {
    last_error = quarnfc::io::kCsvNotOpen;
    return false;
  }
  quarnfc::io::Line line;
  const quarnfc::io::LineStatus status = lines.Next(line);
  if (status == quarnfc::io::LineStatus::kTooLong) {
    last_error.Format(quarnfc::io::kCsvLineTooLong, static_cast<int>(lines.BufferSize()));
  }
  if (status == quarnfc::io::LineStatus::kReadFailed) {
    last_error.Format(quarnfc::io::kCsvReadFailed, static_cast<const char*>(path),
                      static_cast<int>(lines.ReadError()));
  }
  if (status != quarnfc::io::LineStatus::kLine) return false;
  quarnfc::io::SplitCsvLine(line, lines.IsUtf8(), row);
  return true;
}

CQNCSVFileReader::CQNCSVFileReader() : imp_(new CQNCSVFileReaderImp) {}

CQNCSVFileReader::~CQNCSVFileReader() {
  if (--imp_->readers == 0) delete imp_;
}

CQNCSVFileReader::CQNCSVFileReader(const CQNCSVFileReader& other) : imp_(other.imp_) {
  ++imp_->readers;
}

CQNCSVFileReader& CQNCSVFileReader::operator=(const CQNCSVFileReader& other) {
  CQNCSVFileReader copy(other);
  std::swap(imp_, copy.imp_);
  return *this;
}

bool CQNCSVFileReader::Open(const char* path) {
  if (path == nullptr) path = "";
  imp_->header.clear();
  imp_->path = path;
  if (const auto error = imp_->lines.Open(path)) {
    imp_->last_error.Format(quarnfc::io::kCsvOpenFailed, path, static_cast<int>(error));
    return false;
  }
  return GoToFirstRow();
}

bool CQNCSVFileReader::GoToFirstRow() {
  if (!imp_->lines.IsOpen()) {
    imp_->last_error = quarnfc::io::kCsvNotOpen;
    return false;
  }
  imp_->lines.Rewind();
  imp_->last_error.Empty();
  if (imp_->ReadRow(imp_->header)) return true;
  if (imp_->last_error.IsEmpty()) imp_->last_error = quarnfc::io::kCsvNoHeader;
  return false;
}

const char* CQNCSVFileReader::GetLastError() const { return imp_->last_error; }
