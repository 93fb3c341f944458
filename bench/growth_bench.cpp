// SPDX-License-Identifier: MIT
// How the cost of an operation grows with its input: each at one, ten and a hundred times a size.
// scripts/plot_growth.py draws the times; none of these rows has a peer.
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "row.h"

namespace {

using bench::Keep;

template <class Body>
void Add(const std::string& work, int factor, Body body) {
  bench::Row("growth of " + work, std::to_string(factor), bench::kOurs, body);
}

std::string Repeated(const std::string& piece, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

std::string Document(int factor) {
  std::string text = "[0";
  for (int i = 0; i < 50 * factor; ++i) {
    text +=
        ",{\"name\":\"point " + std::to_string(i) + "\",\"height\":" + std::to_string(i) + ".25}";
  }
  return text + "]";
}

void AddJson(int factor) {
  const std::string text = Document(factor);
  const auto load = [text] {
    auto value = std::make_shared<CMyJsonValue>();
    CQNString error;
    if (!value->Load(text.c_str(), error)) std::abort();
    return value;
  };
  Add("JSON load", factor, [load] { Keep(*load()); });
  const auto value = load();
  Add("JSON write", factor, [value] { Keep(value->CreateJson(true)); });
  Add("JSON clone", factor, [value] { Keep(*std::unique_ptr<CMyJsonValue>(value->Clone())); });
}

// All members of an object are looked up.
void AddLookup(int factor) {
  auto keys = std::make_shared<std::vector<std::string>>();
  auto object = std::make_shared<CMyJsonObj>();
  for (int i = 0; i < 100 * factor; ++i) {
    keys->push_back("key" + std::to_string(i));
    object->AddItem(keys->back().c_str(), i);
  }
  Add("look-up of all keys", factor, [keys, object] {
    int number = 0;
    for (const std::string& key : *keys) object->ValueEx(key.c_str(), number, true);
    Keep(number);
  });
}

void AddWkt(int factor) {
  const std::string text = "GEOGCS[\"" + Repeated("A", 100 * factor) +
                           "\",DATUM[\"D\",SPHEROID[\"S\",6378137,298.257222101]]" +
                           Repeated(",EXTENSION[\"name\",\"value\"]", 10 * factor) +
                           ",PRIMEM[\"Greenwich\",0],UNIT[\"Degree\",0.0174532925199433]]";
  Add("WKT", factor, [text] {
    CQNGeoCoordinateSystem system;
    char* error = nullptr;
    if (!system.SetFromWKTA(text.c_str(), &error)) std::abort();
    Keep(system);
  });
}

void AddCsv(int factor) {
  const std::string path =
      (std::filesystem::temp_directory_path() / ("quarnfc_growth" + std::to_string(factor)))
          .string();
  std::ofstream(path, std::ios::binary)
      << Repeated("number,name,\"quoted, text\",1.25\n", 500 * factor);
  // Removed when the last copy of the function goes.
  const std::shared_ptr<const std::string> file(new std::string(path), [](const std::string* name) {
    std::remove(name->c_str());
    delete name;
  });
  Add("CSV", factor, [file] {
    CQNCSVFileReader reader;
    if (!reader.Open(file->c_str())) std::abort();
    std::vector<CQNString> row;
    while (reader.NextRow(row)) Keep(row);
  });
}

void AddStrings(int factor) {
  const std::string text = Repeated("some words, ", 200 * factor);
  Add("split", factor, [text] {
    std::vector<char*> pieces;
    QNStringUtils::SplitStr(text.c_str(), ',', pieces);
    QNStringUtils::FreeStrArr(pieces);
  });
  const CQNString ours(text.c_str());
  Add("replace by longer text", factor, [ours] {
    CQNString copy(ours);
    copy.Replace("words", "sentences");
    Keep(copy);
  });
  Add("append", factor, [factor] {
    CQNString appended;
    for (int i = 0; i < 1000 * factor; ++i) appended += "0123456789";
    Keep(appended);
  });
  Add("wildcard", factor,
      [text] { Keep(QNStringUtils::StrIsMatching("*words*some*z", text.c_str(), false)); });
}

}  // namespace

int main(int argc, char** argv) {
  for (const int factor : {1, 10, 100}) {
    AddJson(factor);
    AddLookup(factor);
    AddWkt(factor);
    AddCsv(factor);
    AddStrings(factor);
  }
  return bench::Run(argc, argv);
}
