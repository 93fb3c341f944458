// SPDX-License-Identifier: MIT
// Every scenario with its n-th request refused, once and for ever after, until it completes: no
// crash, no block lost, and the state that the declarations promise.
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

constexpr long kMostRequests = 100000;

// Runs the scenario with the n-th request refused; whether one was.
bool RunOnce(const Scenario& scenario, long n, Refusal refusal) {
  const long before = LiveBlocks();
  bool refused = false;
  std::string faults;
  {
    Attempt attempt(n, refusal);
    scenario.run(attempt);
    refused = attempt.WasRefused();
    for (const std::string& fault : attempt.Faults()) faults += "\n  " + fault;
  }
  // The text of the faults itself may be a block.
  const bool lost = faults.empty() && LiveBlocks() != before;
  if (lost) faults += "\n  blocks lost: " + std::to_string(LiveBlocks() - before);
  if (!faults.empty()) {
    ADD_FAILURE() << scenario.name << ", request " << n
                  << (refusal == Refusal::kOnce ? " refused once" : " and all after it refused")
                  << faults;
  }
  return refused && faults.empty();
}

void RunScenario(const Scenario& scenario) {
  {
    // What is made on first use stays.
    Attempt first(0, Refusal::kOnce);
    scenario.run(first);
  }
  for (const Refusal refusal : {Refusal::kOnce, Refusal::kEver}) {
    long n = 1;
    while (n < kMostRequests && RunOnce(scenario, n, refusal)) ++n;
    ASSERT_LT(n, kMostRequests) << scenario.name;
  }
}

struct Family {
  const char* name;
  Scenarios (*scenarios)();
};

constexpr Family kFamilies[] = {
    {"Strings", StringScenarios},        {"Texts", TextScenarios},
    {"Objects", ObjectScenarios},        {"Collections", CollectionScenarios},
    {"JsonValues", JsonValueScenarios},  {"JsonObjects", JsonObjectScenarios},
    {"JsonFiles", JsonFileScenarios},    {"Geodesy", GeoScenarios},
    {"Codecs", CodecScenarios},          {"Csv", CsvScenarios},
    {"CInterface", CInterfaceScenarios}, {"Http", HttpScenarios},
};

class FailingMemory : public testing::TestWithParam<Family> {};

TEST_P(FailingMemory, LeavesTheStatedStateAndNothingBehind) {
  for (const Scenario& scenario : GetParam().scenarios()) RunScenario(scenario);
}

INSTANTIATE_TEST_SUITE_P(AllFamilies, FailingMemory, testing::ValuesIn(kFamilies),
                         [](const auto& family) { return std::string(family.param.name); });

TEST(FailingMemoryScenarios, AreAThousandAndMore) {
  std::size_t count = 0;
  for (const Family& family : kFamilies) {
    const std::size_t scenarios = family.scenarios().size();
    std::printf("%-12s %5zu scenarios\n", family.name, scenarios);
    count += scenarios;
  }
  std::printf("%-12s %5zu scenarios\n", "all", count);
  EXPECT_GE(count, 1000u);
}

}  // namespace
}  // namespace failing
