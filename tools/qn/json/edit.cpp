// SPDX-License-Identifier: MIT
// qn json set, del and merge: edits that change nothing but what they name.
#include <quarnfc/ext/json_text_edit.h>

#include <algorithm>
#include <utility>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/json/commands.h"
#include "qn/json/document.h"
#include "qn/json/merge.h"
#include "qn/json/path.h"

namespace qn::json {
namespace {

using quarnfc::ext::AppendJsonItems;
using quarnfc::ext::ApplyJsonEdits;
using quarnfc::ext::IsUtf8;
using quarnfc::ext::JsonEdit;
using quarnfc::ext::JsonText;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::JsonTextNode;
using quarnfc::ext::QuoteJson;
using quarnfc::ext::RemoveJsonItems;
using quarnfc::ext::ReplaceJsonValue;

constexpr OptionSpec kLossyOption = {"lossy"};
constexpr OptionSpec kToOption = {"to", '\0', Takes::kValue};

void Save(const JsonDocument& document, const Options& options) {
  JsonDocument::SaveOptions save;
  save.output = options.Value("output", options.Positional()[0]);
  save.lossy = options.Has("lossy");
  if (options.Has("to")) save.encoding = EncodingFromName(options.Value("to"));
  document.Save(save);
}

// --- set ----------------------------------------------------------------------------------------

// What VALUE stands for, as JSON.
std::string ValueFrom(const std::string& text, bool as_string) {
  if (!IsUtf8(text)) throw UsageError("VALUE is no UTF-8");
  if (as_string) return QuoteJson(text);
  JsonText json;
  JsonTextError error;
  if (json.Parse(text, &error)) return std::string(json.Root().Source());
  // What begins like a text, an object or an array is meant for one.
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  const bool meant = first != std::string::npos &&
                     std::string_view("\"{[").find(text[first]) != std::string_view::npos;
  if (!meant) return QuoteJson(text);
  throw Failure(DescribeJsonError("VALUE", text, error) + "\n--string takes it as it is");
}

// The value inside the objects that lead to it.
std::string InNewObjects(const std::vector<std::string>& keys, std::string value) {
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    std::string object = "{";
    object += QuoteJson(*key) + ": " + value + "}";
    value = std::move(object);
  }
  return value;
}

[[noreturn]] void RefuseToAdd(const std::string& path) {
  throw Failure("there is no value '" + path +
                "', and it cannot be added: it leads through a value"
                " that is no object, or past the end of an array");
}

JsonEdit Addition(const JsonText& json, const JsonPlaceInTree& place, const std::string& path,
                  const std::string& value) {
  const std::string& step = place.missing.front();
  const std::vector<std::string> inner(place.missing.begin() + 1, place.missing.end());
  if (std::any_of(inner.begin(), inner.end(), IsJsonElementStep)) RefuseToAdd(path);
  const std::string added = InNewObjects(inner, value);
  if (place.node.IsObject() && !IsJsonElementStep(step)) {
    return AppendJsonItems(json, place.node, {{step, added}});
  }
  std::string next = "[";
  next.append(std::to_string(place.node.Count())).append("]");
  if (!place.node.IsArray() || (step != "[-]" && step != next)) RefuseToAdd(path);
  return AppendJsonItems(json, place.node, {{std::nullopt, added}});
}

}  // namespace

int RunSet(Arguments arguments) {
  const Options options(arguments, {{"string", 's'},
                                    {"only-existing"},
                                    kIgnoreCaseOption,
                                    kLossyOption,
                                    kEncodingOption,
                                    kToOption,
                                    kOutputOption});
  options.ExpectPositional(3, 3);
  const std::string& path = options.Positional()[1];
  JsonDocument document(options.Positional()[0], EncodingFrom(options));
  const std::string value = ValueFrom(options.Positional()[2], options.Has("string"));
  const JsonPlaceInTree place = FollowJsonPath(document.Root(), path, options.Has("ignore-case"));
  if (!place.missing.empty() && options.Has("only-existing")) {
    throw Failure("there is no value '" + path + "'");
  }
  const JsonEdit edit = place.missing.empty() ? ReplaceJsonValue(place.node, value)
                                              : Addition(document.Json(), place, path, value);
  document.Change(ApplyJsonEdits(document.Json().Text(), {edit}));
  Save(document, options);
  return kSuccess;
}

// --- del ----------------------------------------------------------------------------------------

namespace {

// The innermost container that holds a value, and the value's number in it. Walks down from the
// root by the places in the text.
std::vector<JsonEdit> RemovalOf(const JsonTextNode& root, const JsonTextNode& value) {
  JsonTextNode container = root;
  for (;;) {
    std::size_t index = 0;
    for (const auto& item : container.Items()) {
      if (item.value == value) {
        return RemoveJsonItems(container, [&](std::size_t each) { return each == index; });
      }
      if (item.value.Begin() <= value.Begin() && value.End() <= item.value.End()) {
        container = item.value;
        break;
      }
      ++index;
    }
  }
}

}  // namespace

int RunDelete(Arguments arguments) {
  const Options options(
      arguments, {kIgnoreCaseOption, kLossyOption, kEncodingOption, kToOption, kOutputOption});
  options.ExpectPositional(2, 100'000);
  const std::vector<std::string>& given = options.Positional();
  JsonDocument document(given[0], EncodingFrom(options));
  for (auto path = given.begin() + 1; path != given.end(); ++path) {
    const JsonTextNode value = ValueAtJsonPath(document.Root(), *path, options.Has("ignore-case"));
    if (value == document.Root()) throw Failure("the document itself cannot be removed");
    document.Change(ApplyJsonEdits(document.Json().Text(), RemovalOf(document.Root(), value)));
  }
  Save(document, options);
  return kSuccess;
}

// --- merge --------------------------------------------------------------------------------------

int RunMerge(Arguments arguments) {
  const Options options(arguments, {kLossyOption, kEncodingOption, kToOption, kOutputOption});
  options.ExpectPositional(2, 1000);
  const std::vector<std::string>& given = options.Positional();
  JsonDocument document(given[0], EncodingFrom(options));
  for (auto path = given.begin() + 1; path != given.end(); ++path) {
    const JsonDocument patch(*path);
    document.Change(MergeJson(document.Json(), patch.Json()));
  }
  Save(document, options);
  return kSuccess;
}

}  // namespace qn::json
