// SPDX-License-Identifier: MIT
// CQNProCoordinateSystem: a Transverse Mercator coordinate system (Gauss-Krueger zones, UTM).
//
// Units and order: angles in degrees, lengths in metres; the east-west quantity comes before the
// north-south one in every argument list (longitude, latitude; easting, northing), although the
// texts of CreateWKT name the axes Y for east and X for north. The latitude of origin is always 0.
//
// A plain value: 160 bytes (a CQNGeoCoordinateSystem, then four doubles), standard layout,
// copyable bit for bit, no resources. Texts that a member returns are released with qnFreeMem;
// 8-bit text is in the process ANSI code page, wide text is UTF-16.
//
// Threads: const members and the static projections may be called from any thread; one object must
// not be changed while another thread uses it.
//
// Implemented in geo/projected.cpp, epsg_codes.cpp, projected_wkt.cpp and gauss_krueger.cpp.
//
// Example:
//   CQNProCoordinateSystem system;
//   CQNProCoordinateSystem::EPCSType type = CQNProCoordinateSystem::ePCSWGS84UTM;
//   system.setByEPSGCode(4547, type);       // == true
//   type;                                   // == CQNProCoordinateSystem::ePCSCGCS2000
//   system.GetCentralMeridian();            // == 114.0
//   double east = 0, north = 0;
//   CQNProCoordinateSystem::GeoToGauss(114.0, 0.0, east, north, system);
//   east;                                   // == 500000.0
//   north;                                  // == 0.0
#ifndef QUARNFC_PROJECTED_H_
#define QUARNFC_PROJECTED_H_

#include <quarnfc/export.h>
#include <quarnfc/geographic.h>
#include <quarnfc/plain.h>
#include <quarnfc/platform_types.h>

// See the head of this file.
class QN_API CQNProCoordinateSystem {
 public:
  // The family of an EPSG code.
  enum EPCSType : int {
    ePCSBeijing54 = 1,  // Beijing 1954 Gauss-Krueger
    ePCSXiAn80 = 2,     // Xian 1980 Gauss-Krueger
    ePCSCGCS2000 = 3,   // CGCS2000 Gauss-Krueger
    ePCSWGS84UTM = 4,   // WGS 84 UTM
  };

  // --- construction and comparison ----------------------------------------------------------

  // Beijing54, central meridian 120, false easting 500000, false northing 0, scale factor 1.
  CQNProCoordinateSystem();

  // The system with these fields; see set.
  CQNProCoordinateSystem(const CQNGeoCoordinateSystem& geo, double centralMeridian,
                         double falseEasting, double falseNorthing, double scaleFactor);

  // Copies every field.
  CQNProCoordinateSystem(const CQNProCoordinateSystem& other) = default;
  CQNProCoordinateSystem& operator=(const CQNProCoordinateSystem& other) = default;

  // Sets every field: the ellipsoid (copied), the central meridian in degrees, the false easting
  // and northing in metres, the scale factor on the central meridian. Nothing is checked.
  void set(const CQNGeoCoordinateSystem& geo, double centralMeridian, double falseEasting,
           double falseNorthing, double scaleFactor);

  // Equal when the geographic systems are equal, the central meridians differ by less than 1e-6
  // degrees, the false eastings, false northings and scale factors each by less than 0.001. The
  // coarse tolerance of the scale factor is deliberate: a UTM zone (0.9996) equals the system with
  // the same meridian and scale factor 1.
  bool operator==(const CQNProCoordinateSystem& other) const;

  // The opposite of ==.
  bool operator!=(const CQNProCoordinateSystem& other) const;

  // --- UTM zones: 1 to 60, negative on the southern hemisphere ------------------------------

  // Whether the scale factor is within 0.0001 of 0.9996; nothing else is examined.
  bool IsUTM() const;

  // Sets the zone on CQNGeoCoordinateSystem::WGS84. False, with the system unchanged, when code is
  // 0 or outside -60 to 60.
  bool setByUTMCode(int code);

