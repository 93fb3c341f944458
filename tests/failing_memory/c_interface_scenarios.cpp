// SPDX-License-Identifier: MIT
// The flat C interface: a failure is an error handle with the code for exhausted memory or, when
// there is no memory for the handle either, null; no exception ever leaves it.
#include <quarnfc/c/codec.h>
#include <quarnfc/c/csv.h>
#include <quarnfc/c/encoded_text.h>
#include <quarnfc/c/files.h>
#include <quarnfc/c/geodesy.h>
#include <quarnfc/c/json.h>

#include "tests/failing_memory/json_scenarios.h"
#include "tests/failing_memory/scenario.h"
#include "tests/failing_memory/scratch_file.h"

namespace failing {
namespace {

struct Json {
  void operator()(QncJson* json) const { qncJsonFree(json); }
};
using JsonOwner = std::unique_ptr<QncJson, Json>;

// Runs a C function that must not throw; with a failure the handle, when there is one, has a code.
template <class Function>
Scenario CCall(std::string name, Function function) {
  return {std::move(name), [=](Attempt& attempt) {
            CQNObject* error = nullptr;
            bool succeeded = false;
            const bool completed = attempt.Run([&] { succeeded = function(&error); });
            attempt.Check(completed, "an exception left a C function");
            attempt.Check(!succeeded || error == nullptr, "success with an error");
            attempt.Check(error == nullptr || qncErrorCode(error) != QNC_ERROR_NONE, "no code");
            attempt.Check(succeeded || attempt.WasRefused() || error != nullptr, "no error");
            qnCloseHandle(error);
          }};
}

template <class Unit>
bool Freed(Unit* buffer) {
  qnFreeMem(buffer);
  return buffer != nullptr;
}

const char kUtf8Document[] = "{\"a\":[1,\"\xE9\x95\xBF\xE6\xB2\x99\",{\"b\":null}],\"n\":2.5}";

JsonOwner Parsed() { return JsonOwner(qncJsonParse(kUtf8Document, nullptr)); }

void AddTexts(Scenarios& scenarios) {
  for (const char* text : {"", "ascii", "\xE9\x95\xBF\xE6\xB2\x99", "\xFF broken"}) {
    scenarios.push_back(CCall(std::string("qncAnsiFromUtf8 ") + text, [=](CQNObject** error) {
      return Freed(qncAnsiFromUtf8(text, error));
    }));
    scenarios.push_back(CCall(std::string("qncUtf8FromAnsi ") + text, [=](CQNObject** error) {
      return Freed(qncUtf8FromAnsi(text, error));
    }));
    scenarios.push_back(CCall(std::string("qncBase64Decode ") + text, [=](CQNObject** error) {
      size_t size = 0;
      return Freed(qncBase64Decode(text, &size, error));
    }));
    scenarios.push_back(CCall(std::string("qncBase32Decode ") + text, [=](CQNObject** error) {
      size_t size = 0;
      return Freed(qncBase32Decode(text, &size, error));
    }));
  }
  for (const size_t size : {0u, 1u, 100u, 1000u}) {
    static const char kData[1000] = {};
    const std::string of = " of " + std::to_string(size) + " bytes";
    scenarios.push_back(CCall("qncBase64Encode" + of, [=](CQNObject** error) {
      return Freed(qncBase64Encode(kData, size, error));
    }));
    scenarios.push_back(CCall("qncBase32Encode" + of, [=](CQNObject** error) {
      return Freed(qncBase32Encode(kData, size, error));
    }));
    scenarios.push_back(
        CCall("qncMd5" + of, [=](CQNObject** error) { return Freed(qncMd5(kData, size, error)); }));
    scenarios.push_back(CCall(
        "qncCrc64" + of, [=](CQNObject** error) { return Freed(qncCrc64(kData, size, error)); }));
  }
}

void AddEncodedTexts(Scenarios& scenarios) {
  static const std::string kText = "a\xE9\x95\xBF";
  for (const int encoding : {QNC_ENCODING_UTF8, QNC_ENCODING_UTF16_BE, QNC_ENCODING_ANSI}) {
    const std::string name = " of encoding " + std::to_string(encoding);
    scenarios.push_back(CCall("qncTextToEncoding" + name, [=](CQNObject** error) {
      return Freed(
          qncTextToEncoding(kText.data(), kText.size(), encoding, nullptr, nullptr, error));
    }));
    scenarios.push_back(CCall("qncTextFromEncoding" + name, [=](CQNObject** error) {
      return Freed(qncTextFromEncoding("ab", 2, encoding, nullptr, nullptr, error));
    }));
  }
  scenarios.push_back({"qncWriteFile", [](Attempt& attempt) {
                         const ScratchFile file("");
                         CCall("", [&](CQNObject** error) {
                           return qncWriteFile(file.path(), "abc", 3, error) != 0;
                         }).run(attempt);
                       }});
}

using JsonFunction = bool (*)(QncJson* json, CQNObject** error);

// The functions on a document; the document stays readable.
const struct {
  const char* name;
  JsonFunction run;
} kJsonFunctions[] = {
    {"qncJsonWrite",
     [](QncJson* json, CQNObject** error) { return Freed(qncJsonWrite(json, 1, error)); }},
    {"qncJsonWriteA",
     [](QncJson* json, CQNObject** error) { return Freed(qncJsonWriteA(json, 0, error)); }},
    {"qncJsonWriteStrict",
     [](QncJson* json, CQNObject** error) { return Freed(qncJsonWriteStrict(json, 1, error)); }},
    {"qncJsonKey",
     [](QncJson* json, CQNObject** error) { return Freed(qncJsonKey(json, 0, error)); }},
    {"qncJsonText",
     [](QncJson* json, CQNObject** error) {
       return Freed(qncJsonText(qncJsonAt(qncJsonFind(json, "a"), 1), error));
     }},
    {"qncJsonSetText",
     [](QncJson* json, CQNObject** error) {
       return qncJsonSetText(json, "x", "\xE9\x95\xBF", error) != 0;
     }},
    {"qncJsonSetNumber",
     [](QncJson* json, CQNObject** error) { return qncJsonSetNumber(json, "n", 7, error) != 0; }},
    {"qncJsonSetBool",
     [](QncJson* json, CQNObject** error) { return qncJsonSetBool(json, "y\\z", 1, error) != 0; }},
    {"qncJsonSetNull",
     [](QncJson* json, CQNObject** error) { return qncJsonSetNull(json, "a", error) != 0; }},
    {"qncJsonSetValue",
     [](QncJson* json, CQNObject** error) {
       return qncJsonSetValue(json, "copy", qncJsonFind(json, "a"), error) != 0;
     }},
    {"qncJsonRemove",
     [](QncJson* json, CQNObject** error) { return qncJsonRemove(json, "a", error) != 0; }},
    {"qncJsonSaveFile",
     [](QncJson* json, CQNObject** error) {
       return qncJsonSaveFile(json, ScratchFile::path(), 1, error) != 0;
     }},
};

void AddJson(Scenarios& scenarios) {
  for (const JsonText& text : kObjectTexts) {
    scenarios.push_back(CCall("qncJsonParseA of " + text.name, [&](CQNObject** error) {
      return JsonOwner(qncJsonParseA(text.text.c_str(), error)) != nullptr;
    }));
  }
  for (const JsonText& text : kBrokenTexts) {
    scenarios.push_back(CCall("qncJsonParse of " + text.name, [&](CQNObject** error) {
      return JsonOwner(qncJsonParse(text.text.c_str(), error)) != nullptr;
    }));
  }
  scenarios.push_back(CCall("qncJsonLoadStrict", [](CQNObject** error) {
    const size_t size = sizeof(kUtf8Document) - 1;
    return JsonOwner(qncJsonLoadStrict(kUtf8Document, size, nullptr, error)) != nullptr;
  }));
  for (const auto& function : kJsonFunctions) {
    scenarios.push_back({function.name, [&](Attempt& attempt) {
                           const ScratchFile file("");
                           const JsonOwner json = Parsed();
                           CCall("", [&](CQNObject** error) {
                             return function.run(json.get(), error);
                           }).run(attempt);
                           attempt.Check(Freed(qncJsonWrite(json.get(), 0, nullptr)), "unwritable");
                         }});
  }
  scenarios.push_back({"qncJsonReadFile", [](Attempt& attempt) {
                         const ScratchFile file(kUtf8Document);
                         CCall("", [&](CQNObject** error) {
                           return JsonOwner(qncJsonReadFile(ScratchFile::path(), error)) != nullptr;
                         }).run(attempt);
                       }});
}

void AddCsv(Scenarios& scenarios) {
  scenarios.push_back({"qncCsv functions", [](Attempt& attempt) {
                         const ScratchFile file("a,b\n1,\"2\"\n3,4\n");
                         CCall("", [&](CQNObject** error) {
                           QncCsv* const csv = qncCsvOpen(ScratchFile::path(), error);
                           bool read = csv != nullptr && Freed(qncCsvHeader(csv, 1, error));
                           read = read && qncCsvNextRow(csv, error) == 1;
                           read = read && Freed(qncCsvText(csv, 0, error));
                           read = read && Freed(qncCsvTextA(csv, 1, error));
                           read = read && qncCsvRewind(csv, error) != 0;
                           qncCsvClose(csv);
                           return read;
                         }).run(attempt);
                       }});
}

void AddGeodesy(Scenarios& scenarios) {
  scenarios.push_back(CCall("geographic systems", [](CQNObject** error) {
    QncGeographic* const system = qncGeographicKnown(1, error);
    const bool written = system != nullptr && Freed(qncGeographicWkt(system, error));
    qncGeographicFree(system);
    return written;
  }));
  scenarios.push_back(CCall("projected systems", [](CQNObject** error) {
    QncProjected* const system = qncProjectedFromEpsg(4547, error);
    QncGeographic* const base = system == nullptr ? nullptr : qncProjectedGeographic(system, error);
    const bool written = base != nullptr && Freed(qncProjectedWkt(system, error));
    qncGeographicFree(base);
    qncProjectedFree(system);
    return written;
  }));
  for (const char* wkt : {"", "x", "GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.25]]]"}) {
    scenarios.push_back(CCall(std::string("qncGeographicFromWkt ") + wkt, [=](CQNObject** error) {
      QncGeographic* const system = qncGeographicFromWkt(wkt, error);
      qncGeographicFree(system);
      return system != nullptr;
    }));
    scenarios.push_back(CCall(std::string("qncProjectedFromWkt ") + wkt, [=](CQNObject** error) {
      QncProjected* const system = qncProjectedFromWkt(wkt, error);
      qncProjectedFree(system);
      return system != nullptr;
    }));
  }
}

}  // namespace

Scenarios CInterfaceScenarios() {
  Scenarios scenarios;
  AddTexts(scenarios);
  AddEncodedTexts(scenarios);
  AddJson(scenarios);
  AddCsv(scenarios);
  AddGeodesy(scenarios);
  return scenarios;
}

}  // namespace failing
