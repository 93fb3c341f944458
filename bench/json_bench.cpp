// SPDX-License-Identifier: MIT
// JSON documents beside RapidJSON, Boost.JSON and nlohmann-json: reading with destruction, from
// memory and from a file, with and without a look at every value, writing, copying, and looking up
// members. The peers write the shortest digits of a number, this library up
// to 15 decimal places; RapidJSON reads correctly rounded numbers, as the others do.
#include <quarnfc/json_files.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/plain.h>
#include <quarnfc/string_utils.h>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <boost/json/src.hpp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "json_data.h"
#include "row.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Row;
using Document = std::shared_ptr<CMyJsonValue>;

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

// use sees each document before it is destroyed.
template <class Use>
void AddReading(const std::string& work, const std::string& input, const std::string& text,
                Use use) {
  Row(work, input, kOurs, [text, use] {
    CMyJsonValue value;
    CQNString error;
    if (!value.Load(text.c_str(), error)) std::abort();
    use(value);
  });
  Row(work, input, "RapidJSON", [text, use] {
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str());
    use(document);
  });
  Row(work, input, "Boost.JSON", [text, use] { use(boost::json::parse(text)); });
  Row(work, input, "nlohmann", [text, use] { use(nlohmann::json::parse(text)); });
}

void AddLoading(const std::string& input, const std::string& text) {
  AddReading("json load + destroy", input, text, [](const auto& document) { Keep(document); });
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

// The text is taken into the code page first, as a host's would be.
void AddUtf8Writing(const std::string& input, const std::string& text) {
  std::vector<wchar_t> wide(text.size() + 1);
  QNStringUtils::UTF82Unicode(text.c_str(), wide.data(), static_cast<int>(wide.size()));
  const CQNString ansi(wide.data());
  const Document ours = Load(static_cast<const char*>(ansi));
  Row("json write UTF-8", input, kOurs, [ours] {
    char* const utf8 = ours->CreateUTF8Json(false);
    Keep(utf8);
    qnFreeMem(utf8);
  });
  Row("json write UTF-8", input, "RapidJSON",
      RapidWriter<rapidjson::Writer<rapidjson::StringBuffer>>(text));
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

// A file from its name to the end of its document. The peers take the same steps by hand.
template <class Parse>
void AddFilePeer(const std::string& input, const std::string& path, const char* who, Parse parse) {
  Row("json file open + read + load + destroy", input, who, [path, parse] {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) std::abort();
    std::fseek(file, 0, SEEK_END);
    std::string text(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    if (std::fread(text.data(), 1, text.size(), file) != text.size()) std::abort();
    std::fclose(file);
    parse(text);
  });
}

void AddFile(const std::string& input, const std::string& text) {
  // Removed when the last copy of the function goes.
  const std::shared_ptr<const std::string> path(
      new std::string((std::filesystem::temp_directory_path() / "quarnfc_json_bench").string()),
      [](const std::string* name) {
        std::remove(name->c_str());
        delete name;
      });
  std::ofstream(*path, std::ios::binary) << text;
  Row("json file open + read + load + destroy", input, kOurs, [path] {
    CMyJsonValue value;
    if (!QNJsonUtils::ReadJsonFileEx(path->c_str(), value, nullptr)) std::abort();
    Keep(value);
  });
  AddFilePeer(input, *path, "RapidJSON", [](const std::string& json) {
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag>(json.c_str());
    Keep(document);
  });
  AddFilePeer(input, *path, "Boost.JSON",
              [](const std::string& json) { Keep(boost::json::parse(json)); });
}

double Sum(const CMyJsonValue& value) {
  if (value.IsNumber()) return value.ValueNumber();
  double sum = 0;
  for (int i = 0; i < value.ValueArrLength(); ++i) sum += Sum(*value.ValueArrItem(i));
  if (!value.IsObj()) return sum;
  CQNString key;
  CMyJsonValue* member = nullptr;
  for (int i = 0; i < value.ValueObj()->ValueCount(); ++i) {
    value.ValueObj()->Item(i, key, member);
    sum += Sum(*member);
  }
  return sum;
}

double Sum(const rapidjson::Value& value) {
  if (value.IsNumber()) return value.GetDouble();
  double sum = 0;
  if (value.IsArray()) {
    for (const rapidjson::Value& element : value.GetArray()) sum += Sum(element);
  } else if (value.IsObject()) {
    for (const auto& member : value.GetObject()) sum += Sum(member.value);
  }
  return sum;
}

double Sum(const boost::json::value& value) {
  if (value.is_number()) return value.to_number<double>();
  double sum = 0;
  if (const boost::json::array* array = value.if_array()) {
    for (const boost::json::value& element : *array) sum += Sum(element);
  } else if (const boost::json::object* object = value.if_object()) {
    for (const auto& member : *object) sum += Sum(member.value());
  }
  return sum;
}

double Sum(const nlohmann::json& value) {
  if (value.is_number()) return value.get<double>();
  double sum = 0;
  if (value.is_structured()) {
    for (const nlohmann::json& below : value) sum += Sum(below);
  }
  return sum;
}

// Every value of the document is looked at, and every number read.
void AddWalking(const std::string& input, const std::string& text) {
  AddReading("json load + walk + destroy", input, text,
             [](const auto& document) { Keep(Sum(document)); });
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
  AddLoading("settings 200 B", Settings(1));
  AddLoading("settings 4 kB", Settings(20));
  for (const char* name : {"twitter.json", "canada.json"}) {
    const std::string text = bench::ReadDocument(name);
    AddLoading(name, text);
    AddWalking(name, text);
    AddWriting(name, text);
    AddUtf8Writing(name, text);
    AddCopying(name, text);
  }
  AddFile("settings 4 kB", Settings(20));
  AddPath("settings");
  AddLargeObject();
  return bench::Run(argc, argv);
}
