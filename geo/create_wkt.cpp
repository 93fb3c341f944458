// SPDX-License-Identifier: MIT
#include "geo/create_wkt.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace quarnfc::geo {

CQNString WriteWktNumber(double value, int decimals) {
  CQNString text;
  text.Format("%.*f", decimals, value);
  text.TrimRight('0');
  text.TrimRight('.');
  return text;
}

OwnedText CutToBuffer(const CQNString& text, int size) {
  const auto length = static_cast<std::size_t>(std::min(text.GetLength(), size - 1));
  OwnedText buffer(AllocChars(static_cast<std::size_t>(size)));
  std::memcpy(buffer.get(), static_cast<const char*>(text), length);
  buffer.get()[length] = '\0';
  return buffer;
}

}  // namespace quarnfc::geo
