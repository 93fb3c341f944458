// SPDX-License-Identifier: MIT
// JSON documents beside RapidJSON, Boost.JSON and nlohmann-json: reading with destruction, writing,
// copying, and looking up members. The peers write the shortest digits of a number, this library up
// to 15 decimal places; RapidJSON reads correctly rounded numbers, as the others do.
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <boost/json/src.hpp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "row.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Row;
using Document = std::shared_ptr<CMyJsonValue>;

std::string ReadFile(const char* name) {
  std::FILE* file = std::fopen((std::string(QUARNFC_BENCH_DATA "/") + name).c_str(), "rb");
  if (file == nullptr) {
    std::fprintf(stderr, "cannot open %s\n", name);
    std::exit(1);
  }
  std::string text(4 << 20, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), file));
  std::fclose(file);
  return text;
}

// Settings as applications keep them; each section has about 200 bytes.
std::string Settings(int sections) {
  std::string text = "{\r\n";
  for (int i = 0; i < sections; ++i) {
    text += "\t\"window" + std::to_string(i) +
            "\":{\r\n\t\t\"title\":\"Main view\",\r\n\t\t\"left\":120,\r\n\t\t\"top\":64,\r\n"
            "\t\t\"visible\":true,\r\n\t\t\"scale\":1.25,\r\n\t\t\"columns\":[80,120,64],\r\n"
            "\t\t\"font\":{\"name\":\"SimSun\",\"size\":9}\r\n\t}";
    text += i + 1 < sections ? ",\r\n" : "\r\n";
  }
  return text + "}";
}

Document Load(const std::string& text) {
  auto value = std::make_shared<CMyJsonValue>();
  CQNString error;
  if (!value->Load(text.c_str(), error)) std::abort();
  return value;
}

void AddReading(const std::string& input, const std::string& text) {
  Row("json load + destroy", input, kOurs, [text] {
    CMyJsonValue value;
    CQNString error;
    if (!value.Load(text.c_str(), error)) std::abort();
    Keep(value);
  });
  Row("json load + destroy", input, "RapidJSON", [text] {
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str());
    Keep(document);
  });
  Row("json load + destroy", input, "Boost.JSON", [text] { Keep(boost::json::parse(text)); });
  Row("json load + destroy", input, "nlohmann", [text] { Keep(nlohmann::json::parse(text)); });
}

template <class Writer>
auto RapidWriter(const std::string& text) {
  auto document = std::make_shared<rapidjson::Document>();
  document->Parse(text.c_str());
  return [document] {
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    document->Accept(writer);
    Keep(buffer);
  };
}

void AddWriting(const std::string& input, const std::string& text) {
  const Document ours = Load(text);
  Row("json write compact", input, kOurs, [ours] { Keep(ours->CreateJson(false)); });
  Row("json write compact", input, "RapidJSON",
      RapidWriter<rapidjson::Writer<rapidjson::StringBuffer>>(text));
  const auto boost = std::make_shared<boost::json::value>(boost::json::parse(text));
  Row("json write compact", input, "Boost.JSON", [boost] { Keep(boost::json::serialize(*boost)); });
  Row("json write indented", input, kOurs, [ours] { Keep(ours->CreateJson(true)); });
  Row("json write indented", input, "RapidJSON",
      RapidWriter<rapidjson::PrettyWriter<rapidjson::StringBuffer>>(text));
}

void AddCopying(const std::string& input, const std::string& text) {
  const Document ours = Load(text);
  Row("json clone + destroy", input, kOurs,
      [ours] { Keep(*std::unique_ptr<CMyJsonValue>(ours->Clone())); });
  const auto rapid = std::make_shared<rapidjson::Document>();
  rapid->Parse(text.c_str());
  Row("json clone + destroy", input, "RapidJSON", [rapid] {
    rapidjson::Document copy;
    copy.CopyFrom(*rapid, copy.GetAllocator());
    Keep(copy);
  });
  const auto nlohmann = std::make_shared<nlohmann::json>(nlohmann::json::parse(text));
  Row("json clone + destroy", input, "nlohmann", [nlohmann] {
    const nlohmann::json copy(*nlohmann);
    Keep(copy);
  });
}

void AddPath(const std::string& input) {
  const std::string text = Settings(12);
  const Document ours = Load(text);
  Row("json path of two keys", input, kOurs, [ours] {
    int left = 0;
    if (!ours->ValueObj()->ValueEx("window5\\left", left, true)) std::abort();
    Keep(left);
  });
  const auto rapid = std::make_shared<rapidjson::Document>();
  rapid->Parse(text.c_str());
  Row("json path of two keys", input, "RapidJSON", [rapid] {
    const auto window = rapid->FindMember("window5");
    Keep(window->value.FindMember("left")->value.GetInt());
  });
}

void AddLargeObject() {
  constexpr int kMembers = 100'000;
  const auto keys = std::make_shared<std::vector<std::string>>();
  for (int i = 0; i < kMembers; ++i) keys->push_back("key" + std::to_string(i));
  const auto set_all = [keys](CMyJsonObj& object) {
    for (const std::string& key : *keys) object.SetItem(key.c_str(), 1, true, false);
  };
  Row("json SetItem", "100,000 members", kOurs, [set_all] {
    CMyJsonObj object;
    set_all(object);
    Keep(object);
  });
  const auto object = std::make_shared<CMyJsonObj>();
  set_all(*object);
  Row("json look up", "100,000 members", kOurs, [keys, object] {
    int number = 0;
    for (const std::string& key : *keys) object->ValueEx(key.c_str(), number, true);
    Keep(number);
  });
}

}  // namespace

int main(int argc, char** argv) {
  AddReading("settings 200 B", Settings(1));
  AddReading("settings 4 kB", Settings(20));
  for (const char* name : {"twitter.json", "canada.json"}) {
    const std::string text = ReadFile(name);
    AddReading(name, text);
    AddWriting(name, text);
    AddCopying(name, text);
  }
  AddPath("settings");
  AddLargeObject();
  return bench::Run(argc, argv);
}
