// SPDX-License-Identifier: MIT
// Finding, spans, trimming and reversing by characters: a byte, a start, a text, a second text.
// Texts that end in half a character run without a comparison.
#include <quarnfc/qn_string.h>

#include <algorithm>
#include <string>

#include "fuzz/input.h"
#include "fuzz/reference.h"

namespace {

using fuzz::BytesOf;
using fuzz::Characters;
using fuzz::Expect;

struct Search {
  std::string text;
  std::string other;
  char ch;
  CQNString string;
  Characters characters;
  Characters set;
};

bool IsByte(const std::string& character, char ch) {
  return character.size() == 1 && character[0] == ch;
}

template <class Predicate>
int IndexOf(const Characters& characters, Predicate is_sought) {
  int index = 0;
  for (const std::string& character : characters) {
    if (is_sought(character)) return index;
    index += static_cast<int>(character.size());
  }
  return -1;
}

template <class Predicate>
int LastIndexOf(const Characters& characters, Predicate is_sought) {
  int found = -1;
  int index = 0;
  for (const std::string& character : characters) {
    if (is_sought(character)) found = index;
    index += static_cast<int>(character.size());
  }
  return found;
}

void CheckFinding(const Search& search, std::size_t start) {
  const auto is_byte = [&](const std::string& character) { return IsByte(character, search.ch); };
  const auto is_in_set = [&](const std::string& character) {
    return fuzz::Contains(search.set, character);
  };
  Expect(search.string.Find(search.other.c_str()) == fuzz::Find(search.text, search.other, 0));
  Expect(search.string.FindOneOf(search.other.c_str()) == IndexOf(search.characters, is_in_set));
  if (search.ch != '\0' && !fuzz::IsLead(search.ch)) {
    Expect(search.string.Find(search.ch) == IndexOf(search.characters, is_byte));
    Expect(search.string.ReverseFind(search.ch) == LastIndexOf(search.characters, is_byte));
  }
  // A start must be the beginning of a character.
  std::size_t boundary = 0;
  for (const std::string& character : search.characters) {
    if (boundary >= start) break;
    boundary += character.size();
  }
  Expect(search.string.Find(search.other.c_str(), static_cast<int>(boundary)) ==
         fuzz::Find(search.text, search.other, boundary));
}

void CheckEnds(const Search& search, std::size_t start) {
  const std::size_t at = std::min(start, search.text.size());
  Expect(BytesOf(search.string.Mid(static_cast<int>(start))) == search.text.substr(at));
  Expect(BytesOf(search.string.Left(static_cast<int>(start))) == search.text.substr(0, at));
  Expect(BytesOf(search.string.Right(static_cast<int>(start))) ==
         search.text.substr(search.text.size() - at));
}

void CheckSpans(const Search& search) {
  std::size_t inside = 0;
  while (inside < search.characters.size() &&
         fuzz::Contains(search.set, search.characters[inside])) {
    ++inside;
  }
  std::size_t outside = 0;
  while (outside < search.characters.size() &&
         !fuzz::Contains(search.set, search.characters[outside])) {
    ++outside;
  }
  const auto begin = search.characters.begin();
  Expect(BytesOf(search.string.SpanIncluding(search.other.c_str())) ==
         fuzz::Joined({begin, begin + static_cast<std::ptrdiff_t>(inside)}));
  Expect(BytesOf(search.string.SpanExcluding(search.other.c_str())) ==
         fuzz::Joined({begin, begin + static_cast<std::ptrdiff_t>(outside)}));
}

template <class Trim>
std::string Trimmed(const Search& search, Trim trim) {
  CQNString text(search.string);
  trim(text);
  return BytesOf(text);
}

void CheckTrimming(const Search& search) {
  const auto in_set = [&](const std::string& character) {
    return fuzz::Contains(search.set, character);
  };
  const auto by_byte = [&](const std::string& character) { return character[0] == search.ch; };
  const char* const set = search.other.c_str();
  Expect(Trimmed(search, [&](CQNString& text) { text.TrimLeft(set); }) ==
         fuzz::TrimLeft(search.text, in_set));
  Expect(Trimmed(search, [&](CQNString& text) { text.TrimRight(set); }) ==
         fuzz::TrimRight(search.text, in_set));
  Expect(Trimmed(search, [&](CQNString& text) { text.TrimLeft(); }) ==
         fuzz::TrimLeft(search.text, fuzz::IsBlank));
  Expect(Trimmed(search, [&](CQNString& text) { text.TrimRight(); }) ==
         fuzz::TrimRight(search.text, fuzz::IsBlank));
  Expect(Trimmed(search, [&](CQNString& text) { text.Trim(); }) ==
         fuzz::TrimRight(fuzz::TrimLeft(search.text, fuzz::IsBlank), fuzz::IsBlank));
  if (search.ch == '\0') return;
  Expect(Trimmed(search, [&](CQNString& text) { text.TrimLeft(search.ch); }) ==
         fuzz::TrimLeft(search.text, by_byte));
  Expect(Trimmed(search, [&](CQNString& text) { text.TrimRight(search.ch); }) ==
         fuzz::TrimRight(search.text, by_byte));
}

void CheckReversing(const Search& search) {
  const Characters backwards(search.characters.rbegin(), search.characters.rend());
  Expect(Trimmed(search, [](CQNString& text) { text.MakeReverse(); }) == fuzz::Joined(backwards));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  Search search;
  search.ch = static_cast<char>(input.Byte());
  const std::size_t start = input.Byte();
  search.text = input.Text();
  search.other = input.Text();
  search.string = search.text.c_str();
  search.characters = fuzz::CharactersOf(search.text);
  search.set = fuzz::CharactersOf(search.other);
  if (fuzz::IsCutOff(search.text) || fuzz::IsCutOff(search.other)) {
    static_cast<void>(search.string.Find(search.other.c_str()));
    search.string.TrimRight(search.other.c_str());
    search.string.MakeReverse();
    return 0;
  }
  CheckFinding(search, start);
  CheckEnds(search, start);
  CheckSpans(search);
  CheckTrimming(search);
  CheckReversing(search);
  return 0;
}
