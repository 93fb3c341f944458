// SPDX-License-Identifier: MIT
#include <quarnfc/internet_file.h>

#include <new>

#include "net/file_values.h"
#include "net/handle_registry.h"
#include "net/internet_error.h"
#include "net/owned_bytes.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::Live;

CQNInternetFile::CQNInternetFile(const char* object, const char* server, unsigned __int64 context,
                                 int readMode)
    : object_name_(object),
      handle_(nullptr),
      read_mode_(readMode),
      context_(context),
      connection_handle_(nullptr),
      server_name_(server),
      write_buffer_size_(0),
      write_position_(0),
      write_buffer_(nullptr),
      read_buffer_size_(0),
      read_position_(0),
      read_buffer_(nullptr),
      read_bytes_(0) {}

CQNInternetFile::CQNInternetFile(HINTERNET file, HINTERNET session, const char* object,
                                 const char* server, unsigned __int64 context, int readMode)
    : CQNInternetFile(object, server, context, readMode) {
  TakeHandle(file, session, nullptr);
}

CQNInternetFile::CQNInternetFile(HINTERNET file, const char* object,
                                 CQNInternetConnection* connection, int readMode)
    : CQNInternetFile(object, connection->server_, connection->context_, readMode) {
  TakeHandle(file, connection->handle_, connection->session_);
}

// The last step of every construction: what throws before or here leaves the handle to the caller.
void CQNInternetFile::TakeHandle(HINTERNET file, HINTERNET parent, CQNInternetSession* session) {
  quarnfc::net::Registry().Add(file, this, parent, session);
  handle_ = file;
}

CQNInternetFile::~CQNInternetFile() {
  try {
    CQNInternetFile::Close();
  } catch (CQNInternetException* error) {
    delete error;
  } catch (const std::bad_alloc&) {
    // There was not even memory for the exception.
  }
  // The bytes held for writing may be lost; the handle is not.
  quarnfc::net::CloseRegisteredHandle(handle_, this);
  ReleaseBuffers();
}

CQNInternetFile::operator HINTERNET() const { return handle_; }

unsigned __int64 CQNInternetFile::GetContext() const { return context_; }

int CQNInternetFile::SetOption(DWORD option, void* buffer, DWORD length, DWORD flags) {
  return InternetSetOptionExA(Live(handle_, this), option, buffer, length, flags);
}

int CQNInternetFile::SetOption(DWORD option, DWORD value, DWORD flags) {
  return SetOption(option, &value, sizeof(value), flags);
}

int CQNInternetFile::QueryOption(DWORD option, void* buffer, DWORD* length) const {
  return InternetQueryOptionA(Live(handle_, this), option, buffer, length);
}

int CQNInternetFile::QueryOption(DWORD option, DWORD& value) const {
  DWORD length = sizeof(value);
  return QueryOption(option, &value, &length);
}

unsigned __int64 CQNInternetFile::Seek(__int64 offset, unsigned int origin) {
  if (read_mode_ == quarnfc::net::kWriteOnly || read_buffer_ != nullptr) {
    InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  }
  static_assert(FILE_BEGIN == 0 && FILE_CURRENT == 1 && FILE_END == 2);
  if (origin > FILE_END || offset != static_cast<int>(offset)) {
    InternetError::Throw(ERROR_INVALID_PARAMETER, context_);
  }
  const DWORD position = InternetSetFilePointer(Live(handle_, this), static_cast<int>(offset),
                                                nullptr, origin, context_);
  if (position == quarnfc::net::kNoPosition) InternetError::ThrowLast(context_);
  return quarnfc::net::SignExtended(position);
}

unsigned __int64 CQNInternetFile::GetLength() const {
  const HINTERNET file = Live(handle_, this);
  DWORD available = 0;
  // The platform reserves the last two arguments: zero.
  if (file == nullptr || !InternetQueryDataAvailable(file, &available, 0, 0)) return 0;
  return available;
}

void CQNInternetFile::Close() {
  if (handle_ == nullptr) return;
  // What is held for a handle that went with its session or connection goes nowhere.
  if (Live(handle_, this) != nullptr) Flush();
  quarnfc::net::CloseRegisteredHandle(handle_, this);
  ReleaseBuffers();
}

void CQNInternetFile::Abort() {
  if (handle_ != nullptr) Close();
  object_name_.Empty();
}

// The sizes stay as they are.
void CQNInternetFile::ReleaseBuffers() {
  quarnfc::net::GiveTo(write_buffer_, nullptr);
  quarnfc::net::GiveTo(read_buffer_, nullptr);
}
