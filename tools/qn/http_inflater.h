// SPDX-License-Identifier: MIT
// Unpacks the bodies that servers compress (Content-Encoding), with zlib.
#ifndef QN_HTTP_INFLATER_H_
#define QN_HTTP_INFLATER_H_

#include <functional>
#include <memory>
#include <string_view>

namespace qn {

class HttpInflater {
 public:
  using Sink = std::function<void(std::string_view)>;

  // The header that asks for what is understood here. Throws Failure in a build of qn without zlib.
  static const char* AcceptEncoding();

  // coding is that of the response: gzip, deflate, or "" and identity for bytes as they are. Throws
  // Failure for any other.
  explicit HttpInflater(std::string_view coding);
  ~HttpInflater();
  HttpInflater(const HttpInflater&) = delete;
  HttpInflater& operator=(const HttpInflater&) = delete;

  // Hands what the next piece holds to sink. Throws Failure when it is broken.
  void Write(std::string_view piece, const Sink& sink);

  // Throws Failure when the body ended too early.
  void Finish() const;

 private:
  struct Stream;
  std::unique_ptr<Stream> stream_;  // null for bytes as they are
};

}  // namespace qn

#endif  // QN_HTTP_INFLATER_H_
