// JSON documents on disk, as the commands see them.
#ifndef QN_JSON_FILE_H_
#define QN_JSON_FILE_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/platform_types.h>

#include <string>

namespace qn {

// How the text of a document is stored. UTF-8 is told by its mark alone.
enum class JsonEncoding { kCodePage, kUtf8 };

class JsonFile {
 public:
  // Reads the file with the library. Throws Failure with DescribeJsonError's text.
  explicit JsonFile(const std::string& path);

  JsonFile(const JsonFile&) = delete;
  JsonFile& operator=(const JsonFile&) = delete;

  CMyJsonValue& Root() { return root_; }
  JsonEncoding Encoding() const { return encoding_; }

  // The outermost object, which paths start at. Throws Failure when the document is another value.
  CMyJsonObj& Object();

  // Throws Failure when a text in the file was changed by reading: UTF-8 characters that the code
  // page lacks. To be called before the document is written.
  void ExpectNothingLost() const;

 private:
  std::string path_;
  JsonEncoding encoding_;
  CMyJsonValue root_;
};

// What to tell a person about a file that could not be read: message and code of the error and,
// where the text is broken, line, column and the text there.
std::string DescribeJsonError(const std::string& path, unsigned __int64 error);

// The text of a document as it is stored. Throws Failure for what would not read back: a key that
// needs escapes.
std::string JsonBytes(const CMyJsonValue& value, JsonEncoding encoding, bool indent);

}  // namespace qn

#endif  // QN_JSON_FILE_H_
