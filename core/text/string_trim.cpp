// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include "core/text/character.h"
#include "core/text/multibyte.h"
#include "core/text/string_buffer.h"

using quarnfc::CharWidth;

namespace {

bool IsSpace(const char* p, int /*width*/) {
  // By the first byte alone, taken as a signed char.
  return quarnfc::platform::IsSpace(static_cast<unsigned int>(static_cast<signed char>(*p)));
}

struct StartsWith {
  char ch;
  bool operator()(const char* p, int /*width*/) const { return *p == ch; }
};

struct IsInSet {
  const char* set;
  bool operator()(const char* p, int /*width*/) const {
    const unsigned int value = quarnfc::CharacterAt(quarnfc::Bytes(p)).value;
    return value != 0 && quarnfc::MbsChr(quarnfc::Bytes(set), value) != nullptr;
  }
};

// The length in bytes of the leading run of matching characters.
template <class Match>
int LeadingRun(const CQNString& string, Match match) {
  const char* text = string;
  const char* end = text + string.GetLength();
  const char* p = text;
  while (p < end) {
    const int width = CharWidth(p);
    if (!match(p, width)) break;
    p += width;
  }
  return static_cast<int>(p - text);
}

// The byte position at which the trailing run of matching characters starts.
template <class Match>
int TrailingRunStart(const CQNString& string, Match match) {
  const char* text = string;
  const char* end = text + string.GetLength();
  const char* start = text;
  for (const char* p = text; p < end;) {
    const int width = CharWidth(p);
    if (!match(p, width)) start = p + width;
    p += width;
  }
  return static_cast<int>(start - text);
}

template <class Match>
void DropLeading(CQNString& string, Match match) {
  string.Delete(0, LeadingRun(string, match));
}

template <class Match>
void DropTrailing(CQNString& string, Match match) {
  const int start = TrailingRunStart(string, match);
  string.Delete(start, string.GetLength() - start);
}

bool IsNullOrEmpty(const char* text) { return text == nullptr || *text == '\0'; }

}  // namespace

void CQNString::TrimLeft() { DropLeading(*this, IsSpace); }

void CQNString::TrimLeft(char ch) { DropLeading(*this, StartsWith{ch}); }

void CQNString::TrimLeft(const char* set) {
  if (!IsNullOrEmpty(set)) DropLeading(*this, IsInSet{set});
}

void CQNString::TrimRight() { DropTrailing(*this, IsSpace); }

void CQNString::TrimRight(char ch) { DropTrailing(*this, StartsWith{ch}); }

void CQNString::TrimRight(const char* set) {
  if (!IsNullOrEmpty(set)) DropTrailing(*this, IsInSet{set});
}

void CQNString::Trim() {
  TrimLeft();
  TrimRight();
}
