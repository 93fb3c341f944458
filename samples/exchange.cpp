// SPDX-License-Identifier: MIT
// Data from other programs: a station list in any encoding, a coordinate system as GIS software
// writes it, and the result as JSON in a file that is whole or not there.
// Usage: sample_exchange [STATIONS.json [RESULT.json]]
#include <quarnfc/ext/encoded_text.h>
#include <quarnfc/ext/json_access.h>
#include <quarnfc/ext/json_load.h>
#include <quarnfc/ext/json_write.h>
#include <quarnfc/ext/owners.h>
#include <quarnfc/ext/wkt_system.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

using quarnfc::ext::EastNorth;
using quarnfc::ext::Elements;
using quarnfc::ext::ErrorHandle;
using quarnfc::ext::JsonDocument;
using quarnfc::ext::JsonFault;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::LoadJsonUtf8;
using quarnfc::ext::ReadWktSystem;
using quarnfc::ext::SaveJson;
using quarnfc::ext::TextDecoder;
using quarnfc::ext::TransverseMercator;
using quarnfc::ext::ValueOr;
using quarnfc::ext::WktReport;
using quarnfc::ext::WriteJson;

namespace {

constexpr char kStations[] =
    "[{\"name\": \"Wuhan\", \"lon\": 114.3055, \"lat\": 30.5928},\n"
    " {\"name\": \"Changsha\", \"lon\": 112.9388, \"lat\": 28.2282}]";

constexpr char kSystem[] =
    "PROJCS[\"CGCS2000_3_Degree_GK_Zone_38\",GEOGCS[\"GCS_China_Geodetic_Coordinate_System_2000\","
    "DATUM[\"D_China_2000\",SPHEROID[\"CGCS2000\",6378137.0,298.257222101]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Gauss_Kruger\"],"
    "PARAMETER[\"False_Easting\",38500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",114.0],PARAMETER[\"Scale_Factor\",1.0],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

int Fail(const std::string& why) {
  std::fprintf(stderr, "%s\n", why.c_str());
  return 1;
}

std::string ReadAll(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Adds easting and northing to each station.
void Project(JsonDocument& stations, const TransverseMercator& projection) {
  for (CMyJsonValue* station : Elements(stations.Root())) {
    CMyJsonObj* const members = station->ValueObj();
    if (members == nullptr) continue;
    const EastNorth plane =
        projection.Forward({ValueOr(*station, "/lon", 0.0), ValueOr(*station, "/lat", 0.0)});
    members->AddItem("east", plane.east);
    members->AddItem("north", plane.north);
  }
}

}  // namespace

int main(int argc, char** argv) {
  TextDecoder decoder;
  std::string utf8;
  if (!decoder.Decode(argc > 1 ? ReadAll(argv[1]) : kStations, true, utf8)) {
    return Fail("no text from byte " + std::to_string(decoder.ErrorOffset()) + " on");
  }
  JsonTextError fault;
  JsonDocument stations(LoadJsonUtf8(utf8, &fault).release());
  if (fault.fault != JsonFault::kNone) {
    return Fail(std::to_string(fault.line) + ":" + std::to_string(fault.column) + ": " +
                fault.Message());
  }
  WktReport report;
  const auto system = ReadWktSystem(kSystem, &report);
  if (!system) return Fail(report.error);
  Project(stations, system->Projection());

  const auto text = WriteJson(stations.Root(), {2, "\n"});
  if (!text) return Fail("a station holds what JSON cannot say");
  std::puts(text->c_str());
  ErrorHandle error;
  if (argc > 2 && !SaveJson(argv[2], stations.Root(), error.Out())) return Fail(error.Message());
  return 0;
}
