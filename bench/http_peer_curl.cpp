// SPDX-License-Identifier: MIT
#include "bench/http_peer.h"

#include <curl/curl.h>

#include <stdexcept>

namespace bench {
namespace {

size_t Count(char* /*data*/, size_t size, size_t count, void* total) {
  *static_cast<unsigned long long*>(total) += size * count;
  return size * count;
}

}  // namespace

struct HttpPeer::State {
  CURL* easy = curl_easy_init();
  curl_slist* headers = nullptr;
  std::string server;
};

const char* const HttpPeer::kName = "libcurl";

HttpPeer::HttpPeer(unsigned short port) : state_(std::make_unique<State>()) {
  state_->server = "http://127.0.0.1:" + std::to_string(port);
  curl_easy_setopt(state_->easy, CURLOPT_NOPROXY, "*");
  curl_easy_setopt(state_->easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(state_->easy, CURLOPT_WRITEFUNCTION, Count);
  // The same request as ours, byte for byte.
  for (const char* header :
       {"Accept:", "User-Agent: bench", "Connection: Keep-Alive", "Cache-Control: no-cache"}) {
    state_->headers = curl_slist_append(state_->headers, header);
  }
  curl_easy_setopt(state_->easy, CURLOPT_HTTPHEADER, state_->headers);
}

HttpPeer::~HttpPeer() {
  curl_easy_cleanup(state_->easy);
  curl_slist_free_all(state_->headers);
}

unsigned long long HttpPeer::Fetch(const std::string& path) {
  unsigned long long total = 0;
  curl_easy_setopt(state_->easy, CURLOPT_URL, (state_->server + path).c_str());
  curl_easy_setopt(state_->easy, CURLOPT_WRITEDATA, &total);
  if (curl_easy_perform(state_->easy) != CURLE_OK) throw std::runtime_error("libcurl failed");
  return total;
}

}  // namespace bench
