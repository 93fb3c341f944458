// What a file was opened for. Reading asks for anything but kWriteOnly and writing for anything but
// kReadOnly, which is what lets kReadWrite mean both.
#ifndef QUARNFC_NET_FILE_MODE_H_
#define QUARNFC_NET_FILE_MODE_H_

namespace quarnfc::net {

constexpr int kWriteOnly = 0;
constexpr int kReadOnly = 1;
constexpr int kReadWrite = -1;

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_FILE_MODE_H_
