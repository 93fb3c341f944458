// SPDX-License-Identifier: MIT
// Construction, destruction, accessors and deep copies of CMyJsonValue.

#include <quarnfc/json_value.h>

#include <memory>
#include <string_view>

#include "json/doomed_tree.h"
#include "json/packed_numbers.h"
#include "json/records.h"
#include "json/tree_copy.h"
#include "json/value_content.h"

namespace quarnfc::json {

void SetContent(CMyJsonValueImp& record, const char* text) {
  if (text == nullptr) return;
  record.string = SharedText(std::string_view(text));
  record.type = CMyJsonValue::eStr;
}

void SetContent(CMyJsonValueImp& record, CMyJsonValue* const* values, int count) {
  record.type = CMyJsonValue::eArr;
  if (values != nullptr && count > 0) record.array = {values, values + count};
}

}  // namespace quarnfc::json

using quarnfc::json::JsonAccess;
using quarnfc::json::SetContent;

CMyJsonValue::CMyJsonValue() : imp_(quarnfc::json::ValueBlock::NewAlone()) {}

CMyJsonValue::CMyJsonValue(const char* text) : CMyJsonValue() { SetContent(*imp_, text); }

CMyJsonValue::CMyJsonValue(double number) : CMyJsonValue() { SetContent(*imp_, number); }

CMyJsonValue::CMyJsonValue(int number) : CMyJsonValue() { SetContent(*imp_, number); }

CMyJsonValue::CMyJsonValue(bool flag) : CMyJsonValue() { SetContent(*imp_, flag); }

CMyJsonValue::CMyJsonValue(CMyJsonValue* const* values, int count) : CMyJsonValue() {
  SetContent(*imp_, values, count);
}

CMyJsonValue::CMyJsonValue(const float* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const double* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const int* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const unsigned int* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const unsigned short* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const short* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const unsigned char* numbers, int count) : CMyJsonValue() {
  SetContent(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(CMyJsonObj* obj) : CMyJsonValue() { SetContent(*imp_, obj); }

CMyJsonValue::CMyJsonValue(const CMyJsonValue& other) = default;
CMyJsonValue& CMyJsonValue::operator=(const CMyJsonValue& other) = default;

CMyJsonValue::~CMyJsonValue() {
  quarnfc::json::DoomedTree doomed;
  doomed.Add(imp_);
}

void* CMyJsonValue::operator new(std::size_t size) {
  return quarnfc::json::ValueBlock::AllocShell(size);
}

void CMyJsonValue::operator delete(void* value, std::size_t /*size*/) noexcept {
  quarnfc::json::ValueBlock::FreeShell(value);
}

CMyJsonValue::EValueType CMyJsonValue::Type() const { return imp_->type; }
bool CMyJsonValue::IsType(EValueType type) const { return imp_->type == type; }
bool CMyJsonValue::IsEmpty() const { return IsType(eEmpty); }
bool CMyJsonValue::IsStr() const { return IsType(eStr); }
bool CMyJsonValue::IsNumber() const { return IsType(eNumber); }
bool CMyJsonValue::IsArr() const { return IsType(eArr); }
bool CMyJsonValue::IsBool() const { return IsType(eBool); }
bool CMyJsonValue::IsObj() const { return IsType(eObj); }

bool CMyJsonValue::ValueBool() const { return imp_->boolean; }
double CMyJsonValue::ValueNumber() const { return imp_->number; }
const char* CMyJsonValue::ValueStr() const { return imp_->string.Characters(); }
CMyJsonObj* CMyJsonValue::ValueObj() const { return imp_->object; }
int CMyJsonValue::ValueArrLength() const { return static_cast<int>(imp_->array.size()); }

CMyJsonValue* CMyJsonValue::ValueArrItem(int index) const {
  if (index < 0 || index >= ValueArrLength()) return nullptr;
  return quarnfc::json::ElementsOf(*imp_)[static_cast<std::size_t>(index)];
}

void CMyJsonValue::ValueArr(CMyJsonValue** /*items*/, int& count) const {
  count = ValueArrLength();
}

CMyJsonValue* CMyJsonValue::Clone() const {
  std::unique_ptr<CMyJsonValue> clone(JsonAccess::NewValue());
  quarnfc::json::CopyContent(*imp_, *clone->imp_);
  return clone.release();
}

void CMyJsonValue::CopyFrom(const CMyJsonValue* source) {
  if (source == nullptr) return;
  // The copy is complete before anything is destroyed, so source may be part of this value.
  CMyJsonValue fresh;
  quarnfc::json::CopyContent(*source->imp_, *fresh.imp_);
  quarnfc::json::TakeContent(*imp_, *fresh.imp_);
}
