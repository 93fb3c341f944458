// SPDX-License-Identifier: MIT
// qn base64, qn base32: files to text and back, piece by piece, so that their size does not matter.
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "qn/command.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/input_stream.h"
#include "qn/library_buffer.h"
#include "qn/options.h"
#include "qn/output.h"

namespace qn {
namespace {

// Both hold whole groups of either codec, so that pieces join to the text of the whole.
constexpr std::size_t kDataPiece = 3 * 5 * 64 * 1024;
constexpr std::size_t kTextPiece = 8 * 128 * 1024;

// (The address of an imported function is no constant for Visual C++.)
struct Base64 {
  static inline const auto Encode = QNBase64::qnEncodeBase64A;
  static inline const auto Decode = QNBase64::qnDecodeBase64A;
  static constexpr std::size_t kGroup = 4;  // characters that make whole bytes
  static constexpr std::size_t kOddTails[] = {1};
};

struct Base32 {
  static inline const auto Encode = QNBase32::qnEncodeBase32A;
  static inline const auto Decode = QNBase32::qnDecodeBase32A;
  static constexpr std::size_t kGroup = 8;
  static constexpr std::size_t kOddTails[] = {1, 3, 6};
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

// Breaks text that comes in pieces into lines of one width; 0 is one line.
class Wrapper {
 public:
  explicit Wrapper(std::size_t width) : width_(width) {}

  std::string Wrap(std::string_view text) {
    if (width_ == 0) return std::string(text);
    std::string wrapped;
    while (!text.empty()) {
      if (column_ == width_) {
        wrapped += '\n';
        column_ = 0;
      }
      const std::string_view part = text.substr(0, width_ - column_);
      wrapped += part;
      column_ += part.size();
      text.remove_prefix(part.size());
    }
    return wrapped;
  }

 private:
  const std::size_t width_;
  std::size_t column_ = 0;
};

template <class Codec>
int RunEncode(std::span<const std::string> arguments) {
  const Options options(arguments, {{"output", 'o', Takes::kValue}, {"wrap", 'w', Takes::kValue}});
  const Paths paths = ReadPaths(options);
  InputStream input(paths.input);
  Output output(paths.output);
  Wrapper wrapper(static_cast<std::size_t>(options.Number("wrap", 0, 0, 1'000'000)));
  for (std::string data = input.Read(kDataPiece); !data.empty(); data = input.Read(kDataPiece)) {
    const LibraryBuffer<char> text(Codec::Encode(
        reinterpret_cast<const unsigned char*>(data.data()), static_cast<unsigned>(data.size())));
    if (text == nullptr) throw std::bad_alloc();
    output.Write(wrapper.Wrap(text.get()));
  }
  output.Write("\n");
  output.Commit();
  return kSuccess;
}

bool IsLineEnd(char ch) { return ch == '\r' || ch == '\n'; }
bool IsBlank(char ch) { return ch == ' ' || ch == '\t' || IsLineEnd(ch); }

// Supplies text in pieces of whole groups, without line ends and without the blanks at its end, or
// without any.
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
    std::erase_if(more, ignore_blanks_ ? IsBlank : IsLineEnd);
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

// Follows the "=" behind the text: only "=" may come after the first, and only so many that the
// last group is whole. Text without any is accepted where its last group has whole bytes.
template <class Codec>
class Padding {
 public:
  // The characters of a piece before the padding. Throws Failure for junk behind it.
  std::string Strip(std::string text) {
    const std::size_t end = pads_ > 0 ? 0 : std::min(text.find('='), text.size());
    if (text.find_first_not_of('=', end) != std::string::npos) {
      throw Failure("there is text behind the \"=\" that ends it");
    }
    pads_ += text.size() - end;
    chars_ += end;
    text.resize(end);
    return text;
  }

  // To be called at the end. Throws Failure when the text is cut off.
  void Finish() const {
    const std::size_t tail = chars_ % Codec::kGroup;
    const bool odd = std::find(std::begin(Codec::kOddTails), std::end(Codec::kOddTails), tail) !=
                     std::end(Codec::kOddTails);
    const bool whole = pads_ == 0 || (tail != 0 && tail + pads_ == Codec::kGroup);
    if (odd || !whole) throw Failure("the text is cut off, or padded wrongly");
  }

 private:
  std::size_t chars_ = 0;
  std::size_t pads_ = 0;
};

template <class Codec>
int RunDecode(std::span<const std::string> arguments) {
  const Options options(arguments, {{"output", 'o', Takes::kValue}, {"ignore-blanks", 'i'}});
  const Paths paths = ReadPaths(options);
  TextSource source(paths.input, options.Has("ignore-blanks"));
  Output output(paths.output);
  Padding<Codec> padding;
  for (std::string text = source.Next(); !text.empty(); text = source.Next()) {
    const std::string chars = padding.Strip(std::move(text));
    if (!chars.empty()) output.Write(DecodePiece<Codec>(chars));
  }
  padding.Finish();
  output.Commit();
  return kSuccess;
}

#define QN_BASE_ENCODE_USAGE(name)                                 \
  "usage: qn " name                                                \
  " encode [-w WIDTH] [-o OUTPUT] [FILE]\n"                        \
  "\n"                                                             \
  "Writes FILE, or standard input, as " name                       \
  " text, on one line unless told otherwise.\n"                    \
  "\n"                                                             \
  "  -w, --wrap WIDTH      break lines after so many characters\n" \
  "  -o, --output OUTPUT   write to a file; it is whole or not there\n"

#define QN_BASE_DECODE_USAGE(name)                                                          \
  "usage: qn " name                                                                         \
  " decode [-i] [-o OUTPUT] [FILE]\n"                                                       \
  "\n"                                                                                      \
  "Writes the bytes that the " name                                                         \
  " text in FILE, or standard input, stands for. Line ends\n"                               \
  "are ignored, and so are blanks behind the text. Nothing but \"=\" may follow a \"=\".\n" \
  "\n"                                                                                      \
  "  -i, --ignore-blanks   ignore blanks everywhere, too\n"                                 \
  "  -o, --output OUTPUT   write to a file; it is whole or not there\n"                     \
  "\n"                                                                                      \
  "Exit code 1: the text holds a character that is not in the alphabet, or is cut off.\n"

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
