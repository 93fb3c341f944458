// SPDX-License-Identifier: MIT
// qn json format, get, keys, length and shape: what leaves the document as it is.
#include <quarnfc/ext/json_text_edit.h>

#include <algorithm>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/json/commands.h"
#include "qn/json/document.h"
#include "qn/json/each_file.h"
#include "qn/json/layout.h"
#include "qn/json/path.h"
#include "qn/json/shape.h"
#include "qn/output.h"

namespace qn::json {
namespace {

using quarnfc::ext::CountUtf8Chars;
using quarnfc::ext::JsonTextNode;

constexpr OptionSpec kCompactOption = {"compact", 'c'};
constexpr OptionSpec kIndentOption = {"indent", '\0', Takes::kValue};

std::string LaidOut(const JsonTextNode& node, const Options& options, JsonNumbers numbers) {
  const auto spaces = static_cast<std::size_t>(options.Number("indent", 2, 0, 16));
  const JsonStyle style = options.Has("compact")  ? JsonStyle::kCompact
                          : options.Has("indent") ? JsonStyle::kSpaces
                                                  : JsonStyle::kLibrary;
  return LayOutJson(node, style, spaces, numbers);
}

// The encoding to be written when the user has named one.
std::optional<Encoding> TargetEncoding(const Options& options) {
  if (options.Has("utf8")) return Encoding{Charset::kUtf8, true};
  if (!options.Has("to")) return std::nullopt;
  return EncodingFromName(options.Value("to"));
}

// The files to look into, and where. --path makes every argument a file; otherwise the path follows
// the only file.
struct Selection {
  std::vector<std::string> files;
  std::string path;
};

Selection SelectionFrom(const Options& options, std::size_t fewest) {
  const std::vector<std::string>& given = options.Positional();
  if (options.Has("path")) {
    options.ExpectPositional(1, kMostFiles);
    return {given, options.Value("path")};
  }
  options.ExpectPositional(fewest, 2);
  return {{given[0]}, given.size() > 1 ? given[1] : ""};
}

// Shows the value in each file; of several, the name goes before it.
template <class Show>
int ShowEach(const Options& options, std::size_t fewest, Show show) {
  const Selection selection = SelectionFrom(options, fewest);
  return ForEachFile(selection.files, [&](const std::string& file) {
    const JsonDocument document(file, EncodingFrom(options));
    if (selection.files.size() > 1) PrintLine(document.Name());
    show(ValueAtJsonPath(document.Root(), selection.path, options.Has("ignore-case")));
  });
}

void PrintKeys(const JsonTextNode& value, bool as_json) {
  if (!value.IsObject()) throw Failure("the value is no object and has no keys");
  std::string list;
  for (const auto& item : value.Items()) {
    if (as_json) {
      if (!list.empty()) list += ',';
      list += item.key->Source();
    } else {
      PrintLine(item.key->String());
    }
  }
  if (as_json) PrintLine("[" + list + "]");
}

void PrintLength(const JsonTextNode& value) {
  if (!value.IsObject() && !value.IsArray() && !value.IsString()) {
    throw Failure("only objects, arrays and strings have a length");
  }
  PrintLine(std::to_string(value.IsString() ? CountUtf8Chars(value.String()) : value.Count()));
}

// Writes the document where --output says, or shows it.
int Format(const std::string& file, const Options& options) {
  const JsonDocument document(file, EncodingFrom(options));
  const std::string text = LaidOut(document.Root(), options, JsonNumbers::kAsSpelled);
  const std::optional<Encoding> encoding = TargetEncoding(options);
  if (!options.Has("output") && !encoding) {
    PrintLine(text);
    return kSuccess;
  }
  Output output(options.Value("output", "-"));
  output.Write(EncodeDocument(text, encoding.value_or(document.StoredAs()), options.Has("lossy")));
  output.Commit();
  return kSuccess;
}

// Writes the document into its file. A line end at the end of the file stays one.
void FormatInPlace(const std::string& file, const Options& options) {
  JsonDocument document(file, EncodingFrom(options));
  std::string text = LaidOut(document.Root(), options, JsonNumbers::kAsSpelled);
  const bool library = !options.Has("compact") && !options.Has("indent");
  if (document.Json().Text().ends_with('\n')) text += library ? "\r\n" : "\n";
  document.Change(text);
  document.Save({file, TargetEncoding(options), options.Has("lossy")});
}

}  // namespace

int RunFormat(Arguments arguments) {
  const Options options(arguments, {kCompactOption,
                                    kIndentOption,
                                    {"in-place"},
                                    {"utf8"},
                                    {"to", '\0', Takes::kValue},
                                    {"lossy"},
                                    kEncodingOption,
                                    kOutputOption});
  options.ExpectPositional(1, kMostFiles);
  const std::vector<std::string>& files = options.Positional();
  if (!options.Has("in-place")) {
    if (files.size() > 1) throw UsageError("several files are written --in-place only");
    return Format(files[0], options);
  }
  if (options.Has("output")) throw UsageError("--in-place and --output exclude each other");
  if (std::count(files.begin(), files.end(), "-") > 0) {
    throw UsageError("standard input has no place to be written to");
  }
  return ForEachFile(files, [&](const std::string& file) { FormatInPlace(file, options); });
}

int RunGet(Arguments arguments) {
  const Options options(
      arguments,
      {kIgnoreCaseOption, kPathOption, kCompactOption, kIndentOption, {"json"}, kEncodingOption});
  return ShowEach(options, 2, [&options](const JsonTextNode& value) {
    PrintLine(value.IsString() && !options.Has("json")
                  ? value.String()
                  : LaidOut(value, options, JsonNumbers::kShort));
  });
}

int RunKeys(Arguments arguments) {
  const Options options(arguments, {kIgnoreCaseOption, kPathOption, {"json"}, kEncodingOption});
  return ShowEach(options, 1,
                  [&options](const JsonTextNode& value) { PrintKeys(value, options.Has("json")); });
}

int RunLength(Arguments arguments) {
  const Options options(arguments, {kIgnoreCaseOption, kPathOption, kEncodingOption});
  return ShowEach(options, 1, PrintLength);
}

int RunShape(Arguments arguments) {
  const Options options(arguments, {kEncodingOption});
  options.ExpectPositional(1, kMostFiles);
  return ForEachFile(options.Positional(), [&](const std::string& path) {
    const JsonDocument document(path, EncodingFrom(options));
    if (options.Positional().size() > 1) PrintLine(document.Name());
    PrintLine("document  " + DescribeJsonRoot(document.Root()) + ", " +
              NameOf(document.StoredAs()));
    Print(DescribeJsonShape(document.Root()));
  });
}

}  // namespace qn::json
