// SPDX-License-Identifier: MIT
#include <quarnfc/error_json.h>
#include <quarnfc/plain.h>

#include <memory>

#include "core/memory/memory.h"
#include "json/messages.h"

namespace {

using quarnfc::OwnedText;

struct CloseError {
  void operator()(CQNObject* error) const { qnCloseHandle(error); }
};

using OwnedError = std::unique_ptr<CQNObject, CloseError>;

// The object behind a handle, to be released here.
OwnedError Consume(unsigned __int64 handle) {
  return OwnedError(reinterpret_cast<CQNObject*>(static_cast<std::size_t>(handle)));
}

void FillFromError(CMyJsonObj& document, const CQNObject& error) {
  unsigned int code = 0;
  const OwnedText message(qnGetErrorA(&error, &code));
  if (code != 0) document.AddItem("DisplayText", message.get());
  document.AddItem("ErrorCode", static_cast<int>(code));
}

void FillFromText(CMyJsonObj& document, const char* text) {
  document.AddItem("DisplayText", text != nullptr ? text : quarnfc::json::kUndefinedError);
  document.AddItem("ErrorCode", 1);
}

}  // namespace

CMyJsonObj* QNErrorUtils::CreateErrorJson(unsigned __int64 handle, const char* text) {
  const OwnedError error = Consume(handle);
  auto document = std::make_unique<CMyJsonObj>();
  auto content = std::make_unique<CMyJsonObj>();
  if (error != nullptr) {
    FillFromError(*content, *error);
  } else {
    FillFromText(*content, text);
  }
  document->AddItem("Error", content.get());
  static_cast<void>(content.release());
  return document.release();
}

char* QNErrorUtils::CreateErrorUTF8Json(CQNObject::EErrorStatus code, const char* message) {
  const std::unique_ptr<CMyJsonObj> document(CreateErrorJson(CreateError(code, message), nullptr));
  return document->CreateUTF8Json(true);
}

char* QNErrorUtils::CreateErrorUTF8JsonByHandle(unsigned __int64 handle) {
  const OwnedError error = Consume(handle);
  return CreateErrorUTF8JsonByObj(error.get(), nullptr);
}

char* QNErrorUtils::CreateErrorUTF8JsonByObj(const CQNObject* object, const char* prefix) {
  if (object == nullptr) return nullptr;
  CQNString message(prefix);
  message += object->GetErrorMsgA();
  return CreateErrorUTF8Json(object->GetErrorCode(), message);
}
