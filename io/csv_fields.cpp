// SPDX-License-Identifier: MIT
#include "io/csv_fields.h"

#include <cstdint>
#include <cstring>

#include "core/text/string_buffer.h"

namespace quarnfc::io {
namespace {

// Most fields are so short that a call of memcpy costs more than the copying: two words that may
// overlap copy 8 to 16 bytes.
void CopyShort(char* to, const char* from, std::size_t length) {
  if (length < 8 || length > 16) {
    if (length > 0) std::memcpy(to, from, length);
    return;
  }
  std::uint64_t first, last;
  std::memcpy(&first, from, 8);
  std::memcpy(&last, from + length - 8, 8);
  std::memcpy(to, &first, 8);
  std::memcpy(to + length - 8, &last, 8);
}

// Writes the text into the buffer of an old field, if a new string of this text had one like it.
bool WriteOver(const CQNString& field, const char* text, std::size_t length) {
  char* const buffer = const_cast<char*>(static_cast<const char*>(field));
  if (!IsLikeNew(buffer, static_cast<int>(length))) return false;
  CopyShort(buffer, text, length);
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
