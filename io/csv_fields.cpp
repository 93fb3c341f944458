// SPDX-License-Identifier: MIT
#include "io/csv_fields.h"

#include <cstring>

#include "core/text/string_buffer.h"

namespace quarnfc::io {
namespace {

// Writes the text into the buffer of an old field, if a new string of this text had one like it.
bool WriteOver(const CQNString& field, const char* text, std::size_t length) {
  char* const buffer = const_cast<char*>(static_cast<const char*>(field));
  if (!IsLikeNew(buffer, static_cast<int>(length))) return false;
  if (length > 0) std::memcpy(buffer, text, length);
  SetStringLength(buffer, static_cast<int>(length));
  return true;
}

}  // namespace

void CsvFields::Add(const char* text, std::size_t length) {
  if (count_ == row_.size() || !WriteOver(row_[count_], text, length)) {
    DropRest();
    row_.emplace_back(text, static_cast<int>(length));
  }
  ++count_;
}

void CsvFields::Add(const CQNString& text) {
  Add(text, static_cast<std::size_t>(text.GetLength()));
}

}  // namespace quarnfc::io
