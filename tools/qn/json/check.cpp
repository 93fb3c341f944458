// SPDX-License-Identifier: MIT
// qn json check: strict, or by the library's lenient grammar.
#include <quarnfc/error_json.h>
#include <quarnfc/ext/json_text_edit.h>
#include <quarnfc/json_files.h>
#include <quarnfc/json_value.h>
#include <quarnfc/object.h>
#include <quarnfc/plain.h>

#include <cstddef>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/input_file.h"
#include "qn/json/commands.h"
#include "qn/json/document.h"
#include "qn/json/lenient_fault.h"
#include "qn/library_buffer.h"
#include "qn/text/excerpt.h"

namespace qn::json {
namespace {

using quarnfc::ext::JsonText;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::JsonTextNode;
using quarnfc::ext::PlaceInText;
using quarnfc::ext::QuoteJson;

// --- strict -------------------------------------------------------------------------------------

// A file as it was found. One that cannot be read is reported like one that is broken.
struct Finding {
  std::string name;
  std::string failure;  // why it is no text; empty when it is
  Document document;
  JsonText json;
  JsonTextError error;
};

Finding Examine(const std::string& path, std::optional<Encoding> encoding) {
  Finding finding;
  finding.name = path == "-" ? "standard input" : DisplayText(path);
  try {
    finding.document = DecodeDocument(ReadInput(path), finding.name, encoding);
    finding.json.Parse(finding.document.text, &finding.error, {0xFFFFFFFF});
  } catch (const Failure& failure) {
    finding.failure = failure.what();
  }
  return finding;
}

bool IsGood(const Finding& finding) {
  return finding.failure.empty() && finding.error.fault == quarnfc::ext::JsonFault::kNone;
}

std::string PlaceName(const Finding& finding, const JsonTextNode& node) {
  const auto place = PlaceInText(finding.document.text, node.Begin());
  return finding.name + ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
}

void PrintFinding(const Finding& finding) {
  if (!finding.failure.empty()) return PrintError(finding.failure);
  if (!IsGood(finding)) {
    return PrintError(DescribeJsonError(finding.name, finding.document.text, finding.error));
  }
  const Encoding& encoding = finding.document.encoding;
  const bool taken_otherwise = encoding == Encoding() && !IsAscii(finding.document.text);
  PrintLine(finding.name + ": " + DescribeJsonRoot(finding.json.Root()) + ", " + NameOf(encoding) +
            (taken_otherwise ? " without mark (the library takes it for the code page)" : ""));
  for (const JsonTextNode& key : finding.json.DuplicateKeys()) {
    PrintNote(PlaceName(finding, key) + ": the key " + std::string(key.Source()) +
              " occurs again in its object");
  }
}

std::string Member(std::string_view key, const std::string& json) {
  return ",\"" + std::string(key) + "\":" + json;
}

void PrintFindingAsJson(const Finding& finding) {
  const bool good = IsGood(finding);
  std::string line = "{\"file\":" + QuoteJson(finding.name);
  line += Member("valid", good ? "true" : "false");
  if (!finding.failure.empty()) line += Member("message", QuoteJson(finding.failure));
  if (finding.failure.empty()) {
    line += Member("encoding", QuoteJson(NameOf(finding.document.encoding)));
  }
  if (finding.failure.empty() && !good) {
    line += Member("message", QuoteJson(finding.error.Message()));
    line += Member("line", std::to_string(finding.error.line));
    line += Member("column", std::to_string(finding.error.column));
    line += Member("offset", std::to_string(finding.error.offset));
  }
  if (good) line += Member("duplicateKeys", std::to_string(finding.json.DuplicateKeys().size()));
  PrintLine(line + "}");
}

// --- lenient ------------------------------------------------------------------------------------

// White space of a text that a message quotes is shown as escapes.
std::string OneLine(const std::string& message) {
  std::string line;
  for (const char ch : message) {
    const std::size_t escape = std::string_view("\t\r\n").find(ch);
    if (escape == std::string_view::npos) {
      line += ch;
    } else {
      line += {'\\', "trn"[escape]};
    }
  }
  return line;
}

// The text that the library's reader sees.
std::string LibraryTextOf(const std::string& bytes) {
  const Encoding encoding = DetectEncoding(bytes);
  if (!encoding.mark) return bytes.substr(0, bytes.find('\0'));
  const Document document = DecodeDocument(bytes, "", encoding, true);
  return EncodeText(document.text, {Charset::kAnsi, false}, true);
}

std::string DescribeFault(const std::string& text, const LenientFault& fault) {
  const std::string shown = FromLibrary(text);
  const std::size_t offset = FromLibrary(text.substr(0, fault.offset)).size();
  const auto place = PlaceInText(shown, offset);
  return "\nline " + std::to_string(place.line) + ", column " + std::to_string(place.column) +
         ": " + fault.meaning +
         (fault.certain ? "" : "\n(the text is alike elsewhere, so it may be a later place)") +
         "\n" + Excerpt(shown, offset);
}

std::string DescribeLenientError(const std::string& path, unsigned __int64 error) {
  constexpr std::string_view kLengthRefused = " file length is invalid";
  unsigned int code = 0;
  const LibraryBuffer<char> message(qnGetErrorA(error, &code));
  std::string description = OneLine(FileMessage(message.get(), path));
  description += " (error code " + std::to_string(code) + ")";
  const bool text_is_broken = code == CQNObject::eErrInvalidData &&
                              !std::string_view(message.get()).ends_with(kLengthRefused);
  if (!text_is_broken) return description;
  const std::string text = LibraryTextOf(ReadInput(path));
  if (const auto fault = FindLenientFault(text)) description += DescribeFault(text, *fault);
  return description;
}

// An error document of the library's, from its UTF-8 text. Consumes the text.
void PrintDocument(char* utf8, bool as_utf8) {
  const LibraryBuffer<char> text(utf8);
  const std::string line = std::string(text.get()) + "\n";
  as_utf8 ? PrintBytes(line) : Print(line);
}

std::string DescribeLenientRoot(const CMyJsonValue& root) {
  if (root.IsObj()) {
    return "an object with " +
           CountOf(static_cast<std::size_t>(root.ValueObj()->ValueCount()), "member");
  }
  if (root.IsArr()) {
    return "an array with " + CountOf(static_cast<std::size_t>(root.ValueArrLength()), "element");
  }
  return "a single value";
}

int CheckLenient(const std::string& path, const Options& options) {
  CMyJsonValue value;
  unsigned __int64 error = 0;
  const bool good = QNJsonUtils::ReadJsonFileEx(PathForLibrary(path).c_str(), value, &error);
  if (options.Has("json")) {
    PrintDocument(good ? QNErrorUtils::CreateErrorUTF8Json(CQNObject::eErrNone, "")
                       : QNErrorUtils::CreateErrorUTF8JsonByHandle(error),
                  options.Has("utf8"));
  } else if (good) {
    PrintLine(DisplayText(path) + ": " + DescribeLenientRoot(value) + ", by the lenient grammar");
  } else {
    const std::string description = DescribeLenientError(path, error);
    qnCloseHandle(error);
    PrintError(description);
  }
  return good ? kSuccess : kFailure;
}

int CheckStrict(const std::string& path, const Options& options) {
  const Finding finding = Examine(path, EncodingFrom(options));
  options.Has("json") ? PrintFindingAsJson(finding) : PrintFinding(finding);
  return IsGood(finding) ? kSuccess : kFailure;
}

}  // namespace

int RunCheck(Arguments arguments) {
  const Options options(arguments, {{"json"}, {"utf8"}, {"lenient"}, kEncodingOption});
  options.ExpectPositional(1, 100'000);
  int result = kSuccess;
  for (const std::string& path : options.Positional()) {
    const int code =
        options.Has("lenient") ? CheckLenient(path, options) : CheckStrict(path, options);
    if (code != kSuccess) result = code;
  }
  return result;
}

}  // namespace qn::json
