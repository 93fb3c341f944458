/* SPDX-License-Identifier: MIT */
/* Coordinate systems from Well-Known Text as other programs write it, in the flat C interface
 * (quarnfc.h in this folder says how everything works): WKT 1 as GDAL and Esri have it ("Gauss_
 * Kruger" included), WKT 2 (ISO 19162) as PROJ has it.
 *
 * It stands beside qncProjectedFromWkt, which reads the library's own texts and passes over units,
 * prime meridians and the latitude of origin. Here whatever would move coordinates is honoured or
 * refused, and the rest that is not honoured is said:
 *
 * - Honoured: ellipsoid; transverse Mercator (Gauss-Krueger) with all its parameters; Web Mercator;
 *   the unit of length of the coordinates; the order of the axes.
 *
 * - Refused: other projections; prime meridians but Greenwich; angles but degrees; axes that do not
 *   point east and north; derived systems.
 *
 * - Passed over, and said: shifts to WGS 84, heights, epochs, keywords that are not known.
 *
 * A QncWktSystem never changes: any number of threads may use one.
 *
 * Example:
 *   QncWktSystem* system = qncWktSystemRead(
 *       "PROJCS[\"zone\",GEOGCS[\"CGCS2000\",DATUM[\"D_China_2000\",TOWGS84[0,0,0],"
 *       "SPHEROID[\"S\",6378137,298.257222101]],UNIT[\"degree\",0.0174532925199433]],"
 *       "PROJECTION[\"Gauss_Kruger\"],PARAMETER[\"Central_Meridian\",114],"
 *       "PARAMETER[\"False_Easting\",500000],UNIT[\"metre\",1]]", NULL);
 *   qncWktSystemKind(system);              // == QNC_WKT_TRANSVERSE_MERCATOR
 *   qncWktSystemDatum(system);             // == "CGCS2000"
 *   qncWktSystemNotHonoured(system, 0);    // == "TOWGS84 in DATUM"
 *   QncTransverseMercator* zone = qncWktSystemTransverseMercator(system, NULL);
 *   double point[2] = {114.0, 0.0};
 *   qncTransverseMercatorForward(zone, point, point, 1);    // == 1
 *   point[0];                                               // == 500000.0
 *   qncTransverseMercatorFree(zone);
 *   qncWktSystemFree(system);
 */
#ifndef QUARNFC_C_WKT_SYSTEM_H_
#define QUARNFC_C_WKT_SYSTEM_H_

#include <quarnfc/c/transverse_mercator.h>

typedef struct QncWktSystem QncWktSystem;

enum { QNC_WKT_GEOGRAPHIC = 1, QNC_WKT_TRANSVERSE_MERCATOR = 2, QNC_WKT_WEB_MERCATOR = 3 };

/* Reads a text. Null with QNC_ERROR_INVALID_DATA when it is broken or says what cannot be honoured:
 * the message says why, in English (characters of the text that the code page lacks are question
 * marks in it). */
QN_PLAIN_API QncWktSystem* qncWktSystemRead(const char* wkt, CQNObject** error);

QN_PLAIN_API void qncWktSystemFree(QncWktSystem* system);

/* One of QNC_WKT_...; 0 for a null system. */
QN_PLAIN_API int qncWktSystemKind(const QncWktSystem* system);

/* The name in the text; the datum: "CGCS2000", "WGS 84", "Xian 1980", "Beijing 1954", or what the
 * text says. Borrowed from the system; null for a null one. */
QN_PLAIN_API const char* qncWktSystemName(const QncWktSystem* system);
QN_PLAIN_API const char* qncWktSystemDatum(const QncWktSystem* system);

/* Metres in a unit of the coordinates that the text speaks of, 1 for a geographic system and for a
 * null one. */
QN_PLAIN_API double qncWktSystemUnit(const QncWktSystem* system);

/* Whether the text has the north axis before the east one: 1 or 0. */
QN_PLAIN_API int qncWktSystemIsNorthFirst(const QncWktSystem* system);

/* How many things in the text were passed over, and the one at index, in English, borrowed from the
 * system; null when there is none. */
QN_PLAIN_API int qncWktSystemNotHonouredCount(const QncWktSystem* system);
QN_PLAIN_API const char* qncWktSystemNotHonoured(const QncWktSystem* system, int index);

/* A new handle of the ellipsoid. */
QN_PLAIN_API QncGeographic* qncWktSystemGeographic(const QncWktSystem* system, CQNObject** error);

/* A new handle of the projection, whose plane coordinates are metres and east first, whatever the
 * text says. Null with QNC_ERROR_ARGUMENT unless the kind is QNC_WKT_TRANSVERSE_MERCATOR;
 * qncProjectWebMercator has the other projection. */
QN_PLAIN_API QncTransverseMercator* qncWktSystemTransverseMercator(const QncWktSystem* system,
                                                                   CQNObject** error);

#endif /* QUARNFC_C_WKT_SYSTEM_H_ */
