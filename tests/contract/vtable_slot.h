#ifndef DRAWLOAD_TESTS_VTABLE_SLOT_H
#define DRAWLOAD_TESTS_VTABLE_SLOT_H

#include <cstddef>
#include <cstring>

/// Where a virtual operation stands in its class's table, counted from 0, read off the value of a pointer to
/// member as the Itanium C++ ABI lays it down: a pair of words, of which the first holds one more than the
/// byte offset of the slot (x86), or the second is odd and the first holds the offset itself (ARM).
///
/// A virtual destructor takes two slots, so what is declared behind it begins at `kBehindDestructor`.
/// `kNotVirtual` comes out for an operation that has no slot.
constexpr std::size_t kBehindDestructor = 2;
constexpr std::size_t kNotVirtual = static_cast<std::size_t>(-1);

template <typename Operation>
std::size_t VtableSlot(Operation operation) {
  struct {
    std::ptrdiff_t pointer;
    std::ptrdiff_t adjustment;
  } words;
  static_assert(sizeof operation == sizeof words, "not a pointer to a member function");
  std::memcpy(&words, &operation, sizeof words);
  std::ptrdiff_t offset = words.pointer;
  if ((words.adjustment & 1) == 0) {
    if ((words.pointer & 1) == 0) return kNotVirtual;
    offset = words.pointer - 1;
  }
  return static_cast<std::size_t>(offset) / sizeof(void*);
}

#endif
