// SPDX-License-Identifier: MIT
// JSON documents as a whole: reading, writing, making, releasing.
#include <quarnfc/json_files.h>

#include <memory>

#include "c/guarded.h"
#include "c/json_handle.h"
#include "c/path.h"
#include "c/text.h"

namespace {

using quarnfc::c::AnsiText;
using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::GuardedNew;
using quarnfc::c::HandleOf;
using quarnfc::c::Path;
using quarnfc::c::TakeFailure;
using quarnfc::c::ValueOf;

QncJson* Parse(const char* ansi) {
  auto value = std::make_unique<CMyJsonValue>();
  CQNString reason;
  if (value->Load(ansi, reason)) return HandleOf(value.release());
  throw Failure(QNC_ERROR_INVALID_DATA, reason.IsEmpty() ? "Quarn: the JSON text does not end"
                                                         : static_cast<const char*>(reason));
}

// The error that a file function has left as a number, which names the path.
Failure FileFailure(unsigned __int64 error, const Path& path) {
  const Failure failure = TakeFailure(error);
  return Failure(failure.code(), path.InMessage(failure.message()).c_str());
}

QncJson* ReadFile(const Path& path) {
  auto value = std::make_unique<CMyJsonValue>();
  unsigned __int64 reason = 0;
  if (!QNJsonUtils::ReadJsonFileEx(path.get(), *value, &reason)) throw FileFailure(reason, path);
  return HandleOf(value.release());
}

int SaveFile(const QncJson* value, const Path& path, bool utf8) {
  unsigned __int64 reason = 0;
  if (QNJsonUtils::SaveJsonFileEx(path.get(), *ValueOf(Given(value)), utf8, &reason)) return 1;
  throw FileFailure(reason, path);
}

}  // namespace

QncJson* qncJsonParse(const char* text, CQNObject** error) {
  return GuardedNew(error, [=] { return Parse(AnsiText(text).get()); });
}

QncJson* qncJsonParseA(const char* text, CQNObject** error) {
  return GuardedNew(error, [=] { return Parse(Given(text)); });
}

QncJson* qncJsonReadFile(const char* path, CQNObject** error) {
  return GuardedNew(error, [=] { return ReadFile(Path(path)); });
}

int qncJsonSaveFile(const QncJson* value, const char* path, int utf8, CQNObject** error) {
  return Guarded(error, 0, [=] { return SaveFile(value, Path(path), utf8 != 0); });
}

QncJson* qncJsonNewObject(CQNObject** error) {
  return GuardedNew(error, [] {
    auto object = std::make_unique<CMyJsonObj>();
    auto value = std::make_unique<CMyJsonValue>(object.get());
    static_cast<void>(object.release());  // the value's from now on
    return HandleOf(value.release());
  });
}

QncJson* qncJsonNewArray(CQNObject** error) {
  return GuardedNew(error, [] {
    CMyJsonValue* const* nothing = nullptr;
    return HandleOf(new CMyJsonValue(nothing, 0));
  });
}

void qncJsonFree(QncJson* value) { delete ValueOf(value); }

char* qncJsonWrite(const QncJson* value, int indent, CQNObject** error) {
  return GuardedNew(error, [=] { return ValueOf(Given(value))->CreateUTF8Json(indent != 0); });
}

char* qncJsonWriteA(const QncJson* value, int indent, CQNObject** error) {
  return GuardedNew(
      error, [=] { return quarnfc::CopyText(ValueOf(Given(value))->CreateJson(indent != 0)); });
}
