// qn json: checks, shows and edits JSON files.
#include <quarnfc/error_json.h>
#include <quarnfc/json_files.h>
#include <quarnfc/json_object.h>

#include <charconv>
#include <memory>
#include <system_error>

#include "command.h"
#include "console.h"
#include "errors.h"
#include "exit_code.h"
#include "json_file.h"
#include "json_shape.h"
#include "library_buffer.h"
#include "options.h"
#include "output.h"
#include "wide_text.h"

namespace qn {
namespace {

constexpr std::string_view kGroupUsage =
    "usage: qn json COMMAND [OPTION...] FILE [ARGUMENT...]\n"
    "\n"
    "A file is in the process code page, or in UTF-8 with mark; UTF-8 without the mark is taken\n"
    "for text in the code page. It has 11 to 52,428,800 bytes.\n"
    "\n"
    "A PATH is the keys from the outermost object on, separated by backslashes: server\\port.\n"
    "Elements of arrays have no path.\n"
    "\n"
    "Exit code 1: the file is missing or broken (the message says where), or has no such member.\n";

constexpr std::string_view kCheckUsage =
    "usage: qn json check [--json [--utf8]] FILE\n"
    "\n"
    "Reads a file. When it is broken, prints the reader's message, the line and the column. The\n"
    "message quotes up to 50 bytes of the text, and where the text is alike in several places, "
    "the\n"
    "first that fits is shown, with a remark.\n"
    "\n"
    "      --json   print the error document of the library instead; code 0 is no error\n"
    "      --utf8   print it in UTF-8\n";

constexpr std::string_view kFormatUsage =
    "usage: qn json format [--compact] [--utf8] [--lossy] [-o OUTPUT] FILE\n"
    "\n"
    "Writes the document as the library does: indented, in the process code page. Numbers have at\n"
    "most 15 decimals.\n"
    "\n"
    "      --compact         everything on one line\n"
    "      --utf8            in UTF-8 with mark\n"
    "      --lossy           write even what has lost characters that the code page lacks\n"
    "  -o, --output OUTPUT   write to a file; it is whole or not there\n";

constexpr std::string_view kGetUsage =
    "usage: qn json get [--ignore-case] [--compact] FILE PATH\n"
    "\n"
    "Prints the value of a member: a string as it is, everything else as JSON.\n"
    "\n"
    "  -i, --ignore-case   a key that differs in case is as good when there is no equal one\n"
    "      --compact       everything on one line\n"
    "\n"
    "Example: qn json get settings.json server\\\\port (the shell takes one of two backslashes)\n";

constexpr std::string_view kSetUsage =
    "usage: qn json set [OPTION...] FILE PATH VALUE\n"
    "\n"
    "Sets the value of a member; a missing one is added, with the objects on the way. VALUE is a\n"
    "JSON number, true, false, null, or an object, array or string in its brackets or quotes.\n"
    "Anything else is a string. The file keeps its encoding, UTF-8 with mark or the code page.\n"
    "\n"
    "  -s, --string          VALUE is a string, whatever it looks like\n"
    "      --only-existing   do not add members\n"
    "  -i, --ignore-case     a key that differs in case is as good when there is no equal one\n"
    "      --lossy           write even what has lost characters that the code page lacks\n"
    "  -o, --output OUTPUT   write there and leave FILE alone; either is whole or not there\n";

constexpr std::string_view kShapeUsage =
    "usage: qn json shape FILE\n"
    "\n"
    "Shows how many values of which type there are, how deep they nest, the longest arrays and "
    "the\n"
    "keys of the outer levels.\n";

// --- check ------------------------------------------------------------------------------------

// An error document, from its UTF-8 text. Consumes the text.
void PrintDocument(char* utf8, bool as_utf8) {
  const LibraryBuffer<char> text(utf8);
  if (as_utf8) {
    PrintBytes(std::string(text.get()) + "\n");
    return;
  }
  PrintLine(AnsiFromUtf8(text.get()));
}

int PrintErrorDocument(const std::string& path, bool as_utf8) {
  CMyJsonValue value;
  unsigned __int64 error = 0;
  if (QNJsonUtils::ReadJsonFileEx(path.c_str(), value, &error)) {
    PrintDocument(QNErrorUtils::CreateErrorUTF8Json(CQNObject::eErrNone, ""), as_utf8);
    return kSuccess;
  }
  PrintDocument(QNErrorUtils::CreateErrorUTF8JsonByHandle(error), as_utf8);
  return kFailure;
}

std::string DescribeRoot(const CMyJsonValue& root) {
  if (root.IsObj()) {
    return "an object with " + std::to_string(root.ValueObj()->ValueCount()) + " members";
  }
  if (root.IsArr()) return "an array with " + std::to_string(root.ValueArrLength()) + " elements";
  return "a single value";
}

std::string_view NameOf(JsonEncoding encoding) {
  return encoding == JsonEncoding::kUtf8 ? "UTF-8 with mark" : "code page";
}

int RunCheck(std::span<const std::string> arguments) {
  const Options options(arguments, {{"json"}, {"utf8"}});
  options.ExpectPositional(1, 1);
  const std::string& path = options.Positional()[0];
  if (options.Has("json")) return PrintErrorDocument(path, options.Has("utf8"));
  JsonFile file(path);
  PrintLine(DisplayText(path) + ": " + DescribeRoot(file.Root()) + ", " +
            std::string(NameOf(file.Encoding())));
  return kSuccess;
}

// --- format -----------------------------------------------------------------------------------

int RunFormat(std::span<const std::string> arguments) {
  const Options options(arguments,
                        {{"compact"}, {"utf8"}, {"lossy"}, {"output", 'o', Takes::kValue}});
  options.ExpectPositional(1, 1);
  JsonFile file(options.Positional()[0]);
  if (!options.Has("lossy")) file.ExpectNothingLost();
  const auto encoding = options.Has("utf8") ? JsonEncoding::kUtf8 : JsonEncoding::kCodePage;
  const std::string bytes = JsonBytes(file.Root(), encoding, !options.Has("compact"));
  if (!options.Has("output") && encoding == JsonEncoding::kCodePage) {
    PrintLine(bytes);
    return kSuccess;
  }
  Output output(options.Value("output", "-"));
  output.Write(bytes);
  output.Commit();
  return kSuccess;
}

// --- get --------------------------------------------------------------------------------------

int RunGet(std::span<const std::string> arguments) {
  const Options options(arguments, {{"ignore-case", 'i'}, {"compact"}});
  options.ExpectPositional(2, 2);
  JsonFile file(options.Positional()[0]);
  const std::string path = LibraryText(options.Positional()[1]);
  CMyJsonValue* value = nullptr;
  if (!file.Object().ValueEx(path.c_str(), value, !options.Has("ignore-case"))) {
    throw Failure("there is no member '" + path + "'");
  }
  if (value->IsStr()) {
    PrintLine(value->ValueStr());
  } else if (value->IsEmpty()) {
    PrintLine("null");
  } else {
    PrintLine(static_cast<const char*>(value->CreateJson(!options.Has("compact"))));
  }
  return kSuccess;
}

// --- set --------------------------------------------------------------------------------------

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

// A number as JSON spells it. "007", a code rather than a number, is none.
bool ReadJsonNumber(std::string_view text, double& number) {
  const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
  if (digits.empty() || !IsDigit(digits[0])) return false;
  if (digits.size() > 1 && digits[0] == '0' && IsDigit(digits[1])) return false;
  const std::size_t point = digits.find('.');
  if (point != std::string_view::npos &&
      (point + 1 == digits.size() || !IsDigit(digits[point + 1]))) {
    return false;
  }
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

bool IsEnclosed(std::string_view text, char open, char close) {
  return text.size() > 1 && text.front() == open && text.back() == close;
}

std::unique_ptr<CMyJsonValue> LoadValue(const std::string& text) {
  auto value = std::make_unique<CMyJsonValue>();
  CQNString reason;
  if (value->Load(text.c_str(), reason)) return value;
  throw Failure("VALUE cannot be read (--string takes it as it is): " +
                std::string(static_cast<const char*>(reason)));
}

std::unique_ptr<CMyJsonValue> ReadValue(const std::string& text) {
  double number = 0;
  if (text == "null") return std::make_unique<CMyJsonValue>();
  if (text == "true" || text == "false") return std::make_unique<CMyJsonValue>(text == "true");
  if (ReadJsonNumber(text, number)) return std::make_unique<CMyJsonValue>(number);
  if (IsEnclosed(text, '{', '}') || IsEnclosed(text, '[', ']') || IsEnclosed(text, '"', '"')) {
    return LoadValue(text);
  }
  return std::make_unique<CMyJsonValue>(text.c_str());
}

int RunSet(std::span<const std::string> arguments) {
  const Options options(arguments, {{"string", 's'},
                                    {"only-existing"},
                                    {"ignore-case", 'i'},
                                    {"lossy"},
                                    {"output", 'o', Takes::kValue}});
  options.ExpectPositional(3, 3);
  const std::string& source = options.Positional()[0];
  JsonFile file(source);
  if (!options.Has("lossy")) file.ExpectNothingLost();
  const std::string path = LibraryText(options.Positional()[1]);
  const std::string text = LibraryText(options.Positional()[2]);
  auto value =
      options.Has("string") ? std::make_unique<CMyJsonValue>(text.c_str()) : ReadValue(text);
  if (!file.Object().SetItem(path.c_str(), value.get(), !options.Has("ignore-case"),
                             options.Has("only-existing"))) {
    throw Failure("there is no member '" + path + "', or one on the way to it is no object");
  }
  static_cast<void>(value.release());  // it is part of the document now
  const std::string bytes = JsonBytes(file.Root(), file.Encoding(), true);
  Output output(options.Value("output", source));
  output.Write(bytes);
  output.Commit();
  return kSuccess;
}

// --- shape ------------------------------------------------------------------------------------

int RunShape(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  JsonFile file(options.Positional()[0]);
  PrintLine("document  " + DescribeRoot(file.Root()) + ", " + std::string(NameOf(file.Encoding())));
  Print(DescribeJsonShape(file.Root()));
  return kSuccess;
}

constexpr Command kCommands[] = {
    {"check", "Say whether a file can be read, or where it is broken", kCheckUsage, RunCheck},
    {"format", "Write a file in the library's layout", kFormatUsage, RunFormat},
    {"get", "Print the value of a member", kGetUsage, RunGet},
    {"set", "Set the value of a member", kSetUsage, RunSet},
    {"shape", "Show what a document is made of", kShapeUsage, RunShape},
};

}  // namespace

extern const Command kJsonCommand;
const Command kJsonCommand = {"json", "JSON files", kGroupUsage, nullptr, kCommands};

}  // namespace qn
