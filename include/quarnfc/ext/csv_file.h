// SPDX-License-Identifier: MIT
// CSV files of any name, encoding and size, row by row in constant memory: CsvTextReader
// (quarnfc/ext/csv_text.h, which has the grammar) over a file.
//
// Rows are handed out in UTF-8, whatever the file is in. The encoding is found as
// quarnfc/ext/encoded_text.h says, unless the host names it. What cannot be read ends the rows with
// an Error: a row in which the file breaks off or stops being text is not handed out.
//
// Header-only, C++17; the conversions link the library. Members throw std::bad_alloc when memory is
// exhausted. One thread at a time uses a reader.
//
// Example:
//   quarnfc::ext::CsvFileReader rows;
//   rows.Open("no such file.csv");    // == false
//   rows.Error();                     // == "the file cannot be opened"
//   quarnfc::ext::CsvTextRow row;
//   rows.Next(row);                   // == false
#ifndef QUARNFC_EXT_CSV_FILE_H_
#define QUARNFC_EXT_CSV_FILE_H_

#include <quarnfc/ext/csv_text.h>
#include <quarnfc/ext/encoded_text.h>
#include <quarnfc/ext/text_conversion.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <ios>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace quarnfc::ext {

struct CsvFileOptions {
  char delimiter = ',';
  std::optional<TextEncoding> encoding;  // found out when it is not given
  bool lossy = false;                    // U+FFFD instead of an error where the file holds no text
};

// Moves and does not copy.
class CsvFileReader {
 public:
  // Opens a file by its name in UTF-8, or in UTF-16 with a terminator: either names every file on
  // Windows, and every file whose name is UTF-8 elsewhere. The one that was open is closed. False
  // when it cannot be opened; Error says so.
  bool Open(std::string_view path, const CsvFileOptions& options = CsvFileOptions()) {
    return OpenUtf16(Utf16FromUtf8(path), options);
  }
  bool OpenW(const wchar_t* path, const CsvFileOptions& options = CsvFileOptions()) {
    return OpenUtf16(std::u16string(Utf16View(path)), options);
  }

  // The next row, the header first; false at the end, or when nothing more can be read: then there
  // is an Error, and row is empty.
  bool Next(CsvTextRow& row) {
    if (file_ != nullptr && file_->rows.Next(row) && file_->fault.empty()) return true;
    row = CsvTextRow();
    return false;
  }

  // In English, with the line or the byte; empty as long as nothing is wrong.
  std::string Error() const {
    if (file_ == nullptr) return "the file cannot be opened";
    return !file_->fault.empty() ? file_->fault : file_->rows.Error();
  }

  // How the file is stored, as far as the rows so far tell.
  TextEncoding Encoding() const {
    return file_ != nullptr ? file_->decoder.Found() : TextEncoding();
  }

 private:
  struct File {
    File(std::ifstream opened, const CsvFileOptions& options)
        : stream(std::move(opened)),
          decoder(options.encoding, options.lossy),
          rows([this] { return NextText(); }, options.delimiter) {}

    // The text of the next piece that has any; "" at the end and at a fault.
    std::string NextText() {
      std::string text;
      while (text.empty() && !ended) DecodePiece(text);
      if (text.empty()) fault = std::exchange(coming_fault, std::string());
      return text;
    }

    void DecodePiece(std::string& text) {
      std::string piece(std::size_t{64} * 1024, '\0');
      stream.read(piece.data(), static_cast<std::streamsize>(piece.size()));
      piece.resize(static_cast<std::size_t>(stream.gcount()));
      ended = !stream;
      if (stream.bad()) {
        coming_fault = "the file cannot be read";
      } else if (!decoder.Decode(piece, ended, text)) {
        ended = true;
        coming_fault = "byte " + std::to_string(decoder.ErrorOffset()) + ": there is no text";
      }
    }

    std::ifstream stream;
    TextDecoder decoder;
    bool ended = false;
    std::string coming_fault;  // behind the text that was read last
    std::string fault;
    CsvTextReader rows;
  };

  bool OpenUtf16(const std::u16string& path, const CsvFileOptions& options) {
    file_.reset();
    try {
      std::ifstream stream(std::filesystem::path(path), std::ios::binary);
      if (stream) file_ = std::make_unique<File>(std::move(stream), options);
    } catch (const std::runtime_error&) {
      // The path is no text: standard libraries throw what they like, all of it of this kind.
    }
    return file_ != nullptr;
  }

  std::unique_ptr<File> file_;
};

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_CSV_FILE_H_
