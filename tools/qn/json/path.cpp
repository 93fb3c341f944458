// SPDX-License-Identifier: MIT
#include "qn/json/path.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "qn/errors.h"

namespace qn {

using quarnfc::ext::JsonTextNode;

namespace {

char Lower(char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch; }

bool SameButCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

template <class Same>
std::optional<JsonTextNode> OnlyMember(const JsonTextNode& object, const std::string& key,
                                       Same same) {
  std::optional<JsonTextNode> found;
  for (const auto& item : object.Items()) {
    if (!same(item.key->String(), key)) continue;
    if (found) throw Failure("the key '" + key + "' occurs more than once in its object");
    found = item.value;
  }
  return found;
}

std::optional<JsonTextNode> MemberOf(const JsonTextNode& object, const std::string& key,
                                     bool ignore_case) {
  auto member = OnlyMember(object, key, [](const auto& a, const auto& b) { return a == b; });
  if (!member && ignore_case) member = OnlyMember(object, key, SameButCase);
  return member;
}

// "[3]" on an array, a key on an object.
std::optional<JsonTextNode> Step(const JsonTextNode& node, const std::string& step,
                                 bool ignore_case) {
  if (node.IsObject()) return MemberOf(node, step, ignore_case);
  std::size_t index = 0;
  const bool element = IsJsonElementStep(step) &&
                       quarnfc::ext::ReadJsonIndex(step.substr(1, step.size() - 2), index);
  return element ? node.Element(index) : std::nullopt;
}

std::vector<std::string> SplitAtBackslashes(const std::string& path) {
  std::vector<std::string> steps;
  std::size_t begin = 0;
  for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
    end = path.find('\\', begin);
    steps.push_back(path.substr(begin, end == std::string::npos ? end : end - begin));
  }
  return steps;
}

// The steps that a key with brackets behind it stands for: "a[1][2]" is a, [1], [2].
std::vector<std::string> SplitBrackets(std::string step) {
  std::vector<std::string> steps;
  for (std::size_t open = step.rfind('['); open != std::string::npos; open = step.rfind('[')) {
    if (!IsJsonElementStep(step.substr(open))) break;
    steps.push_back(step.substr(open));
    step.erase(open);
  }
  if (!step.empty() || steps.empty()) steps.push_back(step);
  std::reverse(steps.begin(), steps.end());
  return steps;
}

// In a pointer a number is a key or an index, as the value it is applied to has it.
std::string StepOfPointer(const JsonTextNode& node, const std::string& token) {
  return node.IsArray() ? "[" + token + "]" : token;
}

// Replaces the step at an index by those that it stands for. False when it stands for itself.
bool Expand(std::vector<std::string>& steps, std::size_t index) {
  const std::vector<std::string> parts = SplitBrackets(steps[index]);
  if (parts.size() == 1) return false;
  const auto place = steps.begin() + static_cast<std::ptrdiff_t>(index);
  steps.insert(steps.erase(place), parts.begin(), parts.end());
  return true;
}

std::vector<std::string> StepsOf(const std::string& path, bool pointer) {
  if (!pointer) return SplitAtBackslashes(path);
  std::vector<std::string> steps;
  if (!quarnfc::ext::SplitJsonPointer(path, steps)) {
    throw Failure("'" + path + "' is no pointer: behind '~' only 0 and 1 may stand");
  }
  return steps;
}

}  // namespace

bool IsJsonElementStep(const std::string& step) {
  if (!step.starts_with('[') || !step.ends_with(']')) return false;
  const std::string index = step.substr(1, step.size() - 2);
  std::size_t number = 0;
  return index == "-" || quarnfc::ext::ReadJsonIndex(index, number);
}

JsonPlaceInTree FollowJsonPath(const JsonTextNode& root, const std::string& path,
                               bool ignore_case) {
  const bool pointer = path.empty() || path[0] == '/';
  std::vector<std::string> steps = StepsOf(path, pointer);
  JsonPlaceInTree place = {root, {}};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (pointer) steps[i] = StepOfPointer(place.node, steps[i]);
    auto next = Step(place.node, steps[i], ignore_case);
    if (!next && !pointer && Expand(steps, i)) next = Step(place.node, steps[i], ignore_case);
    if (!next) {
      place.missing.assign(steps.begin() + static_cast<std::ptrdiff_t>(i), steps.end());
      break;
    }
    place.node = *next;
  }
  return place;
}

JsonTextNode ValueAtJsonPath(const JsonTextNode& root, const std::string& path, bool ignore_case) {
  const JsonPlaceInTree place = FollowJsonPath(root, path, ignore_case);
  if (!place.missing.empty()) throw Failure("there is no value '" + path + "'");
  return place.node;
}

}  // namespace qn
