// SPDX-License-Identifier: MIT
// The exported names compared with the record: a name that appears or vanishes is a decision.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "support/build_paths.h"
#include "tests/module/module_image.h"

namespace {

std::set<std::string> Recorded() {
  std::set<std::string> names;
  std::ifstream file(QUARNFC_EXPORT_RECORD);
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) names.insert(line);
  }
  return names;
}

// Nobody imports the type information of a pointer to an exported class: who catches one has his
// own. Whether the module's leaves it depends on what the optimiser has seen.
bool IsPointerTypeInformation(const std::string& name) { return name.rfind("_ZTIP", 0) == 0; }

}  // namespace

TEST(ModuleExports, NamesAreThoseOfTheRecord) {
  const std::set<std::string> names = module_image::ExportedNames();
  const std::set<std::string> recorded = Recorded();
  for (const std::string& name : names) {
    if (IsPointerTypeInformation(name)) continue;
    EXPECT_EQ(recorded.count(name), 1u) << "new, not in the record: " << name;
  }
  for (const std::string& name : recorded) {
    EXPECT_EQ(names.count(name), 1u) << "in the record, no longer exported: " << name;
  }
}
