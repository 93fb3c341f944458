// SPDX-License-Identifier: MIT
#include "platform/posix/internet/curl_exchange.h"

#include <quarnfc/internet_api.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstring>
#include <new>

#include "platform/posix/internet/curl_errors.h"
#include "platform/posix/internet/curl_signals.h"

namespace quarnfc::internet {
namespace {

constexpr std::size_t kLargestHead = 8 * 1024 * 1024;
constexpr std::size_t kUsualLines = 16;
constexpr DWORD kLongestPoll = 1000;  // milliseconds

using Clock = std::chrono::steady_clock;

DWORD MillisecondsSince(Clock::time_point start) {
  const auto passed = Clock::now() - start;
  return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
}

// "HTTP/1.1 100 Continue" and its like are followed by the head of the response itself.
bool IsInterim(std::string_view status_line) {
  const std::size_t space = status_line.find(' ');
  if (space == std::string_view::npos) return false;
  const std::string_view code = status_line.substr(space + 1);
  return code.starts_with('1') && !code.starts_with("101");
}

}  // namespace

CurlExchange::~CurlExchange() {
  const QuietPipes quiet(may_signal_);
  // A response without a body may be whole although nobody has asked for the end of it.
  if (added_ && !done_ && head_complete_) Advance();
  const bool whole = done_ && result_ == CURLE_OK;
  if (added_) curl_multi_remove_handle(line_->multi.get(), line_->easy.get());
  if (whole) {
    pool_->Give(std::move(line_));
  } else {
    line_.reset();
  }
}

DWORD CurlExchange::Failure() const {
  return out_of_memory_ ? ERROR_NOT_ENOUGH_MEMORY : ErrorOf(line_->easy.get(), result_);
}

// Runs libcurl as far as it goes without waiting.
void CurlExchange::Advance() {
  const QuietPipes quiet(may_signal_);
  int running = 0;
  curl_multi_perform(line_->multi.get(), &running);
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(line_->multi.get(), &left)) {
    if (message->msg != CURLMSG_DONE) continue;
    done_ = true;
    result_ = message->data.result;
  }
}

// Waits until libcurl has something to do, for one look at most.
void CurlExchange::Wait(DWORD milliseconds) {
  const int wait = static_cast<int>(std::min(milliseconds, kLongestPoll));
  waiting_ = line_->multi.get();
  // Cancel says that it has cancelled before it looks for whom to wake.
  if (!cancelled_) curl_multi_poll(line_->multi.get(), nullptr, 0, wait, nullptr);
  waiting_ = nullptr;
}

template <class Ready>
DWORD CurlExchange::RunUntil(DWORD timeout, First first, Ready ready) {
  Clock::time_point last_activity = Clock::now();
  for (bool waits = first == First::kWait;;) {
    if (cancelled_) return ERROR_INTERNET_OPERATION_CANCELLED;
    if (ready() || done_) return 0;
    if (waits) {
      const DWORD idle = MillisecondsSince(last_activity);
      if (timeout != 0 && idle >= timeout) return ERROR_INTERNET_TIMEOUT;
      Wait(timeout != 0 ? timeout - idle : kLongestPoll);
    }
    const unsigned __int64 before = activity_;
    Advance();
    waits = activity_ == before;
    if (!waits) last_activity = Clock::now();
  }
}

void CurlExchange::LimitWaits(DWORD send, DWORD receive) {
  send_timeout_ = send;
  receive_timeout_ = receive;
}

void CurlExchange::Cancel() {
  cancelled_ = true;
  if (CURLM* multi = waiting_) curl_multi_wakeup(multi);
}

void CurlExchange::Resume() {
  if (!upload_paused_ && !body_paused_) return;
  upload_paused_ = false;
  body_paused_ = false;
  const QuietPipes quiet(may_signal_);
  curl_easy_pause(line_->easy.get(), CURLPAUSE_CONT);
}

DWORD CurlExchange::SendHead(const OutgoingHead& head, const Progress& connecting,
                             const Progress& connected) {
  if (const DWORD error = Configure(head)) return error;
  if (curl_multi_add_handle(line_->multi.get(), line_->easy.get()) != CURLM_OK) {
    return ERROR_NOT_ENOUGH_MEMORY;
  }
  added_ = true;
  bool reported = false;
  // libcurl itself limits how long connecting takes.
  const DWORD error = RunUntil(0, First::kLook, [&] {
    if (new_socket_ && !reported) {
      reported = true;
      connecting();
    }
    return connected_;
  });
  if (error != 0) return error;
  // A quick server may have answered and broken off by now: what it has sent counts.
  if (done_ && !head_complete_ && result_ != CURLE_OK) return Failure();
  if (reported) connected();
  return 0;
}

DWORD CurlExchange::PushBody(const char* data, std::size_t size) {
  if (!chunked_) return PushPlain(data, size);
  return chunks_.Take({data, size}, [this](std::string_view content) {
    return PushPlain(content.data(), content.size());
  });
}

