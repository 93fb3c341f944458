// SPDX-License-Identifier: MIT
// Collections of numbers, strings and objects, of sizes around those at which they grow. A failed
// operation leaves items and count; what was to be added stays the caller's.
#include <quarnfc/collection.h>
#include <quarnfc/object_collection.h>
#include <quarnfc/string_collection.h>

#include <cstdint>

#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

constexpr int kSizes[] = {0, 1, 2, 4, 6, 9, 100};

std::unique_ptr<CQNCollection> Numbers(int count) {
  auto numbers = std::make_unique<CQNCollection>();
  for (int i = 1; i <= count; ++i) numbers->Add(static_cast<unsigned __int64>(i));
  return numbers;
}

std::unique_ptr<CQNStringCollection> Strings(int count) {
  auto strings = std::make_unique<CQNStringCollection>();
  for (int i = 0; i < count; ++i) strings->CloneAdd(std::to_string(i).c_str());
  return strings;
}

std::unique_ptr<CQNObjectCollection> Objects(int count) {
  auto objects = std::make_unique<CQNObjectCollection>();
  for (int i = 0; i < count; ++i) {
    auto object = std::make_unique<CQNObject>();
    objects->Add(object.get());
    (void)object.release();
  }
  return objects;
}

std::string DescribeNumbers(const CQNCollection& numbers) {
  std::string text;
  for (int i = 0; i < numbers.Count(); ++i) text += std::to_string(numbers.Item(i)) + ",";
  return text;
}

std::string DescribeStrings(const CQNStringCollection& strings) {
  std::string text;
  for (int i = 0; i < strings.Count(); ++i) {
    text += strings.GetStr(i) == nullptr ? "(null)" : strings.GetStr(i);
    text += ',';
  }
  return text;
}

std::string DescribeObjects(const CQNObjectCollection& objects) {
  std::string text;
  for (int i = 0; i < objects.Count(); ++i) text += objects.GetObj(i) == nullptr ? '0' : 'o';
  return text;
}

template <class Collection>
struct Operation {
  const char* name;
  void (*run)(Collection& collection);
};

const Operation<CQNCollection> kNumberOperations[] = {
    {"Add", [](CQNCollection& numbers) { numbers.Add(77); }},
    {"InsertAt the front", [](CQNCollection& numbers) { numbers.InsertAt(0, 77); }},
    {"InsertAt outside", [](CQNCollection& numbers) { numbers.InsertAt(-1, 77); }},
    {"RemoveAt", [](CQNCollection& numbers) { numbers.RemoveAt(0); }},
    {"RemoveAll", [](CQNCollection& numbers) { numbers.RemoveAll(); }},
    {"SetLogicalLength, more", [](CQNCollection& numbers) { numbers.SetLogicalLength(150); }},
    {"SetLogicalLength, less", [](CQNCollection& numbers) { numbers.SetLogicalLength(1); }},
    {"SetPhysicalLength", [](CQNCollection& numbers) { numbers.SetPhysicalLength(200); }},
    {"Find", [](CQNCollection& numbers) { numbers.Find(3, 0); }},
};

const Operation<CQNStringCollection> kStringOperations[] = {
    {"CloneAdd", [](CQNStringCollection& strings) { strings.CloneAdd("added"); }},
    {"CloneAdd null", [](CQNStringCollection& strings) { strings.CloneAdd(nullptr); }},
    {"Add",
     [](CQNStringCollection& strings) {
       Owned<char> text(CQNString("owned").AllocANSIString());
       strings.Add(text.get());
       text.release();
     }},
    {"RemoveAt", [](CQNStringCollection& strings) { strings.RemoveAt(0); }},
    {"RemoveAll", [](CQNStringCollection& strings) { strings.RemoveAll(); }},
    {"SetLogicalLength", [](CQNStringCollection& strings) { strings.SetLogicalLength(150); }},
    {"Find", [](CQNStringCollection& strings) { strings.Find("3", false, 0); }},
};

const Operation<CQNObjectCollection> kObjectOperations[] = {
    {"Add",
     [](CQNObjectCollection& objects) {
       auto object = std::make_unique<CQNObject>();
       objects.Add(object.get());
       (void)object.release();
     }},
    {"RemoveAt", [](CQNObjectCollection& objects) { objects.RemoveAt(0); }},
    {"RemoveAll", [](CQNObjectCollection& objects) { objects.RemoveAll(); }},
    {"SetLogicalLength", [](CQNObjectCollection& objects) { objects.SetLogicalLength(150); }},
};

template <class Collection, std::size_t kCount>
void Add(Scenarios& scenarios, const std::string& family,
         const Operation<Collection> (&operations)[kCount],
         std::unique_ptr<Collection> (*make)(int count),
         std::string (*describe)(const Collection& collection)) {
  for (const int size : kSizes) {
    const std::string of = " of " + std::to_string(size) + " " + family;
    for (const Operation<Collection>& operation : operations) {
      scenarios.push_back(Edit(
          operation.name + of, [=] { return make(size); },
          [&](Collection& collection) {
            operation.run(collection);
            return std::string();
          },
          describe));
    }
    scenarios.push_back(Call("made and destroyed," + of, [=] { return describe(*make(size)); }));
  }
}

// These append one by one: what is in when memory runs out stays, in order and counted.
Scenario AppendScenario(int size, bool copy) {
  const std::string name = copy ? "CopyFrom of " : "Append of ";
  return {name + std::to_string(size) + " numbers", [=](Attempt& attempt) {
            const auto source = Numbers(size);
            const auto target = Numbers(3);
            attempt.Run([&] { copy ? target->CopyFrom(*source) : target->Append(*source); });
            const int kept = copy ? 0 : 3;
            attempt.Check(target->Count() >= kept && target->Count() <= kept + size, "count");
            if (!copy) attempt.Check(target->Item(2) == 3, "the old items are gone");
          }};
}

}  // namespace

Scenarios CollectionScenarios() {
  Scenarios scenarios;
  Add(scenarios, "numbers", kNumberOperations, Numbers, DescribeNumbers);
  Add(scenarios, "strings", kStringOperations, Strings, DescribeStrings);
  Add(scenarios, "objects", kObjectOperations, Objects, DescribeObjects);
  for (const int size : kSizes) {
    scenarios.push_back(AppendScenario(size, false));
    scenarios.push_back(AppendScenario(size, true));
  }
  return scenarios;
}

}  // namespace failing
