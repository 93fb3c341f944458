// Where in a broken JSON text the library's reader stopped, worked out from its message.
#ifndef QN_JSON_FAULT_H_
#define QN_JSON_FAULT_H_

#include <cstddef>
#include <optional>
#include <string>

namespace qn {

struct JsonFault {
  std::size_t offset;   // in bytes
  const char* meaning;  // the message in other words
  bool certain;         // false when other places of the text would give the same message
};

// The fault of a text in the code page; nothing when the text can be read.
//
// The reader's message ends with the text at the fault, at most 50 bytes of it. Fewer than 50 reach
// to the end of the text, which tells the place. 50 may occur several times: then each occurrence
// is examined, for a few seconds at most, and the first is taken at which the reader would have
// said the same.
std::optional<JsonFault> FindJsonFault(const std::string& text);

// A place in a text, as people name it, and the line there with a mark below it.
struct JsonPlace {
  std::size_t line;    // from 1; lines end with LF
  std::size_t column;  // from 1, in characters
  std::string excerpt;
};

JsonPlace PlaceOf(const std::string& text, std::size_t offset);

}  // namespace qn

#endif  // QN_JSON_FAULT_H_
