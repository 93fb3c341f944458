// SPDX-License-Identifier: MIT
// A server on 127.0.0.1 that does exactly what a test tells it to, also what no real one would. It
// lives in the test program, on a free port.
#ifndef QUARNFC_TESTS_NET_SCRIPTED_SERVER_H_
#define QUARNFC_TESTS_NET_SCRIPTED_SERVER_H_

#include <quarnfc/platform_types.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// One connection of a client, as the script sees it.
class ServerConnection {
 public:
  ServerConnection(unsigned __int64 socket, const std::atomic<bool>& stopping)
      : socket_(socket), stopping_(stopping) {}

  // The next request: its head up to the empty line and, when it has a Content-Length, its body.
  // Empty when the client has gone.
  std::string ReadRequest();

  // One line without its end; empty when the client has gone.
  std::string ReadLine();

  // Up to count bytes that arrived; empty when the client has gone.
  std::string ReadSome(size_t count);

  // False when the client has gone.
  bool Send(const std::string& bytes);

  // Ends the connection with a reset instead of an orderly end.
  void Reset();

  // Says that nothing more will be sent, and waits for the client to go.
  void Finish();

 private:
  bool Fill();

  unsigned __int64 socket_;
  const std::atomic<bool>& stopping_;
  std::string pending_;
};

class ScriptedServer {
 public:
  using Script = std::function<void(ServerConnection&)>;

  // Runs script for every connection, each on a thread of its own; the connection ends with it.
  explicit ScriptedServer(Script script);

  // Answers every request of a connection with the same bytes.
  explicit ScriptedServer(const std::string& answer);

  // Tells the scripts that their clients have gone, and waits for them.
  ~ScriptedServer();

  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  unsigned short Port() const { return port_; }

  // "http://127.0.0.1:PORT" and path.
  std::string Url(const std::string& path) const;

  // Every request that scripts have read so far.
  std::vector<std::string> Requests();
  std::string LastRequest();

 private:
  void Listen();
  void Accept();

  Script script_;
  unsigned __int64 listener_ = 0;
  unsigned short port_ = 0;
  std::atomic<bool> stopping_{false};
  std::mutex mutex_;
  std::vector<std::thread> threads_;
  std::vector<std::string> requests_;
  std::thread acceptor_;
};

// A port of 127.0.0.1 on which nobody listens.
unsigned short UnusedPort();

// A response with a body and its length.
std::string HttpResponse(const std::string& body, const std::string& headers = "",
                         const std::string& status = "200 OK");

#endif  // QUARNFC_TESTS_NET_SCRIPTED_SERVER_H_
