// SPDX-License-Identifier: MIT
#include <quarnfc/c/csv_text.h>
#include <quarnfc/ext/csv_text.h>
#include <quarnfc/ext/encoded_text.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "c/csv_fields.h"
#include "c/encoding.h"
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
using quarnfc::c::NamedEncoding;
using quarnfc::c::NewText;
using quarnfc::c::Path;
using quarnfc::ext::CsvTextReader;
using quarnfc::ext::CsvTextRow;
using quarnfc::ext::TextDecoder;
using quarnfc::ext::TextEncoding;
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
    return std::exchange(is_first_, false) ? WithoutMark(Read()) : Read();
  }

  // The next piece with its mark; an empty one is the end.
  std::string Read() {
    std::string piece(kPieceSize, '\0');
    const auto read = file_->Read(piece.data(), piece.size());
    if (read.error != quarnfc::platform::kNoError) {
      throw Failure(QNC_ERROR_FILE, "Quarn: the file cannot be read");
    }
    piece.resize(read.count);
    return piece;
  }

 private:
  std::shared_ptr<File> file_;
  bool is_first_ = true;
};

// Gives the text of a file in UTF-8. The rows in front of a byte that is no text are still read.
class DecodedSource {
 public:
  DecodedSource(const char* path, std::optional<TextEncoding> encoding)
      : file_(path), decoder_(encoding) {}

  std::string operator()() {
    std::string text;
    while (text.empty() && !ended_) DecodePiece(text);
    if (text.empty() && !is_text_) {
      const std::string offset = std::to_string(decoder_.ErrorOffset());
      throw Failure(QNC_ERROR_INVALID_DATA,
                    ("Quarn: byte " + offset + ": there is no text").c_str());
    }
    return text;
  }

 private:
  void DecodePiece(std::string& text) {
    const std::string piece = file_.Read();
    is_text_ = decoder_.Decode(piece, piece.empty(), text);
    ended_ = piece.empty() || !is_text_;
  }

  FileSource file_;
  TextDecoder decoder_;
  bool is_text_ = true;
  bool ended_ = false;
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

// Of a row that could not be read whole nothing is left.
bool Read(QncCsvText& csv) {
  try {
    if (csv.reader.Next(csv.row)) return true;
  } catch (...) {
    csv.row = CsvTextRow();
    throw;
  }
  csv.row = CsvTextRow();
  return false;
}

int NextRow(QncCsvText& csv) {
  if (Read(csv)) return 1;
  if (csv.reader.Error().empty()) return 0;
  throw Failure(QNC_ERROR_INVALID_DATA, ("Quarn: " + csv.reader.Error()).c_str());
}

}  // namespace

QncCsvText* qncCsvTextOpen(const char* path, char delimiter, CQNObject** error) {
  return GuardedNew(error, [=] {
    return new QncCsvText(FileSource(Path(path).get()), CheckedDelimiter(delimiter));
  });
}

QncCsvText* qncCsvTextOpenEncoded(const char* path, char delimiter, int encoding,
                                  CQNObject** error) {
  return GuardedNew(error, [=] {
    const auto named = NamedEncoding(encoding);
    return new QncCsvText(DecodedSource(Path(path).get(), named), CheckedDelimiter(delimiter));
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
