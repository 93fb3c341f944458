// SPDX-License-Identifier: MIT
// CQNGeoCoordinateSystem: a geographic coordinate system, described by its reference ellipsoid.
//
// Units and order: angles in degrees, lengths in metres, and in every argument list the east-west
// quantity before the north-south one (longitude before latitude). Longitudes are east positive,
// latitudes north positive; nothing is wrapped or clamped.
//
// A plain value: 128 bytes, standard layout, copyable bit for bit, no resources. 8-bit text is in
// the process ANSI code page, wide text is UTF-16. Texts that a member returns are released with
// qnFreeMem.
//
// Threads: const members and the static conversions may be called from any thread; one object must
// not be changed while another thread uses it. The predefined systems exist as soon as the module
// is loaded and never change.
//
// Implemented in geo/ellipsoid.cpp, geographic_wkt.cpp and earth_fixed.cpp.
//
// Example:
//   CQNGeoCoordinateSystem system;                      // Beijing54
//   char* error = nullptr;
//   system.SetFromWKTA("GEOGCS[\"x\",DATUM[\"x\",SPHEROID[\"x\",6378137,298.257222101]]]",
//                      &error);                         // == true
//   system == CQNGeoCoordinateSystem::CGCS2000;         // == true
//   double x = 0, y = 0, z = 0;
//   CQNGeoCoordinateSystem::LonLat2ECI(0.0, 0.0, 0.0, x, y, z, system);
//   x;                                                  // == 6378137.0
//   char* text = system.CreateWKT();
//   qnFreeMem(text);
#ifndef QUARNFC_GEOGRAPHIC_H_
#define QUARNFC_GEOGRAPHIC_H_

#include <quarnfc/export.h>
#include <quarnfc/plain.h>
#include <quarnfc/platform_types.h>

// See the head of this file.
class QN_API CQNGeoCoordinateSystem {
 public:
  // --- predefined systems -------------------------------------------------------------------

  static const CQNGeoCoordinateSystem Beijing54;  // Krassowsky 1940: 6378245, 1/298.3
  static const CQNGeoCoordinateSystem XiAn80;     // 6378140, 1/298.257
  // 6378137, 1/298.257. Deliberately the shortened inverse flattening, not 298.257223563: texts
  // written by CreateWKT and comparisons depend on it. Against the full value the semi-minor axis
  // is 16 mm shorter.
  static const CQNGeoCoordinateSystem WGS84;
  static const CQNGeoCoordinateSystem CGCS2000;  // 6378137, 1/298.257222101

  // --- construction and comparison ----------------------------------------------------------

  // A copy of Beijing54, deliberately not of WGS84.
  CQNGeoCoordinateSystem();

  // The ellipsoid with this semi-major axis (metres) and inverse flattening; see set.
  CQNGeoCoordinateSystem(double semiMajorAxis, double inverseFlattening);

  // Copies all sixteen fields.
  CQNGeoCoordinateSystem(const CQNGeoCoordinateSystem& other) = default;
  CQNGeoCoordinateSystem& operator=(const CQNGeoCoordinateSystem& other) = default;

  // Sets the ellipsoid and everything derived from it. Nothing is checked: an axis or an inverse
  // flattening of 0 gives infinities and NaN. A sphere cannot be expressed by 0; an infinite
  // inverse flattening gives one.
  void set(double semiMajorAxis, double inverseFlattening);

  // Equal when the semi-major axes differ by less than 0.001 m and the inverse flattenings by less
  // than 1e-7. A system with NaN equals nothing, itself included.
  bool operator==(const CQNGeoCoordinateSystem& other) const;

  // The opposite of ==.
  bool operator!=(const CQNGeoCoordinateSystem& other) const;

  // --- Well-Known Text ----------------------------------------------------------------------

  // The system as a GEOGCS text, released with qnFreeMem. The names written are those of the first
  // predefined system that this one equals, tried in the order Beijing54, XiAn80, CGCS2000, WGS84,
  // and "Unknown" when it equals none: so (6378137, 298.257223563) is written as "Unknown". The
  // degree unit has 17 digits for the two older systems and 15 for all others, deliberately. The
  // text is at most 511 bytes; numbers of hundreds of digits are cut there.
  char* CreateWKT() const;

  // Takes the ellipsoid from GEOGCS\DATUM\SPHEROID of a text, or from PROJCS\GEOGCS\DATUM\SPHEROID
  // when it is a projected system's. Nothing else of the text is used: neither names nor prime
  // meridian nor unit. Only square brackets are understood, and numbers without an exponent.
  //
  // On failure the result is false, the system keeps its value, and *errorMessage (when
  // errorMessage is not null) receives a new message, released with qnFreeMem. On success
  // *errorMessage is left alone. A null text fails. Text that is not in the ANSI code page reads
  // as the code page's replacement character.
  bool SetFromWKTA(const char* wkt, char** errorMessage);

  // The same for UTF-16 text, with a UTF-16 message, also released with qnFreeMem.
  bool SetFromWKTW(const wchar_t* wkt, wchar_t** errorMessage);

