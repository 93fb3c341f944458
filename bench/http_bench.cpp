// SPDX-License-Identifier: MIT
// The HTTP client beside what it stands on: a download of one gigabyte, and ten thousand small
// requests over one connection, from a server in this program.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/http_peer.h"
#include "bench/row.h"
#include "tests/net/scripted_server.h"

namespace {

constexpr unsigned int kBlock = 256 * 1024;
constexpr unsigned long long kLarge = 1ULL << 30;
constexpr unsigned long long kSmall = 100;
constexpr int kRequests = 10'000;
// Which threads share a core decides as much about one download as the client does.
constexpr int kDownloads = 25;

class Ours {
 public:
  explicit Ours(unsigned short port)
      : session_("bench", 1, 1), connection_(session_.GetHttpConnection("127.0.0.1", port)) {}

  unsigned long long Fetch(const std::string& path) {
    // Reload, write no cache, keep the connection.
    constexpr DWORD kFlags = 0x80000000 | 0x04000000 | 0x00400000;
    const std::unique_ptr<CQNHttpFile> file(
        connection_->OpenRequest("GET", path.c_str(), nullptr, 1, nullptr, "HTTP/1.1", kFlags));
    file->SendRequest();
    unsigned long long total = 0;
    while (const unsigned int count = file->Read(block_.data(), kBlock)) total += count;
    return total;
  }

 private:
  CQNInternetSession session_;
  std::unique_ptr<CQNHttpConnection> connection_;
  std::vector<char> block_ = std::vector<char>(kBlock);
};

// "/large" is a gigabyte, everything else a hundred bytes.
void Serve(ServerConnection& connection) {
  const std::string piece(1 << 20, 'x');
  const std::string small = HttpResponse(std::string(kSmall, 'x'));
  for (;;) {
    const std::string request = connection.ReadRequest();
    if (request.empty()) return;
    if (request.find("/large") == std::string::npos) {
      if (!connection.Send(small)) return;
      continue;
    }
    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kLarge) + "\r\n\r\n");
    for (unsigned long long sent = 0; sent < kLarge; sent += piece.size()) {
      if (!connection.Send(piece)) return;
    }
  }
}

template <class Client>
void Fetch(Client& client, const std::string& path, unsigned long long size) {
  if (client.Fetch(path) != size) throw std::runtime_error("bytes are missing");
}

template <class Client>
void AddRows(const char* who, Client& client) {
  bench::Row("HTTP download", "1 GiB", who, [&client] {
    Fetch(client, "/large", kLarge);
  })->Repetitions(kDownloads);
  bench::Row("HTTP requests", "10,000 kept alive", who, [&client] {
    for (int i = 0; i < kRequests; ++i) Fetch(client, "/small", kSmall);
  });
}

}  // namespace

int main(int argc, char** argv) {
  ScriptedServer server(Serve);
  Ours ours(server.Port());
  bench::HttpPeer peer(server.Port());
  AddRows(bench::kOurs, ours);
  AddRows(bench::HttpPeer::kName, peer);
  return bench::Run(argc, argv);
}
