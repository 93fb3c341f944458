// SPDX-License-Identifier: MIT
// Objects: reading, writing, copying, members by key and by path. A failed operation leaves the
// object, and what was to be taken over stays the caller's. Objects that a path adds on the way may
// remain, as the declaration says.
#include "tests/failing_memory/json_scenarios.h"
#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

std::unique_ptr<CMyJsonObj> Make(const std::string& text) {
  auto object = std::make_unique<CMyJsonObj>();
  object->Load(text.c_str());
  return object;
}

std::string Describe(const CMyJsonObj& object) {
  return Bytes(object.CreateJson(true)) + "|" + Bytes(object.GetErrMsg());
}

std::string YesOrNo(bool yes) { return yes ? "yes" : "no"; }

struct Operation {
  const char* name;
  std::string (*run)(CMyJsonObj& object);
};

template <class Content>
std::string AddOwned(CMyJsonObj& object, std::unique_ptr<Content> content) {
  object.AddItem("added", content.get());
  (void)content.release();
  return {};
}

template <class Content>
std::string SetOwned(CMyJsonObj& object, const char* path, std::unique_ptr<Content> content) {
  const bool set = object.SetItem(path, content.get(), false, false);
  if (set) (void)content.release();
  return YesOrNo(set);
}

std::string Done() { return {}; }

// The first time, the index of many keys finds no memory: they are searched one by one.
std::string NumbersOfAll(const CMyJsonObj& object) {
  std::string numbers;
  for (int i = -1; i < 41; ++i) {
    int number = -1;
    const std::string key = "member " + std::to_string(i);
    object.ValueEx(key.c_str(), number, true);
    numbers += std::to_string(number) + ' ';
  }
  return numbers;
}

constexpr double kDoubles[] = {1.5, 2.5, 3.5};
constexpr int kInts[] = {1, 2, 3};

const Operation kOperations[] = {
    {"AddItem null", [](CMyJsonObj& object) { return object.AddItem("added"), Done(); }},
    {"AddItem text", [](CMyJsonObj& object) { return object.AddItem("added", "a text"), Done(); }},
    {"AddItem number", [](CMyJsonObj& object) { return object.AddItem("added", 2.5), Done(); }},
    {"AddItem int", [](CMyJsonObj& object) { return object.AddItem("added", 2), Done(); }},
    {"AddItem flag", [](CMyJsonObj& object) { return object.AddItem("added", true), Done(); }},
    {"AddItem doubles",
     [](CMyJsonObj& object) { return object.AddItem("added", kDoubles, 3), Done(); }},
    {"AddItem ints", [](CMyJsonObj& object) { return object.AddItem("added", kInts, 3), Done(); }},
    {"AddItem value",
     [](CMyJsonObj& object) { return AddOwned(object, std::make_unique<CMyJsonValue>("v")); }},
    {"AddItem object",
     [](CMyJsonObj& object) { return AddOwned(object, std::make_unique<CMyJsonObj>()); }},
    {"SetItem text, existing",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("a", "set", false, true)); }},
    {"SetItem text, new",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("set", "set", false, false)); }},
    {"SetItem number",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("a", 1.5, true, false)); }},
    {"SetItem int",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("a", 15, true, false)); }},
    {"SetItem flag",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("A", true, false, false)); }},
    {"SetItem doubles",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("a", kDoubles, 3, false, false)); }},
    {"SetItem ints",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem("new", kInts, 3, false, false)); }},
    {"SetItem value, existing",
     [](CMyJsonObj& object) {
       return SetOwned(object, "a", std::make_unique<CMyJsonValue>("value"));
     }},
    {"SetItem value, new",
     [](CMyJsonObj& object) {
       return SetOwned(object, "new", std::make_unique<CMyJsonValue>("value"));
     }},
    {"SetItem object",
     [](CMyJsonObj& object) { return SetOwned(object, "a", std::make_unique<CMyJsonObj>()); }},
    {"SetItem2Empty",
     [](CMyJsonObj& object) { return YesOrNo(object.SetItem2Empty("a", false, false)); }},
    {"DelItem", [](CMyJsonObj& object) { return object.DelItem("a"), Done(); }},
    {"DelItemEx", [](CMyJsonObj& object) { return object.DelItemEx("A", false), Done(); }},
    {"ValueEx value",
     [](CMyJsonObj& object) {
       CMyJsonValue* value = nullptr;
       return YesOrNo(object.ValueEx("A\\B\\c", value, false));
     }},
    {"ValueEx text",
     [](CMyJsonObj& object) {
       CQNString text;
       return YesOrNo(object.ValueEx("S", text, false));
     }},
    {"ValueEx of every member", [](CMyJsonObj& object) { return NumbersOfAll(object); }},
    {"Item",
     [](CMyJsonObj& object) {
       CQNString key;
       CMyJsonValue* value = nullptr;
       object.Item(0, key, value);
       return std::to_string(key.GetLength());
     }},
    {"Clone",
     [](CMyJsonObj& object) {
       const std::unique_ptr<CMyJsonObj> clone(object.Clone());
       return std::to_string(clone->ValueCount());
     }},
    {"CopyFrom itself", [](CMyJsonObj& object) { return object.CopyFrom(&object), Done(); }},
    {"CopyFrom another",
     [](CMyJsonObj& object) {
       CMyJsonObj other;
       other.AddItem("x", "y");
       return object.CopyFrom(&other), Done();
     }},
    {"CreateJson",
     [](CMyJsonObj& object) { return std::to_string(object.CreateJson(false).GetLength()); }},
    {"CreateJson, indented",
     [](CMyJsonObj& object) { return std::to_string(object.CreateJson(true).GetLength()); }},
    {"CreateUTF8Json", [](CMyJsonObj& object) { return Take(object.CreateUTF8Json(false)); }},
    {"GetErrMsg", [](CMyJsonObj& object) { return Bytes(object.GetErrMsg()); }},
};

void AddReading(Scenarios& scenarios, const JsonText& text, const JsonText& old) {
  scenarios.push_back(Edit(
      "Load " + text.name + " over " + old.name, [&] { return Make(old.text); },
      [&](CMyJsonObj& object) { return YesOrNo(object.Load(text.text.c_str())); }, Describe));
}

// Objects on the way may remain; the object stays one that can be written, and a second try
// succeeds.
Scenario SetOnTheWay(const JsonText& text) {
  return {"SetItem below new objects of " + text.name, [&](Attempt& attempt) {
            const auto object = Make(text.text);
            bool set = false;
            attempt.Run([&] { set = object->SetItem("new\\way\\to\\x", "value", false, false); });
            static_cast<void>(object->CreateJson(true));
            set = set || object->SetItem("new\\way\\to\\x", "value", false, false);
            const char* found = nullptr;
            attempt.Check(set && object->ValueEx("new\\way\\to\\x", found, false) &&
                              found == std::string("value"),
                          "the second try did not succeed");
          }};
}

}  // namespace

Scenarios JsonObjectScenarios() {
  Scenarios scenarios;
  for (const JsonText& text : kObjectTexts) {
    for (const Operation& operation : kOperations) {
      scenarios.push_back(Edit(
          std::string(operation.name) + " on " + text.name, [&] { return Make(text.text); },
          operation.run, Describe));
    }
    AddReading(scenarios, text, kObjectTexts[0]);
    AddReading(scenarios, text, kObjectTexts[2]);
    scenarios.push_back(SetOnTheWay(text));
  }
  for (const JsonText& text : kBrokenTexts) AddReading(scenarios, text, kObjectTexts[2]);
  return scenarios;
}

}  // namespace failing