DWORD CurlExchange::PushPlain(const char* data, std::size_t size) {
  upload_ = data;
  upload_left_ = size;
  Resume();
  const DWORD error =
      RunUntil(send_timeout_, First::kLook, [this] { return upload_left_ == 0 || head_complete_; });
  upload_ = nullptr;
  upload_left_ = 0;
  if (error != 0) return error;
  return done_ && !head_complete_ ? Failure() : 0;
}

DWORD CurlExchange::ReceiveHead(std::vector<std::string>& lines) {
  upload_ended_ = true;
  Resume();
  const DWORD error = RunUntil(receive_timeout_, First::kWait, [this] { return head_complete_; });
  if (error != 0) return error;
  if (!head_complete_) {
    const DWORD failure = Failure();
    return failure != 0 ? failure : ERROR_HTTP_INVALID_SERVER_RESPONSE;
  }
  lines = std::move(head_);
  return 0;
}

DWORD CurlExchange::PullBody(char* buffer, std::size_t capacity, std::size_t& count) {
  count = std::min(capacity, spilled_.size() - spilled_used_);
  if (count != 0) {
    std::memcpy(buffer, spilled_.data() + spilled_used_, count);
    spilled_used_ += count;
    return 0;
  }
  if (done_) {
    // A body that breaks off ends there.
    const bool broke_off = result_ == CURLE_PARTIAL_FILE;
    return broke_off ? 0 : Failure();
  }
  spilled_.clear();
  spilled_used_ = 0;
  lent_ = buffer;
  lent_size_ = capacity;
  lent_used_ = 0;
  Resume();
  const DWORD error = RunUntil(receive_timeout_, First::kLook, [this] { return lent_used_ != 0; });
  lent_ = nullptr;
  count = lent_used_;
  lent_used_ = 0;
  if (count != 0) return 0;
  return error != 0 || result_ == CURLE_PARTIAL_FILE ? error : Failure();
}

// --- what libcurl calls -----------------------------------------------------------------------

size_t CurlExchange::OnHeader(char* data, size_t size, size_t count, void* self) {
  auto& exchange = *static_cast<CurlExchange*>(self);
  return exchange.Taking([&] { return exchange.TakeHeader({data, size * count}); });
}

size_t CurlExchange::OnBody(char* data, size_t size, size_t count, void* self) {
  auto& exchange = *static_cast<CurlExchange*>(self);
  return exchange.Taking([&] { return exchange.TakeBody(data, size * count); });
}

// No exception passes through libcurl: nothing is taken, which ends the transfer.
template <class Take>
std::size_t CurlExchange::Taking(const Take& take) {
  try {
    return take();
  } catch (const std::bad_alloc&) {
    out_of_memory_ = true;
    return 0;
  }
}

std::size_t CurlExchange::TakeHeader(std::string_view line) {
  const std::size_t length = line.size();
  ++activity_;
  if (head_complete_) return length;  // a trailer
  head_size_ += length;
  if (head_size_ > kLargestHead) return 0;
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
  if (!line.empty()) {
    if (head_.empty()) head_.reserve(kUsualLines);
    head_.emplace_back(line);
  } else if (!head_.empty() && IsInterim(head_[0])) {
    head_.clear();
  } else {
    head_complete_ = true;
  }
  return length;
}

// The buffer of the host takes what it can; the rest of a piece waits for the next call. Without a
// buffer, one piece waits here, so that a short response is whole when its head is; libcurl holds
// back what follows.
std::size_t CurlExchange::TakeBody(const char* data, std::size_t length) {
  const std::size_t room = lent_ != nullptr ? lent_size_ - lent_used_ : 0;
  const bool has_room = lent_ != nullptr ? room != 0 : spilled_.empty();
  if (!has_room) {
    body_paused_ = true;
    return CURL_WRITEFUNC_PAUSE;
  }
  ++activity_;
  const std::size_t taken = std::min(room, length);
  spilled_.append(data + taken, length - taken);
  if (taken > 0) std::memcpy(lent_ + lent_used_, data, taken);
  lent_used_ += taken;
  return length;
}

size_t CurlExchange::OnUpload(char* data, size_t size, size_t count, void* self) {
  auto& exchange = *static_cast<CurlExchange*>(self);
  const std::size_t taken = std::min(size * count, exchange.upload_left_);
  if (taken == 0 && !exchange.upload_ended_) {
    exchange.upload_paused_ = true;
    return CURL_READFUNC_PAUSE;
  }
  if (taken == 0) return 0;
  ++exchange.activity_;
  std::memcpy(data, exchange.upload_, taken);
  exchange.upload_ += taken;
  exchange.upload_left_ -= taken;
  return taken;
}

int CurlExchange::OnSocket(void* self, curl_socket_t /*socket*/, curlsocktype /*purpose*/) {
  static_cast<CurlExchange*>(self)->new_socket_ = true;
  return CURL_SOCKOPT_OK;
}

int CurlExchange::OnConnected(void* self, char* /*remote*/, char* /*local*/, int /*remote_port*/,
                              int /*local_port*/) {
  static_cast<CurlExchange*>(self)->connected_ = true;
  return CURL_PREREQFUNC_OK;
}

}  // namespace quarnfc::internet
