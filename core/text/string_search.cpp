// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include <algorithm>
#include <cstddef>

#include "core/text/character.h"
#include "core/text/multibyte.h"
#include "core/text/string_buffer.h"

using quarnfc::Bytes;

namespace {

// The byte index of a hit of one of the run-time functions; -1 when there was none.
int IndexOf(const char* text, const unsigned char* hit) {
  return hit == nullptr ? -1 : static_cast<int>(hit - Bytes(text));
}

}  // namespace

int CQNString::Find(char ch) const { return Find(ch, 0); }

int CQNString::Find(char ch, int start) const {
  start = std::max(start, 0);
  if (start >= GetLength()) return -1;
  return IndexOf(Text(), quarnfc::MbsChr(Bytes(Text() + start), static_cast<unsigned char>(ch)));
}

int CQNString::Find(const char* text) const { return Find(text, 0); }

int CQNString::Find(const char* text, int start) const {
  start = std::max(start, 0);
  if (text == nullptr || start > GetLength()) return -1;
  if (*text == '\0') return start;
  return IndexOf(Text(), quarnfc::MbsStr(Bytes(Text() + start), Bytes(text)));
}

int CQNString::ReverseFind(char ch) const {
  return IndexOf(Text(), quarnfc::MbsRChr(Bytes(Text()), static_cast<unsigned char>(ch)));
}

int CQNString::FindOneOf(const char* set) const {
  return IndexOf(Text(), quarnfc::MbsPBrk(Bytes(Text()), Bytes(set)));
}

CQNString CQNString::Mid(int first, int count) const {
  const int length = GetLength();
  first = std::max(first, 0);
  if (first > length) return CQNString();
  count = std::clamp(count, 0, length - first);
  if (count == length) return *this;
  return CQNString(Text() + first, count);
}

CQNString CQNString::Mid(int first) const { return Mid(first, GetLength()); }

CQNString CQNString::Left(int count) const { return Mid(0, count); }

CQNString CQNString::Right(int count) const {
  count = std::clamp(count, 0, GetLength());
  return Mid(GetLength() - count, count);
}

CQNString CQNString::SpanIncluding(const char* set) const {
  return Left(static_cast<int>(quarnfc::MbsSpn(Bytes(Text()), Bytes(set))));
}

CQNString CQNString::SpanExcluding(const char* set) const {
  return Left(static_cast<int>(quarnfc::MbsCSpn(Bytes(Text()), Bytes(set))));
}
