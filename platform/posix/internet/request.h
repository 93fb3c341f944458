// SPDX-License-Identifier: MIT
// Requests: what is sent, what came back, and where on the way they are.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_REQUEST_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_REQUEST_H_

#include <memory>
#include <mutex>
#include <string>

#include "platform/posix/internet/handle.h"
#include "platform/posix/internet/head.h"
#include "platform/posix/internet/transport.h"
#include "platform/posix/internet/url.h"

namespace quarnfc::internet {

class Request : public Handle {
 public:
  static constexpr DWORD kType = INTERNET_HANDLE_TYPE_HTTP_REQUEST;

  Request(const std::shared_ptr<Handle>& above, unsigned __int64 context_value)
      : Handle(kType, above, context_value) {}

  Session& OwnSession() const;

  // Sends the request with a whole body, follows redirects, answers a challenge.
  DWORD Send(const char* body, std::size_t size);

  // Sends the head; the body follows through PushBody, and Receive ends it.
  DWORD Begin(unsigned __int64 body_length);
  DWORD PushBody(const char* data, std::size_t size);
  DWORD End();

  // Reads the body.
  DWORD Pull(char* buffer, std::size_t capacity, std::size_t& count);
  // How many bytes of the body have arrived and are kept here; waits for the first ones.
  DWORD Available(std::size_t& count);

  void Cancel() override;

  Target target;    // where the request goes; redirects change it
  std::string url;  // the same as text
  std::string verb;
  bool http_1_0 = false;
  DWORD flags = 0;
  Headers headers;  // those of the host
  ResponseHead response;
  std::vector<std::string> response_lines;

 private:
  enum class State { kNew, kSending, kReceiving };

  DWORD SendOnce(const char* body, std::size_t size, bool with_body);
  DWORD Open(BodyKind kind, unsigned __int64 length);
  DWORD Receive();
  DWORD FollowRedirect(bool& followed, bool& with_body);
  bool AnswerChallenge();
  OutgoingHead MakeHead(BodyKind kind, unsigned __int64 length) const;
  Headers MakeHeaders() const;
  void DrainBody();
  std::shared_ptr<Exchange> TakeExchange();

  State state_ = State::kNew;
  std::mutex mutex_;  // of the exchange, which Cancel reaches from another thread
  std::shared_ptr<Exchange> exchange_;
  bool cancelled_ = false;
  bool authorize_ = false;  // send the credentials
  bool foreign_ = false;    // a redirect led to another server: no credentials for it
  std::string arrived_;     // bytes of the body that were received but not yet read
};

// Answers of text: the text with its terminator, its length without it. ERROR_INSUFFICIENT_BUFFER
// with the length that is needed when it does not fit.
DWORD StoreText(const std::string& text, void* buffer, DWORD& length);

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_REQUEST_H_
