/* SPDX-License-Identifier: MIT */
/* Coordinate systems of the flat C interface (quarnfc.h in this folder says how everything works).
 *
 * Angles are degrees, lengths metres; the east-west quantity comes first. Points are arrays of
 * doubles, count points one behind the other with 2 doubles (longitude, latitude; easting,
 * northing) or 3 (longitude, latitude, height; X, Y, Z) each; from and to may be the same array.
 * Nothing is checked: what is no number stays none.
 *
 * Systems never change after they are made: any number of threads may use one.
 *
 * Implemented in c/geographic.cpp and c/projected.cpp.
 *
 * Example:
 *   QncProjected* zone = qncProjectedFromEpsg(4547, NULL); // CGCS2000, central meridian 114
 *   const double from[2] = {114.0, 0.0};
 *   double to[2];
 *   qncProject(zone, from, to, 1);            // == 1
 *   to[0];                                    // == 500000.0
 *   qncProjectedFree(zone);
 */
#ifndef QUARNFC_C_GEODESY_H_
#define QUARNFC_C_GEODESY_H_

#include <quarnfc/c/base.h>

typedef struct QncGeographic QncGeographic;
typedef struct QncProjected QncProjected;

enum {
  QNC_BEIJING54 = 1,
  QNC_XIAN80 = 2,
  QNC_CGCS2000 = 3,
  QNC_WGS84 = 4 /* with the inverse flattening 298.257 */
};

/* --- geographic systems --------------------------------------------------------------------- */

/* One of the systems above; null for another number. */
QN_PLAIN_API QncGeographic* qncGeographicKnown(int system, CQNObject** error);

/* The ellipsoid with this semi-major axis and inverse flattening. */
QN_PLAIN_API QncGeographic* qncGeographicNew(double semi_major_axis, double inverse_flattening,
                                             CQNObject** error);

/* The ellipsoid of a GEOGCS or PROJCS text. */
QN_PLAIN_API QncGeographic* qncGeographicFromWkt(const char* wkt, CQNObject** error);

QN_PLAIN_API void qncGeographicFree(QncGeographic* system);

/* The system as a GEOGCS text. */
QN_PLAIN_API char* qncGeographicWkt(const QncGeographic* system, CQNObject** error);

/* The defining numbers; outputs may be null. 0, with the outputs untouched, for a null system. */
QN_PLAIN_API int qncGeographicEllipsoid(const QncGeographic* system, double* semi_major_axis,
                                        double* inverse_flattening);

/* Longitude, latitude, height to Earth-fixed X, Y, Z and back: 3 doubles a point. 1, or 0 when an
 * argument is null. */
QN_PLAIN_API int qncGeographicToEarthFixed(const QncGeographic* system, const double* from,
                                           double* to, size_t count);
QN_PLAIN_API int qncEarthFixedToGeographic(const QncGeographic* system, const double* from,
                                           double* to, size_t count);

/* --- projected systems (Transverse Mercator) -------------------------------------------------- */

QN_PLAIN_API QncProjected* qncProjectedNew(const QncGeographic* geographic, double central_meridian,
                                           double false_easting, double false_northing,
                                           double scale_factor, CQNObject** error);

/* The system of a PROJCS text whose projection is Transverse_Mercator. */
QN_PLAIN_API QncProjected* qncProjectedFromWkt(const char* wkt, CQNObject** error);

/* A Gauss-Krueger system or UTM zone by its EPSG code, as CQNProCoordinateSystem::setByEPSGCode
 * understands them: false eastings are always 500000, southern UTM zones are 32501 to 32560. */
QN_PLAIN_API QncProjected* qncProjectedFromEpsg(int code, CQNObject** error);

/* A UTM zone, 1 to 60, negative on the southern hemisphere. */
QN_PLAIN_API QncProjected* qncProjectedFromUtmZone(int zone, CQNObject** error);

QN_PLAIN_API void qncProjectedFree(QncProjected* system);

/* The system as a PROJCS text. */
QN_PLAIN_API char* qncProjectedWkt(const QncProjected* system, CQNObject** error);

/* A new handle of the geographic system that it is based on. */
QN_PLAIN_API QncGeographic* qncProjectedGeographic(const QncProjected* system, CQNObject** error);

/* The defining numbers; outputs may be null. 0, with the outputs untouched, for a null system. */
QN_PLAIN_API int qncProjectedParameters(const QncProjected* system, double* central_meridian,
                                        double* false_easting, double* false_northing,
                                        double* scale_factor);

/* Longitude, latitude to easting, northing and back: 2 doubles a point. 1, or 0 when an argument is
 * null. Accurate to 3 mm within 3 degrees of the central meridian. */
QN_PLAIN_API int qncProject(const QncProjected* system, const double* from, double* to,
                            size_t count);
QN_PLAIN_API int qncUnproject(const QncProjected* system, const double* from, double* to,
                              size_t count);

/* Longitude, latitude to Web Mercator x, y and back: 2 doubles a point. 1, or 0 when an argument is
 * null. */
QN_PLAIN_API int qncProjectWebMercator(const double* from, double* to, size_t count);
QN_PLAIN_API int qncUnprojectWebMercator(const double* from, double* to, size_t count);

#endif /* QUARNFC_C_GEODESY_H_ */
