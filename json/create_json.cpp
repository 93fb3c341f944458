// CreateJson and CreateUTF8Json of CMyJsonObj and CMyJsonValue.

#include <quarnfc/fixed_alloc.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/string_utils.h>

#include "core/memory/memory.h"
#include "json/records.h"
#include "json/text_writer.h"

namespace {

// Wide characters for the time of one conversion: a pool block for up to 512, else the heap.
class WideScratch {
 public:
  explicit WideScratch(int count)
      : pool_(PoolFor(count)),
        data_(pool_ != nullptr ? pool_->Alloc()
                               : quarnfc::AllocWideChars(static_cast<std::size_t>(count))) {}

  WideScratch(const WideScratch&) = delete;
  WideScratch& operator=(const WideScratch&) = delete;

  ~WideScratch() {
    if (pool_ != nullptr) {
      pool_->Free(data_);
    } else {
      quarnfc::FreeBuffer(data_);
    }
  }

  wchar_t* Data() const { return static_cast<wchar_t*>(data_); }

 private:
  static CQNFixedAlloc* PoolFor(int count) {
    if (count <= 64) return _TempData128B();
    if (count <= 128) return _TempData256B();
    if (count <= 256) return _TempData512B();
    return count <= 512 ? _TempData1024B() : nullptr;
  }

  CQNFixedAlloc* pool_;
  void* data_;
};

// Both conversions get exactly the room they asked for, so neither can fail for lack of it.
char* ToUTF8(const CQNString& text) {
  const int wide_count = QNStringUtils::Ansi2Unicode(text, nullptr, 0);
  if (wide_count < 1) return quarnfc::CopyText("");
  const WideScratch wide(wide_count);
  QNStringUtils::Ansi2Unicode(text, wide.Data(), wide_count);
  const int count = QNStringUtils::Unicode2UTF8(wide.Data(), nullptr, 0);
  if (count < 1) return quarnfc::CopyText("");
  char* utf8 = quarnfc::AllocChars(static_cast<std::size_t>(count));
  QNStringUtils::Unicode2UTF8(wide.Data(), utf8, count);
  return utf8;
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
