// SPDX-License-Identifier: MIT
#include <quarnfc/c/wkt_system.h>
#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/ext/utf8_text.h>
#include <quarnfc/ext/wkt_system.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "c/geodesy_handle.h"
#include "c/transverse_mercator_handle.h"

struct QncWktSystem {
  quarnfc::ext::WktSystem system;
  std::vector<std::string> not_honoured;
};

namespace {

using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewHandle;
using quarnfc::ext::SystemKind;
using quarnfc::ext::WktReport;

QncWktSystem* Read(std::string_view wkt) {
  if (!quarnfc::ext::IsUtf8(wkt)) {
    throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: the WKT is not UTF-8");
  }
  WktReport report;
  const auto system = quarnfc::ext::ReadWktSystem(wkt, &report);
  if (system) return new QncWktSystem{*system, std::move(report.not_honoured)};
  const std::string reason = "Quarn: " + quarnfc::ext::AnsiFromUtf8(report.error);
  throw Failure(QNC_ERROR_INVALID_DATA, reason.c_str());
}

int KindOf(SystemKind kind) {
  switch (kind) {
    case SystemKind::kGeographic:
      return QNC_WKT_GEOGRAPHIC;
    case SystemKind::kTransverseMercator:
      return QNC_WKT_TRANSVERSE_MERCATOR;
    case SystemKind::kWebMercator:
      return QNC_WKT_WEB_MERCATOR;
  }
  return 0;
}

}  // namespace

QncWktSystem* qncWktSystemRead(const char* wkt, CQNObject** error) {
  return GuardedNew(error, [=] { return Read(Given(wkt)); });
}

void qncWktSystemFree(QncWktSystem* system) { delete system; }

int qncWktSystemKind(const QncWktSystem* system) {
  return system == nullptr ? 0 : KindOf(system->system.kind);
}

const char* qncWktSystemName(const QncWktSystem* system) {
  return system == nullptr ? nullptr : system->system.name.c_str();
}

const char* qncWktSystemDatum(const QncWktSystem* system) {
  return system == nullptr ? nullptr : system->system.datum.c_str();
}

double qncWktSystemUnit(const QncWktSystem* system) {
  return system == nullptr ? 1 : system->system.unit;
}

int qncWktSystemIsNorthFirst(const QncWktSystem* system) {
  return system != nullptr && system->system.north_first ? 1 : 0;
}

int qncWktSystemNotHonouredCount(const QncWktSystem* system) {
  return system == nullptr ? 0 : static_cast<int>(system->not_honoured.size());
}

const char* qncWktSystemNotHonoured(const QncWktSystem* system, int index) {
  if (index < 0 || index >= qncWktSystemNotHonouredCount(system)) return nullptr;
  return system->not_honoured[static_cast<std::size_t>(index)].c_str();
}

QncGeographic* qncWktSystemGeographic(const QncWktSystem* system, CQNObject** error) {
  return GuardedNew(error, [=] { return NewHandle(Given(system)->system.ellipsoid); });
}

QncTransverseMercator* qncWktSystemTransverseMercator(const QncWktSystem* system,
                                                      CQNObject** error) {
  return GuardedNew(error, [=] {
    if (qncWktSystemKind(Given(system)) == QNC_WKT_TRANSVERSE_MERCATOR) {
      return new QncTransverseMercator{system->system.Projection()};
    }
    throw Failure(QNC_ERROR_ARGUMENT, "Quarn: the WKT is no transverse Mercator system");
  });
}
