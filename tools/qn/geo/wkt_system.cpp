// SPDX-License-Identifier: MIT
#include "qn/geo/wkt_system.h"

#include <optional>
#include <string>

#include "qn/console.h"
#include "qn/errors.h"

namespace qn {

WktSystem ReadWktSystem(std::string_view text) {
  quarnfc::ext::WktReport report;
  const std::optional<WktSystem> system = quarnfc::ext::ReadWktSystem(text, &report);
  if (!system) throw Failure(report.error);
  for (const std::string& what : report.not_honoured) {
    PrintNote("of the WKT this is not honoured: " + what);
  }
  return *system;
}

}  // namespace qn
