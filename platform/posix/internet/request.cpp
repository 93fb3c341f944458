// SPDX-License-Identifier: MIT
#include "platform/posix/internet/request.h"

#include <utility>

#include "platform/posix/internet/basic_credentials.h"
#include "platform/posix/internet/cookie_store.h"

namespace quarnfc::internet {
namespace {

constexpr int kMostRedirects = 20;
constexpr std::size_t kDrainedBytes = 64 * 1024;

bool IsRedirect(DWORD status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool IsChunked(const Headers& headers) {
  const std::string* coding = headers.Find("Transfer-Encoding");
  return coding != nullptr && EqualIgnoringCase(*coding, "chunked");
}

}  // namespace

Session& Request::OwnSession() const {
  const Handle* above = parent.get();
  while (above->parent != nullptr) above = above->parent.get();
  return static_cast<Session&>(const_cast<Handle&>(*above));
}

// The headers of the host and those that it leaves to us.
Headers Request::MakeHeaders() const {
  Headers all = headers;
  const Session& session = OwnSession();
  if (!session.agent.empty()) all.AddIfNew("User-Agent", session.agent);
  const bool keep = (flags & INTERNET_FLAG_KEEP_CONNECTION) != 0;
  all.AddIfNew("Connection", keep ? "Keep-Alive" : "Close");
  if ((flags & (INTERNET_FLAG_RELOAD | INTERNET_FLAG_PRAGMA_NOCACHE)) != 0) {
    all.AddIfNew(http_1_0 ? "Pragma" : "Cache-Control", "no-cache");
  }
  if ((flags & INTERNET_FLAG_NO_COOKIES) == 0) {
    const std::string cookies = TheCookies().HeaderFor(target);
    if (!cookies.empty()) all.AddIfNew("Cookie", cookies);
  }
  if (foreign_) {
    all.Remove("Authorization");
  } else if (authorize_) {
    all.AddIfNew("Authorization", BasicCredentials(settings.user, settings.password));
  }
  return all;
}

OutgoingHead Request::MakeHead(BodyKind kind, unsigned __int64 length) const {
  const Session& session = OwnSession();
  OutgoingHead head;
  head.route = {target.secure,           target.host,   target.port,
                settings.security_flags, session.proxy, settings.proxy_user,
                settings.proxy_password};
  head.verb = verb;
  head.target = target.object;
  head.http_1_0 = http_1_0;
  head.body = kind;
  head.body_length = length;
  head.connect_timeout = settings.connect_timeout;
  Headers all = MakeHeaders();
  // The transport says how long the body is.
  all.Remove("Content-Length");
  if (kind == BodyKind::kChunked) all.Remove("Transfer-Encoding");
  head.headers.reserve(all.All().size());
  for (const Header& header : all.All()) head.headers.push_back(header.name + ": " + header.value);
  return head;
}

DWORD Request::Open(BodyKind kind, unsigned __int64 length) {
  arrived_.clear();
  response = ResponseHead();
  response_lines.clear();
  std::shared_ptr<Exchange> exchange = OwnSession().transport->Open();
  std::shared_ptr<Exchange> previous;
  {
    const std::lock_guard lock(mutex_);
    if (cancelled_) return ERROR_INTERNET_OPERATION_CANCELLED;
    previous = std::exchange(exchange_, exchange);
  }
  previous.reset();
  state_ = State::kNew;
  const OutgoingHead head = MakeHead(kind, length);
  const DWORD error = exchange->SendHead(
      head, [this] { Report(INTERNET_STATUS_CONNECTING_TO_SERVER, target.host); },
      [this] { Report(INTERNET_STATUS_CONNECTED_TO_SERVER, target.host); });
  if (error != 0) return error;
  state_ = State::kSending;
  Report(INTERNET_STATUS_SENDING_REQUEST);
  return 0;
}

// The exchange, ready for the next step, which waits as long as the options say by now.
std::shared_ptr<Exchange> Request::TakeExchange() {
  std::shared_ptr<Exchange> exchange;
  {
    const std::lock_guard lock(mutex_);
    exchange = exchange_;
  }
  exchange->LimitWaits(settings.send_timeout, settings.receive_timeout);
  return exchange;
}

void Request::Cancel() {
  std::shared_ptr<Exchange> exchange;
  {
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
    exchange = exchange_;
  }
  if (exchange != nullptr) exchange->Cancel();
}

DWORD Request::PushBody(const char* data, std::size_t size) {
  if (state_ != State::kSending) return ERROR_INTERNET_INCORRECT_HANDLE_STATE;
  return TakeExchange()->PushBody(data, size);
}

DWORD Request::Receive() {
  DWORD sent = 0;
  Report(INTERNET_STATUS_REQUEST_SENT, &sent, sizeof(sent));
  Report(INTERNET_STATUS_RECEIVING_RESPONSE);
  if (const DWORD error = TakeExchange()->ReceiveHead(response_lines)) return error;
  ResponseHead head;  // the response has all of it or, without memory, nothing
  if (!head.Parse(response_lines)) return ERROR_HTTP_INVALID_SERVER_RESPONSE;
  response = std::move(head);
  DWORD received = 0;
  for (const std::string& line : response_lines) received += static_cast<DWORD>(line.size() + 2);
  Report(INTERNET_STATUS_RESPONSE_RECEIVED, &received, sizeof(received));
  state_ = State::kReceiving;
  if ((flags & INTERNET_FLAG_NO_COOKIES) == 0) {
    const std::string* cookie = nullptr;
    for (DWORD i = 0; (cookie = response.headers.Find("Set-Cookie", i)) != nullptr; ++i) {
      TheCookies().Set(target, *cookie, CookieOrigin::kServer);
    }
  }
  return 0;
}

DWORD Request::SendOnce(const char* body, std::size_t size, bool with_body) {
  // An empty body is announced where servers wait for one.
  const bool announces = with_body && (size != 0 || verb == "POST" || verb == "PUT");
  if (const DWORD error = Open(announces ? BodyKind::kLength : BodyKind::kNone, size)) return error;
  if (announces) {
    if (const DWORD error = TakeExchange()->PushBody(body, size)) return error;
  }
  return Receive();
}

DWORD Request::Send(const char* body, std::size_t size) {
  bool with_body = true;
  for (int i = 0; i <= kMostRedirects; ++i) {
    if (const DWORD error = SendOnce(body, size, with_body)) return error;
    if (AnswerChallenge()) {
      DrainBody();
      if (const DWORD error = SendOnce(body, size, with_body)) return error;
    }
    bool followed = false;
    const DWORD error = FollowRedirect(followed, with_body);
    if (error != 0 || !followed) return error;
  }
  return ERROR_HTTP_REDIRECT_FAILED;
}

DWORD Request::Begin(unsigned __int64 body_length) {
  return Open(IsChunked(headers) ? BodyKind::kChunked : BodyKind::kLength, body_length);
}

// A redirect of a request that was sent in pieces is followed without its body, where that is what
// the status means; otherwise the body is gone and the redirect is the answer.
DWORD Request::End() {
  if (state_ != State::kSending) return ERROR_INTERNET_INCORRECT_HANDLE_STATE;
  if (const DWORD error = Receive()) return error;
  const bool needs_body = response.status == 307 || response.status == 308;
  bool followed = false;
  bool with_body = true;
  if (needs_body) return 0;
  const DWORD error = FollowRedirect(followed, with_body);
  return error == 0 && followed ? Send(nullptr, 0) : error;
}

// Whether the request should be sent again with the credentials that are known.
bool Request::AnswerChallenge() {
  if (response.status != 401 || authorize_ || foreign_ || settings.user.empty()) return false;
  if ((flags & INTERNET_FLAG_NO_AUTH) != 0 || headers.Find("Authorization") != nullptr)
    return false;
  const std::string* challenge = nullptr;
  for (DWORD i = 0; (challenge = response.headers.Find("WWW-Authenticate", i)) != nullptr; ++i) {
    if (EqualIgnoringCase(challenge->substr(0, 5), "Basic")) return authorize_ = true;
  }
  return false;
}

DWORD Request::FollowRedirect(bool& followed, bool& with_body) {
  const std::string* location = response.headers.Find("Location");
  if (!IsRedirect(response.status) || location == nullptr ||
      (flags & INTERNET_FLAG_NO_AUTO_REDIRECT) != 0) {
    return 0;
  }
  Target next;
  if (!ResolveReference(target, *location, next)) return ERROR_HTTP_REDIRECT_FAILED;
  if (target.secure && !next.secure && (flags & INTERNET_FLAG_IGNORE_REDIRECT_TO_HTTP) == 0) {
    return ERROR_INTERNET_HTTPS_TO_HTTP_ON_REDIR;
  }
  DrainBody();
  foreign_ = foreign_ || next.host != target.host || next.port != target.port ||
             next.secure != target.secure;
  target = next;
  url = TextOf(target);
  if (response.status <= 303 && verb != "GET" && verb != "HEAD") {
    verb = "GET";
    with_body = false;
    headers.Remove("Content-Type");
  }
  Report(INTERNET_STATUS_REDIRECT, url);
  followed = true;
  return 0;
}

// Reads what is left of a short body, so that the connection can be kept.
void Request::DrainBody() {
  char bytes[4096];
  std::size_t count = 1;
  for (std::size_t drained = 0; drained < kDrainedBytes && count != 0; drained += count) {
    if (Pull(bytes, sizeof(bytes), count) != 0) return;
  }
}

DWORD Request::Pull(char* buffer, std::size_t capacity, std::size_t& count) {
  count = 0;
  if (state_ != State::kReceiving) return ERROR_INTERNET_INCORRECT_HANDLE_STATE;
  count = arrived_.copy(buffer, capacity);  // which may be 0, and buffer null
  arrived_.erase(0, count);
  while (count < capacity) {
    std::size_t more = 0;
    const DWORD error = TakeExchange()->PullBody(buffer + count, capacity - count, more);
    if (error != 0) return count != 0 ? 0 : error;
    if (more == 0) return 0;
    count += more;
  }
  return 0;
}

DWORD Request::Available(std::size_t& count) {
  constexpr std::size_t kPeek = 16 * 1024;
  count = 0;
  if (state_ != State::kReceiving) return ERROR_INTERNET_INCORRECT_HANDLE_STATE;
  if (arrived_.empty()) {
    std::string bytes(kPeek, '\0');
    std::size_t received = 0;
    if (const DWORD error = TakeExchange()->PullBody(bytes.data(), bytes.size(), received)) {
      return error;
    }
    bytes.resize(received);
    arrived_ = std::move(bytes);
  }
  count = arrived_.size();
  return 0;
}

}  // namespace quarnfc::internet
