// SPDX-License-Identifier: MIT
// What the calls of <quarnfc/ext/http_call.h> take (options, a way to cancel) and how they work,
// over the exported classes. Threads and errors are as described there. Header-only, C++17.
//
// Example:
//   quarnfc::ext::HttpCancel cancel;
//   quarnfc::ext::HttpCallOptions options;
//   options.cancel = &cancel;
//   std::thread user([&cancel] { cancel.Cancel(); });
//   const auto response = quarnfc::ext::HttpGet("http://maps.example/large.bin", options);
//   user.join();
#ifndef QUARNFC_EXT_HTTP_TRANSFER_H_
#define QUARNFC_EXT_HTTP_TRANSFER_H_

#include <quarnfc/ext/http_response.h>
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>
#include <quarnfc/percent_encoding.h>
#include <quarnfc/url.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnfc::ext {

namespace detail {
class HttpTransfer;
}

// Ends a call from another thread. It serves one call at a time and stays cancelled: a call that is
// given a cancelled one ends before it sends anything.
class HttpCancel {
 public:
  HttpCancel() = default;
  HttpCancel(const HttpCancel&) = delete;
  HttpCancel& operator=(const HttpCancel&) = delete;

  // Returns at once; the call ends as soon as the platform lets its wait go.
  void Cancel() {
    const std::lock_guard<std::mutex> lock(mutex_);
    cancelled_ = true;
    // The request goes with its session, which nobody else touches while it is in here.
    if (session_ != nullptr) session_->Close();
  }

  bool IsCancelled() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return cancelled_;
  }

 private:
  friend class detail::HttpTransfer;

  void Watch(CQNInternetSession* session) {
    const std::lock_guard<std::mutex> lock(mutex_);
    session_ = session;
  }

  mutable std::mutex mutex_;
  CQNInternetSession* session_ = nullptr;
  bool cancelled_ = false;
};

// Called as the body arrives: bytes so far, and the announced length, 0 where the server does not
// say. False ends the call.
using HttpProgress = std::function<bool(unsigned __int64 received, unsigned __int64 total)>;

// Takes the next piece of a body; false ends the call.
using HttpSink = std::function<bool(std::string_view piece)>;

struct HttpCallOptions {
  std::vector<HttpHeader> headers;        // sent with the request; a name may come again
  std::string agent = "QuarnFC";          // the header User-Agent
  std::string user;                       // answers a challenge; "" takes what stands in the URL
  std::string password;                   // of user
  std::chrono::milliseconds deadline{0};  // for the whole call; 0 for none
  // The largest body that is taken, in bytes. Nothing stands for 64 MiB in memory and for any size
  // where a file or sink takes the body.
  std::optional<unsigned __int64> largest;
  HttpProgress progress;         // none when empty
  HttpCancel* cancel = nullptr;  // borrowed for the call; may be null
};

namespace detail {

// Numbers of the platform, which a host need not have included.
constexpr DWORD kWriteFault = 29;
constexpr DWORD kBadParameter = 87;
constexpr DWORD kFileTooLarge = 223;
constexpr DWORD kTimedOut = 12002;
constexpr DWORD kInvalidUrl = 12005;
constexpr DWORD kUnknownScheme = 12006;
constexpr DWORD kOperationCancelled = 12017;
constexpr DWORD kConnectionAborted = 12030;

inline HttpCallOptions WithContentType(HttpCallOptions options, const std::string& type) {
  const auto given = std::find_if(
      options.headers.begin(), options.headers.end(),
      [](const HttpHeader& header) { return SameHeaderName(header.first, "Content-Type"); });
  if (given == options.headers.end()) options.headers.emplace_back("Content-Type", type);
  return options;
}

// How a transfer ends early, inside it.
struct HttpStop {
  HttpFailure failure;
  DWORD code;
};

// A URL in its parts.
struct HttpPlace {
  explicit HttpPlace(const std::string& url) {
    constexpr DWORD kBrowserMode = 0x02000000;
    const std::string text = QNPercentEncoding::EncodeURL(url.substr(0, url.find('#')));
    const bool whole = qnParseURLEx(text.c_str(), service, server, object, port, user, password,
                                    kBrowserMode) != 0;
    if (!whole) {
      // The other function takes longer objects, and no credentials.
      user.Empty();
      password.Empty();
      if (qnParseURL(text.c_str(), service, server, object, port) == 0) {
        throw HttpStop{HttpFailure::kRequest, kInvalidUrl};
      }
    }
    if (service != eServiceHttp && service != eServiceHttps) {
      throw HttpStop{HttpFailure::kRequest, kUnknownScheme};
    }
  }

