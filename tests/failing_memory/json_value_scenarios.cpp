// SPDX-License-Identifier: MIT
// Values: reading, writing, copying, editing arrays. A failed operation leaves the value, and what
// was to be taken over stays the caller's.
#include "tests/failing_memory/json_scenarios.h"
#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

struct State {
  CMyJsonValue value;
  CQNString error;
};

std::unique_ptr<State> Make(const std::string& text) {
  auto state = std::make_unique<State>();
  state->value.Load(text.c_str(), state->error);
  return state;
}

std::string Describe(const State& state) {
  return std::to_string(state.value.Type()) + Bytes(state.value.CreateJson(true)) + "|" +
         Bytes(state.error);
}

std::string YesOrNo(bool yes) { return yes ? "yes" : "no"; }

struct Operation {
  const char* name;
  std::string (*run)(CMyJsonValue& value);
};

const CMyJsonValue& TwoNumbers() {
  static const int kNumbers[] = {1, 2};
  static const CMyJsonValue value(kNumbers, 2);
  return value;
}

template <class Content>
std::string Move(CMyJsonValue& array, std::unique_ptr<Content> content) {
  const bool moved = array.MoveToArr(content.get(), 1);
  if (moved) (void)content.release();
  return YesOrNo(moved);
}

const Operation kOperations[] = {
    {"Clone",
     [](CMyJsonValue& value) {
       const std::unique_ptr<CMyJsonValue> clone(value.Clone());
       return std::to_string(clone->Type());
     }},
    {"CopyFrom another",
     [](CMyJsonValue& value) {
       value.CopyFrom(&TwoNumbers());
       return std::string();
     }},
    {"CopyFrom itself",
     [](CMyJsonValue& value) {
       value.CopyFrom(&value);
       return std::string();
     }},
    {"CopyFrom its element",
     [](CMyJsonValue& value) {
       value.CopyFrom(value.ValueArrItem(0));
       return std::string();
     }},
    {"AddToArr number", [](CMyJsonValue& value) { return YesOrNo(value.AddToArr(7.5, 1)); }},
    {"AddToArr int", [](CMyJsonValue& value) { return YesOrNo(value.AddToArr(7, -1)); }},
    {"AddToArr flag", [](CMyJsonValue& value) { return YesOrNo(value.AddToArr(true, 0)); }},
    {"AddToArr text",
     [](CMyJsonValue& value) { return YesOrNo(value.AddToArr("an added text", 0)); }},
    {"AddToArr value",
     [](CMyJsonValue& value) { return YesOrNo(value.AddToArr(TwoNumbers().ValueArrItem(0), 0)); }},
    {"AddToArr object",
     [](CMyJsonValue& value) {
       CMyJsonObj object;
       object.AddItem("k", "v");
       return YesOrNo(value.AddToArr(&object, 0));
     }},
    {"MoveToArr value",
     [](CMyJsonValue& value) { return Move(value, std::make_unique<CMyJsonValue>(5)); }},
    {"MoveToArr object",
     [](CMyJsonValue& value) { return Move(value, std::make_unique<CMyJsonObj>()); }},
    {"ValueArrItem",
     [](CMyJsonValue& value) {
       const CMyJsonValue* last = value.ValueArrItem(value.ValueArrLength() - 1);
       return last != nullptr ? std::to_string(last->ValueNumber()) : std::string();
     }},
    {"RemoveFromArr",
     [](CMyJsonValue& value) {
       value.RemoveFromArr(0, true);
       return std::string();
     }},
};

void AddOperations(Scenarios& scenarios, const JsonText& text) {
  for (const Operation& operation : kOperations) {
    scenarios.push_back(Edit(
        std::string(operation.name) + " on " + text.name, [&] { return Make(text.text); },
        [&](State& state) { return operation.run(state.value); }, Describe));
  }
}

// Large arrays of floats and the like have a constructor each.
template <class Number>
Scenario FromNumbers(const std::string& type) {
  return Call("from an array of " + type, [] {
    const Number numbers[] = {1, 2, 3, 4, 5, 6, 7};
    const CMyJsonValue value(numbers, 7);
    return Bytes(value.CreateJson(false));
  });
}

void AddConstructors(Scenarios& scenarios) {
  scenarios.push_back(FromNumbers<float>("float"));
  scenarios.push_back(FromNumbers<double>("double"));
  scenarios.push_back(FromNumbers<int>("int"));
  scenarios.push_back(FromNumbers<unsigned int>("unsigned int"));
  scenarios.push_back(FromNumbers<unsigned short>("unsigned short"));
  scenarios.push_back(FromNumbers<short>("short"));
  scenarios.push_back(FromNumbers<unsigned char>("unsigned char"));
  scenarios.push_back(
      Call("from a text", [] { return std::string(CMyJsonValue("text").ValueStr()); }));
  scenarios.push_back(Call("from an object", [] {
    auto object = std::make_unique<CMyJsonObj>();
    const CMyJsonValue value(object.get());
    (void)object.release();
    return Bytes(value.CreateJson(false));
  }));
  scenarios.push_back(Call("new (std::nothrow)", [] {
    const std::unique_ptr<CMyJsonValue> value(new (std::nothrow) CMyJsonValue(1));
    return value == nullptr ? std::string(kFailed) : std::string();
  }));
  // The values become the array's only when it is there.
  scenarios.push_back({"from an array of values", [](Attempt& attempt) {
                         std::unique_ptr<CMyJsonValue> one = std::make_unique<CMyJsonValue>(1);
                         CMyJsonValue* const values[] = {one.get()};
                         std::unique_ptr<CMyJsonValue> array;
                         attempt.Run([&] { array = std::make_unique<CMyJsonValue>(values, 1); });
                         if (array != nullptr) (void)one.release();
                       }});
}

void AddReading(Scenarios& scenarios, const JsonText& text, const JsonText& old) {
  scenarios.push_back(Edit(
      "Load " + text.name + " over " + old.name, [&] { return Make(old.text); },
      [&](State& state) { return YesOrNo(state.value.Load(text.text.c_str(), state.error)); },
      Describe));
}

void AddWriting(Scenarios& scenarios, const JsonText& text) {
  for (const bool indent : {false, true}) {
    const std::string how = indent ? ", indented, of " : " of ";
    scenarios.push_back(Edit(
        "CreateJson" + how + text.name, [&] { return Make(text.text); },
        [=](State& state) { return std::to_string(state.value.CreateJson(indent).GetLength()); },
        Describe));
    scenarios.push_back(Edit(
        "CreateUTF8Json" + how + text.name, [&] { return Make(text.text); },
        [=](State& state) { return Take(state.value.CreateUTF8Json(indent)); }, Describe));
  }
}

}  // namespace

Scenarios JsonValueScenarios() {
  Scenarios scenarios;
  AddConstructors(scenarios);
  for (const JsonText& text : kValueTexts) {
    AddOperations(scenarios, text);
    AddWriting(scenarios, text);
    for (const int old : {0, 1, 7}) AddReading(scenarios, text, kValueTexts[old]);
  }
  for (const JsonText& text : kBrokenTexts) AddReading(scenarios, text, kValueTexts[7]);
  return scenarios;
}

}  // namespace failing
