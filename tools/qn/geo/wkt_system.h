// SPDX-License-Identifier: MIT
// Coordinate systems as WKT for commands.
#ifndef QN_GEO_WKT_SYSTEM_H_
#define QN_GEO_WKT_SYSTEM_H_

#include <quarnfc/ext/wkt_system.h>

#include <string_view>

namespace qn {

using quarnfc::ext::WktSystem;

// Reads what the library honours and notes on standard error what it passes over. Throws Failure
// that says what is broken or not honoured.
WktSystem ReadWktSystem(std::string_view text);

}  // namespace qn

#endif  // QN_GEO_WKT_SYSTEM_H_
