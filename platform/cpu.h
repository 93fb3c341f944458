// SPDX-License-Identifier: MIT
// What the processor offers beyond the x86-64 baseline; nothing on other processors.
#ifndef QUARNFC_PLATFORM_CPU_H_
#define QUARNFC_PLATFORM_CPU_H_

namespace quarnfc::platform {

// The instructions that codec/base64_x86.cpp and codec/sha256_x86.cpp are compiled for.
bool CpuHasSsse3();
bool CpuHasSha();  // the SHA extensions, with SSE4.1

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_CPU_H_
