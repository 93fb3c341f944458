// SPDX-License-Identifier: MIT
// Objects with code and message, error handles, error documents, class records.
#include <quarnfc/error.h>
#include <quarnfc/error_json.h>
#include <quarnfc/fixed_alloc.h>
#include <quarnfc/object.h>

#include "core/memory/memory.h"
#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

const std::string kLongMessage(1000, 'm');

const char* const kMessages[] = {
    nullptr, "", "short", "\xD6\xD0\xCE\xC4 message", kLongMessage.c_str(),
};

std::string NameOf(const char* message) {
  return message == nullptr ? "null" : std::string(message).substr(0, 20);
}

std::unique_ptr<CQNObject> MakeObject(const char* message) {
  auto object = std::make_unique<CQNObject>();
  object->SetErrorCode(CQNObject::eErrNone);
  if (message != nullptr) object->SetErrorMsg(message);
  return object;
}

std::string Describe(const CQNObject& object) {
  const char* message = object.GetErrorMsg();
  const wchar_t* wide = object.GetErrorMsgW();
  return std::to_string(object.GetErrorCode()) + (message == nullptr ? "(null)" : message) +
         std::to_string(wide == nullptr ? 0 : quarnfc::WideLength(wide));
}

std::string TakeHandle(unsigned __int64 handle) {
  struct Closer {
    unsigned __int64 handle;
    ~Closer() { qnCloseHandle(handle); }
  } closer{handle};
  unsigned int code = 77;
  return Take(qnGetErrorA(handle, &code)) + Take(qnGetErrorW(handle, &code)) + std::to_string(code);
}

void AddMessages(Scenarios& scenarios, const char* old, const char* message) {
  const std::string names = NameOf(message) + " over " + NameOf(old);
  const auto make = [=] { return MakeObject(old); };
  scenarios.push_back(Edit(
      "SetErrorMsg " + names, make,
      [=](CQNObject& object) {
        object.SetErrorMsg(message);
        return std::string();
      },
      Describe));
  scenarios.push_back(Edit(
      "SetErrorMsg of its own, " + names, make,
      [=](CQNObject& object) {
        object.SetErrorMsg(object.GetErrorMsg());
        return std::string();
      },
      Describe));
  scenarios.push_back(Call("CreateErrorFromObj " + names, [=] {
    const auto object = MakeObject(old);
    return TakeHandle(QNErrorUtils::CreateErrorFromObj(object.get(), message));
  }));
  scenarios.push_back(Call("CreateErrorUTF8JsonByObj " + names, [=] {
    const auto object = MakeObject(old == nullptr ? "" : old);
    return Take(QNErrorUtils::CreateErrorUTF8JsonByObj(object.get(), message));
  }));
}

void AddHandles(Scenarios& scenarios, const char* message) {
  scenarios.push_back(Call("CreateError " + NameOf(message), [=] {
    return TakeHandle(QNErrorUtils::CreateError(CQNObject::eErrFileIO, message));
  }));
  scenarios.push_back(Call("CreateErrorUTF8Json " + NameOf(message), [=] {
    return Take(QNErrorUtils::CreateErrorUTF8Json(CQNObject::eErrNotFound, message));
  }));
  scenarios.push_back(Call("CreateErrorUTF8JsonByHandle " + NameOf(message), [=] {
    return Take(QNErrorUtils::CreateErrorUTF8JsonByHandle(
        QNErrorUtils::CreateError(CQNObject::eErrFileIO, message)));
  }));
  scenarios.push_back(Call("CreateErrorJson " + NameOf(message), [=] {
    const std::unique_ptr<CMyJsonObj> document(QNErrorUtils::CreateErrorJson(
        message == nullptr ? 0 : QNErrorUtils::CreateError(CQNObject::eErrFileIO, message),
        message));
    return Bytes(document->CreateJson(true));
  }));
}

void AddScratch(Scenarios& scenarios) {
  for (const int size : {-1, 0, 63, 64, 511, 512, 1023, 1024, 100000}) {
    scenarios.push_back(Call("CQNTempBuffer of " + std::to_string(size), [=] {
      CQNTempBuffer buffer(size);
      const void* const data = buffer.GetData();
      return std::string(data == buffer.GetData() ? "kept" : "moved");
    }));
  }
}

}  // namespace

Scenarios ObjectScenarios() {
  Scenarios scenarios;
  for (const char* message : kMessages) {
    for (const char* old : kMessages) AddMessages(scenarios, old, message);
    AddHandles(scenarios, message);
  }
  scenarios.push_back(Call("a class record", [] {
    const CQNObjClass record("a name that is longer than a short buffer", &CQNObject::m_class);
    return std::string(record.m_name);
  }));
  scenarios.push_back(Call("new CQNObject", [] {
    CQNObject* const object = new CQNObject;
    object->AddRef();
    object->Release();
    object->Release();
    return std::string();
  }));
  scenarios.push_back(Call("new (std::nothrow) CQNObject", [] {
    const std::unique_ptr<CQNObject> object(new (std::nothrow) CQNObject);
    return object == nullptr ? std::string(kFailed) : std::string();
  }));
  AddScratch(scenarios);
  return scenarios;
}

}  // namespace failing
