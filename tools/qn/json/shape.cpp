// SPDX-License-Identifier: MIT
#include "qn/json/shape.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <vector>

#include "qn/json/walk.h"

namespace qn {
namespace {

using quarnfc::ext::JsonKind;
using quarnfc::ext::JsonTextNode;

constexpr std::size_t kMostArrays = 5;
constexpr std::size_t kMostLevels = 5;
constexpr std::size_t kMostKeys = 8;

struct TypeName {
  const char* name;
  bool (*is)(JsonKind kind);
};

// In the order in which they are shown.
constexpr std::array<TypeName, 6> kTypes = {{
    {"objects", [](JsonKind kind) { return kind == JsonKind::kObject; }},
    {"arrays", [](JsonKind kind) { return kind == JsonKind::kArray; }},
    {"strings", [](JsonKind kind) { return kind == JsonKind::kString; }},
    {"numbers", [](JsonKind kind) { return kind == JsonKind::kNumber; }},
    {"booleans", [](JsonKind kind) { return kind == JsonKind::kTrue || kind == JsonKind::kFalse; }},
    {"nulls", [](JsonKind kind) { return kind == JsonKind::kNull; }},
}};

struct LongArray {
  std::size_t length;
  std::string path;
};

// The keys of one level, in order of appearance, and how often each occurs.
class LevelKeys {
 public:
  void Add(const std::string& key) {
    const auto [place, added] = counts_.try_emplace(key, 0);
    if (added) order_.emplace_back(place);
    ++place->second;
  }

  bool IsEmpty() const { return order_.empty(); }

  std::string Describe() const {
    std::string line;
    for (std::size_t i = 0; i < std::min(order_.size(), kMostKeys); ++i) {
      line += (i > 0 ? ", " : "") + order_[i]->first;
      if (order_[i]->second > 1) line += " (" + std::to_string(order_[i]->second) + ")";
    }
    if (order_.size() <= kMostKeys) return line;
    return line + " and " + std::to_string(order_.size() - kMostKeys) + " more";
  }

 private:
  std::map<std::string, long long> counts_;
  std::vector<std::map<std::string, long long>::const_iterator> order_;
};

class Shape {
 public:
  explicit Shape(const JsonTextNode& root) {
    JsonWalk walk(root);
    while (walk.Next()) Count(walk);
  }

  std::string Describe() const {
    return DescribeTypes() + "depth     " + std::to_string(depth_) + "\n" + DescribeArrays() +
           DescribeKeys();
  }

 private:
  void Count(const JsonWalk& walk) {
    const JsonTextNode& value = walk.Value();
    for (std::size_t i = 0; i < kTypes.size(); ++i) counts_[i] += kTypes[i].is(value.Kind());
    if (value.IsObject() || value.IsArray()) depth_ = std::max(depth_, walk.Level() + 1);
    if (walk.Key() && walk.Level() <= kMostLevels) {
      keys_[walk.Level() - 1].Add(walk.Key()->String());
    }
    if (value.IsArray()) CountArray(walk);
  }

  // The first of equally long arrays goes before the others.
  void CountArray(const JsonWalk& walk) {
    const std::size_t length = walk.Value().Count();
    if (arrays_.size() == kMostArrays && arrays_.back().length >= length) return;
    const auto place = std::find_if(arrays_.begin(), arrays_.end(),
                                    [&](const LongArray& other) { return other.length < length; });
    arrays_.insert(place, {length, walk.Path()});
    if (arrays_.size() > kMostArrays) arrays_.pop_back();
  }

  std::string DescribeTypes() const {
    std::string line;
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
      if (counts_[i] == 0) continue;
      line += (line.empty() ? "" : ", ") + std::to_string(counts_[i]) + " " + kTypes[i].name;
    }
    return "values    " + line + "\n";
  }

  std::string DescribeArrays() const {
    if (arrays_.empty()) return "";
    std::string lines = "longest arrays\n";
    for (const LongArray& each : arrays_) {
      std::string line = "  " + std::to_string(each.length);
      line.resize(std::max<std::size_t>(line.size() + 1, 10), ' ');
      lines += line + (each.path.empty() ? "(the document)" : each.path) + "\n";
    }
    return lines;
  }

  std::string DescribeKeys() const {
    std::string lines;
    for (std::size_t level = 0; level < kMostLevels; ++level) {
      if (keys_[level].IsEmpty()) continue;
      lines += "  level " + std::to_string(level + 1) + " " + keys_[level].Describe() + "\n";
    }
    if (lines.empty()) return "";
    return "keys, and how often they occur\n" + lines;
  }

  std::array<long long, kTypes.size()> counts_{};
  std::size_t depth_ = 0;
  std::vector<LongArray> arrays_;
  std::array<LevelKeys, kMostLevels> keys_;
};

}  // namespace

std::string DescribeJsonShape(const JsonTextNode& root) { return Shape(root).Describe(); }

}  // namespace qn
