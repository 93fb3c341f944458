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
#include "qn/json/each_file.h"
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

void ExpectOneFileFor(const Options& options, const std::vector<std::string>& files) {
  if (options.Has("output") && files.size() > 1) {
    throw UsageError("--output is for a single file");
  }
}

void Save(const JsonDocument& document, const std::string& file, const Options& options) {
  JsonDocument::SaveOptions save;
  save.output = options.Value("output", file);
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

// What is to be set where. --path and --value make every argument a file; otherwise they follow the
// only one.
struct Setting {
  std::vector<std::string> files;
  std::string path;
  std::string value;  // as it is given
};

Setting SettingFrom(const Options& options) {
  const std::vector<std::string>& given = options.Positional();
  if (options.Has("path") != options.Has("value")) {
    throw UsageError("--path and --value are given together");
  }
  if (options.Has("path")) {
    options.ExpectPositional(1, kMostFiles);
    return {given, options.Value("path"), options.Value("value")};
  }
  options.ExpectPositional(3, 3);
  return {{given[0]}, given[1], given[2]};
}

// value is JSON.
void SetIn(const std::string& file, const std::string& path, const std::string& value,
           const Options& options) {
  JsonDocument document(file, EncodingFrom(options));
  const JsonPlaceInTree place = FollowJsonPath(document.Root(), path, options.Has("ignore-case"));
  if (!place.missing.empty() && options.Has("only-existing")) {
    throw Failure("there is no value '" + path + "'");
  }
  const JsonEdit edit = place.missing.empty() ? ReplaceJsonValue(place.node, value)
                                              : Addition(document.Json(), place, path, value);
  document.Change(ApplyJsonEdits(document.Json().Text(), {edit}));
  Save(document, file, options);
}

}  // namespace

int RunSet(Arguments arguments) {
  const Options options(arguments, {{"string", 's'},
                                    {"only-existing"},
                                    {"value", '\0', Takes::kValue},
                                    kPathOption,
                                    kIgnoreCaseOption,
                                    kLossyOption,
                                    kEncodingOption,
                                    kToOption,
                                    kOutputOption});
  const Setting setting = SettingFrom(options);
  ExpectOneFileFor(options, setting.files);
  const std::string value = ValueFrom(setting.value, options.Has("string"));
  return ForEachFile(setting.files,
                     [&](const std::string& file) { SetIn(file, setting.path, value, options); });
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

void DeleteFrom(const std::string& file, const std::vector<std::string>& paths,
                const Options& options) {
  JsonDocument document(file, EncodingFrom(options));
  for (const std::string& path : paths) {
    const JsonTextNode value = ValueAtJsonPath(document.Root(), path, options.Has("ignore-case"));
    if (value == document.Root()) throw Failure("the document itself cannot be removed");
    document.Change(ApplyJsonEdits(document.Json().Text(), RemovalOf(document.Root(), value)));
  }
  Save(document, file, options);
}

}  // namespace

int RunDelete(Arguments arguments) {
  const Options options(arguments, {{"path", 'p', Takes::kValues},
                                    kIgnoreCaseOption,
                                    kLossyOption,
                                    kEncodingOption,
                                    kToOption,
                                    kOutputOption});
  const bool named = options.Has("path");
  options.ExpectPositional(named ? 1 : 2, kMostFiles);
  std::vector<std::string> files = options.Positional();
  std::vector<std::string> paths = options.Values("path");
  if (!named) {
    paths.assign(files.begin() + 1, files.end());
    files.resize(1);
  }
  ExpectOneFileFor(options, files);
  return ForEachFile(files, [&](const std::string& file) { DeleteFrom(file, paths, options); });
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
  Save(document, given[0], options);
  return kSuccess;
}

}  // namespace qn::json
