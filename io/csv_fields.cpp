// SPDX-License-Identifier: MIT
#include "io/csv_fields.h"

#include <cstring>

#include "core/text/string_buffer.h"
#include "io/line_source.h"

namespace quarnfc::io {
namespace {

// Writes the text into the buffer of an old field, if a new string of this text had one like it.
// Most fields are so short that a call of memcpy costs more than the copying: as many bytes as may
// be read are copied, and a buffer that is not empty holds as many.
bool WriteOver(const CQNString& field, const char* text, std::size_t length) {
  char* const buffer = const_cast<char*>(static_cast<const char*>(field));
  if (!IsLikeNew(buffer, static_cast<int>(length))) return false;
  if (length == 0) return true;
  if (length <= Line::kSlack) {
    std::memcpy(buffer, text, Line::kSlack);
  } else {
    std::memcpy(buffer, text, length);
  }
  HeaderOf(buffer)->length = static_cast<int>(length);
  buffer[length] = '\0';
  return true;
}

}  // namespace

void CsvFields::Add(const char* text, std::size_t length) {
  if (count_ < row_.size() && WriteOver(row_[count_], text, length)) {
    ++count_;
  } else {
    AddNew(text, length);
  }
}

void CsvFields::AddNew(const char* text, std::size_t length) {
  DropRest();
  row_.emplace_back(text, static_cast<int>(length));
  ++count_;
}

// A string that is not empty has a buffer larger than the slack.
void CsvFields::Add(const CQNString& text) {
  Add(text, static_cast<std::size_t>(text.GetLength()));
}

}  // namespace quarnfc::io
