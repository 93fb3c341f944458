// SPDX-License-Identifier: MIT
// Coordinate systems as WKT 1, read so that nothing that matters is passed over: what is not
// honoured is refused.
//
//   node  = keyword ( "[" | "(" ) value *( "," value ) ( "]" | ")" )
//   value = node | DQUOTE text DQUOTE | number | word
//
// A projected system is a transverse Mercator, which some call Gauss_Kruger, on a datum whose prime
// meridian is Greenwich and whose angles are degrees. Axes are not read: qn always has its own
// order.
#ifndef QN_GEO_WKT_SYSTEM_H_
#define QN_GEO_WKT_SYSTEM_H_

#include <quarnfc/ext/coordinates.h>
#include <quarnfc/ext/transverse_mercator.h>

#include <string>
#include <string_view>

namespace qn {

struct WktSystem {
  bool projected = false;
  std::string datum;  // "CGCS2000", "WGS 84", "Xian 1980", "Beijing 1954", or what the text says
  quarnfc::ext::Ellipsoid ellipsoid;
  quarnfc::ext::TransverseMercatorParameters parameters;  // metres
  double unit = 1;                                        // metres in a unit of the coordinates
};

// Throws Failure that says what is broken or not honoured.
WktSystem ReadWktSystem(std::string_view text);

}  // namespace qn

#endif  // QN_GEO_WKT_SYSTEM_H_
