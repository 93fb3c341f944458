// SPDX-License-Identifier: MIT
// qn hash: digests of files, which are read piece by piece: their size does not matter.
#include <quarnfc/digest_streams.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sstream>

#include "qn/command.h"
#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/input_file.h"
#include "qn/input_stream.h"
#include "qn/options.h"
#include "qn/text/encoding.h"

namespace qn {
namespace {

// The digest of what an input holds, as text.
using Digest = std::function<std::string(InputStream& input)>;

template <class Stream>
void UpdateFrom(InputStream& input, Stream& stream) {
  constexpr std::size_t kPiece = 1024 * 1024;
  std::string piece;
  do {
    piece = input.Read(kPiece);
    stream.Update(piece.data(), piece.size());
  } while (piece.size() == kPiece);
}

template <class Stream>
std::string HexOf(InputStream& input, Stream stream) {
  UpdateFrom(input, stream);
  unsigned char digest[Stream::eDigestBytes];
  stream.Finish(digest);
  return static_cast<const char*>(
      QNDigestUtils::HexText(digest, static_cast<int>(Stream::eDigestBytes), false));
}

std::string Crc64Of(InputStream& input) {
  CQNCRC64Stream stream;
  UpdateFrom(input, stream);
  char text[17];
  std::snprintf(text, sizeof(text), "%016llX", static_cast<unsigned long long>(stream.Finish()));
  return text;
}

std::string DigestOf(const std::string& path, const Digest& digest) {
  InputStream input(path);
  return digest(input);
}

// Line breaks in a name would break a list: such a line starts with a backslash, and the name has
// "\n", "\r" and "\\", as the standard tools have it.
std::string EscapedLine(const std::string& digest, const std::string& name) {
  if (name.find_first_of("\r\n") == std::string::npos) return digest + "  " + name;
  std::string line = "\\" + digest + "  ";
  for (const char ch : name) {
    if (ch == '\n')
      line += "\\n";
    else if (ch == '\r')
      line += "\\r";
    else if (ch == '\\')
      line += "\\\\";
    else
      line += ch;
  }
  return line;
}

std::string UnescapedName(std::string_view escaped) {
  std::string name;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    const bool escape = escaped[i] == '\\' && i + 1 < escaped.size();
    const char ch = escape ? escaped[++i] : escaped[i];
    name += escape && ch == 'n' ? '\n' : escape && ch == 'r' ? '\r' : ch;
  }
  return name;
}

// How a digest is printed. A form that tools for standard digests read is only for those that are.
struct Form {
  std::string tag;  // "tag (name) = digest"; "digest  name" without one

  std::string Line(const std::string& digest, const std::string& name) const {
    return tag.empty() ? EscapedLine(digest, name) : tag + " (" + name + ") = " + digest;
  }

  struct Entry {
    std::string digest;
    std::string name;
  };

  // Reads a line back; false when it is none of this form.
  bool Read(const std::string& line, Entry& entry) const {
    if (tag.empty()) return ReadStandard(line, entry);
    const std::size_t gap = line.rfind(") = ");
    const std::string start = tag + " (";
    if (gap == std::string::npos || !line.starts_with(start) || gap < start.size()) return false;
    entry = {line.substr(gap + 4), line.substr(start.size(), gap - start.size())};
    return true;
  }

