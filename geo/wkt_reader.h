// SPDX-License-Identifier: MIT
// Reads Well-Known Text into a tree of nodes and finds nodes and parameters in it.
//
// The notation is that of OGC 01-009 (Coordinate Transformation Services), 7.2, with any keywords:
//
//   text   = node
//   node   = keyword "[" [ value { "," value } ] "]"
//   value  = node | quoted text | number | bare word
//   number = an unquoted word of digits, points and signs
//
// Blanks (space, TAB, CR, LF) may stand around every token. Text is 8-bit in the ANSI code page.
//
// Deviations, all deliberate: only square brackets, no parentheses; no exponents; commas may be
// repeated, and may be missing behind a closed node; a quoted text cannot hold a quote; the list of
// the outermost node must be empty or end with a node, so UNIT["metre",1] alone is refused; nothing
// but blanks may follow the text.
//
// One pass; the nodes that are open stand on a stack on the heap. Trees of any depth are read,
// searched and destroyed without recursion.
#ifndef QUARNFC_GEO_WKT_READER_H_
#define QUARNFC_GEO_WKT_READER_H_

#include <quarnfc/qn_string.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "core/memory/memory.h"

namespace quarnfc::geo {

class CWKTDef;

enum class WktKind : int {
  kNode = 1,
  kQuotedText = 2,
  kBareWord = 3,  // unquoted, and not a number
  kNumber = 4,
};

// One value inside a node's brackets.
class CWKTDefValue {
 public:
  // A bare word, or what stood in quotes.
  CWKTDefValue(const CQNString& text, bool bareWord);
  explicit CWKTDefValue(double number);
  virtual ~CWKTDefValue() = default;

  CWKTDefValue(const CWKTDefValue&) = delete;
  CWKTDefValue& operator=(const CWKTDefValue&) = delete;

  static void* operator new(std::size_t size) { return AllocNode(size); }
  static void operator delete(void* value, std::size_t size) { FreeNode(value, size); }

  WktKind Kind() const { return kind_; }
  const CQNString& Text() const { return text_; }  // empty for nodes and numbers
  double Number() const { return number_; }        // of a number
  CWKTDef* Node() const { return node_; }          // null for everything but nodes

 protected:
  explicit CWKTDefValue(CWKTDef* self);

 private:
  WktKind kind_;
  CQNString text_;
  double number_ = 0.0;
  CWKTDef* node_ = nullptr;
};

// A node: a keyword and the values in its brackets, which it owns.
class CWKTDef : public CWKTDefValue {
 public:
  CWKTDef() : CWKTDefValue(this) {}
  explicit CWKTDef(const CQNString& keyword);
  ~CWKTDef() override;

  const CQNString& Keyword() const { return keyword_; }  // as written, case kept
  const std::vector<CWKTDefValue*>& Values() const { return values_; }

  // The first value, or null.
  const CWKTDefValue* FirstValue() const { return values_.empty() ? nullptr : values_.front(); }

  // Reads a text (null fails) into this node, which must be new. On failure error holds one of the
  // messages of messages.h and the tree is to be discarded.
  bool Parse(const char* wkt, CQNString& error);

  // The node at a path of keywords such as "PROJCS\\GEOGCS\\DATUM", the first of which is this
  // node's own; null when there is none. Case, and blanks around the components, do not matter. Of
  // several nodes with one keyword the first is taken.
  const CWKTDef* Find(const char* path) const;

  // The number of PARAMETER["name", number] among this node's values. The first parameter of that
  // name decides: when its value is no number the result is false, whatever follows.
  bool FindParameter(const char* name, double& number) const;

  // Building the tree: appends a value, which the node then owns.
  void SetKeyword(const CQNString& keyword) { keyword_ = keyword; }
  void Append(std::unique_ptr<CWKTDefValue> value);

 private:
  // Removes the last node among the values, with the plain values behind it, and hands it out;
  // null, with no value left, when there is none.
  CWKTDef* TakeLastNode();

  CQNString keyword_;
  std::vector<CWKTDefValue*> values_;
  CWKTDef* parent_ = nullptr;  // the node among whose values this one is; null for a root
};

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_WKT_READER_H_
