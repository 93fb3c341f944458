// SPDX-License-Identifier: MIT
// How much stack the deepest and longest inputs take, measured: what short ones take, 5 to 9 KiB
// without sanitizers. Where another branch is taken it may be a little more.
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/projected.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/json/json_support.h"
#include "tests/support/thread_posix.h"

namespace {

using json_test::Repeat;

constexpr std::size_t kStackSize = 1024 * 1024;

// The bytes of its stack that a thread has written to that does the work.
std::size_t StackUsed(const std::function<void()>& work) {
  constexpr unsigned char kUntouched = 0xA5;
  std::vector<unsigned char> memory(kStackSize + 4096, kUntouched);
  unsigned char* const page =
      memory.data() + 4096 - reinterpret_cast<std::uintptr_t>(memory.data()) % 4096;
  quarnfc_test::RunOnThread(
      [page](pthread_attr_t& attributes) { pthread_attr_setstack(&attributes, page, kStackSize); },
      work);
  const unsigned char* const end = page + kStackSize;
  return static_cast<std::size_t>(
      end -
      std::find_if(page, page + kStackSize, [](unsigned char byte) { return byte != kUntouched; }));
}

struct Operation {
  const char* name;
  std::string (*input)(std::size_t length);
  void (*run)(const std::string& input);
};

std::string DeepArrays(std::size_t levels) { return Repeat("[", levels) + Repeat("]", levels); }
std::string DeepObjects(std::size_t levels) {
  return Repeat("{\"a\":", levels) + "5" + Repeat("}", levels);
}

void UseTree(const std::string& text) {
  CMyJsonValue value;
  CQNString error;
  value.Load(text.c_str(), error);
  const json_test::ValuePtr clone(value.Clone());
  clone->CreateJson(false);
  json_test::TakeText(clone->CreateUTF8Json(false));
}

void FollowPath(const std::string& path) {
  CMyJsonObj object;
  object.SetItem(path.c_str(), 5, true, false);
  int number = 0;
  object.ValueEx(path.c_str(), number, true);
}

void ReadWkt(const std::string& text) {
  CQNProCoordinateSystem system;
  system.SetFromWKTA(text.c_str(), nullptr);
}

void MatchText(const std::string& text) {
  QNStringUtils::StrIsMatching("*a*b*?", text.c_str(), false);
}

void EditText(const std::string& input) {
  CQNString text(input.c_str());
  text.Replace("x", "\xD6\xD0");
  text.MakeUpper();
  text.Format("%s%*d", input.c_str(), static_cast<int>(input.size()), 5);
  text.TrimRight();
}

const Operation kOperations[] = {
    {"arrays", DeepArrays, UseTree},
    {"objects", DeepObjects, UseTree},
    {"arrays that are not closed", [](std::size_t length) { return Repeat("[", length); }, UseTree},
    {"a path", [](std::size_t length) { return Repeat("a\\", length) + "a"; }, FollowPath},
    {"Well-Known Text",
     [](std::size_t length) { return Repeat("A[\"b\",", length) + "1" + Repeat("]", length); },
     ReadWkt},
    {"a pattern", [](std::size_t length) { return Repeat("ab", length); }, MatchText},
    {"a text", [](std::size_t length) { return Repeat("x", length); }, EditText},
};

}  // namespace

TEST(StackUse, IsTheSameForTheDeepestAndLongestInputs) {
  for (const Operation& operation : kOperations) {
    const std::string few = operation.input(600);
    const std::string many = operation.input(100'000);
    operation.run(few);  // what is made once
    const std::size_t used = StackUsed([&] { operation.run(few); });
    const std::size_t used_by_many = StackUsed([&] { operation.run(many); });
    EXPECT_LE(used_by_many, used + 8 * 1024) << operation.name;
    EXPECT_LE(used_by_many, 64u * 1024) << operation.name;
  }
}
