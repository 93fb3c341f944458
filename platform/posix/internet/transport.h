// SPDX-License-Identifier: MIT
// How one request travels to a server and its response back: the only thing that differs between
// the network and the memory of a test. Errors are those of the internet functions; 0 is success.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_TRANSPORT_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_TRANSPORT_H_

#include <quarnfc/platform_types.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quarnfc::internet {

// How servers are reached.
struct Proxy {
  DWORD access_type = 0;  // one of INTERNET_OPEN_TYPE_
  std::string name;       // "host:port", of INTERNET_OPEN_TYPE_PROXY
  std::string bypass;     // hosts that are reached directly, separated by spaces or commas

  bool operator==(const Proxy&) const = default;
};

// Requests with equal routes may share a connection. What certificates are accepted for is part of
// it: a connection that was trusted on demand serves only those who demand the same.
struct Route {
  bool secure = false;
  std::string host;
  unsigned short port = 0;
  DWORD security_flags = 0;
  Proxy proxy;
  std::string proxy_user;
  std::string proxy_password;

  bool operator==(const Route&) const = default;
};

enum class BodyKind { kNone, kLength, kChunked };

struct OutgoingHead {
  Route route;
  std::string verb;
  std::string target;  // "/path?query", without spaces and control characters
  bool http_1_0 = false;
  std::vector<std::string> headers;  // "Name: value"; Host and the length are the transport's
  BodyKind body = BodyKind::kNone;
  unsigned __int64 body_length = 0;
  DWORD connect_timeout = 0;  // milliseconds; 0 waits for ever
};

// One request and its response. The members are called in the order in which they stand and block,
// but for the last two, which may come at any time.
class Exchange {
 public:
  // Ends the exchange, wherever it stands.
  virtual ~Exchange() = default;

  // Connects. connecting and connected are called when a new connection is made.
  using Progress = std::function<void()>;
  virtual DWORD SendHead(const OutgoingHead& head, const Progress& connecting,
                         const Progress& connected) = 0;

  // Sends the next bytes of the body. A server that answers before it has read the body is fine:
  // the rest is dropped.
  virtual DWORD PushBody(const char* data, std::size_t size) = 0;

  // Ends the body and receives the lines of the response's head, without their ends and without
  // the empty line. Interim responses (1xx) are skipped.
  virtual DWORD ReceiveHead(std::vector<std::string>& lines) = 0;

  // Receives the next bytes of the body, at least one; count 0 is its end.
  virtual DWORD PullBody(char* buffer, std::size_t capacity, std::size_t& count) = 0;

  // How long the calls from now on wait for something to happen, in milliseconds; 0 is for ever.
  virtual void LimitWaits(DWORD send, DWORD receive) = 0;

  // Makes the call under way on another thread, and every later one, fail with
  // ERROR_INTERNET_OPERATION_CANCELLED.
  virtual void Cancel() = 0;
};

// What a session sends its requests through. Members may be called on several threads at once.
class Transport {
 public:
  virtual ~Transport() = default;
  virtual std::unique_ptr<Exchange> Open() = 0;
};

// The transport of new sessions: libcurl's, unless a test has set another maker.
std::unique_ptr<Transport> MakeTransport();
using TransportMaker = std::function<std::unique_ptr<Transport>()>;
void SetTransportMaker(TransportMaker maker);  // an empty one brings libcurl's back

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_TRANSPORT_H_
