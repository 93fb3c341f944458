// SPDX-License-Identifier: MIT
// The tree that the WKT reader builds: ownership and search.
//
// A search compares keywords without regard to case, one level per component of the path, and takes
// the first match at each level without going back: time is proportional to the values of the nodes
// passed. Nothing recurses; destroying a tree takes no memory of its own, so that it cannot fail.
#include <quarnfc/string_utils.h>

#include "geo/wkt_reader.h"

namespace quarnfc::geo {

namespace {

// The components of a path, trimmed, without empty ones.
class PathComponents {
 public:
  PathComponents() = default;

  // By way of the default constructor: what there is of the pieces goes when one cannot be had.
  explicit PathComponents(const char* path) : PathComponents() {
    QNStringUtils::SplitStr(path, '\\', names_);
    QNStringUtils::AdjustStrArr(names_, true, true);
  }
  ~PathComponents() { QNStringUtils::FreeStrArr(names_); }
  PathComponents(const PathComponents&) = delete;
  PathComponents& operator=(const PathComponents&) = delete;

  const std::vector<char*>& Names() const { return names_; }

 private:
  std::vector<char*> names_;
};

const CWKTDef* FindChild(const CWKTDef& node, const char* keyword) {
  for (const CWKTDefValue* value : node.Values()) {
    const CWKTDef* child = value->Node();
    if (child != nullptr && child->Keyword().CompareNoCase(keyword) == 0) return child;
  }
  return nullptr;
}

bool IsParameterNamed(const CWKTDef& node, const char* name) {
  if (node.Keyword().CompareNoCase("PARAMETER") != 0 || node.Values().size() < 2) return false;
  const CWKTDefValue& first = *node.FirstValue();
  return first.Kind() == WktKind::kQuotedText && first.Text().CompareNoCase(name) == 0;
}

}  // namespace

CWKTDefValue::CWKTDefValue(const CQNString& text, bool bareWord)
    : kind_(bareWord ? WktKind::kBareWord : WktKind::kQuotedText), text_(text) {}

CWKTDefValue::CWKTDefValue(double number) : kind_(WktKind::kNumber), number_(number) {}

CWKTDefValue::CWKTDefValue(CWKTDef* self) : kind_(WktKind::kNode), node_(self) {}

CWKTDef::CWKTDef(const CQNString& keyword) : CWKTDefValue(this), keyword_(keyword) {}

// Takes the tree apart from the leaves up: down to the last node of the last node, and back by way
// of the parents. A node that is deleted here has no values left, so its own destructor ends at
// once.
CWKTDef::~CWKTDef() {
  CWKTDef* node = this;
  for (;;) {
    if (CWKTDef* child = node->TakeLastNode(); child != nullptr) {
      node = child;
      continue;
    }
    if (node == this) return;
    CWKTDef* const parent = node->parent_;
    delete node;
    node = parent;
  }
}

CWKTDef* CWKTDef::TakeLastNode() {
  while (!values_.empty()) {
    CWKTDefValue* const value = values_.back();
    values_.pop_back();
    if (value->Node() != nullptr) return value->Node();
    delete value;
  }
  return nullptr;
}

void CWKTDef::Append(std::unique_ptr<CWKTDefValue> value) {
  if (CWKTDef* const node = value->Node(); node != nullptr) node->parent_ = this;
  values_.push_back(value.get());
  static_cast<void>(value.release());  // the node owns it now
}

const CWKTDef* CWKTDef::Find(const char* path) const {
  const PathComponents components(path);
  const CWKTDef* node = nullptr;
  for (const char* name : components.Names()) {
    if (node != nullptr) {
      node = FindChild(*node, name);
    } else if (keyword_.CompareNoCase(name) == 0) {
      node = this;
    }
    if (node == nullptr) return nullptr;
  }
  return node;
}

bool CWKTDef::FindParameter(const char* name, double& number) const {
  for (const CWKTDefValue* value : values_) {
    if (value->Node() == nullptr || !IsParameterNamed(*value->Node(), name)) continue;
    const CWKTDefValue& second = *value->Node()->Values()[1];
    if (second.Kind() != WktKind::kNumber) return false;
    number = second.Number();
    return true;
  }
  return false;
}

}  // namespace quarnfc::geo
