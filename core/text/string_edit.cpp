// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <utility>
#include <vector>

#include "core/text/character.h"
#include "core/text/multibyte.h"
#include "core/text/string_buffer.h"

using quarnfc::Bytes;
using quarnfc::CharWidth;
using quarnfc::CheckedLength;
using quarnfc::HeaderOf;
using quarnfc::TextLength;

namespace {

void Move(char* destination, const char* source, int count) {
  std::memmove(destination, source, static_cast<std::size_t>(count));
}

// Whether p points into the string's buffer, which an edit is about to change.
bool PointsInto(const CQNString& string, const char* p) {
  const char* text = string;
  const std::less_equal<> not_above;
  return not_above(text, p) && not_above(p, text + string.GetAllocLength());
}

// Makes room for count bytes before index and returns the room.
char* OpenGap(char*& text, int index, int count) {
  const int length = HeaderOf(text)->length;
  const int new_length =
      CheckedLength(static_cast<std::size_t>(length) + static_cast<std::size_t>(count));
  quarnfc::Reserve(text, new_length);
  Move(text + index + count, text + index, length - index);
  quarnfc::SetStringLength(text, new_length);
  return text + index;
}

// The byte positions of the occurrences of sub, left to right without overlap. The search goes on
// behind zero bytes inside the text.
std::vector<int> Occurrences(const char* text, int length, const char* sub, int sub_length) {
  std::vector<int> positions;
  const char* p = text;
  const char* end = text + length;
  while (p < end) {
    const unsigned char* hit = quarnfc::MbsStr(Bytes(p), Bytes(sub));
    if (hit != nullptr) {
      positions.push_back(static_cast<int>(hit - Bytes(text)));
      p = text + positions.back() + sub_length;
    } else {
      p += std::strlen(p) + 1;
    }
  }
  return positions;
}

int ReplaceWalking(char* text, int length, char old_char, char new_char) {
  int count = 0;
  char* const end = text + length;
  for (char* p = text; p < end;) {
    const int width = CharWidth(p);
    if (*p == old_char) {
      *p = new_char;
      ++count;
    }
    p += width;
  }
  return count;
}

// The same for bytes that never lead a character: changing them moves no boundary.
int ReplacePlain(char* text, int length, char old_char, char new_char) {
  int count = 0;
  char* const end = text + length;
  char* p = text;
  while (void* hit = std::memchr(p, old_char, static_cast<std::size_t>(end - p))) {
    p = static_cast<char*>(hit);
    if (quarnfc::IsBoundary(Bytes(text), Bytes(p))) {
      *p = new_char;
      ++count;
    }
    ++p;
  }
  return count;
}

// Writes text with its occurrences replaced to destination, which may be text itself: going
// forwards when the text shrinks or keeps its length, backwards when it grows, no byte is
// overwritten before it was moved.
class Replacement {
 public:
  Replacement(const char* text, int length, const std::vector<int>& positions, int old_length,
              const char* new_text, int new_length)
      : text_(text),
        length_(length),
        positions_(positions),
        old_length_(old_length),
        new_text_(new_text),
        new_length_(new_length) {}

  void WriteTo(char* destination) const {
    const std::size_t pieces = positions_.size() + 1;
    if (new_length_ <= old_length_) {
      for (std::size_t i = 0; i < pieces; ++i) WritePiece(destination, i);
    } else {
      for (std::size_t i = pieces; i-- > 0;) WritePiece(destination, i);
    }
  }

 private:
  // Piece i: the text between occurrences i - 1 and i, and the new text in place of occurrence
  // i - 1 before it.
  void WritePiece(char* destination, std::size_t i) const {
    const int begin = i == 0 ? 0 : positions_[i - 1] + old_length_;
    const int end = i == positions_.size() ? length_ : positions_[i];
    char* place = destination + begin + static_cast<int>(i) * (new_length_ - old_length_);
    Move(place, text_ + begin, end - begin);
    if (i > 0) std::memcpy(place - new_length_, new_text_, static_cast<std::size_t>(new_length_));
  }

  const char* text_;
  int length_;
  const std::vector<int>& positions_;
  int old_length_;
  const char* new_text_;
  int new_length_;
};

}  // namespace

