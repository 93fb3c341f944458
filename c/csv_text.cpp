// SPDX-License-Identifier: MIT
#include <quarnfc/c/csv_text.h>
#include <quarnfc/ext/csv_text.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "c/csv_fields.h"
#include "c/guarded.h"
#include "c/path.h"
#include "c/text.h"
#include "core/text/utf8_mark.h"
#include "platform/file.h"

namespace {

using quarnfc::c::Failure;
using quarnfc::c::FieldIndex;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewText;
using quarnfc::c::Path;
using quarnfc::ext::CsvTextReader;
using quarnfc::ext::CsvTextRow;
using quarnfc::platform::File;
using quarnfc::platform::FileMode;

constexpr std::size_t kPieceSize = 64 * 1024;

// The text without the mark of UTF-8.
std::string WithoutMark(std::string text) {
  if (text.starts_with(quarnfc::kUtf8Mark)) text.erase(0, quarnfc::kUtf8Mark.size());
  return text;
}

// Gives a text once.
class MemorySource {
 public:
  explicit MemorySource(std::string_view text) : text_(WithoutMark(std::string(text))) {}
  std::string operator()() { return std::exchange(text_, std::string()); }

 private:
  std::string text_;
};

// Gives a file piece by piece; it is shared because a source is copied.
class FileSource {
 public:
  explicit FileSource(const char* path) : file_(std::make_shared<File>()) {
    if (file_->Open(path, FileMode::kRead) != quarnfc::platform::kNoError) {
      throw Failure(QNC_ERROR_FILE, "Quarn: the file cannot be opened");
    }
  }

  std::string operator()() {
    std::string piece(kPieceSize, '\0');
    const auto read = file_->Read(piece.data(), piece.size());
    if (read.error != quarnfc::platform::kNoError) {
      throw Failure(QNC_ERROR_FILE, "Quarn: the file cannot be read");
    }
    piece.resize(read.count);
    return std::exchange(is_first_, false) ? WithoutMark(std::move(piece)) : piece;
  }

 private:
  std::shared_ptr<File> file_;
  bool is_first_ = true;
};

}  // namespace

// A reader with the row last read.
struct QncCsvText {
  QncCsvText(CsvTextReader::Source source, char delimiter) : reader(std::move(source), delimiter) {}

  CsvTextReader reader;
  CsvTextRow row;
};

namespace {

// Neither bytes that the grammar uses otherwise nor the terminator separate fields.
char CheckedDelimiter(char delimiter) {
  if (std::string_view("\"\r\n ", 4).find(delimiter) == std::string_view::npos &&
      delimiter != '\0') {
    return delimiter;
  }
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: this byte cannot separate fields");
}

int NextRow(QncCsvText& csv) {
  if (csv.reader.Next(csv.row)) return 1;
  csv.row = CsvTextRow();
  if (csv.reader.Error().empty()) return 0;
  throw Failure(QNC_ERROR_INVALID_DATA, ("Quarn: " + csv.reader.Error()).c_str());
}

}  // namespace

QncCsvText* qncCsvTextOpen(const char* path, char delimiter, CQNObject** error) {
  return GuardedNew(error, [=] {
    return new QncCsvText(FileSource(Path(path).get()), CheckedDelimiter(delimiter));
  });
}

QncCsvText* qncCsvTextFromMemory(const char* text, size_t size, char delimiter, CQNObject** error) {
  return GuardedNew(error, [=] {
    return new QncCsvText(MemorySource({Given(text), size}), CheckedDelimiter(delimiter));
  });
}

void qncCsvTextClose(QncCsvText* csv) { delete csv; }

int qncCsvTextNextRow(QncCsvText* csv, CQNObject** error) {
  return Guarded(error, -1, [=] { return NextRow(*Given(csv)); });
}

size_t qncCsvTextLine(const QncCsvText* csv) { return csv == nullptr ? 0 : csv->row.line; }

int qncCsvTextCount(const QncCsvText* csv) {
  return csv == nullptr ? 0 : static_cast<int>(csv->row.fields.size());
}

const char* qncCsvTextField(const QncCsvText* csv, int index, size_t* size) {
  if (csv == nullptr || index < 0 || index >= qncCsvTextCount(csv)) return nullptr;
  const std::string& field = csv->row.fields[static_cast<std::size_t>(index)];
  if (size != nullptr) *size = field.size();
  return field.c_str();
}

int qncCsvTextFieldIndex(const QncCsvText* csv, const char* name, CQNObject** error) {
  return Guarded(error, -1, [=] { return FieldIndex(Given(csv)->row.fields, Given(name)); });
}

char* qncCsvTextWriteRow(const char* const* fields, size_t count, char delimiter,
                         CQNObject** error) {
  return GuardedNew(error, [=] {
    std::vector<std::string> row;
    for (size_t i = 0; i < count; ++i) row.emplace_back(Given(Given(fields)[i]));
    return NewText(quarnfc::ext::WriteCsvRow(row, CheckedDelimiter(delimiter)));
  });
}
