// SPDX-License-Identifier: MIT
// The memory that a document takes on the C heap, divided by its values: arrays, objects, scalars.
// Native only: the C library says how much of its heap is in use.
#include <malloc.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <rapidjson/document.h>

#include <boost/json.hpp>
#include <cstdlib>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "json_data.h"
#include "row.h"

namespace {

using bench::kOurs;

double BytesInUse() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

// Free memory that a library keeps in stock is used up by the first documents; the others count.
template <class Make>
double BytesFor(Make make) {
  constexpr std::size_t kDocuments = 10;
  std::vector<decltype(make())> first, counted;
  first.reserve(kDocuments);
  counted.reserve(kDocuments);
  for (std::size_t i = 0; i < kDocuments; ++i) first.push_back(make());
  const double before = BytesInUse();
  for (std::size_t i = 0; i < kDocuments; ++i) counted.push_back(make());
  return (BytesInUse() - before) / kDocuments;
}

std::size_t CountValues(const nlohmann::json& value) {
  std::size_t count = 1;
  if (value.is_structured()) {
    for (const nlohmann::json& below : value) count += CountValues(below);
  }
  return count;
}

std::unique_ptr<CMyJsonValue> Load(const std::string& text) {
  auto value = std::make_unique<CMyJsonValue>();
  CQNString error;
  if (!value->Load(text.c_str(), error)) std::abort();
  return value;
}

// Arrays of numbers make their values when these are looked at.
void LookAtAll(const CMyJsonValue& value) {
  for (int i = 0; i < value.ValueArrLength(); ++i) LookAtAll(*value.ValueArrItem(i));
  if (!value.IsObj()) return;
  CQNString key;
  CMyJsonValue* member = nullptr;
  for (int i = 0; i < value.ValueObj()->ValueCount(); ++i) {
    value.ValueObj()->Item(i, key, member);
    LookAtAll(*member);
  }
}

void Add(const std::string& input, const std::string& text) {
  const auto values = static_cast<double>(CountValues(nlohmann::json::parse(text)));
  const auto add = [&](const std::string& of, const char* who, auto make) {
    bench::SizeRow("json memory for each value", of, who, [=] { return BytesFor(make) / values; });
  };
  const auto rapid = [text] {
    auto document = std::make_unique<rapidjson::Document>();
    document->Parse(text.c_str());
    return document;
  };
  const auto boost = [text] {
    return std::make_unique<boost::json::value>(boost::json::parse(text));
  };
  for (const std::string& of : {input, input + ", looked at"}) {
    add(of, "RapidJSON", rapid);
    add(of, "Boost.JSON", boost);
  }
  add(input, kOurs, [text] { return Load(text); });
  add(input + ", looked at", kOurs, [text] {
    auto value = Load(text);
    LookAtAll(*value);
    return value;
  });
}

[[maybe_unused]] const bool g_added = [] {
  for (const char* name : {"twitter.json", "canada.json"}) Add(name, bench::ReadDocument(name));
  return true;
}();

}  // namespace
