// SPDX-License-Identifier: MIT
// Projected systems as PROJCS texts.
//
// Written from one template, cut at 1023 bytes; what is read is the spheroid, the projection's name
// and four parameters, each found by its keyword wherever it stands in the text. The notation is
// OGC 01-009 (Coordinate Transformation Services), 7.2, as far as geo/wkt_reader.h says.
#include <quarnfc/projected.h>

#include <cmath>

#include "geo/create_wkt.h"
#include "geo/known_systems.h"
#include "geo/messages.h"
#include "geo/set_from_wkt.h"

namespace quarnfc::geo {

namespace {

// The name says 3-degree whatever the system is, deliberately.
constexpr char kTemplate[] =
    "PROJCS[\"%s / 3-degree Gauss-Kruger CM %s%s\",\n"
    "%s,\n"
    "UNIT[\"metre\",1],\n"
    "PROJECTION[\"Transverse_Mercator\"],\n"
    "PARAMETER[\"latitude_of_origin\",0],\n"
    "PARAMETER[\"central_meridian\",%s],\n"
    "PARAMETER[\"scale_factor\",%s],\n"
    "PARAMETER[\"false_easting\",%s],\n"
    "PARAMETER[\"false_northing\",%s],\n"
    "AXIS[\"Y\",EAST],\n"
    "AXIS[\"X\",NORTH]]";
constexpr int kTextSize = 1024;
constexpr int kDecimals = 6;

bool CheckProjection(const CWKTDef& root, CQNString& error) {
  const CWKTDef* projection = root.Find("PROJCS\\PROJECTION");
  const CWKTDefValue* name = projection == nullptr ? nullptr : projection->FirstValue();
  if (name == nullptr || name->Kind() != WktKind::kQuotedText) {
    error = messages::kNoProjection;
    return false;
  }
  if (name->Text().CompareNoCase("Transverse_Mercator") != 0) {
    error.Format(messages::kWrongProjection, Chars(name->Text()));
    return false;
  }
  return true;
}

bool ReadParameter(const CWKTDef& root, const char* name, const char* missing, double& field,
                   CQNString& error) {
  if (root.FindParameter(name, field)) return true;
  error = missing;
  return false;
}

}  // namespace

}  // namespace quarnfc::geo

char* CQNProCoordinateSystem::CreateWKT() const {
  using quarnfc::geo::kDecimals;
  const quarnfc::OwnedText geographic(geo_.CreateWKT());
  const CQNString absolute_meridian =
      quarnfc::geo::WriteWktNumber(std::fabs(central_meridian_), kDecimals);
  const CQNString meridian = quarnfc::geo::WriteWktNumber(central_meridian_, kDecimals);
  const CQNString scale = quarnfc::geo::WriteWktNumber(scale_factor_, kDecimals);
  const CQNString easting = quarnfc::geo::WriteWktNumber(false_easting_, kDecimals);
  const CQNString northing = quarnfc::geo::WriteWktNumber(false_northing_, kDecimals);
  CQNString text;
  text.Format(quarnfc::geo::kTemplate, quarnfc::geo::FindKnownSystem(geo_).projection,
              quarnfc::geo::Chars(absolute_meridian), central_meridian_ < 0.0 ? "W" : "E",
              geographic.get(), quarnfc::geo::Chars(meridian), quarnfc::geo::Chars(scale),
              quarnfc::geo::Chars(easting), quarnfc::geo::Chars(northing));
  return quarnfc::geo::CutToBuffer(text, quarnfc::geo::kTextSize).release();
}

// Each value goes straight into its field: deliberately, a failure leaves what was read before it.
bool CQNProCoordinateSystem::SetFromWKTW(const wchar_t* wkt, wchar_t** errorMessage) {
  namespace messages = quarnfc::geo::messages;
  using quarnfc::geo::ReadParameter;
  quarnfc::geo::CWKTDef root;
  CQNString error;
  const bool read =
      quarnfc::geo::ReadWkt(wkt, root, error) && quarnfc::geo::ReadSpheroid(root, geo_, error) &&
      quarnfc::geo::CheckProjection(root, error) &&
      ReadParameter(root, "central_meridian", messages::kNoCentralMeridian, central_meridian_,
                    error) &&
      ReadParameter(root, "false_easting", messages::kNoFalseEasting, false_easting_, error) &&
      ReadParameter(root, "false_northing", messages::kNoFalseNorthing, false_northing_, error) &&
      ReadParameter(root, "scale_factor", messages::kNoScaleFactor, scale_factor_, error);
  return read || quarnfc::geo::ReportFailure(error, errorMessage);
}

bool CQNProCoordinateSystem::SetFromWKTA(const char* wkt, char** errorMessage) {
  return quarnfc::geo::SetFromAnsiWkt(*this, wkt, errorMessage);
}
