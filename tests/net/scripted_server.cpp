// SPDX-License-Identifier: MIT
#include "tests/net/scripted_server.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "tests/net/sockets.h"

namespace {

Socket AsSocket(unsigned __int64 number) { return static_cast<Socket>(number); }

sockaddr_in LoopbackAddress(unsigned short port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  return address;
}

Socket ListenAnywhere(unsigned short& port) {
  StartSockets();
  const auto listener = static_cast<Socket>(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
  sockaddr_in address = LoopbackAddress(0);
  SocketLength length = sizeof(address);
  if (bind(listener, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
      listen(listener, SOMAXCONN) != 0 ||
      getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
    throw std::runtime_error("cannot listen");
  }
  port = ntohs(address.sin_port);
  return listener;
}

// Waits until the socket is ready to be read or written; false when the server is stopping. (A
// blocked call is not woken by closing its socket everywhere, so nothing here blocks for long.)
bool WaitUntilReady(Socket socket, bool reading, const std::atomic<bool>& stopping) {
  while (!stopping) {
    fd_set sockets;
    FD_ZERO(&sockets);
    FD_SET(socket, &sockets);
    timeval moment = {0, 20000};
    const int ready = select(static_cast<int>(socket) + 1, reading ? &sockets : nullptr,
                             reading ? nullptr : &sockets, nullptr, &moment);
    if (ready != 0) return ready > 0;
  }
  return false;
}

size_t BodyLength(const std::string& head) {
  std::string lower(head);
  for (char& ch : lower) ch = static_cast<char>(tolower(static_cast<unsigned char>(ch)));
  const size_t at = lower.find("\r\ncontent-length:");
  return at == std::string::npos ? 0 : strtoul(lower.c_str() + at + 17, nullptr, 10);
}

}  // namespace

bool ServerConnection::Fill() {
  if (!WaitUntilReady(AsSocket(socket_), true, stopping_)) return false;
  char bytes[65536];
  const int count = recv(AsSocket(socket_), bytes, sizeof(bytes), 0);
  if (count <= 0) return false;
  pending_.append(bytes, static_cast<size_t>(count));
  return true;
}

std::string ServerConnection::ReadSome(size_t count) {
  if (pending_.empty() && !Fill()) return "";
  const std::string bytes = pending_.substr(0, count);
  pending_.erase(0, bytes.size());
  return bytes;
}

std::string ServerConnection::ReadLine() {
  while (pending_.find('\n') == std::string::npos) {
    if (!Fill()) return "";
  }
  std::string line = ReadSome(pending_.find('\n') + 1);
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
  return line;
}

std::string ServerConnection::ReadRequest() {
  size_t end;
  while ((end = pending_.find("\r\n\r\n")) == std::string::npos) {
    if (!Fill()) return "";
  }
  const size_t length = end + 4 + BodyLength(pending_.substr(0, end + 2));
  while (pending_.size() < length) {
    if (!Fill()) return "";
  }
  const std::string request = pending_.substr(0, length);
  pending_.erase(0, length);
  return request;
}

bool ServerConnection::Send(const std::string& bytes) {
  size_t sent = 0;
  while (sent < bytes.size()) {
    if (!WaitUntilReady(AsSocket(socket_), false, stopping_)) return false;
    const size_t piece = std::min(bytes.size() - sent, size_t{1} << 20);
    const int count =
        send(AsSocket(socket_), bytes.data() + sent, static_cast<int>(piece), kQuietly);
    if (count <= 0 && !WouldBlock()) return false;
    if (count <= 0) continue;
    sent += static_cast<size_t>(count);
  }
  return true;
}

void ServerConnection::Reset() {
  const linger at_once = {1, 0};
  setsockopt(AsSocket(socket_), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&at_once),
             sizeof(at_once));
}

void ServerConnection::Finish() {
  shutdown(AsSocket(socket_), kNoMoreSending);
  while (Fill()) pending_.clear();
}

ScriptedServer::ScriptedServer(Script script) : script_(std::move(script)) { Listen(); }

ScriptedServer::ScriptedServer(const std::string& answer)
    : script_([answer, this](ServerConnection& connection) {
        for (;;) {
          const std::string request = connection.ReadRequest();
          if (request.empty()) return;
          {
            const std::lock_guard<std::mutex> lock(mutex_);
            requests_.push_back(request);
          }
          if (!connection.Send(answer)) return;
        }
      }) {
  Listen();
}

void ScriptedServer::Listen() {
  listener_ = static_cast<unsigned __int64>(ListenAnywhere(port_));
  acceptor_ = std::thread([this] { Accept(); });
}

void ScriptedServer::Accept() {
  while (WaitUntilReady(AsSocket(listener_), true, stopping_)) {
    const auto client = static_cast<Socket>(accept(AsSocket(listener_), nullptr, nullptr));
    if (client == kNoSocket) continue;
    NeverBlock(client);
    threads_.emplace_back([this, client] {
      ServerConnection connection(static_cast<unsigned __int64>(client), stopping_);
      script_(connection);
      CloseSocket(client);
    });
  }
}

ScriptedServer::~ScriptedServer() {
  stopping_ = true;
  acceptor_.join();
  for (std::thread& thread : threads_) thread.join();
  CloseSocket(AsSocket(listener_));
}

std::string ScriptedServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> ScriptedServer::Requests() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return requests_;
}

std::string ScriptedServer::LastRequest() {
  const std::vector<std::string> requests = Requests();
  return requests.empty() ? "" : requests.back();
}

unsigned short UnusedPort() {
  unsigned short port = 0;
  CloseSocket(ListenAnywhere(port));
  return port;
}

std::string HttpResponse(const std::string& body, const std::string& headers,
                         const std::string& status) {
  return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" +
         headers + "\r\n" + body;
}
