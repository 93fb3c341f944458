// SPDX-License-Identifier: MIT
// qn hash: digests of files. The library digests what lies in memory, so each file is read whole.
#include <quarnfc/crc64.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/md5.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <new>
#include <sstream>

#include "qn/command.h"
#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/input_file.h"
#include "qn/input_stream.h"
#include "qn/library_buffer.h"
#include "qn/options.h"
#include "qn/text/encoding.h"

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

// How a digest is printed. A form that tools for standard digests read is only for those that are.
struct Form {
  std::string tag;  // "tag (name) = digest"; "digest  name" without one

  std::string Line(const std::string& digest, const std::string& name) const {
    return tag.empty() ? digest + "  " + name : tag + " (" + name + ") = " + digest;
  }

  struct Entry {
    std::string digest;
    std::string name;
  };

  // Reads a line back; false when it is none of this form.
  bool Read(const std::string& line, Entry& entry) const {
    const std::size_t gap = tag.empty() ? line.find("  ") : line.rfind(") = ");
    if (gap == std::string::npos) return false;
    if (tag.empty()) {
      entry = {line.substr(0, gap), line.substr(gap + 2)};
      return true;
    }
    const std::string start = tag + " (";
    if (!line.starts_with(start) || gap < start.size()) return false;
    entry = {line.substr(gap + 4), line.substr(start.size(), gap - start.size())};
    return true;
  }
};

// Prints a line for each file, or for standard input. One that cannot be read is reported, and the
// others follow.
int PrintDigests(const std::vector<std::string>& paths, const Form& form, const Digest& digest) {
  int code = kSuccess;
  for (const std::string& path : paths) {
    try {
      PrintLine(form.Line(digest(ReadWithProgress(path)), DisplayText(path)));
    } catch (const Failure& failure) {
      PrintError(failure.what());
      code = kFailure;
    }
  }
  return code;
}

bool IsAsListed(const Form::Entry& entry, const Digest& digest) {
  try {
    const bool same = digest(ReadWithProgress(entry.name)) == entry.digest;
    PrintLine(entry.name + (same ? ": OK" : ": FAILED"));
    return same;
  } catch (const Failure& failure) {
    PrintError(failure.what());
    return false;
  }
}

// Compares the files that a list names with the digests in it.
int CheckList(const std::string& list, const Form& form, const Digest& digest) {
  std::istringstream lines(DecodeDocument(ReadInput(list), DisplayText(list)).text);
  std::string line;
  std::size_t number = 0;
  std::size_t wrong = 0;
  std::size_t read = 0;
  while (std::getline(lines, line)) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty()) continue;
    Form::Entry entry;
    ++read;
    if (!form.Read(line, entry)) {
      PrintError(DisplayText(list) + ":" + std::to_string(number) + ": no line of this digest");
      ++wrong;
    } else if (!IsAsListed(entry, digest)) {
      ++wrong;
    }
  }
  if (read == 0) throw Failure(DisplayText(list) + " names no file");
  if (wrong != 0) PrintError(std::to_string(wrong) + " of " + std::to_string(read) + " are wrong");
  return wrong == 0 ? kSuccess : kFailure;
}

int Run(const Options& options, const Form& form, const Digest& digest) {
  std::vector<std::string> paths = options.Positional();
  if (paths.empty()) paths.emplace_back("-");
  if (!options.Has("check")) return PrintDigests(paths, form, digest);
  int code = kSuccess;
  for (const std::string& list : paths) code = std::max(code, CheckList(list, form, digest));
  return code;
}

constexpr OptionSpec kCheckOption = {"check", 'c'};

unsigned int Size(const std::string& data) { return static_cast<unsigned int>(data.size()); }

int RunMd5(std::span<const std::string> arguments) {
  return Run(Options(arguments, {kCheckOption}), {"qn-md5"}, [](const std::string& data) {
    char text[33];
    QNMD5::qnGetMD5StrLowerA(data.data(), Size(data), text);
    return std::string(text);
  });
}

int RunCrc64(std::span<const std::string> arguments) {
  return Run(Options(arguments, {kCheckOption}), {"qn-crc64"}, [](const std::string& data) {
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
  const Options options(
      arguments, {{"key", 'k', Takes::kValue}, {"key-file", '\0', Takes::kValue}, kCheckOption});
  const std::string key = ReadKey(options);
  return Run(options, {}, [&key](const std::string& data) {
    unsigned char digest[32];
    int size = sizeof(digest);
    QNHMACSHA::qnHMAC_SHA256(key.data(), static_cast<int>(key.size()), data.data(),
                             static_cast<int>(Size(data)), reinterpret_cast<char*>(digest), &size);
    return Hex(digest, size);
  });
}

constexpr Command kHashCommands[] = {
    {"md5", "MD5 by the library's packing rule",
     "usage: qn hash md5 [-c] [FILE...]\n"
     "\n"
     "Prints the MD5 of each FILE, or of standard input, in lower-case hexadecimal. It equals\n"
     "standard MD5 for 7-bit text; bytes of 80 and above are packed by a rule of the library's. "
     "So\n"
     "the lines are not those of md5sum.\n"
     "\n"
     "  -c, --check           each FILE is a list of such lines: compare the files that it names\n",
     RunMd5},
    {"crc64", "CRC-64, not inverted at the end",
     "usage: qn hash crc64 [-c] [FILE...]\n"
     "\n"
     "Prints the CRC-64 of each FILE, or of standard input: the complement of CRC-64/XZ.\n"
     "\n"
     "  -c, --check           each FILE is a list of such lines: compare the files that it names\n",
     RunCrc64},
    {"hmac-sha256", "HMAC with SHA-256",
     "usage: qn hash hmac-sha256 --key KEY [FILE...]\n"
     "       qn hash hmac-sha256 --key-file KEYFILE [FILE...]\n"
     "\n"
     "Prints the HMAC-SHA256 of each FILE, or of standard input, in lower-case hexadecimal.\n"
     "\n"
     "  -k, --key KEY         the key as it stands on the command line\n"
     "      --key-file FILE   the key is what the file holds, line ends included\n"
     "  -c, --check           each FILE is a list of such lines: compare the files that it names\n",
     RunHmac}};

}  // namespace

extern const Command kHashCommand;
const Command kHashCommand = {"hash", "Digests of files",
                              "usage: qn hash md5|crc64|hmac-sha256 [OPTION...] [FILE...]\n",
                              nullptr, kHashCommands};

}  // namespace qn
