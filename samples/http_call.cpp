// SPDX-License-Identifier: MIT
// Fetches a page in one call, ten seconds at most. Without an argument it asks a port on which
// nobody listens and shows how that fails.
#include <quarnfc/ext/http_call.h>

#include <chrono>
#include <cstdio>

int main(int argc, char** argv) {
  const bool expects_failure = argc < 2;
  quarnfc::ext::HttpCallOptions options;
  options.agent = "sample/1.0";
  options.deadline = std::chrono::seconds(10);
  options.headers.emplace_back("Accept", "text/html, text/plain");
  options.progress = [](unsigned __int64 received, unsigned __int64 /*total*/) {
    std::fprintf(stderr, "%.0f bytes\n", static_cast<double>(received));
    return true;  // false would cancel
  };
  const auto response =
      quarnfc::ext::HttpGet(expects_failure ? "http://127.0.0.1:1/" : argv[1], options);
  if (response.failure != quarnfc::ext::HttpFailure::kNone) {
    std::printf("error %u: %s\n", static_cast<unsigned int>(response.code),
                response.Message().c_str());
    return expects_failure ? 0 : 1;
  }
  std::printf("status %u, %s, %zu bytes\n", static_cast<unsigned int>(response.status),
              response.Header("Content-Type").c_str(), response.body.size());
  return expects_failure || !response.Succeeded() ? 1 : 0;
}
