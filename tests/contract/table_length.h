#ifndef DRAWLOAD_TESTS_TABLE_LENGTH_H
#define DRAWLOAD_TESTS_TABLE_LENGTH_H

#include <cstddef>
#include <gtest/gtest.h>
#include <vector>

#include "contract/vtable_slot.h"

/// The length of a class's virtual table: the slot of the first operation that a derived class would add.
template <typename Class>
std::size_t TableLength() {
  struct Probe : Class {
    virtual void Behind() {}
  };
  return VtableSlot(&Probe::Behind);
}

/// Expects the slots to follow one another from the first one behind a virtual destructor.
inline void ExpectInOrderBehindTheDestructor(const std::vector<std::size_t>& slots) {
  for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(slots[i], kBehindDestructor + i);
}

#endif
