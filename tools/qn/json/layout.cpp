// SPDX-License-Identifier: MIT
#include "qn/json/layout.h"

#include <vector>

#include "qn/json/short_number.h"

namespace qn {
namespace {

using quarnfc::ext::JsonItems;
using quarnfc::ext::JsonTextNode;

bool IsContainer(const JsonTextNode& node) { return node.IsObject() || node.IsArray(); }

// Containers that are open lie on a stack of its own: no depth exhausts the thread's.
class Writer {
 public:
  Writer(JsonStyle style, std::size_t spaces, JsonNumbers numbers)
      : style_(style),
        numbers_(numbers),
        unit_(style == JsonStyle::kLibrary ? "\t" : std::string(spaces, ' ')),
        line_end_(style == JsonStyle::kLibrary ? "\r\n" : "\n") {}

  std::string Write(const JsonTextNode& root) {
    // The library writes an array as if it stood in an object, at the top, too.
    if (style_ == JsonStyle::kLibrary && root.IsArray()) outer_ = unit_;
    Put(root);
    while (!open_.empty()) {
      Frame& frame = open_.back();
      if (frame.next != frame.end) {
        const JsonItems::Item item = *frame.next;
        ++frame.next;
        PutItem(frame, item);
      } else {
        PutEnd(frame);
        open_.pop_back();
        if (!open_.empty()) FinishItem(open_.back(), true);
      }
    }
    return std::move(text_);
  }

 private:
  struct Frame {
    JsonTextNode node;
    JsonItems::Iterator next;
    JsonItems::Iterator end;
    bool first = true;
    bool last_is_container = false;
  };

  // A scalar, or a container that lies too deep, whole; of any other the opening bracket.
  void Put(const JsonTextNode& node) {
    if (!IsContainer(node)) return PutScalar(node);
    if (style_ != JsonStyle::kCompact && open_.size() == kDeepestIndentedLevel) {
      text_ += LayOutJson(node, JsonStyle::kCompact, 0, numbers_);
      return;
    }
    text_ += node.IsObject() ? '{' : '[';
    const JsonItems items = node.Items();
    open_.push_back({node, items.begin(), items.end()});
    if (style_ == JsonStyle::kLibrary && node.IsObject()) text_ += line_end_;
  }

  void PutScalar(const JsonTextNode& node) {
    if (numbers_ == JsonNumbers::kShort && node.IsNumber()) {
      text_ += ShortNumber(node.Source());
    } else {
      text_ += node.Source();
    }
  }

  void Indent(std::size_t levels) {
    text_ += outer_;
    for (; levels > 0; --levels) text_ += unit_;
  }

  void PutItem(Frame& frame, const JsonItems::Item& item) {
    if (style_ == JsonStyle::kSpaces) {
      text_ += line_end_;
      Indent(open_.size());
    } else if (style_ == JsonStyle::kLibrary) {
      LeadInLibraryStyle(frame, item);
    }
    frame.first = false;
    if (item.key) {
      text_.append(item.key->Source()).append(style_ == JsonStyle::kSpaces ? ": " : ":");
    }
    const std::size_t levels = open_.size();
    Put(item.value);  // may move the frames
    if (open_.size() == levels) FinishItem(open_.back(), IsContainer(item.value));
  }

  // Arrays of arrays get an empty line between them there.
  void LeadInLibraryStyle(const Frame& frame, const JsonItems::Item& item) {
    const std::size_t levels = open_.size() - 1;
    if (item.key) {
      Indent(levels + 1);
    } else if (item.value.IsObject()) {
      if (frame.first) text_ += line_end_;
      Indent(levels + 1);
    } else if (item.value.IsArray()) {
      text_ += line_end_;
      Indent(levels);
    }
  }

  void FinishItem(Frame& frame, bool container) {
    frame.last_is_container = container;
    if (frame.next != frame.end) text_ += ',';
    if (style_ == JsonStyle::kLibrary && (container || frame.node.IsObject())) text_ += line_end_;
  }

  void PutEnd(const Frame& frame) {
    const bool library = style_ == JsonStyle::kLibrary;
    if (style_ == JsonStyle::kSpaces && !frame.first) text_ += line_end_;
    if (library ? frame.node.IsObject() || frame.last_is_container
                : style_ == JsonStyle::kSpaces && !frame.first) {
      Indent(open_.size() - 1);
    }
    text_ += frame.node.IsObject() ? '}' : ']';
  }

  const JsonStyle style_;
  const JsonNumbers numbers_;
  const std::string unit_;
  const std::string line_end_;
  std::string outer_;
  std::string text_;
  std::vector<Frame> open_;
};

}  // namespace

std::string LayOutJson(const JsonTextNode& root, JsonStyle style, std::size_t spaces,
                       JsonNumbers numbers) {
  return Writer(style, spaces, numbers).Write(root);
}

}  // namespace qn
