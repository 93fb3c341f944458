/* SPDX-License-Identifier: MIT */
/* Local plane systems whose lengths fit the ground, in the flat C interface (quarnfc.h in this
 * folder says how everything works): scale at a height, and compensated height planes. Lengths are
 * metres, angles degrees. Any thread may call.
 *
 * A length measured at the height H above the ellipsoid shrinks by about H / R on its way down and
 * grows by about y^2 / (2 R^2) on its way into the plane, y metres from the central meridian. Where
 * both cancel the plane shows true lengths. (GB 50026 asks for at most 25 mm a kilometre.)
 *
 * Example:
 *   // a town at 1,900 m, 40 km east of the central meridian
 *   QncGeographic* ellipsoid = qncGeographicKnown(QNC_CGCS2000, NULL);
 *   const double radius = qncMeanRadius(ellipsoid, 25.0);
 *   const double plane = qncCompensationHeight(1900.0, 40000.0, radius);
 *   lround(plane);    // == 1774
 *   QncGeographic* raised = qncGeographicRaised(ellipsoid, plane, 25.0, NULL);
 *   QncTransverseMercator* town =
 *       qncTransverseMercatorNew(raised, 102.0, 0.0, 500000.0, 0.0, 1.0, NULL);
 *   qncTransverseMercatorFree(town);
 *   qncGeographicFree(raised);
 *   qncGeographicFree(ellipsoid);
 */
#ifndef QUARNFC_C_HEIGHT_PLANE_H_
#define QUARNFC_C_HEIGHT_PLANE_H_

#include <quarnfc/c/transverse_mercator.h>

/* The mean radius of curvature at a latitude; not-a-number for a null system. */
QN_PLAIN_API double qncMeanRadius(const QncGeographic* system, double latitude);

/* Plane length divided by ground length: the point scale of a projection, as
 * qncTransverseMercatorScale gives it, carried up to a height above the ellipsoid. */
QN_PLAIN_API double qncCombinedScale(double point_scale, double height, double radius);

/* The same as a deformation in millimetres a kilometre (parts per million). */
QN_PLAIN_API double qncDeformation(double point_scale, double height, double radius);

/* The height of the plane, above the ellipsoid, for which lengths at the ground height and offset
 * metres from the central meridian keep their size: H - y^2 / (2 R). It can be negative. */
QN_PLAIN_API double qncCompensationHeight(double ground_height, double offset, double radius);

/* The offset from the central meridian at which lengths at the ground height keep their size in a
 * plane at plane_height; not-a-number when the plane lies above the ground. */
QN_PLAIN_API double qncCompensatedOffset(double ground_height, double plane_height, double radius);

/* An ellipsoid of the same flattening whose normal at a latitude is longer by the height of the
 * plane. Geographic positions keep their numbers; projected on it they give coordinates at that
 * height. */
QN_PLAIN_API QncGeographic* qncGeographicRaised(const QncGeographic* system, double height,
                                                double latitude, CQNObject** error);

#endif /* QUARNFC_C_HEIGHT_PLANE_H_ */
