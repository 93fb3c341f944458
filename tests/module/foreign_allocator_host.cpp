// SPDX-License-Identifier: MIT
// A host whose operator new and delete are its own: whatever it deletes that the library made, and
// the other way round, must reach the allocator it came from. The host's operators mark each block
// and end the program when they are given one without the mark.
#include <quarnfc/quarnfc.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <vector>

namespace {

constexpr std::uint64_t kMark = 0x51554152'4E464321;

struct alignas(16) Header {
  std::uint64_t mark;
};

long g_live = 0;

void* MarkedBlock(std::size_t size) {
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (header == nullptr) throw std::bad_alloc();
  header->mark = kMark;
  ++g_live;
  return header + 1;
}

void FreeMarkedBlock(void* block) noexcept {
  if (block == nullptr) return;
  Header* header = static_cast<Header*>(block) - 1;
  if (header->mark != kMark) {
    std::puts("operator delete was given a block that operator new did not make");
    std::abort();
  }
  header->mark = 0;
  --g_live;
  std::free(header);
}

}  // namespace

void* operator new(std::size_t size) { return MarkedBlock(size); }
void* operator new[](std::size_t size) { return MarkedBlock(size); }
void operator delete(void* block) noexcept { FreeMarkedBlock(block); }
void operator delete[](void* block) noexcept { FreeMarkedBlock(block); }
void operator delete(void* block, std::size_t) noexcept { FreeMarkedBlock(block); }
void operator delete[](void* block, std::size_t) noexcept { FreeMarkedBlock(block); }

namespace {

// A class of the host that derives from one of the library's.
class HostObject : public CQNObject {
 public:
  explicit HostObject(const char* name) : name_(name) {}

 private:
  CQNString name_;
};

void DeleteObjects() {
  CQNObject* object = new CQNObject;
  object->SetError(CQNObject::eErrFileIO, "deleted by the host");
  delete object;

  CQNObject* derived = new HostObject("derived in the host, deleted through its base");
  delete derived;

  CQNObject* released = new HostObject("released by the library");
  released->Release();
}

void CloseHandles() {
  const auto handle = QNErrorUtils::CreateError(CQNObject::eErrNotFound, "made by the library");
  qnFreeMem(qnGetErrorA(handle, nullptr));
  delete reinterpret_cast<CQNObject*>(static_cast<std::uintptr_t>(handle));

  CQNObject* object = new CQNObject;
  object->SetError(CQNObject::eErrNone, "made by the host");
  qnCloseHandle(object);
}

void DeleteJson() {
  auto* object = new CMyJsonObj;
  object->AddItem("name", "made and deleted by the host");
  object->AddItem("list", new CMyJsonValue);
  CMyJsonObj* clone = object->Clone();
  qnFreeMem(clone->CreateUTF8Json(true));
  auto* value = new CMyJsonValue(clone);  // takes the object over
  delete value->Clone();
  delete value;
  delete object;
}

void DeleteException() {
  auto* thrown = new CQNInternetException(12007);
  delete thrown;
}

void PassStrings() {
  auto* text = new CQNString("a string object of the host, with a buffer of the library");
  *text += *text;
  qnFreeMem(text->AllocANSIString());
  delete text;
}

void FillVectors() {
#if !QN_CONTAINERS_CROSS  // elsewhere such a host may not pass vectors
  std::vector<char*> pieces;
  QNStringUtils::SplitStr("a vector, of the host", ',', pieces);
  QNStringUtils::AdjustStrArr(pieces, true, true);
  QNStringUtils::FreeStrArr(pieces);
#endif
}

void ExchangeEverything() {
  DeleteObjects();
  CloseHandles();
  DeleteJson();
  DeleteException();
  PassStrings();
  FillVectors();
}

}  // namespace

int main() {
  // The library keeps what it needs for good (the chunks of its pools) from its first use on.
  ExchangeEverything();
  const long live = g_live;
  ExchangeEverything();
  if (g_live != live) std::printf("%ld blocks were not released\n", g_live - live);
  return g_live == live ? 0 : 1;
}
