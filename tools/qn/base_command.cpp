// qn base64, qn base32: files to text and back, piece by piece, so that their size does not matter.
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>

#include <algorithm>
#include <new>
#include <utility>

#include "command.h"
#include "errors.h"
#include "exit_code.h"
#include "input_stream.h"
#include "library_buffer.h"
#include "options.h"
#include "output.h"

namespace qn {
namespace {

// Both hold whole groups of either codec, so that pieces join to the text of the whole.
constexpr std::size_t kDataPiece = 3 * 5 * 64 * 1024;
constexpr std::size_t kTextPiece = 8 * 128 * 1024;

struct Base64 {
  static constexpr auto Encode = QNBase64::qnEncodeBase64A;
  static constexpr auto Decode = QNBase64::qnDecodeBase64A;
  static constexpr std::size_t kBits = 6;
};

struct Base32 {
  static constexpr auto Encode = QNBase32::qnEncodeBase32A;
  static constexpr auto Decode = QNBase32::qnDecodeBase32A;
  static constexpr std::size_t kBits = 5;
};

struct Paths {
  std::string input;
  std::string output;
};

Paths ReadPaths(const Options& options) {
  options.ExpectPositional(0, 1);
  const auto& positional = options.Positional();
  return {positional.empty() ? "-" : positional[0], options.Value("output", "-")};
}

template <class Codec>
int RunEncode(std::span<const std::string> arguments) {
  const Paths paths = ReadPaths(Options(arguments, {{"output", 'o', Takes::kValue}}));
  InputStream input(paths.input);
  Output output(paths.output);
  for (std::string data = input.Read(kDataPiece); !data.empty(); data = input.Read(kDataPiece)) {
    const LibraryBuffer<char> text(Codec::Encode(
        reinterpret_cast<const unsigned char*>(data.data()), static_cast<unsigned>(data.size())));
    if (text == nullptr) throw std::bad_alloc();
    output.Write(text.get());
  }
  output.Write("\n");
  output.Commit();
  return kSuccess;
}

bool IsBlank(char ch) { return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n'; }

// Supplies text in pieces of whole groups, without the blanks at its end, or without any.
class TextSource {
 public:
  TextSource(const std::string& path, bool ignore_blanks)
      : input_(path), ignore_blanks_(ignore_blanks) {}

  // kTextPiece characters; fewer only at the end.
  std::string Next() {
    while (pending_.size() <= kTextPiece && !at_end_) Fill();
    std::string piece = pending_.substr(0, kTextPiece);
    pending_.erase(0, piece.size());
    return piece;
  }

 private:
  void Fill() {
    std::string more = input_.Read(kTextPiece);
    at_end_ = more.size() < kTextPiece;
    if (ignore_blanks_) std::erase_if(more, IsBlank);
    // Blanks at the end may be the end of the text: they wait until more text follows.
    const auto text_end = std::find_if_not(more.rbegin(), more.rend(), IsBlank).base();
    if (text_end != more.begin()) {
      pending_ += std::exchange(held_back_, {});
      pending_.append(more.begin(), text_end);
    }
    held_back_.append(text_end, more.end());
  }

  InputStream input_;
  const bool ignore_blanks_;
  std::string pending_;
  std::string held_back_;
  bool at_end_ = false;
};

// The bytes of a piece of text. Throws Failure for a foreign character.
template <class Codec>
std::string DecodePiece(const std::string& text) {
  unsigned char* data = nullptr;
  const int count = Codec::Decode(text.data(), static_cast<unsigned>(text.size()), &data);
  const LibraryBuffer<unsigned char> owned(data);
  if (data == nullptr) throw Failure("the text holds a character that is not in the alphabet");
  return std::string(data, data + count);
}

template <class Codec>
int RunDecode(std::span<const std::string> arguments) {
  const Options options(arguments, {{"output", 'o', Takes::kValue}, {"ignore-blanks", 'i'}});
  const Paths paths = ReadPaths(options);
  TextSource source(paths.input, options.Has("ignore-blanks"));
  Output output(paths.output);
  bool ended = false;
  while (!ended) {
    const std::string text = source.Next();
    if (text.empty()) break;
    const std::string data = DecodePiece<Codec>(text);
    output.Write(data);
    ended = data.size() < kTextPiece * Codec::kBits / 8;  // at "=", or at the end
  }
  output.Commit();
  return kSuccess;
}

#define QN_BASE_ENCODE_USAGE(name)                       \
  "usage: qn " name                                      \
  " encode [-o OUTPUT] [FILE]\n"                         \
  "\n"                                                   \
  "Writes FILE, or standard input, as one line of " name \
  " text.\n"                                             \
  "\n"                                                   \
  "  -o, --output OUTPUT   write to a file; it is whole or not there\n"

#define QN_BASE_DECODE_USAGE(name)                                      \
  "usage: qn " name                                                     \
  " decode [-i] [-o OUTPUT] [FILE]\n"                                   \
  "\n"                                                                  \
  "Writes the bytes that the " name                                     \
  " text in FILE, or standard input, stands for. Line ends\n"           \
  "behind the text are ignored; decoding ends at the first \"=\".\n"    \
  "\n"                                                                  \
  "  -i, --ignore-blanks   ignore blanks and line ends everywhere\n"    \
  "  -o, --output OUTPUT   write to a file; it is whole or not there\n" \
  "\n"                                                                  \
  "Exit code 1: the text holds a character that is not in the alphabet.\n"

constexpr Command kBase64Commands[] = {
    {"encode", "Bytes to Base64 text", QN_BASE_ENCODE_USAGE("base64"), RunEncode<Base64>},
    {"decode", "Base64 text to bytes", QN_BASE_DECODE_USAGE("base64"), RunDecode<Base64>}};

constexpr Command kBase32Commands[] = {
    {"encode", "Bytes to Base32 text", QN_BASE_ENCODE_USAGE("base32"), RunEncode<Base32>},
    {"decode", "Base32 text to bytes", QN_BASE_DECODE_USAGE("base32"), RunDecode<Base32>}};

}  // namespace

extern const Command kBase64Command;
const Command kBase64Command = {"base64", "Base64 text, standard alphabet",
                                "usage: qn base64 encode|decode [OPTION...] [FILE]\n", nullptr,
                                kBase64Commands};

extern const Command kBase32Command;
const Command kBase32Command = {
    "base32", "Base32 text, the library's alphabet",
    "usage: qn base32 encode|decode [OPTION...] [FILE]\n"
    "\n"
    "The alphabet is the library's own: abcdefghijklmnopqrstuvwxyz654321, without padding.\n",
    nullptr, kBase32Commands};

}  // namespace qn