  DWORD service = 0;
  unsigned short port = 0;
  CQNString server;
  CQNString object;
  CQNString user;
  CQNString password;
};

// One request and its response.
class HttpTransfer {
 public:
  explicit HttpTransfer(const HttpCallOptions& options)
      : options_(options), end_(Clock::now() + options.deadline) {}
  HttpTransfer(const HttpTransfer&) = delete;
  HttpTransfer& operator=(const HttpTransfer&) = delete;
  ~HttpTransfer() {
    if (options_.cancel != nullptr) options_.cancel->Watch(nullptr);
  }

  HttpResponse Run(const std::string& verb, const std::string& url, std::string_view content,
                   const HttpSink& sink) {
    try {
      Open(verb, HttpPlace(url));
      Send(content);
      TakeHead();
      if (verb != "HEAD") TakeBody(sink);
    } catch (const HttpStop& stop) {
      Fail(stop.failure, stop.code);
    } catch (CQNInternetException* thrown) {
      const std::unique_ptr<CQNInternetException> error(thrown);
      FailAsThePlatform(error->GetErrorCode());
    }
    return std::move(response_);
  }

 private:
  using Clock = std::chrono::steady_clock;

  void Open(const std::string& verb, const HttpPlace& place) {
    // Reload, write no cache, keep the connection, which some kinds of authentication need.
    constexpr DWORD kFlags = 0x80000000 | 0x04000000 | 0x00400000;
    constexpr DWORD kSecure = 0x00800000;
    const bool own = !options_.user.empty();
    const std::string user = own ? options_.user : QNPercentEncoding::Decode(View(place.user));
    const std::string password =
        own ? options_.password : QNPercentEncoding::Decode(View(place.password));
    session_.emplace(options_.agent.c_str());
    connection_.reset(session_->GetHttpConnection(place.server, place.port,
                                                  user.empty() ? nullptr : user.c_str(),
                                                  user.empty() ? nullptr : password.c_str()));
    if (connection_ == nullptr) throw std::bad_alloc();
    file_.reset(connection_->OpenRequest(verb.c_str(), place.object, nullptr, 1, nullptr,
                                         "HTTP/1.1",
                                         kFlags | (place.service == eServiceHttps ? kSecure : 0)));
    if (file_ == nullptr) throw std::bad_alloc();
    if (*file_ == nullptr) throw HttpStop{HttpFailure::kRequest, kBadParameter};
    for (const HttpHeader& header : options_.headers) AddHeader(header);
  }

  void AddHeader(const HttpHeader& header) {
    constexpr DWORD kAdd = 0x20000000;
    const bool fits =
        !header.first.empty() &&
        header.first.find_first_of(std::string_view(": \t\r\n\0", 6)) == std::string::npos &&
        header.second.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
    const std::string line = header.first + ": " + header.second + "\r\n";
    if (!fits || file_->AddRequestHeaders(line.c_str(), kAdd) == 0) {
      throw HttpStop{HttpFailure::kRequest, kBadParameter};
    }
  }

  void Send(std::string_view content) {
    if (content.size() > 0xFFFFFFFF) throw HttpStop{HttpFailure::kRequest, kBadParameter};
    if (options_.cancel != nullptr) options_.cancel->Watch(&*session_);
    LimitWaits();
    // The platform only reads the body.
    file_->SendRequest(nullptr, 0, const_cast<char*>(content.data()),
                       static_cast<DWORD>(content.size()));
  }

