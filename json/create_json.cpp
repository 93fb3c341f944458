// SPDX-License-Identifier: MIT
// CreateJson and CreateUTF8Json of CMyJsonObj and CMyJsonValue.

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include "json/records.h"
#include "json/text_writer.h"
#include "json/utf8_text.h"

namespace {

using quarnfc::json::PieceList;
using quarnfc::json::TextWriter;
using quarnfc::json::ToUtf8;

PieceList Write(const CMyJsonValueImp& value, bool indent) {
  TextWriter writer(indent);
  return value.type == CMyJsonValue::eObj ? writer.Write(*value.object)
                                          : writer.WriteMemberValue(value);
}

}  // namespace

CQNString CMyJsonObj::CreateJson(bool indent) const {
  return TextWriter(indent).Write(*this).Join();
}

CQNString CMyJsonValue::CreateJson(bool indent) const { return Write(*imp_, indent).Join(); }

char* CMyJsonObj::CreateUTF8Json(bool indent) const {
  return ToUtf8(TextWriter(indent).Write(*this)).release();
}

char* CMyJsonValue::CreateUTF8Json(bool indent) const {
  return ToUtf8(Write(*imp_, indent)).release();
}
