// SPDX-License-Identifier: MIT
// UTF-8 and UTF-16 into one another against a slow reference, and characters of the code page, each
// of which converts as it does alone. The same bytes serve as text of each kind, zeros included.
#include <quarnfc/ext/text_conversion.h>

#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/reference.h"
#include "fuzz/utf_reference.h"
#include "platform/code_page.h"
#include "tests/platform/wine.h"

namespace {

using quarnfc::ext::AnsiFromUtf16;
using quarnfc::ext::FindInvalidUtf16;
using quarnfc::ext::FindInvalidUtf8;
using quarnfc::ext::IsUtf8;
using quarnfc::ext::StrictUtf16FromAnsi;
using quarnfc::ext::StrictUtf16FromUtf8;
using quarnfc::ext::StrictUtf8FromUtf16;
using quarnfc::ext::Utf16CharLength;
using quarnfc::ext::Utf16FromAnsi;
using quarnfc::ext::Utf16FromUtf8;
using quarnfc::ext::Utf8FromUtf16;
using quarnfc::ext::WideChars;

// Every capacity but that of the whole is too small.
void CheckCapacities(const std::string& text, const std::u16string& units) {
  using namespace quarnfc::platform;
  const int length = static_cast<int>(text.size());
  const int count = static_cast<int>(units.size());
  std::vector<wchar_t> wide(units.size() + 1);
  std::vector<char> bytes(4 * units.size() + 1);
  for (int capacity = 1; capacity < count; ++capacity) {
    fuzz::Expect(ToUtf16(Encoding::kUtf8, text.data(), length, wide.data(), capacity) == 0);
  }
  const int size = FromUtf16(Encoding::kUtf8, WideChars(units), count, nullptr, 0);
  for (int capacity = 1; capacity < size; ++capacity) {
    fuzz::Expect(FromUtf16(Encoding::kUtf8, WideChars(units), count, bytes.data(), capacity) == 0);
  }
}

// Wine drops what follows a lead byte that asks for more bytes than are left, and reports half a
// surrogate pair as a success.
void CheckDecoding(const std::string& text) {
  static const bool is_wine = quarnfc_test::RunsUnderWine();
  const std::u16string expected = fuzz::Utf16From(text);
  if (!is_wine || IsUtf8(text)) fuzz::Expect(Utf16FromUtf8(text) == expected);
  constexpr std::size_t kMost = 32;
  if (!is_wine && text.size() <= kMost) CheckCapacities(text, expected);
}

void CheckUtf8(const std::string& text) {
  CheckDecoding(text);
  std::string rest = text;
  std::size_t invalid = 0;
  while (!fuzz::FirstUtf8(rest).empty()) {
    invalid += fuzz::FirstUtf8(rest).size();
    rest = text.substr(invalid);
  }
  fuzz::Expect(FindInvalidUtf8(text) == invalid);
  fuzz::Expect(StrictUtf16FromUtf8(text).has_value() == rest.empty());
}

void CheckUtf16(const std::u16string& units) {
  const std::string text = Utf8FromUtf16(units);
  fuzz::Expect(text == fuzz::Utf8From(units));
  fuzz::Expect(IsUtf8(text));
  const bool whole = fuzz::Utf16From(text) == units;
  fuzz::Expect(StrictUtf8FromUtf16(units).has_value() ==
               (whole && FindInvalidUtf16(units) == units.size()));

  std::string each;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const std::size_t length = Utf16CharLength(units, i) == 2 ? 2 : 1;
    each += AnsiFromUtf16(units.substr(i, length));
    i += length - 1;
  }
  fuzz::Expect(AnsiFromUtf16(units) == each);
}

// A lead byte in front of what cannot follow it is broken by itself.
void CheckAnsi(const std::string& text) {
  const auto strict = StrictUtf16FromAnsi(text);
  if (!strict) return;
  std::u16string each;
  for (const std::string& character : fuzz::CharactersOf(text)) each += Utf16FromAnsi(character);
  fuzz::Expect(*strict == each && Utf16FromAnsi(text) == each);
  fuzz::Expect(AnsiFromUtf16(each) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::u16string units;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    units += static_cast<char16_t>(data[i] | data[i + 1] << 8);
  }
  CheckUtf8(bytes);
  CheckUtf16(units);
  CheckAnsi(bytes);
  return 0;
}