  void TakeHead() {
    constexpr DWORD kRawHeaders = 22;
    CQNString head;
    file_->QueryInfoStatusCode(response_.status);
    if (file_->QueryInfo(kRawHeaders, head) != 0) response_.headers = HttpHeadersOf(View(head));
  }

  void TakeBody(const HttpSink& sink) {
    constexpr unsigned __int64 kLargestInMemory = 64 * 1024 * 1024;
    const bool kept = !sink || response_.status / 100 != 2;
    const unsigned __int64 largest =
        options_.largest.value_or(kept ? kLargestInMemory : ~static_cast<unsigned __int64>(0));
    const unsigned __int64 total = AnnouncedLength();
    unsigned __int64 received = 0;
    if (total > largest) throw HttpStop{HttpFailure::kTooLarge, kFileTooLarge};
    for (std::string_view piece = Read(); !piece.empty(); piece = Read()) {
      received += piece.size();
      if (received > largest) throw HttpStop{HttpFailure::kTooLarge, kFileTooLarge};
      if (kept) {
        response_.body += piece;
      } else if (!sink(piece)) {
        throw HttpStop{HttpFailure::kTarget, kWriteFault};
      }
      if (options_.progress && !options_.progress(received, total)) {
        throw HttpStop{HttpFailure::kCancelled, kOperationCancelled};
      }
    }
    if (received < total) throw HttpStop{HttpFailure::kIncomplete, kConnectionAborted};
  }

  // What has arrived, at least one byte; empty at the end of the body.
  std::string_view Read() {
    LimitWaits();
    const unsigned __int64 arrived = file_->GetLength();
    LimitWaits();
    const auto wanted = std::clamp<unsigned __int64>(arrived, 1, block_.size());
    return {block_.data(), file_->Read(block_.data(), static_cast<unsigned int>(wanted))};
  }

  // The length of the body as the server announced it; 0 where it did not, or there is none.
  unsigned __int64 AnnouncedLength() const {
    const std::string text = response_.Header("Content-Length");
    const bool number = !text.empty() && text.size() < 19 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    const bool none = response_.status == 204 || response_.status == 304 ||
                      !response_.Header("Transfer-Encoding").empty();
    return number && !none ? std::stoull(text) : 0;
  }

  // Lets the platform wait for as long as the deadline leaves.
  void LimitWaits() {
    constexpr DWORD kTimeouts[] = {2, 5, 6};  // to connect, to send, to receive
    constexpr long long kLongest = 0x7FFFFFFF;
    if (IsCancelled()) throw HttpStop{HttpFailure::kCancelled, kOperationCancelled};
    if (IsLate()) throw HttpStop{HttpFailure::kDeadline, kTimedOut};
    if (options_.deadline.count() == 0) return;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end_ - Clock::now());
    // Rounded up, so that the deadline has passed when such a wait ends.
    const long long limit = std::clamp<long long>(left.count() + 1, 1, kLongest);
    for (const DWORD timeout : kTimeouts) file_->SetOption(timeout, static_cast<DWORD>(limit));
  }

  bool IsCancelled() const { return options_.cancel != nullptr && options_.cancel->IsCancelled(); }

  bool IsLate() const { return options_.deadline.count() != 0 && Clock::now() >= end_; }

  // Platforms have several codes for a wait that was too long or a request that was closed.
  void FailAsThePlatform(DWORD code) {
    if (IsCancelled()) {
      Fail(HttpFailure::kCancelled, kOperationCancelled);
    } else if (IsLate()) {
      Fail(HttpFailure::kDeadline, kTimedOut);
    } else {
      Fail(HttpFailure::kNetwork, code);
    }
  }

  void Fail(HttpFailure failure, DWORD code) {
    response_.failure = failure;
    response_.code = code;
  }

  static std::string_view View(const CQNString& text) {
    return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
  }

  const HttpCallOptions& options_;
  Clock::time_point end_;
  HttpResponse response_;
  std::optional<CQNInternetSession> session_;
  std::unique_ptr<CQNHttpConnection> connection_;
  std::unique_ptr<CQNHttpFile> file_;
  std::vector<char> block_ = std::vector<char>(16 * 1024);
};

}  // namespace detail

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_HTTP_TRANSFER_H_
