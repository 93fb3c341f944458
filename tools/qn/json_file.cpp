#include "json_file.h"

#include <quarnfc/json_files.h>
#include <quarnfc/object.h>
#include <quarnfc/plain.h>

#include <string_view>

#include "console.h"
#include "errors.h"
#include "input_file.h"
#include "json_fault.h"
#include "json_tree.h"
#include "library_buffer.h"
#include "wide_text.h"

namespace qn {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// How the message about a length out of range ends.
constexpr std::string_view kLengthRefused = " file length is invalid";

std::string StoredBytes(const std::string& path) {
  std::string bytes = ReadInput(path);
  return bytes.substr(0, bytes.find('\0'));
}

// The text that the reader sees.
std::string LibraryTextOf(const std::string& bytes) {
  if (!bytes.starts_with(kUtf8Mark)) return bytes;
  return AnsiFromUtf8(bytes.c_str() + kUtf8Mark.size());
}

// A message on one line: white space of a text that it quotes is shown as escapes.
std::string OneLine(std::string_view message) {
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

std::string DescribePlace(const std::string& text, const JsonFault& fault) {
  const JsonPlace place = PlaceOf(text, fault.offset);
  return "\nline " + std::to_string(place.line) + ", column " + std::to_string(place.column) +
         ": " + fault.meaning +
         (fault.certain ? "" : "\n(the text is alike elsewhere, so it may be a later place)") +
         "\n" + place.excerpt;
}

// The library writes keys as they are.
void ExpectWritableKeys(const CMyJsonValue& root) {
  JsonWalk walk(root);
  while (walk.Next()) {
    if (walk.IsMember() && walk.Key().FindOneOf("\"\\") >= 0) {
      throw Failure("the key '" + std::string(static_cast<const char*>(walk.Key())) +
                    "' would not read back: keys are written without escapes");
    }
  }
}

}  // namespace

JsonFile::JsonFile(const std::string& path) : path_(path), encoding_(JsonEncoding::kCodePage) {
  unsigned __int64 error = 0;
  if (!QNJsonUtils::ReadJsonFileEx(path.c_str(), root_, &error)) {
    const std::string description = DescribeJsonError(path, error);
    qnCloseHandle(error);
    throw Failure(description);
  }
  if (ReadInput(path).starts_with(kUtf8Mark)) encoding_ = JsonEncoding::kUtf8;
}

CMyJsonObj& JsonFile::Object() {
  if (!root_.IsObj())
    throw Failure(DisplayText(path_) + " holds no object that a path could enter");
  return *root_.ValueObj();
}

void JsonFile::ExpectNothingLost() const {
  if (encoding_ != JsonEncoding::kUtf8) return;
  const std::string bytes = StoredBytes(path_);
  if (WideFromUtf8(bytes.c_str() + kUtf8Mark.size()) !=
      WideFromAnsi(LibraryTextOf(bytes).c_str())) {
    throw Failure(DisplayText(path_) +
                  " holds characters that the code page lacks; writing would "
                  "lose them (--lossy writes all the same)");
  }
}

std::string DescribeJsonError(const std::string& path, unsigned __int64 error) {
  unsigned int code = 0;
  const LibraryBuffer<char> message(qnGetErrorA(error, &code));
  std::string description = OneLine(FileMessage(message.get(), path));
  description += " (error code " + std::to_string(code) + ")";
  const bool text_is_broken = code == CQNObject::eErrInvalidData &&
                              !std::string_view(message.get()).ends_with(kLengthRefused);
  if (!text_is_broken) return description;
  const std::string text = LibraryTextOf(StoredBytes(path));
  if (const auto fault = FindJsonFault(text)) description += DescribePlace(text, *fault);
  return description;
}

std::string JsonBytes(const CMyJsonValue& value, JsonEncoding encoding, bool indent) {
  ExpectWritableKeys(value);
  if (encoding == JsonEncoding::kCodePage) {
    const CQNString text = value.CreateJson(indent);
    return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
  }
  return std::string(kUtf8Mark) + LibraryBuffer<char>(value.CreateUTF8Json(indent)).get();
}

}  // namespace qn