int CQNString::Insert(int index, char ch) {
  index = std::clamp(index, 0, GetLength());
  *OpenGap(Text(), index, 1) = ch;
  return GetLength();
}

int CQNString::Insert(int index, const char* text) {
  const int count = TextLength(text);
  if (count == 0) return GetLength();
  if (PointsInto(*this, text)) return Insert(index, CQNString(text, count));
  index = std::clamp(index, 0, GetLength());
  std::memcpy(OpenGap(Text(), index, count), text, static_cast<std::size_t>(count));
  return GetLength();
}

int CQNString::Delete(int index, int count) {
  const int length = GetLength();
  index = std::max(index, 0);
  if (count < 1 || index >= length) return length;
  count = std::min(count, length - index);
  quarnfc::Unshare(Text());
  Move(Text() + index, Text() + index + count, length - index - count);
  quarnfc::SetStringLength(Text(), length - count);
  return length;
}

int CQNString::Replace(char oldChar, char newChar) {
  if (oldChar == newChar) return 0;
  quarnfc::Unshare(Text());
  const bool plain = quarnfc::IsPlainByte(oldChar) && quarnfc::IsPlainByte(newChar);
  return (plain ? ReplacePlain : ReplaceWalking)(Text(), GetLength(), oldChar, newChar);
}

int CQNString::Replace(const char* oldText, const char* newText) {
  const int old_length = TextLength(oldText);
  // All empty strings are one buffer: a new text may point into this one and a copy would, too.
  if (old_length == 0 || GetLength() == 0) return 0;
  if (newText == nullptr) newText = "";
  if (PointsInto(*this, oldText)) return Replace(CQNString(oldText, old_length), newText);
  if (PointsInto(*this, newText)) return Replace(oldText, CQNString(newText, TextLength(newText)));

  const int length = GetLength();
  const std::vector<int> positions = Occurrences(Text(), length, oldText, old_length);
  if (positions.empty()) return 0;

  const int new_length = TextLength(newText);
  const int count = static_cast<int>(positions.size());
  const int total = CheckedLength(
      static_cast<std::size_t>(length + static_cast<long long>(new_length - old_length) * count));
  const Replacement replacement(Text(), length, positions, old_length, newText, new_length);
  if (quarnfc::FitsInPlace(Text(), total)) {
    replacement.WriteTo(Text());
    quarnfc::SetStringLength(Text(), total);
  } else {
    char* buffer = quarnfc::AllocStringBuffer(total);
    replacement.WriteTo(buffer);
    quarnfc::ReleaseStringBuffer(std::exchange(Text(), buffer));
  }
  return count;
}

int CQNString::Remove(char ch) {
  quarnfc::Unshare(Text());
  const char* source = Text();
  const char* end = source + GetLength();
  char* destination = Text();
  while (source < end) {
    const int width = CharWidth(source);
    if (*source != ch) {
      *destination = *source;
      destination += CharWidth(destination);
    }
    source += width;
  }
  const int removed = static_cast<int>(end - destination);
  quarnfc::SetStringLength(Text(), GetLength() - removed);
  return removed;
}

void CQNString::SetAt(int index, char ch) {
  if (index < 0 || index >= GetLength()) return;
  quarnfc::Unshare(Text());
  Text()[index] = ch;
}

void CQNString::MakeUpper() {
  quarnfc::Unshare(Text());
  quarnfc::MbsUpr(Bytes(Text()), static_cast<std::size_t>(GetLength()));
}

void CQNString::MakeLower() {
  quarnfc::Unshare(Text());
  quarnfc::MbsLwr(Bytes(Text()), static_cast<std::size_t>(GetLength()));
}

void CQNString::MakeReverse() {
  quarnfc::Unshare(Text());
  quarnfc::MbsRev(Bytes(Text()));
}

// The length stays, and its terminator with it: platforms convert half a character at the end
// together with the terminator.

void CQNString::CharToOemA() {
  if (GetLength() == 0) return;
  quarnfc::Unshare(Text());
  quarnfc::platform::ConvertAnsiToOem(Text());
  quarnfc::SetStringLength(Text(), GetLength());
}

void CQNString::OemToCharA() {
  if (GetLength() == 0) return;
  quarnfc::Unshare(Text());
  quarnfc::platform::ConvertOemToAnsi(Text());
  quarnfc::SetStringLength(Text(), GetLength());
}
