// SPDX-License-Identifier: MIT
// JSON documents as the commands see them: strict JSON in any of the encodings.
#ifndef QN_JSON_DOCUMENT_H_
#define QN_JSON_DOCUMENT_H_

#include <quarnfc/ext/json_text.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "qn/text/encoding.h"

namespace qn {

class JsonDocument {
 public:
  // Reads a file, or standard input when path is "-". Throws Failure with DescribeJsonError's text
  // when it holds no JSON, or no text.
  explicit JsonDocument(const std::string& path, std::optional<Encoding> encoding = std::nullopt);

  const std::string& Name() const { return name_; }
  const quarnfc::ext::JsonText& Json() const { return json_; }
  quarnfc::ext::JsonTextNode Root() const { return json_.Root(); }
  const Encoding& StoredAs() const { return encoding_; }

  // Gives the document another text. Throws Failure when that is no JSON.
  void Change(const std::string& text);

  struct SaveOptions {
    std::string output;                // "-": standard output
    std::optional<Encoding> encoding;  // otherwise that of the source
    bool lossy = false;
  };

  // Writes the document; the file is whole or stays as it was. Throws Failure.
  void Save(const SaveOptions& options) const;

 private:
  Encoding EncodingFor(const SaveOptions& options) const;

  std::string name_;
  std::string bytes_;
  std::string original_;
  quarnfc::ext::JsonText json_;
  Encoding encoding_;
};

// "name:line:column: message", the line and a mark below the place.
std::string DescribeJsonError(const std::string& name, std::string_view text,
                              const quarnfc::ext::JsonTextError& error);

// A number of things, for people: "1 member", "4 members".
std::string CountOf(std::size_t count, const std::string& noun);

// What a document is, for people: "an object with 4 members".
std::string DescribeJsonRoot(const quarnfc::ext::JsonTextNode& root);

}  // namespace qn

#endif  // QN_JSON_DOCUMENT_H_
