// SPDX-License-Identifier: MIT
// The DLL's own data: hardening flags and version resource.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/build_paths.h"

namespace {

HMODULE Module() { return GetModuleHandleA("QuarnFC.dll"); }

WORD Characteristics() {
  const auto* image = reinterpret_cast<const char*>(Module());
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image + dos->e_lfanew);
  return headers->OptionalHeader.DllCharacteristics;
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

TEST(WindowsModule, VersionResourceNamesProductAndVersion) {
  const std::vector<char> info = VersionInfo();
  ASSERT_FALSE(info.empty());
  EXPECT_EQ(VersionText(info, "ProductName"), "QuarnFC");
  EXPECT_EQ(VersionText(info, "OriginalFilename"), "QuarnFC.dll");
  EXPECT_EQ(VersionText(info, "FileDescription"), "QuarnFC foundation-class library");
  EXPECT_EQ(VersionText(info, "ProductVersion"), QUARNFC_VERSION);
  EXPECT_EQ(VersionText(info, "FileVersion"), QUARNFC_VERSION);
}
