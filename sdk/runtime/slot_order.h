// Reads from a pointer to a virtual operation which slot the operation has, so that tests can pin the
// order of slots that programs and providers compiled against other headers of the interface rely on.
//
// Requires: a compiler with the Itanium C++ ABI, where such a pointer holds the slot's offset plus 1.
#ifndef SDK_RUNTIME_SLOT_ORDER_H_
#define SDK_RUNTIME_SLOT_ORDER_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "FdoCommon.h"

namespace fdo_sdk {

// The slots of FdoIDisposable: two for the destructor, Dispose, AddRef, Release, GetRefCount and
// EnableObjectThreadLocking.
inline constexpr int kDisposableSlots = 7;

template <class Class, class Function>
using MemberOf = Function Class::*;

struct SlotOfOperation {
  char const* name;
  int slot;
};

template <class Member>
int SlotOf(Member member) {
  static_assert(sizeof(member) == 2 * sizeof(std::ptrdiff_t), "not a pointer to a member function");
  std::ptrdiff_t offset = 0;
  std::memcpy(&offset, &member, sizeof offset);
  return static_cast<int>((offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)));
}

// Each operation stands in the slot behind the one before it; gives the number of slots up to the last.
inline int ExpectConsecutive(int first, std::vector<SlotOfOperation> const& operations) {
  int expected = first;
  for (SlotOfOperation const& operation : operations) {
    EXPECT_EQ(operation.slot, expected) << operation.name;
    ++expected;
  }
  return expected;
}

}  // namespace fdo_sdk

// One row of a table of slots: the operation's class, its name and its function type.
#define FDO_SDK_SLOT(Class, Name, ...) \
  { #Name, fdo_sdk::SlotOf(static_cast <fdo_sdk::MemberOf <Class, __VA_ARGS__>>(&Class::Name)) }

#endif  // SDK_RUNTIME_SLOT_ORDER_H_
