// SPDX-License-Identifier: MIT
#include "qn/json/merge.h"

#include <quarnfc/ext/json_text_edit.h>

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "qn/errors.h"

namespace qn {
namespace {

using quarnfc::ext::AppendJsonItems;
using quarnfc::ext::ApplyJsonEdits;
using quarnfc::ext::JsonEdit;
using quarnfc::ext::JsonKind;
using quarnfc::ext::JsonText;
using quarnfc::ext::JsonTextNode;
using quarnfc::ext::RemoveJsonItems;
using quarnfc::ext::ReplaceJsonValue;

using NewItems = std::vector<std::pair<std::optional<std::string>, std::string>>;

// Without the members that are null, at any depth: what a patch adds where nothing was.
std::string WithoutNulls(JsonText json) {
  for (;;) {
    std::vector<JsonEdit> edits;
    std::vector<JsonTextNode> objects = {json.Root()};
    while (!objects.empty() && edits.empty()) {
      const JsonTextNode object = objects.back();
      objects.pop_back();
      if (!object.IsObject()) continue;
      std::vector<bool> null;
      for (const auto& item : object.Items()) {
        null.push_back(item.value.Kind() == JsonKind::kNull);
        objects.push_back(item.value);
      }
      edits = RemoveJsonItems(object, [&](std::size_t index) { return null[index]; });
    }
    if (edits.empty()) return json.Text();
    json.Parse(ApplyJsonEdits(json.Text(), std::move(edits)), nullptr, {0xFFFFFFFF});
  }
}

std::string AddedText(const JsonTextNode& value) {
  JsonText json;
  json.Parse(std::string(value.Source()), nullptr, {0xFFFFFFFF});
  return WithoutNulls(std::move(json));
}

struct Member {
  std::size_t index;
  JsonTextNode value;
};

std::map<std::string, Member> MembersOf(const JsonTextNode& object,
                                        const std::map<std::string, JsonTextNode>& wanted) {
  std::map<std::string, Member> members;
  std::size_t index = 0;
  for (const auto& item : object.Items()) {
    const std::string key = item.key->String();
    if (wanted.count(key) != 0 && !members.emplace(key, Member{index, item.value}).second) {
      throw Failure("the key '" + key + "' occurs more than once in its object");
    }
    ++index;
  }
  return members;
}

class Merge {
 public:
  explicit Merge(const JsonText& document) : document_(document) {}

  std::vector<JsonEdit> Edits(const JsonTextNode& patch) {
    todo_.emplace_back(document_.Root(), patch);
    while (!todo_.empty()) {
      const auto [target, change] = todo_.back();
      todo_.pop_back();
      if (target.IsObject() && change.IsObject()) {
        MergeObject(target, change);
      } else {
        edits_.push_back(ReplaceJsonValue(target, AddedText(change)));
      }
    }
    return std::move(edits_);
  }

 private:
  void MergeObject(const JsonTextNode& target, const JsonTextNode& patch) {
    std::map<std::string, JsonTextNode> changes;
    for (const auto& item : patch.Items()) changes.insert_or_assign(item.key->String(), item.value);
    const std::map<std::string, Member> members = MembersOf(target, changes);
    std::set<std::size_t> removed;
    NewItems added;
    for (const auto& item : patch.Items()) {
      const auto change = changes.find(item.key->String());
      if (change == changes.end()) continue;  // a key that occurs again
      const auto member = members.find(change->first);
      const bool null = change->second.Kind() == JsonKind::kNull;
      if (member == members.end()) {
        if (!null) added.emplace_back(change->first, AddedText(change->second));
      } else if (null) {
        removed.insert(member->second.index);
      } else {
        todo_.emplace_back(member->second.value, change->second);
      }
      changes.erase(change);
    }
    Change(target, removed, added);
  }

  void Change(const JsonTextNode& target, const std::set<std::size_t>& removed,
              const NewItems& added) {
    auto edits = RemoveJsonItems(target, [&](std::size_t i) { return removed.count(i) != 0; });
    if (!added.empty()) {
      JsonEdit addition = AppendJsonItems(document_, target, added);
      if (!removed.empty() && removed.size() == target.Count()) {
        // Nothing is left for the comma to separate.
        edits[0].text = addition.text.substr(1);
      } else {
        edits.push_back(std::move(addition));
      }
    }
    edits_.insert(edits_.end(), edits.begin(), edits.end());
  }

  const JsonText& document_;
  std::vector<std::pair<JsonTextNode, JsonTextNode>> todo_;
  std::vector<JsonEdit> edits_;
};

}  // namespace

std::string MergeJson(const JsonText& document, const JsonText& patch) {
  return ApplyJsonEdits(document.Text(), Merge(document).Edits(patch.Root()));
}

}  // namespace qn
