// SPDX-License-Identifier: MIT
// JSON files. Memory that runs out leaves the document read into and the old file as they were.
#include <quarnfc/json_files.h>

#include "tests/failing_memory/json_scenarios.h"
#include "tests/failing_memory/scenario.h"
#include "tests/failing_memory/scratch_file.h"

namespace failing {
namespace {

// A document and a file.
struct State {
  explicit State(const std::string& contents) : file(contents) { value.Load("[1,2]", ignored); }

  ScratchFile file;
  CQNString ignored;
  CMyJsonValue value;
  CMyJsonObj object;
};

std::string Describe(const State& state) {
  return Bytes(state.value.CreateJson(true)) + "|" + Bytes(state.object.CreateJson(true)) + "|" +
         Bytes(state.object.GetErrMsg()) + "|" + state.file.Contents();
}

struct Reader {
  const char* name;
  bool (*read)(State& state);
};

const Reader kReaders[] = {
    {"ReadJsonFile ",
     [](State& state) {
       return QNJsonUtils::ReadJsonFile(state.file.path(), state.object, nullptr);
     }},
    {"ReadJsonFileEx ",
     [](State& state) {
       return QNJsonUtils::ReadJsonFileEx(state.file.path(), state.value, nullptr);
     }},
};

// A file that cannot be read gives false; memory that runs out leaves the document.
void AddReading(Scenarios& scenarios, const JsonText& text, const std::string& mark) {
  for (const Reader& reader : kReaders) {
    const std::string contents = mark + text.text;
    scenarios.push_back({std::string(reader.name) + (mark.empty() ? "" : "UTF-8 ") + text.name,
                         [=, &reader](Attempt& attempt) {
                           State state(contents);
                           const std::string before = Describe(state);
                           bool read = false;
                           if (!attempt.Run([&] { read = reader.read(state); })) {
                             attempt.Check(Describe(state) == before, "changed by a failure");
                           }
                           attempt.Check(read || attempt.WasRefused(), "not read");
                           attempt.Check(read || reader.read(state), "not read afterwards");
                         }});
  }
}

// A false result comes with a handle unless there was no memory for one, which throws.
void AddErrors(Scenarios& scenarios, const char* name, const char* contents) {
  scenarios.push_back({std::string("the error of reading ") + name, [=](Attempt& attempt) {
                         const State state(contents);
                         CMyJsonValue value;
                         unsigned __int64 error = 0;
                         bool read = true;
                         const bool completed = attempt.Run([&] {
                           read = QNJsonUtils::ReadJsonFileEx(state.file.path(), value, &error);
                         });
                         attempt.Check(completed == (error != 0), "no handle, or one too many");
                         attempt.Check(read != completed, "read what cannot be read");
                         qnCloseHandle(error);
                       }});
}

// What is written when memory runs out: the old contents, or none of them when the disk fails.
Scenario SaveScenario(const JsonText& text, bool utf8) {
  return {"SaveJsonFileEx of " + text.name + (utf8 ? " as UTF-8" : ""),
          [&, utf8](Attempt& attempt) {
            State state("the old contents of the file");
            CQNString error;
            state.value.Load(text.text.c_str(), error);
            QNJsonUtils::SaveJsonFileEx(state.file.path(), state.value, utf8, nullptr);
            const std::string expected = state.file.Contents();
            state.file.Write("the old contents of the file");
            bool saved = false;
            const bool completed = attempt.Run([&] {
              saved = QNJsonUtils::SaveJsonFileEx(state.file.path(), state.value, utf8, nullptr);
            });
            const std::string contents = state.file.Contents();
            if (!completed) {
              attempt.Check(contents == "the old contents of the file", "the old file is gone");
            }
            if (!attempt.WasRefused()) attempt.Check(saved && contents == expected, "wrong file");
          }};
}

}  // namespace

Scenarios JsonFileScenarios() {
  Scenarios scenarios;
  for (const JsonText& text : kObjectTexts) {
    if (text.text.size() < 11) continue;  // too small for a file
    AddReading(scenarios, text, "");
    AddReading(scenarios, text, "\xEF\xBB\xBF");
    scenarios.push_back(SaveScenario(text, false));
    scenarios.push_back(SaveScenario(text, true));
  }
  AddErrors(scenarios, "a file that is too small", "{}");
  AddErrors(scenarios, "half a text", "\"a text that does not end");
  AddErrors(scenarios, "half an object", R"({"a":[1,2,3,4,5,)");
  return scenarios;
}

}  // namespace failing
