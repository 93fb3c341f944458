// SPDX-License-Identifier: MIT
// What the processor offers beyond the x86-64 baseline; nothing on other processors.
#ifndef QUARNFC_PLATFORM_CPU_H_
#define QUARNFC_PLATFORM_CPU_H_

namespace quarnfc::platform {

// The instructions that the files codec/..._x86.cpp are compiled for. Registers beyond 128 bits
// count only where the system saves them when it switches threads.
bool CpuHasAvx2();
bool CpuHasSha();        // the SHA extensions, with SSE4.1
bool CpuHasClmul();      // PCLMULQDQ, with AVX
bool CpuHasWideClmul();  // VPCLMULQDQ, with AVX-512 F and VL

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_CPU_H_
