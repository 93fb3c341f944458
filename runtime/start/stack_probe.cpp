// SPDX-License-Identifier: MIT
// __chkstk: compiled code calls it before it takes more than a page of stack (the number of bytes
// is in rax), so that the guard page in front of the stack is met in order. It keeps every register
// but r10 and r11, takes no stack itself and calls nothing.
extern "C" __attribute__((naked)) void __chkstk() {
  __asm__(
      "leaq 8(%rsp), %r11\n"
      "movq %rax, %r10\n"
      "1:\n"
      "cmpq $0x1000, %r10\n"
      "jb 2f\n"
      "subq $0x1000, %r11\n"
      "testb %r10b, (%r11)\n"
      "subq $0x1000, %r10\n"
      "jmp 1b\n"
      "2:\n"
      "subq %r10, %r11\n"
      "testb %r10b, (%r11)\n"
      "retq\n");
}
