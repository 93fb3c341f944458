/* SPDX-License-Identifier: MIT */
/* Zones of the Gauss-Krueger and UTM systems in the flat C interface (quarnfc.h in this folder says
 * how everything works): numbers, central meridians, eastings with the zone number in front. The
 * functions allocate nothing and know no errors; any thread may call them.
 *
 * A width is 3 or 6 degrees. Zones of 6 degrees have the central meridian 6z - 3, zones of 3
 * degrees 3z. China lies in the zones 13 to 23 of 6 degrees and 24 to 45 of 3 degrees.
 *
 * Example:
 *   qncGaussZone(114.3055, 3);           // == 38
 *   qncBestZone(113.0, 114.6, 3);        // == 38
 *   qncCentralMeridian(38, 3);           // == 114.0
 *   qncPrefixEasting(38, 529283.25);     // == 38529283.25
 */
#ifndef QUARNFC_C_ZONES_H_
#define QUARNFC_C_ZONES_H_

#include <quarnfc/export.h>

/* The zone of a longitude in degrees, any turn of the Earth; a longitude between two zones belongs
 * to the eastern one. 0 for another width and for what is no number. */
QN_PLAIN_API int qncGaussZone(double longitude, int width);

/* The central meridian of a zone in degrees, above -180 and at most 180; not-a-number for another
 * width and for a zone that there is none. */
QN_PLAIN_API double qncCentralMeridian(int zone, int width);

/* The zone whose central meridian is nearest to the middle of an extent from west to east (degrees;
 * east below west spans the meridian of 180 degrees): no other zone keeps its farthest point
 * nearer. 0 for another width and for what is no number. */
QN_PLAIN_API int qncBestZone(double west, double east, int width);

/* The UTM zone of a position in degrees, 1 to 60, with the exceptions of Norway and Svalbard;
 * negative on the southern hemisphere, as qncProjectedFromUtmZone takes it. 0 outside the latitudes
 * -80 to 84. */
QN_PLAIN_API int qncUtmZone(double longitude, double latitude);

/* The easting (with the false easting of 500,000 m) behind its zone number: 529283.4 in zone 38 is
 * 38529283.4. */
QN_PLAIN_API double qncPrefixEasting(int zone, double easting);

/* Takes the zone number off an easting; outputs may be null. 0, with the outputs untouched, unless
 * it has one of the numbers used in China in front of six digits. */
QN_PLAIN_API int qncSplitEasting(double prefixed, int* zone, double* easting, int* width);

#endif /* QUARNFC_C_ZONES_H_ */
