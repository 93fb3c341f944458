// SPDX-License-Identifier: MIT
// One request over libcurl. The multi interface makes it run only while somebody waits for it.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CURL_EXCHANGE_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CURL_EXCHANGE_H_

#include <curl/curl.h>

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/internet/chunk_reader.h"
#include "platform/posix/internet/curl_line.h"
#include "platform/posix/internet/transport.h"

namespace quarnfc::internet {

class CurlExchange : public Exchange {
 public:
  explicit CurlExchange(std::shared_ptr<CurlPool> pool) : pool_(std::move(pool)) {}
  ~CurlExchange() override;

  DWORD SendHead(const OutgoingHead& head, const Progress& connecting,
                 const Progress& connected) override;
  DWORD PushBody(const char* data, std::size_t size) override;
  DWORD ReceiveHead(std::vector<std::string>& lines) override;
  DWORD PullBody(char* buffer, std::size_t capacity, std::size_t& count) override;
  void LimitWaits(DWORD send, DWORD receive) override;
  void Cancel() override;

 private:
  DWORD Configure(const OutgoingHead& head);
  DWORD ConfigureRoute();
  DWORD ConfigureServer();
  bool ConfigureProxy();
  DWORD ConfigureTarget(const OutgoingHead& head);
  bool ConfigureBody(const OutgoingHead& head);
  bool ConfigureHeaders(const OutgoingHead& head);
  void ConfigureCallbacks();

  // What comes first where the transfer has to be run: a look whether there is something to do, or
  // waiting for it, where that is likely and the look would be for nothing.
  enum class First { kLook, kWait };

  // Runs the transfer until ready is true or the transfer has ended. timeout is how long nothing
  // may happen, in milliseconds; 0 is for ever.
  template <class Ready>
  DWORD RunUntil(DWORD timeout, First first, Ready ready);
  void Wait(DWORD milliseconds);
  DWORD PushPlain(const char* data, std::size_t size);
  void Advance();
  void Resume();

  DWORD Failure() const;  // what the transfer ended with

  template <class Take>
  std::size_t Taking(const Take& take);
  std::size_t TakeHeader(std::string_view line);
  std::size_t TakeBody(const char* data, std::size_t length);

  static size_t OnHeader(char* data, size_t size, size_t count, void* self);
  static size_t OnBody(char* data, size_t size, size_t count, void* self);
  static size_t OnUpload(char* data, size_t size, size_t count, void* self);
  static int OnSocket(void* self, curl_socket_t socket, curlsocktype purpose);
  static int OnConnected(void* self, char*, char*, int, int);

  std::shared_ptr<CurlPool> pool_;
  std::unique_ptr<CurlLine> line_;
  bool may_signal_ = false;  // whether the TLS library may send something
  DWORD send_timeout_ = 0;
  DWORD receive_timeout_ = 0;

  std::atomic<bool> cancelled_{false};
  std::atomic<CURLM*> waiting_{nullptr};  // what Cancel wakes; null when nobody waits
  bool added_ = false;
  bool done_ = false;
  CURLcode result_ = CURLE_OK;
  bool out_of_memory_ = false;
  unsigned __int64 activity_ = 0;  // counts what happens, for the time-outs
  bool new_socket_ = false;
  bool connected_ = false;

  // The body on its way out: what PushBody has lent, and whether it is the last.
  bool chunked_ = false;
  ChunkReader chunks_;
  const char* upload_ = nullptr;
  std::size_t upload_left_ = 0;
  bool upload_ended_ = false;
  bool upload_paused_ = false;

  // The response: the head, the buffer that PullBody has lent, and what had no room in one.
  std::vector<std::string> head_;
  std::size_t head_size_ = 0;
  bool head_complete_ = false;
  char* lent_ = nullptr;
  std::size_t lent_size_ = 0;
  std::size_t lent_used_ = 0;
  std::string spilled_;
  std::size_t spilled_used_ = 0;
  bool body_paused_ = false;
};

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CURL_EXCHANGE_H_
