// SPDX-License-Identifier: MIT
// Edits of strict JSON text, which leave every other byte alone.
#include <quarnfc/ext/json_text_edit.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "c/json_refused.h"
#include "c/json_text_handle.h"

namespace {

using quarnfc::c::Failure;
using quarnfc::c::Found;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::RefusedText;
using quarnfc::ext::JsonEdit;
using quarnfc::ext::JsonText;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::JsonTextNode;

// The object or array that a pointer leads into, and its last part.
struct Place {
  JsonTextNode container;
  std::string step;
};

Place PlaceOf(const JsonText& text, std::string_view pointer) {
  std::vector<std::string> steps;
  if (!quarnfc::ext::SplitJsonPointer(pointer, steps)) {
    throw Failure(QNC_ERROR_ARGUMENT, "Quarn: the text is no JSON pointer");
  }
  return {Found(text.Root().Find(pointer.substr(0, pointer.rfind('/')))), steps.back()};
}

// The argument json, read.
std::string ValueFrom(const char* json) {
  JsonText value;
  JsonTextError error;
  if (!value.Parse(Given(json), &error)) throw RefusedText(error);
  return json;
}

int Change(QncJsonText* document, std::vector<JsonEdit> edits) {
  JsonTextError error;
  std::string text = quarnfc::ext::ApplyJsonEdits(document->text.Text(), std::move(edits));
  // Refused only when it has become too deep or too long.
  if (!document->text.Parse(std::move(text), &error)) throw RefusedText(error);
  return 1;
}

JsonEdit MemberEdit(const JsonText& text, const Place& place, std::string value) {
  if (const auto member = place.container.Member(place.step)) {
    return quarnfc::ext::ReplaceJsonValue(*member, std::move(value));
  }
  if (!quarnfc::ext::IsUtf8(place.step)) {
    throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: the key is not UTF-8");
  }
  return quarnfc::ext::AppendJsonItems(text, place.container, {{place.step, std::move(value)}});
}

JsonEdit Addition(const JsonText& text, const Place& place, std::string value) {
  if (place.container.IsObject()) return MemberEdit(text, place, std::move(value));
  const std::size_t count = place.container.Count();
  std::size_t index = count;
  const bool is_index = place.step == "-" || quarnfc::ext::ReadJsonIndex(place.step, index);
  if (!place.container.IsArray() || !is_index || index > count) {
    throw Failure(QNC_ERROR_NOT_FOUND,
                  "Quarn: the pointer leads to no place in an object or array");
  }
  return quarnfc::ext::InsertJsonElement(text, place.container, index, std::move(value));
}

// A key is removed wherever it stands, so that no earlier one comes to light.
std::vector<JsonEdit> Removal(const Place& place, const JsonTextNode& value) {
  std::vector<bool> removed;
  for (const auto& item : place.container.Items()) {
    removed.push_back(item.key ? item.key->String() == place.step : item.value == value);
  }
  return quarnfc::ext::RemoveJsonItems(place.container,
                                       [&](std::size_t index) { return removed[index]; });
}

}  // namespace

int qncJsonTextReplace(QncJsonText* document, const char* pointer, const char* json,
                       CQNObject** error) {
  return Guarded(error, 0, [=] {
    const JsonTextNode place = Found(document, pointer);
    return Change(document, {quarnfc::ext::ReplaceJsonValue(place, ValueFrom(json))});
  });
}

int qncJsonTextAdd(QncJsonText* document, const char* pointer, const char* json,
                   CQNObject** error) {
  return Guarded(error, 0, [=] {
    const JsonText& text = Given(document)->text;
    std::string value = ValueFrom(json);
    if (*Given(pointer) == '\0') {
      return Change(document, {quarnfc::ext::ReplaceJsonValue(text.Root(), std::move(value))});
    }
    return Change(document, {Addition(text, PlaceOf(text, pointer), std::move(value))});
  });
}

int qncJsonTextRemove(QncJsonText* document, const char* pointer, CQNObject** error) {
  return Guarded(error, 0, [=] {
    const JsonText& text = Given(document)->text;
    if (*Given(pointer) == '\0') {
      throw Failure(QNC_ERROR_ARGUMENT, "Quarn: the whole document cannot be removed");
    }
    const Place place = PlaceOf(text, pointer);
    return Change(document, Removal(place, Found(document, pointer)));
  });
}
