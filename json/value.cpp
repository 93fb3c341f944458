// Construction, destruction, accessors and deep copies of CMyJsonValue.

#include <quarnfc/json_value.h>

#include <memory>

#include "json/doomed_tree.h"
#include "json/records.h"
#include "json/tree_copy.h"

namespace {

template <class Number>
void FillArray(CMyJsonValueImp& record, const Number* numbers, int count) {
  record.type = CMyJsonValue::eArr;
  if (numbers == nullptr || count < 1) return;
  record.array.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    record.array.push_back(new CMyJsonValue(static_cast<double>(numbers[i])));
  }
}

}  // namespace

CMyJsonValue::CMyJsonValue() : imp_(new CMyJsonValueImp) {}

CMyJsonValue::CMyJsonValue(const char* text) : CMyJsonValue() {
  if (text == nullptr) return;
  if (*text != '\0') imp_->string.Make() = text;
  imp_->type = eStr;
}

CMyJsonValue::CMyJsonValue(double number) : CMyJsonValue() {
  imp_->type = eNumber;
  imp_->number = number;
}

CMyJsonValue::CMyJsonValue(int number) : CMyJsonValue(static_cast<double>(number)) {}

CMyJsonValue::CMyJsonValue(bool flag) : CMyJsonValue() {
  imp_->type = eBool;
  imp_->boolean = flag;
}

CMyJsonValue::CMyJsonValue(CMyJsonValue* const* values, int count) : CMyJsonValue() {
  imp_->type = eArr;
  if (values != nullptr && count > 0) imp_->array.assign(values, values + count);
}

CMyJsonValue::CMyJsonValue(const float* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const double* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const int* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const unsigned int* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const unsigned short* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const short* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(const unsigned char* numbers, int count) : CMyJsonValue() {
  FillArray(*imp_, numbers, count);
}

CMyJsonValue::CMyJsonValue(CMyJsonObj* obj) : CMyJsonValue() {
  if (obj == nullptr) return;
  imp_->type = eObj;
  imp_->object = obj;
}

CMyJsonValue::CMyJsonValue(const CMyJsonValue& other) = default;
CMyJsonValue& CMyJsonValue::operator=(const CMyJsonValue& other) = default;

CMyJsonValue::~CMyJsonValue() {
  quarnfc::json::DoomedTree doomed;
  doomed.Add(imp_);
}

void* CMyJsonValue::operator new(std::size_t size) { return quarnfc::AllocNode(size); }

void CMyJsonValue::operator delete(void* value, std::size_t size) noexcept {
  quarnfc::FreeNode(value, size);
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
  return index >= 0 && index < ValueArrLength() ? imp_->array[static_cast<std::size_t>(index)]
                                                : nullptr;
}

void CMyJsonValue::ValueArr(CMyJsonValue** /*items*/, int& count) const {
  count = ValueArrLength();
}

CMyJsonValue* CMyJsonValue::Clone() const {
  auto clone = std::make_unique<CMyJsonValue>();
  clone->CopyFrom(this);
  return clone.release();
}

void CMyJsonValue::CopyFrom(const CMyJsonValue* source) {
  if (source == nullptr) return;
  // The copy is complete before anything is destroyed, so source may be part of this value.
  CMyJsonValue fresh;
  quarnfc::json::CopyContent(*source->imp_, *fresh.imp_);
  quarnfc::json::TakeContent(*imp_, *fresh.imp_);
}
