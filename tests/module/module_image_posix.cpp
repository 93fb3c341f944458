// SPDX-License-Identifier: MIT
#include "tests/module/module_image.h"

#include <dlfcn.h>
#include <elf.h>

#include <cstring>
#include <fstream>
#include <iterator>

#include <quarnfc/plain.h>

namespace {

// The bytes of the file the module was loaded from.
std::string ModuleFile() {
  Dl_info info = {};
  dladdr(reinterpret_cast<void*>(static_cast<void (*)(void*)>(&qnFreeMem)), &info);
  std::ifstream file(info.dli_fname, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

template <class Type>
Type At(const std::string& bytes, std::size_t offset) {
  Type value;
  std::memcpy(&value, bytes.data() + offset, sizeof(value));
  return value;
}

bool IsExported(const Elf64_Sym& symbol) {
  const unsigned char binding = ELF64_ST_BIND(symbol.st_info);
  return symbol.st_shndx != SHN_UNDEF && (binding == STB_GLOBAL || binding == STB_WEAK);
}

}  // namespace

std::set<std::string> module_image::ExportedNames() {
  const std::string bytes = ModuleFile();
  const auto header = At<Elf64_Ehdr>(bytes, 0);
  const auto section = [&](unsigned index) {
    return At<Elf64_Shdr>(bytes, header.e_shoff + index * sizeof(Elf64_Shdr));
  };
  std::set<std::string> result;
  for (unsigned i = 0; i < header.e_shnum; ++i) {
    const Elf64_Shdr symbols = section(i);
    if (symbols.sh_type != SHT_DYNSYM) continue;
    const std::size_t texts = section(symbols.sh_link).sh_offset;
    for (std::size_t at = 0; at < symbols.sh_size; at += sizeof(Elf64_Sym)) {
      const auto symbol = At<Elf64_Sym>(bytes, symbols.sh_offset + at);
      if (IsExported(symbol)) result.insert(bytes.data() + texts + symbol.st_name);
    }
  }
  return result;
}

void* module_image::Resolve(const char* name) { return dlsym(RTLD_DEFAULT, name); }
