// SPDX-License-Identifier: MIT
// Helpers of the JSON tests.
#ifndef QUARNFC_TESTS_JSON_JSON_SUPPORT_H_
#define QUARNFC_TESTS_JSON_JSON_SUPPORT_H_

#include <gtest/gtest.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/caller_buffer.h"
#include "tests/support/string_bytes.h"

namespace json_test {

using ValuePtr = std::unique_ptr<CMyJsonValue>;
using ObjectPtr = std::unique_ptr<CMyJsonObj>;

using quarnfc_test::Bytes;
using quarnfc_test::TakeText;

template <class Document>
std::string Compact(const Document& document) {
  return Bytes(document.CreateJson(false));
}

template <class Document>
std::string Indented(const Document& document) {
  return Bytes(document.CreateJson(true));
}

// An array of new values made from the arguments of one constructor each.
template <class... Content>
ValuePtr ArrayOf(Content... content) {
  std::vector<CMyJsonValue*> values = {new CMyJsonValue(content)...};
  return std::make_unique<CMyJsonValue>(values.data(), static_cast<int>(values.size()));
}

// The value in a text that must be readable.
inline ValuePtr Read(const std::string& text) {
  auto value = std::make_unique<CMyJsonValue>();
  CQNString error;
  EXPECT_TRUE(value->Load(text.c_str(), error)) << text.substr(0, 200) << '\n' << Bytes(error);
  return value;
}

inline std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  repeated.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// Equal to the last bit, the sign of zero included.
inline bool SameNumber(double left, double right) {
  return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

using ValuePair = std::pair<const CMyJsonValue*, const CMyJsonValue*>;

// Compares the members or elements of two values of one type and adds them to pending.
inline bool SameShape(const ValuePair& pair, std::vector<ValuePair>& pending) {
  const auto [left, right] = pair;
  if (left->IsArr()) {
    const int length = left->ValueArrLength();
    if (length != right->ValueArrLength()) return false;
    for (int i = 0; i < length; ++i) {
      pending.emplace_back(left->ValueArrItem(i), right->ValueArrItem(i));
    }
    return true;
  }
  const int count = left->ValueObj()->ValueCount();
  if (count != right->ValueObj()->ValueCount()) return false;
  for (int i = 0; i < count; ++i) {
    CQNString left_key, right_key;
    CMyJsonValue *left_value = nullptr, *right_value = nullptr;
    left->ValueObj()->Item(i, left_key, left_value);
    right->ValueObj()->Item(i, right_key, right_value);
    if (Bytes(left_key) != Bytes(right_key)) return false;
    pending.emplace_back(left_value, right_value);
  }
  return true;
}

inline bool SameScalar(const CMyJsonValue& left, const CMyJsonValue& right) {
  switch (left.Type()) {
    case CMyJsonValue::eStr:
      return std::strcmp(left.ValueStr(), right.ValueStr()) == 0;
    case CMyJsonValue::eBool:
      return left.ValueBool() == right.ValueBool();
    case CMyJsonValue::eNumber:
      return SameNumber(left.ValueNumber(), right.ValueNumber());
    default:
      return true;
  }
}

// Whether two trees of any depth are equal, numbers to the last bit.
inline bool SameTree(const CMyJsonValue& left, const CMyJsonValue& right) {
  std::vector<ValuePair> pending = {{&left, &right}};
  while (!pending.empty()) {
    const ValuePair pair = pending.back();
    pending.pop_back();
    if (pair.first->Type() != pair.second->Type()) return false;
    const bool nested = pair.first->IsArr() || pair.first->IsObj();
    if (!(nested ? SameShape(pair, pending) : SameScalar(*pair.first, *pair.second))) return false;
  }
  return true;
}

}  // namespace json_test

#endif  // QUARNFC_TESTS_JSON_JSON_SUPPORT_H_