  // --- Earth-fixed Cartesian coordinates ----------------------------------------------------
  //
  // X points to longitude 0 on the equator, Y to longitude 90 east, Z to the north pole. Despite
  // the letters ECI the frame turns with the Earth: no time enters.

  // Geodetic to Cartesian: longitude and latitude in degrees, height above the ellipsoid and
  // results in metres.
  static void LonLat2ECI(double lon, double lat, double height, double& x, double& y, double& z,
                         const CQNGeoCoordinateSystem& system);

  // Cartesian to geodetic. The foot point on the ellipsoid is found by Newton's method to 1e-12 of
  // its equation, which leaves up to a few microns in the height. Where that cannot converge
  // (coordinates whose squares overflow, not-a-number, ellipsoids that are none) the point where
  // the ray from the centre meets the surface is used instead, so that every call returns. Within
  // about a third of the radius from the centre the same point is used at once and the result is
  // not meaningful; at the centre itself it is NaN. A height of 0 can come back as -0.0,
  // deliberately: only a point strictly outside is positive.
  static void ECI2LonLat(double x, double y, double z, double& lon, double& lat, double& height,
                         const CQNGeoCoordinateSystem& system);

  // The frame of east, north and up at a Cartesian origin (metres), as a matrix for column
  // vectors: matrix[row][column], with the unit vectors east, north and up in columns 0 to 2 and
  // the origin in column 3, or zeros there when withTranslation is false (a pure rotation). The
  // last row is 0, 0, 0, 1. On the polar axis east and north are zero vectors: there is no special
  // case for the poles.
  static void EastNorthUpToFixedFrame(double x, double y, double z, bool withTranslation,
                                      double matrix[4][4], const CQNGeoCoordinateSystem& system);

  // --- the ellipsoid ------------------------------------------------------------------------
  //
  // Each returns a field that set computed. a, b: semi-axes in metres; e: first eccentricity;
  // n: third flattening.

  // a, in metres.
  double GetSemiMajorAxis() const { return semi_major_axis_; }

  // b, in metres.
  double GetSemiMinorAxis() const { return semi_minor_axis_; }

  // a / (a - b), as it was given to set.
  double GetInverseFlattening() const { return inverse_flattening_; }

  // e = sqrt(1 - (b/a)^2).
  double GetFirstEccentricity() const { return first_eccentricity_; }

  // e' = sqrt((a/b)^2 - 1).
  double GetSecondEccentricity() const { return second_eccentricity_; }

  // a^2, in square metres.
  double GetSemiMajorAxisSquared() const { return semi_major_axis_squared_; }

  // b^2, in square metres.
  double GetSemiMinorAxisSquared() const { return semi_minor_axis_squared_; }

  // n = (a - b) / (a + b).
  double GetThirdFlattening() const { return third_flattening_; }

  // a * A0: the length of a meridian arc per radian of rectifying latitude, in metres.
  double GetRectifyingRadius() const { return rectifying_radius_; }

  // Footpoint latitude as a series in the rectifying latitude mu, up to sin 6mu deliberately:
  // mu + F2 sin 2mu + F4 sin 4mu + F6 sin 6mu.
  double GetFootpointCoefficient2() const { return footpoint2_; }
  double GetFootpointCoefficient4() const { return footpoint4_; }
  double GetFootpointCoefficient6() const { return footpoint6_; }

  // Meridian arc from the equator to a latitude phi, divided by a:
  // A0 phi - A2 sin 2phi + A4 sin 4phi - A6 sin 6phi.
  double GetArcCoefficient0() const { return arc0_; }
  double GetArcCoefficient2() const { return arc2_; }
  double GetArcCoefficient4() const { return arc4_; }
  double GetArcCoefficient6() const { return arc6_; }

 private:
  // The order of the fields is part of the interface: hosts may copy them as sixteen doubles.
  double semi_major_axis_;          // a, metres
  double semi_minor_axis_;          // b = a (1 - 1 / inverse flattening), metres
  double inverse_flattening_;       // as given to set
  double first_eccentricity_;       // e = sqrt(1 - (b/a)^2)
  double second_eccentricity_;      // e' = sqrt((a/b)^2 - 1)
  double semi_major_axis_squared_;  // a^2
  double semi_minor_axis_squared_;  // b^2
  double third_flattening_;         // n = (1 - b/a) / (1 + b/a)
  double rectifying_radius_;        // a A0, metres
  double footpoint2_;               // 3n/2 - 27n^3/32
  double footpoint4_;               // 21n^2/16 - 55n^4/32
  double footpoint6_;               // 151n^3/96
  double arc0_;                     // 1 - e^2/4 - 3e^4/64 - 5e^6/256
  double arc2_;                     // 3e^2/8 + 3e^4/32 + 45e^6/1024
  double arc4_;                     // 15e^4/256 + 45e^6/1024
  double arc6_;                     // 35e^6/3072
};

#endif  // QUARNFC_GEOGRAPHIC_H_
