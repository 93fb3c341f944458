// SPDX-License-Identifier: MIT
// CreateJson and CreateUTF8Json of CMyJsonObj and CMyJsonValue.

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include "core/text/character.h"
#include "core/text/transcode.h"
#include "json/records.h"
#include "json/text_writer.h"

namespace {

// Half a character - a lead byte that the byte behind it completes to none - would take that byte
// with it, the quote at the end of a string for one. It becomes a question mark by itself; only an
// ASCII byte is spared, because only such a byte means anything to JSON.
void ReplaceHalfCharacters(unsigned char* text) {
  while (*text != '\0') {
    const quarnfc::MultibyteCharacter character = quarnfc::CharacterAt(text);
    const bool half =
        character.size == 2 && text[1] < 0x80 && !quarnfc::platform::IsCharacter(text[0], text[1]);
    if (half) *text = '?';
    text += half ? 1 : character.size;
  }
}

// The buffer is the caller's. Throws std::bad_alloc where the text is too long to be converted.
char* ToUTF8(CQNString text) {
  ReplaceHalfCharacters(quarnfc::Bytes(text.GetBuffer(0)));
  const quarnfc::WideScratch wide(quarnfc::Encoding::kAnsi, text);
  return quarnfc::FromWide(quarnfc::Encoding::kUtf8, wide.Text()).release();
}

}  // namespace

CQNString CMyJsonObj::CreateJson(bool indent) const {
  return quarnfc::json::TextWriter(indent).Write(*this);
}

CQNString CMyJsonValue::CreateJson(bool indent) const {
  if (imp_->type == eObj) return imp_->object->CreateJson(indent);
  return quarnfc::json::TextWriter(indent).WriteMemberValue(*imp_);
}

char* CMyJsonObj::CreateUTF8Json(bool indent) const { return ToUTF8(CreateJson(indent)); }

char* CMyJsonValue::CreateUTF8Json(bool indent) const { return ToUTF8(CreateJson(indent)); }
