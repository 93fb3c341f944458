// SPDX-License-Identifier: MIT
// A scenario: a state is made, one operation runs while the n-th request for memory (or to the
// platform) is refused, and the state is looked at. It is run again with the next n until the
// operation completes without a refusal.
#ifndef QUARNFC_TESTS_FAILING_MEMORY_SCENARIO_H_
#define QUARNFC_TESTS_FAILING_MEMORY_SCENARIO_H_

#include <quarnfc/plain.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tests/failing_memory/door.h"

namespace failing {

// One run of a scenario.
class Attempt {
 public:
  Attempt(long n, Refusal refusal) : n_(n), refusal_(refusal) {}

  // Runs the operation behind the closed door. False when it threw what a refused request throws.
  template <class Operation>
  bool Run(Operation operation) {
    CloseDoor(n_, refusal_);
    bool completed = true;
    try {
      operation();
    } catch (const std::bad_alloc&) {
      completed = false;
    } catch (char*) {  // of system strings
      completed = false;
    }
    OpenDoor();
    refused_ = RefusedCount();
    Check(completed || refused_ > 0, "failed although nothing was refused");
    return completed;
  }

  bool WasRefused() const { return refused_ > 0; }

  void Check(bool holds, const std::string& what) {
    if (!holds) faults_.push_back(what);
  }

  const std::vector<std::string>& Faults() const { return faults_; }

 private:
  long n_;
  Refusal refusal_;
  long refused_ = 0;
  std::vector<std::string> faults_;
};

struct Scenario {
  std::string name;
  std::function<void(Attempt& attempt)> run;
};

using Scenarios = std::vector<Scenario>;

// What an operation returns that failed without throwing, as its declaration says.
inline const char kFailed[] = "(failed)";

// An operation on a state that a failure leaves as it was: afterwards the state is described by the
// same text, and the operation can be repeated with its proper result. operate(state) returns text
// that belongs to the result, or kFailed.
template <class Make, class Operate, class Describe>
Scenario Edit(std::string name, Make make, Operate operate, Describe describe) {
  return {std::move(name), [=](Attempt& attempt) {
            auto example = make();
            const std::string before = describe(*example);
            const std::string result = operate(*example);
            const std::string expected = describe(*example);
            auto state = make();
            std::string returned = kFailed;
            attempt.Run([&] { returned = operate(*state); });
            if (returned == kFailed && result != kFailed) {
              attempt.Check(attempt.WasRefused(), "failed although nothing was refused");
              attempt.Check(describe(*state) == before,
                            "changed by a failure: " + describe(*state).substr(0, 200));
              returned = operate(*state);
            }
            // A text that the converter of the system does not convert is empty or lacks it.
            if (ConverterWasRefused()) return;
            attempt.Check(returned == result, "another result: " + returned.substr(0, 200));
            attempt.Check(describe(*state) == expected,
                          "another state: " + describe(*state).substr(0, 200));
          }};
}

// An operation that leaves nothing behind but its result.
template <class Operate>
Scenario Call(std::string name, Operate operate) {
  return Edit(
      std::move(name), [] { return std::make_unique<int>(); }, [=](int&) { return operate(); },
      [](const int&) { return std::string(); });
}

inline std::string Bytes(const CQNString& text) {
  return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

// The text of a buffer that the library returned, which is released also when memory runs out.
struct Releaser {
  void operator()(void* buffer) const { qnFreeMem(buffer); }
};
template <class Unit>
using Owned = std::unique_ptr<Unit[], Releaser>;

inline std::string Take(char* text) {
  const Owned<char> owned(text);
  return text == nullptr ? kFailed : std::string(text);
}

inline std::string Take(wchar_t* text) {
  const Owned<wchar_t> owned(text);
  if (text == nullptr) return kFailed;
  std::size_t length = 0;
  while (text[length] != 0) ++length;
  return {reinterpret_cast<const char*>(text), length * sizeof(wchar_t)};
}

// The families.
Scenarios StringScenarios();
Scenarios TextScenarios();
Scenarios ObjectScenarios();
Scenarios CollectionScenarios();
Scenarios JsonValueScenarios();
Scenarios JsonObjectScenarios();
Scenarios JsonFileScenarios();
Scenarios GeoScenarios();
Scenarios CodecScenarios();
Scenarios CsvScenarios();
Scenarios CInterfaceScenarios();
Scenarios HttpScenarios();  // empty where the platform has its own internet functions

}  // namespace failing

#endif  // QUARNFC_TESTS_FAILING_MEMORY_SCENARIO_H_
