// SPDX-License-Identifier: MIT
// Geographic systems as GEOGCS texts.
//
// Written from one template, cut at 511 bytes; of what is read only the spheroid's two numbers
// count. The notation is OGC 01-009 (Coordinate Transformation Services), 7.2, as far as
// geo/wkt_reader.h says.
#include <quarnfc/geographic.h>

#include "geo/create_wkt.h"
#include "geo/known_systems.h"
#include "geo/set_from_wkt.h"

namespace quarnfc::geo {

namespace {

constexpr char kTemplate[] =
    "GEOGCS[\"%s\",\n"
    "DATUM[\"%s\",SPHEROID[\"%s\",%s,%s]],\n"
    "PRIMEM[\"Greenwich\",0],\n"
    "UNIT[\"degree\",%s]]";
constexpr int kTextSize = 512;

}  // namespace

}  // namespace quarnfc::geo

char* CQNGeoCoordinateSystem::CreateWKT() const {
  const quarnfc::geo::KnownSystem& known = quarnfc::geo::FindKnownSystem(*this);
  const CQNString axis = quarnfc::geo::WriteWktNumber(semi_major_axis_, 6);
  const CQNString flattening = quarnfc::geo::WriteWktNumber(inverse_flattening_, 9);
  CQNString text;
  text.Format(quarnfc::geo::kTemplate, known.name, known.datum, known.spheroid,
              quarnfc::geo::Chars(axis), quarnfc::geo::Chars(flattening), known.degree);
  return quarnfc::geo::CutToBuffer(text, quarnfc::geo::kTextSize).release();
}

bool CQNGeoCoordinateSystem::SetFromWKTW(const wchar_t* wkt, wchar_t** errorMessage) {
  quarnfc::geo::CWKTDef root;
  CQNString error;
  return (quarnfc::geo::ReadWkt(wkt, root, error) &&
          quarnfc::geo::ReadSpheroid(root, *this, error)) ||
         quarnfc::geo::ReportFailure(error, errorMessage);
}

bool CQNGeoCoordinateSystem::SetFromWKTA(const char* wkt, char** errorMessage) {
  return quarnfc::geo::SetFromAnsiWkt(*this, wkt, errorMessage);
}
