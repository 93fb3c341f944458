// SPDX-License-Identifier: MIT
// The four code-page converters, with every kind of capacity: capacity, then the text.
#include <quarnfc/string_utils.h>

#include <cstring>
#include <string>
#include <vector>

#include "fuzz/input.h"

namespace {

// Converts text of Source units with exactly one element beyond the capacity, as callers reserve
// it, in a buffer of its own so that a further element is noticed.
template <class Source, class Destination>
void Convert(int (*convert)(const Source*, Destination*, int), const std::vector<Source>& text,
             int capacity) {
  const int needed = convert(text.data(), nullptr, 0);
  fuzz::Expect(needed >= 1);
  std::vector<Destination> whole(static_cast<std::size_t>(needed) + 1, Destination{'#'});
  fuzz::Expect(convert(text.data(), whole.data(), needed) == needed);
  fuzz::Expect(whole[static_cast<std::size_t>(needed) - 1] == 0);
  fuzz::Expect(whole[static_cast<std::size_t>(needed)] == Destination{'#'});

  const std::size_t end = static_cast<std::size_t>(capacity);
  std::vector<Destination> part(end + 1, Destination{'#'});
  const int count = convert(text.data(), part.data(), capacity);
  if (capacity == 0) {
    fuzz::Expect(count == 0 && part[0] == Destination{'#'});
  } else if (capacity >= needed) {
    fuzz::Expect(count == needed && part[static_cast<std::size_t>(needed) - 1] == 0);
  } else {
    fuzz::Expect(count == capacity + 1 && part[end] == 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const int capacity = data[0];
  ++data;
  --size;

  std::vector<char> bytes(data, data + size);
  bytes.push_back('\0');
  Convert(QNStringUtils::Ansi2Unicode, bytes, capacity);
  Convert(QNStringUtils::UTF82Unicode, bytes, capacity);

  std::vector<wchar_t> units(size / sizeof(wchar_t));
  if (!units.empty()) std::memcpy(units.data(), data, units.size() * sizeof(wchar_t));
  units.push_back(L'\0');
  Convert(QNStringUtils::Unicode2Ansi, units, capacity);
  Convert(QNStringUtils::Unicode2UTF8, units, capacity);
  return 0;
}
