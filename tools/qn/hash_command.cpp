// qn hash: digests of files. The library digests what lies in memory, so each file is read whole.
#include <quarnfc/crc64.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/md5.h>

#include <functional>
#include <limits>
#include <new>

#include "command.h"
#include "console.h"
#include "errors.h"
#include "exit_code.h"
#include "input_file.h"
#include "input_stream.h"
#include "library_buffer.h"
#include "options.h"

namespace qn {
namespace {

using Digest = std::function<std::string(const std::string& data)>;

std::string ReadWithProgress(const std::string& path) {
  constexpr std::size_t kPiece = 1024 * 1024;
  InputStream input(path);
  std::string data;
  std::string piece;
  do {
    piece = input.Read(kPiece);
    data += piece;
    if (data.size() > std::numeric_limits<unsigned int>::max()) {
      throw Failure(DisplayText(path) + ": more than 4 GiB cannot be digested");
    }
  } while (piece.size() == kPiece);
  return data;
}

// Prints a line "digest  name" for each file, or for standard input.
int PrintDigests(const Options& options, const Digest& digest) {
  std::vector<std::string> paths = options.Positional();
  if (paths.empty()) paths.emplace_back("-");
  for (const std::string& path : paths) {
    PrintLine(digest(ReadWithProgress(path)) + "  " + DisplayText(path));
  }
  return kSuccess;
}

unsigned int Size(const std::string& data) { return static_cast<unsigned int>(data.size()); }

int RunMd5(std::span<const std::string> arguments) {
  return PrintDigests(Options(arguments, {}), [](const std::string& data) {
    char text[33];
    QNMD5::qnGetMD5StrLowerA(data.data(), Size(data), text);
    return std::string(text);
  });
}

int RunCrc64(std::span<const std::string> arguments) {
  return PrintDigests(Options(arguments, {}), [](const std::string& data) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(data.data());
    const LibraryBuffer<char> text(QNCRC64::qnGetCRC64StrA(bytes, Size(data)));
    if (text == nullptr) throw std::bad_alloc();
    return std::string(text.get());
  });
}

std::string Hex(const unsigned char* bytes, int size) {
  std::string text;
  for (int i = 0; i < size; ++i) {
    text += "0123456789abcdef"[bytes[i] >> 4];
    text += "0123456789abcdef"[bytes[i] & 15];
  }
  return text;
}

std::string ReadKey(const Options& options) {
  if (options.Has("key") == options.Has("key-file")) {
    throw UsageError("give either --key or --key-file");
  }
  std::string key =
      options.Has("key") ? options.Value("key") : ReadInput(options.Value("key-file"));
  if (key.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw Failure("the key is longer than 2 GiB");
  }
  return key;
}

int RunHmac(std::span<const std::string> arguments) {
  const Options options(arguments,
                        {{"key", 'k', Takes::kValue}, {"key-file", '\0', Takes::kValue}});
  const std::string key = ReadKey(options);
  return PrintDigests(options, [&key](const std::string& data) {
    unsigned char digest[32];
    int size = sizeof(digest);
    QNHMACSHA::qnHMAC_SHA256(key.data(), static_cast<int>(key.size()), data.data(),
                             static_cast<int>(Size(data)), reinterpret_cast<char*>(digest), &size);
    return Hex(digest, size);
  });
}

constexpr Command kHashCommands[] = {
    {"md5", "MD5 by the library's packing rule",
     "usage: qn hash md5 [FILE...]\n"
     "\n"
     "Prints the MD5 of each FILE, or of standard input, in lower-case hexadecimal. It equals\n"
     "standard MD5 for 7-bit text; bytes of 80 and above are packed by a rule of the library's.\n",
     RunMd5},
    {"crc64", "CRC-64, not inverted at the end",
     "usage: qn hash crc64 [FILE...]\n"
     "\n"
     "Prints the CRC-64 of each FILE, or of standard input: the complement of CRC-64/XZ.\n",
     RunCrc64},
    {"hmac-sha256", "HMAC with SHA-256",
     "usage: qn hash hmac-sha256 --key KEY [FILE...]\n"
     "       qn hash hmac-sha256 --key-file KEYFILE [FILE...]\n"
     "\n"
     "Prints the HMAC-SHA256 of each FILE, or of standard input, in lower-case hexadecimal.\n"
     "\n"
     "  -k, --key KEY         the key as it stands on the command line\n"
     "      --key-file FILE   the key is what the file holds, line ends included\n",
     RunHmac}};

}  // namespace

extern const Command kHashCommand;
const Command kHashCommand = {"hash", "Digests of files",
                              "usage: qn hash md5|crc64|hmac-sha256 [OPTION...] [FILE...]\n",
                              nullptr, kHashCommands};

}  // namespace qn
