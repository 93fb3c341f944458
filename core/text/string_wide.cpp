// SPDX-License-Identifier: MIT
// Conversions between CQNString and UTF-16 text.

#include <quarnfc/qn_string.h>

#include <climits>
#include <cstring>
#include <new>
#include <optional>

#include "core/memory/memory.h"
#include "core/text/string_buffer.h"
#include "platform/code_page.h"
#include "platform/system_string.h"

using quarnfc::CheckedLength;
using quarnfc::platform::Encoding;
using quarnfc::platform::FromUtf16;
using quarnfc::platform::ToUtf16;

namespace {

// Bytes that text of wide_length UTF-16 units may need: two per unit in a double-byte code page.
int ByteCapacity(std::size_t wide_length) { return CheckedLength(2 * wide_length); }

// Converts into a buffer that holds capacity bytes and a terminator, and counts the bytes as the
// converter does: with the terminator when source_length is -1. Where the code page needs more than
// two bytes per unit (UTF-8 set as the ANSI code page), the buffer is replaced by one of the needed
// size.
int Convert(const wchar_t* source, int source_length, char*& text, int capacity) {
  // Text of a given length brings no terminator: the byte behind the capacity is not its own.
  const int room = source_length < 0 ? capacity + 1 : capacity;
  int count = FromUtf16(Encoding::kAnsi, source, source_length, text, room);
  if (count == 0 && source_length != 0) {
    const int needed = FromUtf16(Encoding::kAnsi, source, source_length, nullptr, 0);
    if (needed > capacity) {
      quarnfc::Reserve(text, needed);
      count = FromUtf16(Encoding::kAnsi, source, source_length, text, needed);
    }
  }
  return count;
}

// Replaces text by the conversion of zero-terminated UTF-16 text.
void AssignWide(char*& text, const wchar_t* source) {
  const int capacity = source == nullptr ? 0 : ByteCapacity(quarnfc::WideLength(source));
  if (capacity == 0) {
    quarnfc::AssignBytes(text, "", 0);
    return;
  }
  quarnfc::ReserveAnew(text, capacity);
  const int count = Convert(source, -1, text, capacity);
  quarnfc::SetStringLength(text, count == 0 ? 0 : static_cast<int>(std::strlen(text)));
}

// The units that text takes; empty when the converter fails, which it does for an empty text, too.
std::optional<unsigned int> WideCount(const char* text, int length) {
  const int count = ToUtf16(Encoding::kAnsi, text, length, nullptr, 0);
  if (count == 0 && length > 0) return std::nullopt;
  return static_cast<unsigned int>(count);
}

// Whether the text is now in the system string, which has room for exactly that.
bool Fill(BSTR system_string, const char* text, int length, unsigned int count) {
  if (count == 0) return true;
  const int capacity = static_cast<int>(count);
  return ToUtf16(Encoding::kAnsi, text, length, system_string, capacity) == capacity;
}

// The texts are thrown as char*, so they are not constants.
char g_alloc_failed[] = "Alloc failed!";
char g_realloc_failed[] = "ReAlloc failed!";

}  // namespace

CQNString::CQNString(const wchar_t* text) : CQNString() { AssignWide(Text(), text); }

CQNString::CQNString(const wchar_t* text, int length) : CQNString() {
  if (text == nullptr || length < 1) return;
  const int capacity = ByteCapacity(static_cast<std::size_t>(length));
  quarnfc::Reserve(Text(), capacity);
  quarnfc::SetStringLength(Text(), Convert(text, length, Text(), capacity));
}

const CQNString& CQNString::operator=(const wchar_t* text) {
  AssignWide(Text(), text);
  return *this;
}

BSTR CQNString::AllocSysString() const {
  const auto count = WideCount(Text(), GetLength());
  BSTR system_string = count ? quarnfc::platform::AllocSystemString(nullptr, *count) : nullptr;
  if (system_string == nullptr) throw static_cast<char*>(g_alloc_failed);
  if (Fill(system_string, Text(), GetLength(), *count)) return system_string;
  quarnfc::platform::FreeSystemString(system_string);
  throw static_cast<char*>(g_alloc_failed);
}

// A converter that fails behind its own count, which none is known to do, leaves *target of the new
// length but with any text.
BSTR CQNString::SetSysString(BSTR* target) const {
  const auto count = WideCount(Text(), GetLength());
  if (target == nullptr || !count ||
      !quarnfc::platform::ReallocSystemString(*target, nullptr, *count) ||
      !Fill(*target, Text(), GetLength(), *count)) {
    throw static_cast<char*>(g_realloc_failed);
  }
  return *target;
}
