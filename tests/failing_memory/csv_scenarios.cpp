// SPDX-License-Identifier: MIT
// CSV files. Whatever fails, the reader can be rewound and then delivers every row.
#include <quarnfc/csv.h>

#include "tests/failing_memory/scenario.h"
#include "tests/failing_memory/scratch_file.h"

namespace failing {
namespace {

struct Csv {
  const char* name;
  std::string text;
};

const Csv kFiles[] = {
    {"nothing", ""},
    {"a header", "name,lon,lat\n"},
    {"rows", "name,lon\nx,1\ny,2\nz,3\n"},
    {"quotes", "a,\"b \"\"q\"\"\",c\n\"1,2\",\"\n\",3\n"},
    {"long fields", "a,b\n" + std::string(200, 'x') + "," + std::string(700, 'y') + "\n"},
    {"UTF-8", "\xEF\xBB\xBF\xE5\x90\x8D,b\n\xE9\x95\xBF\xE6\xB2\x99,2\n"},
    {"many fields", "a,b,c,d,e,f,g,h,i,j,k,l,m\n1,2,3,4,5,6,7,8,9,10,11,12,13\n"},
};

using Row = std::vector<CQNString>;

std::string Fields(const Row& row) {
  std::string text;
  for (const CQNString& field : row) text += Bytes(field) + "|";
  return text + '\n';
}

std::string RestOf(CQNCSVFileReader& reader) {
  std::string text;
  Row row;
  reader.GetFields(row);
  text += Fields(row);
  while (reader.NextRow(row)) text += Fields(row);
  return text;
}

struct State {
  explicit State(const Csv& csv) : file(csv.text) {}
  ScratchFile file;
  CQNCSVFileReader reader;
};

struct Operation {
  const char* name;
  bool opened;
  void (*run)(State& state);
};

const Operation kOperations[] = {
    {"Open", false, [](State& state) { state.reader.Open(state.file.path()); }},
    {"Open again", true, [](State& state) { state.reader.Open(state.file.path()); }},
    {"Open nothing", true, [](State& state) { state.reader.Open("no such file"); }},
    {"Open null", true, [](State& state) { state.reader.Open(nullptr); }},
    {"GetFields", true,
     [](State& state) {
       Row row;
       state.reader.GetFields(row);
     }},
    {"NextRow", true,
     [](State& state) {
       Row row;
       state.reader.NextRow(row);
     }},
    {"every row", true,
     [](State& state) {
       Row row;
       while (state.reader.NextRow(row)) {
       }
     }},
    {"GoToFirstRow", true, [](State& state) { state.reader.GoToFirstRow(); }},
    {"NextRow without a file", false,
     [](State& state) {
       Row row;
       state.reader.NextRow(row);
     }},
    {"a copy", true,
     [](State& state) {
       CQNCSVFileReader copy(state.reader);
       copy.GoToFirstRow();
     }},
    {"an assigned copy", true,
     [](State& state) {
       CQNCSVFileReader copy;
       copy = state.reader;
       copy.GoToFirstRow();
     }},
};

Scenario ReadScenario(const Csv& csv, const Operation& operation) {
  return {std::string(operation.name) + " of " + csv.name, [&](Attempt& attempt) {
            State state(csv);
            state.reader.Open(state.file.path());
            const std::string expected = RestOf(state.reader);
            if (!operation.opened) state.reader = CQNCSVFileReader();
            if (operation.opened) state.reader.GoToFirstRow();
            attempt.Run([&] { operation.run(state); });
            state.reader.Open(state.file.path());
            attempt.Check(RestOf(state.reader) == expected, "other rows");
          }};
}

// A row that memory did not suffice for is passed over; those behind it are delivered.
Scenario NextRowScenario(const Csv& csv) {
  return {std::string("the rows behind a failure of ") + csv.name, [&](Attempt& attempt) {
            State state(csv);
            state.reader.Open(state.file.path());
            Row first;
            const bool has_row = state.reader.NextRow(first);
            const std::string expected = RestOf(state.reader);
            state.reader.GoToFirstRow();
            Row row;
            bool read = false;
            const bool completed = attempt.Run([&] { read = state.reader.NextRow(row); });
            if (completed && read) attempt.Check(Fields(row) == Fields(first), "another row");
            if (completed && !read && has_row) {
              attempt.Check(state.reader.GetLastError()[0] != '\0', "no message");
            } else {
              attempt.Check(RestOf(state.reader) == expected, "other rows behind it");
            }
          }};
}

}  // namespace

Scenarios CsvScenarios() {
  Scenarios scenarios;
  for (const Csv& csv : kFiles) {
    for (const Operation& operation : kOperations) {
      scenarios.push_back(ReadScenario(csv, operation));
    }
    scenarios.push_back(NextRowScenario(csv));
  }
  return scenarios;
}

}  // namespace failing
