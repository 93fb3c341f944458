// SPDX-License-Identifier: MIT
// What SetFromWKTA and SetFromWKTW of geographic and projected systems share: reading the text,
// taking the spheroid from it, handing the message of a failure to the caller.
#ifndef QUARNFC_GEO_SET_FROM_WKT_H_
#define QUARNFC_GEO_SET_FROM_WKT_H_

#include <quarnfc/geographic.h>
#include <quarnfc/qn_string.h>

#include "core/text/transcode.h"
#include "geo/wkt_reader.h"

namespace quarnfc::geo {

// Reads the text into root, which must be new. False, with the reason in error, when it is no WKT.
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
  if (system.SetFromWKTW(ToWide(Encoding::kAnsi, wkt).get(), &wide_message)) return true;
  const OwnedWideText owned(wide_message);
  if (errorMessage != nullptr) *errorMessage = FromWide(Encoding::kAnsi, wide_message).release();
  return false;
}

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_SET_FROM_WKT_H_
