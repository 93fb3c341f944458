// Geographic systems as GEOGCS texts.
#include <quarnfc/geographic.h>

#include <algorithm>
#include <iterator>

#include "geo/known_systems.h"
#include "geo/wkt_number.h"
#include "geo/wkt_text.h"

namespace quarnfc::geo {

namespace {

// The two older systems are written with more digits than the others, deliberately.
constexpr char kDegree17[] = "0.01745329251994328";
constexpr char kDegree15[] = "0.0174532925199433";

// In the order in which they are tried. The last row stands for every other system.
constexpr KnownSystem kKnownSystems[] = {
    {&CQNGeoCoordinateSystem::Beijing54, "Beijing 1954", "Beijing_1954", "Krassowsky 1940",
     kDegree17, "Beijing 1954"},
    {&CQNGeoCoordinateSystem::XiAn80, "Xian 1980", "Xian_1980", "Xian 1980", kDegree17,
     "Xian 1980"},
    {&CQNGeoCoordinateSystem::CGCS2000, "China Geodetic Coordinate System 2000", "China_2000",
     "CGCS2000", kDegree15, "CGCS2000"},
    {&CQNGeoCoordinateSystem::WGS84, "WGS 84", "WGS_1984", "WGS 84", kDegree15, "WGS 84"},
    {nullptr, "Unknown", "Unknown", "Unknown", kDegree15, "Unknown"},
};

constexpr char kTemplate[] =
    "GEOGCS[\"%s\",\n"
    "DATUM[\"%s\",SPHEROID[\"%s\",%s,%s]],\n"
    "PRIMEM[\"Greenwich\",0],\n"
    "UNIT[\"degree\",%s]]";
constexpr int kTextSize = 512;

}  // namespace

const KnownSystem& FindKnownSystem(const CQNGeoCoordinateSystem& system) {
  return *std::find_if(std::begin(kKnownSystems), std::end(kKnownSystems) - 1,
                       [&](const KnownSystem& known) { return system == *known.system; });
}

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
