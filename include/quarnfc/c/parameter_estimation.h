/* SPDX-License-Identifier: MIT */
/* Similarities in the plane, and parameters of shifts from points that are known in both systems,
 * in the flat C interface (quarnfc.h in this folder says how everything works; arrays of points and
 * seven parameters are as in geodesy.h and transverse_mercator.h). Any thread may call.
 *
 * The four parameters of a similarity are four doubles: the translations dE and dN (metres), a and
 * b: E' = dE + a E - b N, N' = dN + b E + a N. Its scale is sqrt(a^2 + b^2), its rotation, counter-
 * clockwise as seen on the map, atan2(b, a).
 *
 * Estimates are by least squares with equal weights. A residual is what is given minus what is
 * computed, in metres, in the order of the points; the standard deviation is that of one
 * coordinate, 0 without redundancy. Outputs other than parameters may be null; all are untouched on
 * failure.
 *
 * Example:
 *   const double from[6] = {0, 0, 100, 0, 0, 100};
 *   const double to[6] = {10, 20, 110, 20, 10, 120};
 *   double parameters[4];
 *   double deviation = 1;
 *   qncEstimateSimilarity(from, to, 3, parameters, NULL, &deviation, NULL);    // == 1
 *   lround(parameters[0]);                                                     // == 10
 *   lround(deviation * 1e6);                                                   // == 0
 *   double point[2] = {50, 50};
 *   qncApplySimilarity(parameters, point, point, 1);                           // == 1
 *   lround(point[1]);                                                          // == 70
 */
#ifndef QUARNFC_C_PARAMETER_ESTIMATION_H_
#define QUARNFC_C_PARAMETER_ESTIMATION_H_

#include <quarnfc/c/transverse_mercator.h>

/* Easting, northing in one plane to another, and back: 2 doubles a point. 1, or 0 when an argument
 * is null. Back of a similarity of scale 0 is not-a-number. */
QN_PLAIN_API int qncApplySimilarity(const double* parameters, const double* from, double* to,
                                    size_t count);
QN_PLAIN_API int qncApplySimilarityBack(const double* parameters, const double* from, double* to,
                                        size_t count);

/* The four parameters through two points or more, 2 doubles each; residuals has as many. 1, or 0
 * with QNC_ERROR_INVALID_DATA when there are fewer points, when they all coincide, or when a
 * coordinate is not finite. */
QN_PLAIN_API int qncEstimateSimilarity(const double* from, const double* to, size_t count,
                                       double* parameters, double* residuals,
                                       double* standard_deviation, CQNObject** error);

/* The seven parameters, as qncShiftDatum takes them, from three points or more in space, 3 doubles
 * each: Earth-fixed X, Y, Z, which qncGeographicToEarthFixed makes. residuals has as many;
 * parameter_deviations are seven: the standard deviations of the parameters in their units, those
 * of the translations at the centre of the points, where they are not mixed with the rotations. 1,
 * or 0 with QNC_ERROR_INVALID_DATA when there are fewer points, when they lie (nearly) on one line,
 * or when a coordinate is not finite; with QNC_ERROR_ARGUMENT for a convention that there is none.
 */
QN_PLAIN_API int qncEstimateHelmert(const double* from, const double* to, size_t count,
                                    int convention, double* parameters, double* residuals,
                                    double* standard_deviation, double* parameter_deviations,
                                    CQNObject** error);

#endif /* QUARNFC_C_PARAMETER_ESTIMATION_H_ */
