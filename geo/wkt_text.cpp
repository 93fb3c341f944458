#include "geo/wkt_text.h"

#include <quarnfc/string_utils.h>

#include <algorithm>
#include <cstring>

#include "geo/messages.h"

namespace quarnfc::geo {

// The converters count the terminator and may write one element beyond what they were given.

OwnedWideText AnsiToWide(const char* text) {
  if (text == nullptr) return nullptr;
  const int count = QNStringUtils::Ansi2Unicode(text, nullptr, 0);
  OwnedWideText wide(AllocWideChars(static_cast<std::size_t>(count) + 1));
  wide.get()[0] = L'\0';
  QNStringUtils::Ansi2Unicode(text, wide.get(), count);
  return wide;
}

OwnedText WideToAnsi(const wchar_t* text) {
  if (text == nullptr) return nullptr;
  const int count = QNStringUtils::Unicode2Ansi(text, nullptr, 0);
  OwnedText ansi(AllocChars(static_cast<std::size_t>(count) + 1));
  ansi.get()[0] = '\0';
  QNStringUtils::Unicode2Ansi(text, ansi.get(), count);
  return ansi;
}

OwnedText CutToBuffer(const CQNString& text, int size) {
  const auto length = static_cast<std::size_t>(std::min(text.GetLength(), size - 1));
  OwnedText buffer(AllocChars(static_cast<std::size_t>(size)));
  std::memcpy(buffer.get(), static_cast<const char*>(text), length);
  buffer.get()[length] = '\0';
  return buffer;
}

bool ReadWkt(const wchar_t* wkt, CWKTDef& root, CQNString& error) {
  return root.Parse(WideToAnsi(wkt).get(), error);
}

bool ReadSpheroid(const CWKTDef& root, CQNGeoCoordinateSystem& system, CQNString& error) {
  const CWKTDef* spheroid = root.Find(R"(GEOGCS\DATUM\SPHEROID)");
  if (spheroid == nullptr) spheroid = root.Find(R"(PROJCS\GEOGCS\DATUM\SPHEROID)");
  if (spheroid != nullptr && spheroid->Values().size() >= 3) {
    const CWKTDefValue& axis = *spheroid->Values()[1];
    const CWKTDefValue& flattening = *spheroid->Values()[2];
    if (axis.Kind() == WktKind::kNumber && flattening.Kind() == WktKind::kNumber) {
      system.set(axis.Number(), flattening.Number());
      return true;
    }
  }
  error = messages::kNoSpheroid;
  return false;
}

bool ReportFailure(const CQNString& error, wchar_t** errorMessage) {
  if (errorMessage != nullptr) *errorMessage = AnsiToWide(error).release();
  return false;
}

}  // namespace quarnfc::geo
