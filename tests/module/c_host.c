/* SPDX-License-Identifier: MIT */
/* A host in C: finds the plain functions of the module by name and calls them. */
#include <quarnfc/plain.h>

#include <stdio.h>
#include <string.h>

#include "c_host.h"

#if defined(_WIN32)
#include <windows.h>
typedef HMODULE Module;
static Module Load(const char* path) { return LoadLibraryA(path); }
static FARPROC Find(Module module, const char* name) { return GetProcAddress(module, name); }
typedef FARPROC Address;
#else
#include <dlfcn.h>
typedef void* Module;
typedef void* Address;
static Module Load(const char* path) { return dlopen(path, RTLD_NOW); }
static Address Find(Module module, const char* name) { return dlsym(module, name); }
#endif

static int failures = 0;

#define CHECK(condition)                                           \
  do {                                                             \
    if (!(condition)) {                                            \
      printf("line %d: %s does not hold\n", __LINE__, #condition); \
      ++failures;                                                  \
    }                                                              \
  } while (0)

/* The functions as a host sees them that has no header: a handle is a 64-bit value. */
static char* (*get_error_a)(unsigned long long handle, unsigned int* code);
static wchar_t* (*get_error_w)(unsigned long long handle, unsigned int* code);
static void (*close_handle)(unsigned long long handle);
static void (*free_mem)(void* buffer);
static char* (*union_path)(const char* base, const char* path);
static void* (*temp_data_64b)(void);
static void* (*temp_data_str_64)(void);

static void Resolve(Module module, const char* name, void* function) {
  Address address = Find(module, name);
  if (address == NULL) {
    printf("%s is not exported\n", name);
    ++failures;
  }
  memcpy(function, &address, sizeof(address));
}

static void ResolveAll(Module module) {
  Resolve(module, "qnGetErrorA", &get_error_a);
  Resolve(module, "qnGetErrorW", &get_error_w);
  Resolve(module, "qnCloseHandle", &close_handle);
  Resolve(module, "qnFreeMem", &free_mem);
  Resolve(module, "qnUnionPath", &union_path);
  Resolve(module, "_TempData64B", &temp_data_64b);
  Resolve(module, "_TempDataStr64", &temp_data_str_64);
}

static void ReadErrorByName(void) {
  unsigned long long handle = MakeError(14, "disk on fire");
  unsigned int code = 0;
  char* text = get_error_a(handle, &code);
  CHECK(text != NULL && strcmp(text, "disk on fire") == 0);
  CHECK(code == 14);
  free_mem(text);

  code = 0;
  wchar_t* wide = get_error_w(handle, &code);
  CHECK(wide != NULL && memcmp(wide, L"disk on fire", 13 * sizeof(wchar_t)) == 0);
  CHECK(code == 14);
  free_mem(wide);
  close_handle(handle);
}

static void NullsAreHarmless(void) {
  unsigned int code = 7;
  CHECK(get_error_a(0, &code) == NULL);
  CHECK(get_error_w(0, &code) == NULL);
  CHECK(code == 7);
  close_handle(0);
  free_mem(NULL);
}

static void CallOthersByName(void) {
  char* path = union_path("C:\\data\\maps", "..\\index.json");
  CHECK(path != NULL);
  free_mem(path);
  CHECK(temp_data_64b() != NULL && temp_data_64b() == temp_data_str_64());
}

static void ReadErrorThroughTheHeader(void) {
  CQNObject* handle = (CQNObject*)(size_t)MakeError(2, "gone");
  unsigned int code = 0;
  char* text = qnGetErrorA(handle, &code);
  CHECK(text != NULL && strcmp(text, "gone") == 0 && code == 2);
  qnFreeMem(text);
  qnCloseHandle(handle);
}

static void JoinPathsThroughTheHeader(void) {
  char* path = qnUnionPath("C:/data/maps", "..\\index.json");
  CHECK(path != NULL && strcmp(path, "C:\\data\\index.json") == 0);
  qnFreeMem(path);
}

int main(int argc, char** argv) {
  Module module = argc == 2 ? Load(argv[1]) : NULL;
  if (module == NULL) {
    printf("usage: c_host PATH_OF_THE_MODULE\n");
    return 1;
  }
  ResolveAll(module);
  if (failures == 0) {
    ReadErrorByName();
    NullsAreHarmless();
    CallOthersByName();
    ReadErrorThroughTheHeader();
    JoinPathsThroughTheHeader();
  }
  printf("%d failures\n", failures);
  return failures != 0;
}
