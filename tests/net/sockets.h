// SPDX-License-Identifier: MIT
// The sockets of both platforms under common names.
#ifndef QUARNFC_TESTS_NET_SOCKETS_H_
#define QUARNFC_TESTS_NET_SOCKETS_H_

#if defined(_WIN32)
#include <winsock2.h>

#include <stdexcept>

using Socket = SOCKET;
using SocketLength = int;
constexpr Socket kNoSocket = INVALID_SOCKET;
constexpr int kNoMoreSending = SD_SEND;
constexpr int kQuietly = 0;

inline void StartSockets() {
  static const bool started = [] {
    WSADATA data;
    return WSAStartup(MAKEWORD(2, 2), &data) == 0;
  }();
  if (!started) throw std::runtime_error("no sockets");
}
inline void CloseSocket(Socket socket) { closesocket(socket); }
inline bool WouldBlock() { return WSAGetLastError() == WSAEWOULDBLOCK; }
inline void NeverBlock(Socket socket) {
  u_long enabled = 1;
  ioctlsocket(socket, FIONBIO, &enabled);
}
#else
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

using Socket = int;
using SocketLength = socklen_t;
constexpr Socket kNoSocket = -1;
constexpr int kNoMoreSending = SHUT_WR;
constexpr int kQuietly = MSG_NOSIGNAL;

inline void StartSockets() {}
inline void CloseSocket(Socket socket) { close(socket); }
inline bool WouldBlock() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }
inline void NeverBlock(Socket socket) {
  fcntl(socket, F_SETFL, fcntl(socket, F_GETFL) | O_NONBLOCK);
}
#endif

#endif  // QUARNFC_TESTS_NET_SOCKETS_H_
