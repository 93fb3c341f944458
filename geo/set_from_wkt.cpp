// SPDX-License-Identifier: MIT
#include "geo/set_from_wkt.h"

#include "geo/messages.h"

namespace quarnfc::geo {

bool ReadWkt(const wchar_t* wkt, CWKTDef& root, CQNString& error) {
  return root.Parse(FromWide(Encoding::kAnsi, wkt).get(), error);
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
  if (errorMessage != nullptr) *errorMessage = ToWide(Encoding::kAnsi, error).release();
  return false;
}

}  // namespace quarnfc::geo
