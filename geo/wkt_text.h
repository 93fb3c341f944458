// WKT texts on their way in and messages on their way out: conversions between the ANSI code page,
// in which WKT is read, and UTF-16, and what the two families of systems share.
#ifndef QUARNFC_GEO_WKT_TEXT_H_
#define QUARNFC_GEO_WKT_TEXT_H_

#include <quarnfc/geographic.h>
#include <quarnfc/qn_string.h>

#include "core/memory/memory.h"
#include "geo/wkt_reader.h"

namespace quarnfc::geo {

// New buffers with the converted text; null for null.
OwnedWideText AnsiToWide(const char* text);
OwnedText WideToAnsi(const wchar_t* text);

// A string as an argument of CQNString::Format.
inline const char* Chars(const CQNString& text) { return text; }

// A new buffer of size bytes with as much of the text as fits in front of a terminator.
OwnedText CutToBuffer(const CQNString& text, int size);

// Reads the text into root, which must be new.
bool ReadWkt(const wchar_t* wkt, CWKTDef& root, CQNString& error);

// Sets system from the spheroid of a geographic or projected system's tree. On failure system is
// unchanged.
bool ReadSpheroid(const CWKTDef& root, CQNGeoCoordinateSystem& system, CQNString& error);

// Stores a new copy of the message for the caller unless he does not want one. Always false.
bool ReportFailure(const CQNString& error, wchar_t** errorMessage);

// SetFromWKTA of either family: by way of the wide form, which alone does the work.
template <class System>
bool SetFromAnsiWkt(System& system, const char* wkt, char** errorMessage) {
  wchar_t* wide_message = nullptr;
  if (system.SetFromWKTW(AnsiToWide(wkt).get(), &wide_message)) return true;
  const OwnedWideText owned(wide_message);
  if (errorMessage != nullptr) *errorMessage = WideToAnsi(wide_message).release();
  return false;
}

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_WKT_TEXT_H_
