// SPDX-License-Identifier: MIT
// Modules that are loaded and unloaded while the program runs.
#ifndef QUARNFC_BENCH_START_MODULE_H_
#define QUARNFC_BENCH_START_MODULE_H_

namespace bench {

class Module {
 public:
  // Ends the program when there is no such module.
  explicit Module(const char* path);
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  // A function of the module; ends the program when it has none of that name.
  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(Address(name));
  }

 private:
  using Any = void (*)();
  Any Address(const char* name) const;

  void* handle_;
};

}  // namespace bench

#endif  // QUARNFC_BENCH_START_MODULE_H_
