// SPDX-License-Identifier: MIT
#include <quarnfc/c/encoded_text.h>
#include <quarnfc/ext/encoded_text.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "c/encoding.h"
#include "c/guarded.h"
#include "c/text.h"

namespace quarnfc::c {

std::optional<ext::TextEncoding> NamedEncoding(int encoding) {
  switch (encoding) {
    case QNC_ENCODING_ANY:
      return std::nullopt;
    case QNC_ENCODING_UTF8:
      return ext::TextEncoding{ext::Charset::kUtf8, false};
    case QNC_ENCODING_UTF16_LE:
      return ext::TextEncoding{ext::Charset::kUtf16Le, false};
    case QNC_ENCODING_UTF16_BE:
      return ext::TextEncoding{ext::Charset::kUtf16Be, false};
    case QNC_ENCODING_ANSI:
      return ext::TextEncoding{ext::Charset::kAnsi, false};
    default:
      throw Failure(QNC_ERROR_ARGUMENT, "Quarn: there is no such encoding");
  }
}

}  // namespace quarnfc::c

namespace {

using quarnfc::c::Failure;
using quarnfc::c::GuardedNew;
using quarnfc::c::NamedEncoding;
using quarnfc::c::NewText;
using quarnfc::ext::Charset;
using quarnfc::ext::TextDecoder;
using quarnfc::ext::TextEncoding;
using quarnfc::ext::TextLoss;

int NumberOf(Charset charset) {
  switch (charset) {
    case Charset::kUtf8:
      return QNC_ENCODING_UTF8;
    case Charset::kUtf16Le:
      return QNC_ENCODING_UTF16_LE;
    case Charset::kUtf16Be:
      return QNC_ENCODING_UTF16_BE;
    case Charset::kAnsi:
      return QNC_ENCODING_ANSI;
  }
  return QNC_ENCODING_ANY;
}

std::string_view BytesOf(const void* data, size_t size) {
  return data == nullptr ? std::string_view()
                         : std::string_view(static_cast<const char*>(data), size);
}

void Store(size_t* target, size_t value) {
  if (target != nullptr) *target = value;
}

char* Decoded(std::string_view bytes, int encoding, size_t* text_size, size_t* offset) {
  TextDecoder decoder(NamedEncoding(encoding));
  std::string text;
  if (!decoder.Decode(bytes, true, text)) {
    Store(offset, static_cast<size_t>(decoder.ErrorOffset()));
    throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: the bytes are no text in this encoding");
  }
  char* const made = NewText(text);
  Store(text_size, text.size());
  return made;
}

unsigned char* Encoded(std::string_view text, int encoding, size_t* data_size, size_t* offset) {
  const std::optional<TextEncoding> named = NamedEncoding(encoding);
  if (!named) throw Failure(QNC_ERROR_ARGUMENT, "Quarn: there is no such encoding");
  TextLoss loss;
  const std::optional<std::string> bytes = quarnfc::ext::EncodeText(text, *named, &loss);
  if (!bytes) {
    Store(offset, loss.offset);
    throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: a character cannot be had in this encoding");
  }
  char* const made = NewText(*bytes);
  Store(data_size, bytes->size());
  return reinterpret_cast<unsigned char*>(made);
}

}  // namespace

int qncFindEncoding(const void* data, size_t size) {
  return NumberOf(quarnfc::ext::DetectEncoding(BytesOf(data, size)).charset);
}

char* qncTextFromEncoding(const void* data, size_t size, int encoding, size_t* text_size,
                          size_t* offset, CQNObject** error) {
  return GuardedNew(error,
                    [=] { return Decoded(BytesOf(data, size), encoding, text_size, offset); });
}

unsigned char* qncTextToEncoding(const char* text, size_t size, int encoding, size_t* data_size,
                                 size_t* offset, CQNObject** error) {
  return GuardedNew(error,
                    [=] { return Encoded(BytesOf(text, size), encoding, data_size, offset); });
}