 private:
  // "digest  name", or "digest *name" of a file that was read as binary.
  static bool ReadStandard(std::string_view line, Entry& entry) {
    const bool escaped = line.starts_with('\\');
    if (escaped) line.remove_prefix(1);
    const std::size_t gap = line.find(' ');
    if (gap == std::string_view::npos || gap + 2 >= line.size()) return false;
    if (line[gap + 1] != ' ' && line[gap + 1] != '*') return false;
    const std::string_view name = line.substr(gap + 2);
    entry = {std::string(line.substr(0, gap)), escaped ? UnescapedName(name) : std::string(name)};
    return true;
  }
};

// Digits of digests are written in either case.
bool SameDigest(std::string_view a, std::string_view b) {
  const auto lower = [](char ch) {
    return ch >= 'A' && ch <= 'F' ? static_cast<char>(ch + 32) : ch;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

// Prints a line for each file, or for standard input. One that cannot be read is reported, and the
// others follow.
int PrintDigests(const std::vector<std::string>& paths, const Form& form, const Digest& digest) {
  int code = kSuccess;
  for (const std::string& path : paths) {
    try {
      PrintLine(form.Line(DigestOf(path, digest), DisplayText(path)));
    } catch (const Failure& failure) {
      PrintError(failure.what());
      code = kFailure;
    }
  }
  return code;
}

bool IsAsListed(const Form::Entry& entry, const Digest& digest) {
  try {
    const bool same = SameDigest(DigestOf(entry.name, digest), entry.digest);
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

int RunMd5(std::span<const std::string> arguments) {
  return Run(Options(arguments, {kCheckOption}), {"qn-md5"},
             [](InputStream& input) { return HexOf(input, CQNPackedMD5Stream()); });
}

int RunMd5Sum(std::span<const std::string> arguments) {
  return Run(Options(arguments, {kCheckOption}), {},
             [](InputStream& input) { return HexOf(input, CQNMD5Stream()); });
}

int RunSha256Sum(std::span<const std::string> arguments) {
  return Run(Options(arguments, {kCheckOption}), {},
             [](InputStream& input) { return HexOf(input, CQNSHA256Stream()); });
}

int RunCrc64(std::span<const std::string> arguments) {
  return Run(Options(arguments, {kCheckOption}), {"qn-crc64"}, Crc64Of);
}

std::string ReadKey(const Options& options) {
  if (options.Has("key") == options.Has("key-file")) {
    throw UsageError("give either --key or --key-file");
  }
  return options.Has("key") ? options.Value("key") : ReadInput(options.Value("key-file"));
}

int RunHmac(std::span<const std::string> arguments) {
  const Options options(
      arguments, {{"key", 'k', Takes::kValue}, {"key-file", '\0', Takes::kValue}, kCheckOption});
  const std::string key = ReadKey(options);
  return Run(options, {}, [&key](InputStream& input) {
    return HexOf(input, CQNHMACSHA256Stream(key.data(), key.size()));
  });
}

constexpr Command kHashCommands[] = {
    {"md5sum", "Standard MD5",
     "usage: qn hash md5sum [-c] [FILE...]\n"
     "\n"
     "Prints the MD5 (RFC 1321) of each FILE, or of standard input, in the "
     "form of md5sum.\n"
     "\n"
     "  -c, --check           each FILE is a list of such lines: compare the "
     "files that it names\n",
     RunMd5Sum},
    {"sha256sum", "Standard SHA-256",
     "usage: qn hash sha256sum [-c] [FILE...]\n"
     "\n"
     "Prints the SHA-256 (FIPS 180-4) of each FILE, or of standard input, in "
     "the form of "
     "sha256sum.\n"
     "\n"
     "  -c, --check           each FILE is a list of such lines: compare the "
     "files that it names\n",
     RunSha256Sum},
    {"md5", "MD5 by the library's packing rule",
     "usage: qn hash md5 [-c] [FILE...]\n"
     "\n"
     "Prints the MD5 of each FILE, or of standard input, in lower-case "
     "hexadecimal. It equals\n"
     "standard MD5 for 7-bit text; bytes of 80 and above are packed by a rule "
     "of the library's. "
     "So\n"
     "the lines are not those of md5sum, which qn hash md5sum prints.\n"
     "\n"
     "  -c, --check           each FILE is a list of such lines: compare the "
     "files that it names\n",
     RunMd5},
    {"crc64", "CRC-64, not inverted at the end",
     "usage: qn hash crc64 [-c] [FILE...]\n"
     "\n"
     "Prints the CRC-64 of each FILE, or of standard input: the complement of "
     "CRC-64/XZ.\n"
     "\n"
     "  -c, --check           each FILE is a list of such lines: compare the "
     "files that it names\n",
     RunCrc64},
    {"hmac-sha256", "HMAC with SHA-256",
     "usage: qn hash hmac-sha256 --key KEY [FILE...]\n"
     "       qn hash hmac-sha256 --key-file KEYFILE [FILE...]\n"
     "\n"
     "Prints the HMAC-SHA256 of each FILE, or of standard input, in lower-case "
     "hexadecimal.\n"
     "\n"
     "  -k, --key KEY         the key as it stands on the command line\n"
     "      --key-file FILE   the key is what the file holds, line ends "
     "included\n"
     "  -c, --check           each FILE is a list of such lines: compare the "
     "files that it names\n",
     RunHmac}};

}  // namespace

extern const Command kHashCommand;
const Command kHashCommand = {"hash", "Digests of files",
                              "usage: qn hash md5sum|sha256sum|md5|crc64|hmac-sha256 [OPTION...] "
                              "[FILE...]\n",
                              nullptr, kHashCommands};

}  // namespace qn
