// SPDX-License-Identifier: MIT
// A transport in memory: it answers with what a test or a fuzzer gives it and keeps what it was
// sent. Nothing touches the network.
#ifndef QUARNFC_TESTS_NET_MEMORY_TRANSPORT_H_
#define QUARNFC_TESTS_NET_MEMORY_TRANSPORT_H_

#include <quarnfc/internet_api.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/internet/transport.h"

// One answer: the lines of the head, the body, how many bytes of it arrive at once, and the error
// that ends it.
struct MemoryAnswer {
  std::vector<std::string> head;
  std::string body;
  std::size_t piece = 0x7FFFFFFF;
  DWORD error = 0;
};

struct MemoryRequest {
  quarnfc::internet::OutgoingHead head;
  std::string body;

  // The value of a header that was sent; "(none)" without.
  std::string Header(const std::string& name) const {
    for (const std::string& line : head.headers) {
      if (line.rfind(name + ": ", 0) == 0) return line.substr(name.size() + 2);
    }
    return "(none)";
  }
};

// What servers answer, in order, and what they were sent. The last answer is given again.
struct MemoryNetwork {
  std::deque<MemoryAnswer> answers;
  std::vector<MemoryRequest> requests;

  MemoryAnswer Next() {
    if (answers.empty()) return {};
    MemoryAnswer answer = answers.front();
    if (answers.size() > 1) answers.pop_front();
    return answer;
  }
};

class MemoryExchange : public quarnfc::internet::Exchange {
 public:
  explicit MemoryExchange(std::shared_ptr<MemoryNetwork> network)
      : network_(std::move(network)), answer_(network_->Next()) {}

  DWORD SendHead(const quarnfc::internet::OutgoingHead& head, const Progress& connecting,
                 const Progress& connected) override {
    connecting();
    connected();
    index_ = network_->requests.size();
    network_->requests.push_back({head, ""});
    return Error(0);
  }

  DWORD PushBody(const char* data, std::size_t size) override {
    network_->requests[index_].body.append(data, size);
    return Error(0);
  }

  DWORD ReceiveHead(std::vector<std::string>& lines) override {
    lines = answer_.head;
    return Error(lines.empty() ? answer_.error : 0);
  }

  DWORD PullBody(char* buffer, std::size_t capacity, std::size_t& count) override {
    count = std::min({capacity, answer_.piece, answer_.body.size() - position_});
    std::memcpy(buffer, answer_.body.data() + position_, count);
    position_ += count;
    return Error(count == 0 ? answer_.error : 0);
  }

  void LimitWaits(DWORD /*send*/, DWORD /*receive*/) override {}
  void Cancel() override { cancelled_ = true; }

 private:
  DWORD Error(DWORD error) const { return cancelled_ ? ERROR_INTERNET_OPERATION_CANCELLED : error; }

  std::shared_ptr<MemoryNetwork> network_;
  MemoryAnswer answer_;
  std::size_t index_ = 0;
  std::size_t position_ = 0;
  std::atomic<bool> cancelled_{false};
};

class MemoryTransport : public quarnfc::internet::Transport {
 public:
  explicit MemoryTransport(std::shared_ptr<MemoryNetwork> network) : network_(std::move(network)) {}
  std::unique_ptr<quarnfc::internet::Exchange> Open() override {
    return std::make_unique<MemoryExchange>(network_);
  }

 private:
  std::shared_ptr<MemoryNetwork> network_;
};

// Sessions that are opened as long as this lives are served from memory.
class ServedFromMemory {
 public:
  ServedFromMemory() {
    quarnfc::internet::SetTransportMaker(
        [network = network_] { return std::make_unique<MemoryTransport>(network); });
  }
  ~ServedFromMemory() { quarnfc::internet::SetTransportMaker({}); }
  ServedFromMemory(const ServedFromMemory&) = delete;
  ServedFromMemory& operator=(const ServedFromMemory&) = delete;

  MemoryNetwork* operator->() { return network_.get(); }

 private:
  std::shared_ptr<MemoryNetwork> network_ = std::make_shared<MemoryNetwork>();
};

#endif  // QUARNFC_TESTS_NET_MEMORY_TRANSPORT_H_
