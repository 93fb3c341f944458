// SPDX-License-Identifier: MIT
// First, because MinGW exports the type information of a class that is defined after an exported
// one.
#include "core/objects/object_record.h"

#include <quarnfc/object.h>

#include <utility>

#include "core/memory/memory.h"
#include "core/text/transcode.h"
#include "platform/module.h"

CQNObjClass::CQNObjClass(const char* name, CQNObjClass* base)
    : m_name(quarnfc::CopyText(name == nullptr ? "" : name)), m_base(base) {}

// At the end of the process other threads may go on reading the names of the library's classes.
CQNObjClass::~CQNObjClass() {
  if (!quarnfc::platform::ProcessIsEnding()) quarnfc::FreeBuffer(m_name);
}

CQNObjClass CQNObject::m_class("CQNObject", nullptr);

CQNObjClass* CQNObject::GetThisClass() { return &m_class; }

CQNObject::CQNObject() : imp_(new CQNObjectImp) {}

CQNObject::CQNObject(const CQNObject& other) = default;
CQNObject& CQNObject::operator=(const CQNObject& other) = default;

CQNObject::~CQNObject() { delete imp_; }

void* CQNObject::operator new(std::size_t size) { return quarnfc::AllocBuffer(size); }
void CQNObject::operator delete(void* object) noexcept { quarnfc::FreeBuffer(object); }

void CQNObject::AddRef() { ++imp_->references; }

void CQNObject::Release() {
  if (--imp_->references < 1) delete this;
}

void CQNObject::SetErrorCode(EErrorStatus code) const { imp_->code = code; }

CQNObject::EErrorStatus CQNObject::GetErrorCode() const {
  return static_cast<EErrorStatus>(imp_->code);
}

void CQNObject::SetErrorMsg(const char* text) const {
  if (text == nullptr) text = "";
  // Copied before the old messages go: text may be one of them.
  quarnfc::OwnedText message(quarnfc::CopyText(text));
  quarnfc::OwnedWideText wide_message = quarnfc::ToWide(quarnfc::Encoding::kAnsi, message.get());
  quarnfc::FreeBuffer(std::exchange(imp_->message, message.release()));
  quarnfc::FreeBuffer(std::exchange(imp_->wide_message, wide_message.release()));
}

void CQNObject::SetError(EErrorStatus code, const char* text) const {
  SetErrorCode(code);
  SetErrorMsg(text);
}

const char* CQNObject::GetErrorMsg() const { return imp_->message; }
const char* CQNObject::GetErrorMsgA() const { return imp_->message; }
const wchar_t* CQNObject::GetErrorMsgW() const { return imp_->wide_message; }
