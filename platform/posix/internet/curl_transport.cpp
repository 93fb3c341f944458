// SPDX-License-Identifier: MIT
// The transport over libcurl.
#include <utility>

#include "platform/posix/internet/curl_exchange.h"

namespace quarnfc::internet {
namespace {

class CurlTransport : public Transport {
 public:
  std::unique_ptr<Exchange> Open() override { return std::make_unique<CurlExchange>(pool_); }

 private:
  std::shared_ptr<CurlPool> pool_ = std::make_shared<CurlPool>();
};

TransportMaker& Maker() {
  static TransportMaker maker;
  return maker;
}

}  // namespace

std::unique_ptr<Transport> MakeTransport() {
  return Maker() ? Maker()() : std::make_unique<CurlTransport>();
}

void SetTransportMaker(TransportMaker maker) { Maker() = std::move(maker); }

}  // namespace quarnfc::internet
