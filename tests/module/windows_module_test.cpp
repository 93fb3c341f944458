// SPDX-License-Identifier: MIT
// The DLL's own data: hardening flags and version resource.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "support/build_paths.h"

namespace {

HMODULE Module() { return GetModuleHandleA("QuarnFC.dll"); }

const char* Image() { return reinterpret_cast<const char*>(Module()); }

const IMAGE_OPTIONAL_HEADER64& Header() {
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(Image());
  return reinterpret_cast<const IMAGE_NT_HEADERS64*>(Image() + dos->e_lfanew)->OptionalHeader;
}

WORD Characteristics() { return Header().DllCharacteristics; }

// The DLLs that are loaded with this one, in lower case.
std::set<std::string> ImportedDlls() {
  std::set<std::string> dlls;
  const DWORD place = Header().DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  const auto* import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(Image() + place);
  for (; import->Name != 0; ++import) {
    std::string name = Image() + import->Name;
    std::transform(name.begin(), name.end(), name.begin(), ::tolower);
    dlls.insert(name);
  }
  return dlls;
}

std::vector<char> VersionInfo() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(Module(), path, MAX_PATH);
  DWORD ignored = 0;
  std::vector<char> info(GetFileVersionInfoSizeA(path, &ignored));
  if (!GetFileVersionInfoA(path, 0, static_cast<DWORD>(info.size()), info.data())) info.clear();
  return info;
}

std::string VersionText(const std::vector<char>& info, const char* name) {
  void* text = nullptr;
  UINT length = 0;
  const std::string block = std::string("\\StringFileInfo\\040904B0\\") + name;
  if (!VerQueryValueA(info.data(), block.c_str(), &text, &length)) return {};
  return static_cast<const char*>(text);
}

}  // namespace

TEST(WindowsModule, IsHardenedByTheLoader) {
  EXPECT_TRUE(Characteristics() & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
  EXPECT_TRUE(Characteristics() & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA);
  EXPECT_TRUE(Characteristics() & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
}

// See cmake/QuarnFCDelayImports.cmake.
#if defined(_MSC_VER)
constexpr bool kLoadsLate = false;
#else
constexpr bool kLoadsLate = true;
#endif

TEST(WindowsModule, DllsThatMostHostsDoWithoutAreLoadedOnFirstUse) {
  if (!kLoadsLate) GTEST_SKIP() << "the linker of the Microsoft-ABI build lacks the helper";
  const std::set<std::string> dlls = ImportedDlls();
  EXPECT_TRUE(dlls.contains("kernel32.dll"));
  for (const char* dll :
       {"advapi32.dll", "oleaut32.dll", "shlwapi.dll", "user32.dll", "wininet.dll"}) {
    EXPECT_FALSE(dlls.contains(dll)) << dll;
  }
}

TEST(WindowsModule, VersionResourceNamesProductAndVersion) {
  const std::vector<char> info = VersionInfo();
  ASSERT_FALSE(info.empty());
  EXPECT_EQ(VersionText(info, "ProductName"), "QuarnFC");
  EXPECT_EQ(VersionText(info, "OriginalFilename"), "QuarnFC.dll");
  EXPECT_EQ(VersionText(info, "FileDescription"), "QuarnFC foundation-class library");
  EXPECT_EQ(VersionText(info, "ProductVersion"), QUARNFC_VERSION);
  EXPECT_EQ(VersionText(info, "FileVersion"), QUARNFC_VERSION);
}
