// SPDX-License-Identifier: MIT
// Collections: strings that a collection owns, and a host's own collection with the removal hook.
#include <cstdio>

#include <quarnfc/quarnfc.h>

namespace {

// Numbers that know their sum.
class Numbers : public CQNCollection {
 public:
  int Add(unsigned __int64 number) override {
    sum_ += number;
    return CQNCollection::Add(number);
  }
  void OnRemoveItem(unsigned __int64 number) override { sum_ -= number; }
  unsigned __int64 sum() const { return sum_; }

 private:
  unsigned __int64 sum_ = 0;
};

}  // namespace

int main() {
  CQNStringCollection names;
  for (const char* name : {"Alpha", "Beta", "Gamma"}) names.CloneAdd(name);
  const int found = names.Find("BETA", false, 0);
  std::printf("%s is at %d\n", names.GetStr(found), found);  // Beta is at 1
  names.RemoveAt(found);
  std::printf("%d names are left\n", names.Count());  // 2 names are left

  Numbers numbers;
  for (const int number : {10, 20, 30}) numbers.Add(static_cast<unsigned int>(number));
  numbers.SetLogicalLength(2);                      // the hook sees 30 go
  std::printf("the sum is %llu\n", numbers.sum());  // the sum is 30
  return names.Count() == 2 && numbers.sum() == 30 ? 0 : 1;
}
