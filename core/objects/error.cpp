// SPDX-License-Identifier: MIT
#include <quarnfc/error.h>
#include <quarnfc/qn_string.h>

#include <cstdint>
#include <memory>

#include "core/memory/memory.h"

namespace {

unsigned __int64 HandleOf(const CQNObject* object) {
  return static_cast<unsigned __int64>(reinterpret_cast<std::uintptr_t>(object));
}

void StoreCode(const CQNObject* handle, unsigned int* code) {
  if (code != nullptr) *code = static_cast<unsigned int>(handle->GetErrorCode());
}

}  // namespace

unsigned __int64 QNErrorUtils::CreateError(CQNObject::EErrorStatus code, const char* message) {
  auto object = std::make_unique<CQNObject>();
  object->SetError(code, message);
  return HandleOf(object.release());
}

unsigned __int64 QNErrorUtils::CreateErrorFromObj(const CQNObject* source, const char* text) {
  if (source == nullptr) return 0;
  const char* message = source->GetErrorMsg();
  if (text == nullptr) return CreateError(source->GetErrorCode(), message);
  return CreateError(source->GetErrorCode(), CQNString(text) + ' ' + message);
}

char* qnGetErrorA(const CQNObject* handle, unsigned int* code) {
  if (handle == nullptr) return nullptr;
  StoreCode(handle, code);
  const char* message = handle->GetErrorMsgA();
  return quarnfc::CopyText(message == nullptr ? "" : message);
}

wchar_t* qnGetErrorW(const CQNObject* handle, unsigned int* code) {
  if (handle == nullptr) return nullptr;
  StoreCode(handle, code);
  const wchar_t* message = handle->GetErrorMsgW();
  return quarnfc::CopyWideText(message == nullptr ? L"" : message);
}

void qnCloseHandle(CQNObject* handle) {
  if (handle != nullptr) handle->Release();
}

void qnFreeMem(void* buffer) { quarnfc::FreeBuffer(buffer); }
