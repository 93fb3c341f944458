// The tree that the WKT reader builds: ownership and search.
#include <quarnfc/string_utils.h>

#include "geo/wkt_reader.h"

namespace quarnfc::geo {

namespace {

// The components of a path, trimmed, without empty ones.
class PathComponents {
 public:
  explicit PathComponents(const char* path) {
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

// Takes the tree apart from the leaves up, without recursion and without memory of its own: on the
// way down a node's pointer to itself serves as the way back to its parent.
CWKTDef::~CWKTDef() {
  CWKTDef* node = this;
  for (;;) {
    if (node->values_.empty()) {
      if (node == this) return;
      CWKTDef* parent = node->node_;
      delete node;
      node = parent;
      continue;
    }
    CWKTDefValue* value = node->values_.back();
    node->values_.pop_back();
    if (CWKTDef* child = value->node_; child != nullptr) {
      child->node_ = node;
      node = child;
    } else {
      delete value;
    }
  }
}

void CWKTDef::Append(std::unique_ptr<CWKTDefValue> value) {
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
