/* SPDX-License-Identifier: MIT */
/* The exact transverse Mercator projection, the official coordinate systems by EPSG code and datum
 * shifts in the flat C interface (quarnfc.h in this folder says how everything works; points and
 * threads are as in geodesy.h).
 *
 * Beside qncProjected..., whose series is closed, this projection is exact to nanometres within 30
 * degrees of the central meridian, has point scale and convergence, and takes its parameters from
 * the EPSG Dataset: eastings with the zone number in front where the code has it, southern UTM
 * zones at 32701, WGS 84 with its full flattening.
 *
 * Implemented in c/transverse_mercator.cpp and c/datum_shift.cpp.
 *
 * Example:
 *   QncTransverseMercator* zone = qncTransverseMercatorFromEpsg(4526, NULL);
 *   const double from[2] = {114.0, 0.0};
 *   double to[2];
 *   qncTransverseMercatorForward(zone, from, to, 1);    // == 1
 *   to[0];                                              // == 38500000.0
 *   qncTransverseMercatorFree(zone);
 */
#ifndef QUARNFC_C_TRANSVERSE_MERCATOR_H_
#define QUARNFC_C_TRANSVERSE_MERCATOR_H_

#include <quarnfc/c/geodesy.h>

typedef struct QncTransverseMercator QncTransverseMercator;

/* --- official systems ------------------------------------------------------------------------- */

/* The ellipsoid of any code that official_systems.h of the additions lists, such as 4490 (CGCS2000)
 * or 4326 (WGS 84, with 298.257223563): geographic, plane or Web Mercator. */
QN_PLAIN_API QncGeographic* qncGeographicFromEpsg(int code, CQNObject** error);

/* The plane system of a Gauss-Krueger or UTM code. */
QN_PLAIN_API QncTransverseMercator* qncTransverseMercatorFromEpsg(int code, CQNObject** error);

/* --- the projection --------------------------------------------------------------------------- */

/* Degrees and metres. An ellipsoid that is none gives a system whose results are not-a-number. */
QN_PLAIN_API QncTransverseMercator* qncTransverseMercatorNew(
    const QncGeographic* geographic, double central_meridian, double latitude_of_origin,
    double false_easting, double false_northing, double scale_factor, CQNObject** error);

QN_PLAIN_API void qncTransverseMercatorFree(QncTransverseMercator* system);

/* The defining numbers; outputs may be null. 0, with the outputs untouched, for a null system. */
QN_PLAIN_API int qncTransverseMercatorParameters(const QncTransverseMercator* system,
                                                 double* central_meridian,
                                                 double* latitude_of_origin, double* false_easting,
                                                 double* false_northing, double* scale_factor);

/* Longitude, latitude to easting, northing and back: 2 doubles a point. Not-a-number where there is
 * no result: beyond the poles, and 90 degrees and more from the central meridian. 1, or 0 when an
 * argument is null. */
QN_PLAIN_API int qncTransverseMercatorForward(const QncTransverseMercator* system,
                                              const double* from, double* to, size_t count);
QN_PLAIN_API int qncTransverseMercatorInverse(const QncTransverseMercator* system,
                                              const double* from, double* to, size_t count);

/* Longitude, latitude to point scale and convergence (degrees, from true to grid north, clockwise
 * positive): 2 doubles a point. 1, or 0 when an argument is null. */
QN_PLAIN_API int qncTransverseMercatorScale(const QncTransverseMercator* system, const double* from,
                                            double* to, size_t count);

/* --- datum shifts ----------------------------------------------------------------------------- */

/* What a positive rotation turns: the point about the axes (EPSG method 1033), or the axes about
 * the point, with the signs the other way round (EPSG method 1032, usual in China). */
enum { QNC_POSITION_VECTOR = 1, QNC_COORDINATE_FRAME = 2 };

/* Longitude, latitude, height on one ellipsoid to another: 3 doubles a point. parameters are seven
 * doubles: translations along X, Y, Z (metres), rotations about X, Y, Z (arc-seconds), scale (parts
 * per million); three zeros and a zero at the end make it a shift by three. 1, or 0 when an
 * argument is null or the convention is none of the above. */
QN_PLAIN_API int qncShiftDatum(const QncGeographic* from_system, const QncGeographic* to_system,
                               const double* parameters, int convention, const double* from,
                               double* to, size_t count);

/* The exact inverse: from_system is where qncShiftDatum with these parameters led to. */
QN_PLAIN_API int qncShiftDatumBack(const QncGeographic* from_system, const QncGeographic* to_system,
                                   const double* parameters, int convention, const double* from,
                                   double* to, size_t count);

#endif /* QUARNFC_C_TRANSVERSE_MERCATOR_H_ */
