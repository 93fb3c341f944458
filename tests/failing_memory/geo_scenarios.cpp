// SPDX-License-Identifier: MIT
// Coordinate systems from and to their text. A geographic system keeps its values when reading
// fails; a projected one has what was read before, as its declaration says.
#include <quarnfc/projected.h>

#include "core/text/transcode.h"
#include "geo/wkt_reader.h"
#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

struct Wkt {
  const char* name;
  std::string text;
};

std::string WktOf(const CQNGeoCoordinateSystem& system) { return Take(system.CreateWKT()); }
std::string WktOf(const CQNProCoordinateSystem& system) { return Take(system.CreateWKT()); }

const CQNProCoordinateSystem& Projected() {
  static const CQNProCoordinateSystem system(CQNGeoCoordinateSystem::CGCS2000, 114, 500000, 0, 1);
  return system;
}

const std::vector<Wkt>& Wkts() {
  static const std::vector<Wkt> wkts = {
      {"a geographic system", WktOf(CQNGeoCoordinateSystem::WGS84)},
      {"a projected system", WktOf(Projected())},
      {"no text", ""},
      {"no WKT", "this is not WKT"},
      {"half a system", WktOf(Projected()).substr(0, 150)},
      {"a bare node", "GEOGCS[]"},
      {"no spheroid", R"(GEOGCS["x",DATUM["y",UNIT["z",1]]])"},
      {"a foreign projection",
       R"(PROJCS["p",GEOGCS["g",DATUM["d",SPHEROID["s",6378137,298.25]]],PROJECTION["Mercator"]])"},
      {"deep",
       [] {
         std::string text;
         for (int i = 0; i < 30; ++i) text += "A[";
         return text + std::string(30, ']');
       }()},
      {"Chinese",
       "GEOGCS[\"\xD6\xD0\xB9\xFA\",DATUM[\"\xB3\xA4\xC9\xB3\",SPHEROID[\"a\",6378137,298]]]"},
  };
  return wkts;
}

template <class System>
void AddReading(Scenarios& scenarios, const std::string& family, const Wkt& wkt,
                std::unique_ptr<System> (*make)(), std::string (*describe)(const System&)) {
  const std::string name = family + " from " + wkt.name;
  scenarios.push_back(Edit(
      name, make,
      [&](System& system) {
        return std::string(system.SetFromWKTA(wkt.text.c_str(), nullptr) ? "read" : "refused");
      },
      describe));
  scenarios.push_back(Edit(
      name + ", with a message", make,
      [&](System& system) {
        char* message = nullptr;
        const bool read = system.SetFromWKTA(wkt.text.c_str(), &message);
        return read ? std::string("read") : "refused" + Take(message);
      },
      describe));
  scenarios.push_back(Edit(
      name + ", wide, with a message", make,
      [&](System& system) {
        const auto wide = quarnfc::ToWide(quarnfc::Encoding::kAnsi, wkt.text.c_str());
        wchar_t* message = nullptr;
        const bool read = system.SetFromWKTW(wide.get(), &message);
        return read ? std::string("read") : "refused" + Take(message);
      },
      describe));
}

// Nodes and parameters by path, whose pieces must not be lost.
void AddTrees(Scenarios& scenarios, const Wkt& wkt) {
  scenarios.push_back(Call(std::string("a tree from ") + wkt.name, [&] {
    quarnfc::geo::CWKTDef root;
    CQNString error;
    const bool read = root.Parse(wkt.text.c_str(), error);
    const bool found = read && root.Find(R"(PROJCS\GEOGCS\DATUM\SPHEROID)") != nullptr;
    return (read ? "read " : "refused ") + std::string(found ? "with" : "without") + Bytes(error);
  }));
}

}  // namespace

Scenarios GeoScenarios() {
  Scenarios scenarios;
  for (const Wkt& wkt : Wkts()) {
    AddReading<CQNGeoCoordinateSystem>(
        scenarios, "a geographic system", wkt,
        [] { return std::make_unique<CQNGeoCoordinateSystem>(CQNGeoCoordinateSystem::Beijing54); },
        [](const CQNGeoCoordinateSystem& system) { return WktOf(system); });
    AddReading<CQNProCoordinateSystem>(
        scenarios, "a projected system", wkt,
        [] {
          return std::make_unique<CQNProCoordinateSystem>(CQNGeoCoordinateSystem::XiAn80, 105, 1, 2,
                                                          1);
        },
        [](const CQNProCoordinateSystem&) { return std::string(); });
    AddTrees(scenarios, wkt);
  }
  scenarios.push_back(
      Call("CreateWKT, geographic", [] { return WktOf(CQNGeoCoordinateSystem::XiAn80); }));
  scenarios.push_back(Call("CreateWKT, projected", [] { return WktOf(Projected()); }));
  return scenarios;
}

}  // namespace failing