  // The zone, or 0 when IsUTM is false or the false easting or northing is not that of a zone
  // (to 0.001 m; not-a-number passes). Deliberately lenient: the ellipsoid is not examined, and the
  // central meridian need not be that of a zone: (meridian + 183) / 6 is cut to a whole number, so
  // 118 gives 50. A meridian whose zone is no int gives 0.
  int GetUTMCode() const;

  // --- EPSG codes ---------------------------------------------------------------------------

  // Sets a Gauss-Krueger system of the codes 2327 to 2390 (Xian 1980), 2401 to 2442 (Beijing 1954)
  // and 4513 to 4554 (CGCS2000), or a UTM zone of the codes 32601 to 32660 (north) and 32501 to
  // 32560 (south), and stores its family in type. Any other code gives false and changes nothing.
  //
  // Deliberate differences from the official definitions: the false easting is always 500000, also
  // for codes whose definition puts the zone number in front; 2422 to 2442 take the ellipsoid of
  // CGCS2000 while their family is ePCSBeijing54; the southern UTM zones are 32501 to 32560, not
  // 32701 to 32760; WGS84 has its shortened flattening.
  bool setByEPSGCode(int code, EPCSType& type);

  // --- Well-Known Text ----------------------------------------------------------------------

  // The system as a PROJCS text, released with qnFreeMem: the name ("3-degree Gauss-Kruger"
  // whatever the system is), the GEOGCS text, the metre, and the parameters with at most six
  // decimals. At most 1023 bytes.
  char* CreateWKT() const;

  // Takes ellipsoid, central meridian, false easting, false northing and scale factor from a
  // PROJCS text whose projection is Transverse_Mercator (in any case). The latitude of origin, the
  // units and the axes are not read. Of several parameters of one name the first decides.
  //
  // On failure the result is false and *errorMessage (when errorMessage is not null) receives a
  // new message, released with qnFreeMem; on success it is left alone. Deliberately not
  // transactional: what was read before the failure (the ellipsoid, then the parameters in the
  // order above) stays set. A null text fails and changes nothing.
  bool SetFromWKTA(const char* wkt, char** errorMessage);

  // The same for UTF-16 text, with a UTF-16 message, also released with qnFreeMem.
  bool SetFromWKTW(const wchar_t* wkt, wchar_t** errorMessage);

  // --- projection ---------------------------------------------------------------------------
  //
  // Closed series in the longitude difference. They agree with the exact projection to 1 mm within
  // a 3-degree zone and to 3 mm within a 6-degree zone; docs/geodesy.md shows the accuracy farther
  // out. Degrees are converted with pi = 3.14159265358979, deliberately. At and beyond the poles,
  // and far from the central meridian, the results are what the series give; longitude differences
  // are not wrapped.

  // Longitude and latitude (degrees) to easting and northing (metres). Deliberate: the term of the
  // sixth order in the northing is added without its factor N tan(latitude), which is to say it is
  // practically absent; within 3 degrees of the central meridian that is at most 2.5 mm.
  static void GeoToGauss(double lon, double lat, double& east, double& north,
                         const CQNProCoordinateSystem& system);

  // Easting and northing (metres) to longitude and latitude (degrees).
  static void GaussToGeo(double east, double north, double& lon, double& lat,
                         const CQNProCoordinateSystem& system);

  // --- fields -------------------------------------------------------------------------------

  // The ellipsoid; valid as long as this object.
  const CQNGeoCoordinateSystem& GetGeoSystem() const { return geo_; }

  // Degrees, east positive.
  double GetCentralMeridian() const { return central_meridian_; }

  // Metres, added to every easting.
  double GetFalseEasting() const { return false_easting_; }

  // Metres, added to every northing.
  double GetFalseNorthing() const { return false_northing_; }

  // The scale on the central meridian: 1 for Gauss-Krueger, 0.9996 for UTM.
  double GetScaleFactor() const { return scale_factor_; }

 private:
  // The order of the fields is part of the interface, as in CQNGeoCoordinateSystem.
  CQNGeoCoordinateSystem geo_;
  double central_meridian_;  // degrees, east positive
  double false_easting_;     // metres
  double false_northing_;    // metres
  double scale_factor_;
};

#endif  // QUARNFC_PROJECTED_H_
