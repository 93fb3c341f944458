// SPDX-License-Identifier: MIT
// Edits of strict JSON that change nothing else: each function gives the bytes of the text to be
// replaced, and ApplyJsonEdits makes the new text. Spelling of numbers, escapes, order and layout
// of everything beside the place stay as they are; a new member takes the layout of the member
// before it.
//
// Values are handed in as JSON, keys as UTF-8 text. Header only. Any thread may call.
//
// Example:
//   using namespace quarnfc::ext;
//   JsonText json;
//   json.Parse("{\"server\": {\"port\": 8080}}");    // == true
//   const auto port = json.Root().Find("/server/port");
//   const std::string text = ApplyJsonEdits(json.Text(), {ReplaceJsonValue(*port, "9090")});
//   text;    // == "{\"server\": {\"port\": 9090}}"
#ifndef QUARNFC_EXT_JSON_TEXT_EDIT_H_
#define QUARNFC_EXT_JSON_TEXT_EDIT_H_

#include <quarnfc/ext/json_text.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnfc::ext {

// Bytes to be replaced by others.
struct JsonEdit {
  std::size_t begin;
  std::size_t end;
  std::string text;
};

// Carries edits out that do not overlap, in any order; of those at one place the first stands
// first.
inline std::string ApplyJsonEdits(std::string_view text, std::vector<JsonEdit> edits) {
  std::stable_sort(edits.begin(), edits.end(),
                   [](const JsonEdit& a, const JsonEdit& b) { return a.begin < b.begin; });
  std::string result;
  std::size_t done = 0;
  for (const JsonEdit& edit : edits) {
    result.append(text.substr(done, edit.begin - done)).append(edit.text);
    done = edit.end;
  }
  return result.append(text.substr(done));
}

// UTF-8 text as a JSON string. Only what must be escaped is escaped: quotes, backslashes and
// control characters. Bytes that are no UTF-8 become U+FFFD.
inline std::string QuoteJson(std::string_view text) {
  constexpr std::string_view kSpecial = "\"\\\b\f\n\r\t";
  constexpr std::string_view kNames = "\"\\bfnrt";
  std::string json = "\"";
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t special = kSpecial.find(text[i]);
    const std::size_t length = Utf8CharLength(text, i);
    if (special != std::string_view::npos) {
      json += '\\';
      json += kNames[special];
    } else if (static_cast<unsigned char>(text[i]) < 0x20) {
      json += text[i] < 0x10 ? "\\u000" : "\\u001";
      json += "0123456789abcdef"[text[i] & 0x0F];
    } else if (length == 0) {
      json += "\xEF\xBF\xBD";
    } else {
      json += text.substr(i, length);
    }
    i += length == 0 ? 1 : length;
  }
  return json += '"';
}

inline JsonEdit ReplaceJsonValue(const JsonTextNode& node, std::string json) {
  return {node.Begin(), node.End(), std::move(json)};
}

// What stands before and behind the keys of a container's items.
struct JsonLayout {
  std::string lead;   // between bracket or comma and the item
  std::string colon;  // between key and value
};

// The layout of the last item; of an empty container none but ": ".
inline JsonLayout LayoutOf(const JsonText& json, const JsonTextNode& container) {
  JsonLayout layout = {"", ": "};
  std::size_t before = container.Begin() + 1;
  for (const auto& item : container.Items()) {
    const std::size_t begin = item.key ? item.key->Begin() : item.value.Begin();
    const std::string_view gap = std::string_view(json.Text()).substr(before, begin - before);
    const std::size_t comma = gap.find(',');
    layout.lead = gap.substr(comma == std::string_view::npos ? 0 : comma + 1);
    if (item.key) {
      layout.colon = json.Text().substr(item.key->End(), item.value.Begin() - item.key->End());
    }
    before = item.value.End();
  }
  // A single member shows by its colon whether blanks follow punctuation.
  if (container.Count() == 1 && layout.lead.empty() && layout.colon.back() == ' ') {
    layout.lead.assign(container.IsObject() ? 1U : 0U, ' ');
  }
  return layout;
}

// Adds items at the end of an object or array; an item is a key with its value, or with an empty
// optional a value alone.
inline JsonEdit AppendJsonItems(
    const JsonText& json, const JsonTextNode& container,
    const std::vector<std::pair<std::optional<std::string>, std::string>>& items) {
  const JsonLayout layout = LayoutOf(json, container);
  std::size_t place = container.Begin() + 1;
  for (const auto& item : container.Items()) place = item.value.End();
  bool first = container.Count() == 0;
  std::string text;
  for (const auto& [key, value] : items) {
    text += first ? "" : ",";
    // In an empty container several items stand apart by a blank.
    text += first || !layout.lead.empty() || container.Count() > 0 ? layout.lead : " ";
    if (key) text += QuoteJson(*key) + layout.colon;
    text += value;
    first = false;
  }
  return {place, place, std::move(text)};
}

// Inserts a value before the element at an index of an array; behind the last where there is none.
inline JsonEdit InsertJsonElement(const JsonText& json, const JsonTextNode& array,
                                  std::size_t index, std::string value) {
  const std::optional<JsonTextNode> next = array.Element(index);
  if (!next) return AppendJsonItems(json, array, {{std::nullopt, std::move(value)}});
  return {next->Begin(), next->Begin(), std::move(value) + "," + LayoutOf(json, array).lead};
}

// Removes the items of a container that `removed` names by their index, each with one comma.
// Nothing stays between the brackets when it names them all.
template <class Predicate>
std::vector<JsonEdit> RemoveJsonItems(const JsonTextNode& container, Predicate removed) {
  std::vector<JsonEdit> edits;
  std::optional<std::size_t> kept_end;           // the end of the last item that stays
  std::size_t cut_from = container.Begin() + 1;  // where the next piece to be cut begins
  std::size_t index = 0;
  bool leading = false;
  for (const auto& item : container.Items()) {
    const std::size_t begin = item.key ? item.key->Begin() : item.value.Begin();
    if (!removed(index++)) {
      if (leading) edits.push_back({cut_from, begin, ""});
      leading = false;
      kept_end = item.value.End();
    } else if (kept_end) {
      edits.push_back({*kept_end, item.value.End(), ""});
      kept_end = item.value.End();
    } else if (!leading) {
      cut_from = begin;
      leading = true;
    }
  }
  if (leading) edits.push_back({container.Begin() + 1, container.End() - 1, ""});
  return edits;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_JSON_TEXT_EDIT_H_
