// SPDX-License-Identifier: MIT
// String utilities: splitting, wildcards, paths, conversion, records; time text.
#include <quarnfc/string_utils.h>
#include <quarnfc/time_utils.h>

#include <cstdio>

#include "core/text/transcode.h"
#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

const std::string kManyPieces = [] {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "piece of a row,";
  return text;
}();

const char* const kSplit[] = {
    "",
    ",",
    "a",
    "a,b",
    "a,,b,",
    " a , b ,",
    "longer than a short buffer,and another one",
    "\xD6\xD0,\xB9\xFA",
    kManyPieces.c_str(),
};

std::string Joined(const std::vector<char*>& pieces) {
  std::string joined;
  for (const char* piece : pieces) joined += std::string(piece) + "|";
  return joined;
}

// The pieces that are in the array when splitting fails are the caller's, as always.
struct Pieces {
  std::vector<char*> array;
  ~Pieces() { QNStringUtils::FreeStrArr(array); }
};

void AddSplitting(Scenarios& scenarios) {
  for (const char* text : kSplit) {
    scenarios.push_back(Call(std::string("SplitStr ") + text, [=] {
      Pieces pieces;
      QNStringUtils::SplitStr(text, ',', pieces.array);
      return Joined(pieces.array);
    }));
    scenarios.push_back(Call(std::string("qnSplitStr and AdjustStrArr ") + text, [=] {
      Pieces pieces;
      qnSplitStr(text, ',', pieces.array);
      QNStringUtils::AdjustStrArr(pieces.array, true, true);
      return Joined(pieces.array);
    }));
  }
}

struct Pair {
  const char* first;
  const char* second;
};

const Pair kWildcards[] = {
    {"*", ""},
    {"*.txt", "a.TXT"},
    {"?\xD6\xD0*", "a\xD6\xD0\xB9\xFA"},
    {"a*b*c", "aXbYc"},
    {"", ""},
    {"????????", "too short"},
    {kManyPieces.c_str(), kManyPieces.c_str()},
    {"*piece*row,", kManyPieces.c_str()},
};

const Pair kPaths[] = {
    {"C:\\data\\maps", "x.json"},
    {"C:\\data\\maps", "..\\x.json"},
    {"C:\\data\\maps\\", ".\\x"},
    {"C:/a/b/c", "../../d/e"},
    {"C:", "..\\x"},
    {"", ""},
    {"base", "\\\\server\\share"},
    {"base", "D:\\absolute"},
    {"base", "..name"},
    {"base", "...."},
    {kManyPieces.c_str(), "..\\x"},
    {"a\\b", kManyPieces.c_str()},
    {"\xD6\xD0\\\xB9\xFA", "..\\\xB9"},
    {"a\\b\\c\\d", "..\\..\\..\\..\\..\\x"},
};

void AddPairs(Scenarios& scenarios) {
  for (const Pair& pair : kWildcards) {
    for (const bool sensitive : {false, true}) {
      scenarios.push_back(Call(std::string("StrIsMatching ") + pair.first, [=] {
        return std::string(QNStringUtils::StrIsMatching(pair.first, pair.second, sensitive) ? "yes"
                                                                                            : "no");
      }));
    }
  }
  for (const Pair& pair : kPaths) {
    const std::string name = std::string(pair.first) + " and " + pair.second;
    scenarios.push_back(Call("qnUnionPath of " + name, [=] {
      const Owned<char> joined(qnUnionPath(pair.first, pair.second));
      return joined == nullptr ? std::string("none") : std::string(joined.get());
    }));
    scenarios.push_back(Call("qnUnionPathEx of " + name, [=] {
      CQNString base(pair.first);
      CQNString path(pair.second);
      const bool is_joined = qnUnionPathEx(base, path);
      return Bytes(base) + (is_joined ? "+" : "-") + Bytes(path);
    }));
  }
}

const std::string kChinese = [] {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "\xD6\xD0\xB9\xFA";
  return text;
}();

const char* const kConverted[] = {"a", "\xD6\xD0\xB9\xFA", kManyPieces.c_str(), kChinese.c_str()};

void AddConversions(Scenarios& scenarios) {
  using quarnfc::Encoding;
  for (const char* text : kConverted) {
    for (const Encoding encoding : {Encoding::kAnsi, Encoding::kUtf8}) {
      const std::string size = std::to_string(std::char_traits<char>::length(text));
      scenarios.push_back(Call("a new wide text of " + size + " bytes",
                               [=] { return Take(quarnfc::ToWide(encoding, text).release()); }));
      scenarios.push_back(Call("a wide text for a moment of " + size + " bytes", [=] {
        const quarnfc::WideScratch wide(encoding, text);
        return Take(quarnfc::FromWide(encoding, wide.Text()).release());
      }));
    }
    scenarios.push_back(Call("a string from wide text", [=] {
      const auto wide = quarnfc::ToWide(Encoding::kAnsi, text);
      return Bytes(CQNString(wide.get()));
    }));
  }
}

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void AddRecords(Scenarios& scenarios) {
  for (const std::size_t size : {0u, 1u, 63u, 64u, 500u, 600u, 10239u}) {
    const auto make = [=] {
      auto state = std::make_unique<std::pair<std::unique_ptr<std::FILE, FileCloser>, CQNString>>();
      state->first.reset(std::tmpfile());
      state->second = "old";
      QNStringUtils::WriteString(state->first.get(), CQNString('r', static_cast<int>(size)));
      return state;
    };
    scenarios.push_back(Edit(
        "ReadString of " + std::to_string(size) + " bytes", make,
        [](auto& state) {
          std::rewind(state.first.get());
          return std::string(QNStringUtils::ReadString(state.first.get(), state.second) ? "yes"
                                                                                        : "no");
        },
        [](const auto& state) { return Bytes(state.second); }));
    scenarios.push_back(Edit(
        "WriteString of " + std::to_string(size) + " bytes", make,
        [](auto& state) {
          QNStringUtils::WriteString(state.first.get(), state.second);
          return std::string();
        },
        [](const auto& state) { return Bytes(state.second); }));
  }
}

void AddTimes(Scenarios& scenarios) {
  scenarios.push_back(
      Call("FormatTime", [] { return Bytes(QNTimeUtils::FormatTime(1000000000)); }));
  scenarios.push_back(Call("GetCurFormatTime", [] {
    return std::to_string(QNTimeUtils::GetCurFormatTime().GetLength());
  }));
  for (const char* text : {"", "2020-01-02 03:04:05", "2020-1-2", " x ", "2020/01/02 03:04:05",
                           "2020-01-02 03:04:05 and a tail that is longer than a short buffer"}) {
    scenarios.push_back(Call(std::string("GetTimeFromStr ") + text,
                             [=] { return std::to_string(QNTimeUtils::GetTimeFromStr(text)); }));
  }
}

}  // namespace

Scenarios TextScenarios() {
  Scenarios scenarios;
  AddSplitting(scenarios);
  AddPairs(scenarios);
  AddConversions(scenarios);
  AddRecords(scenarios);
  AddTimes(scenarios);
  return scenarios;
}

}  // namespace failing
