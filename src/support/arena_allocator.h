#ifndef DRAWLOAD_SUPPORT_ARENA_ALLOCATOR_H
#define DRAWLOAD_SUPPORT_ARENA_ALLOCATOR_H

#include <cstddef>
#include <memory>
#include <type_traits>

#include "support/arena.h"

namespace support {

/// Lets a container lie in an arena, where it costs no allocation of its own, or, without one, on the heap. A
/// container that grows belongs on the heap; its finished content is moved into an arena with `Settle`. A
/// copy lies on the heap again.
template <typename Value>
class ArenaAllocator {
 public:
  using value_type = Value;
  using propagate_on_container_move_assignment = std::true_type;
  using propagate_on_container_swap = std::true_type;

  ArenaAllocator() = default;
  /// `memory` may be null; it must outlive the container.
  explicit ArenaAllocator(Arena* memory) : arena(memory) {}
  template <typename Other>
  explicit ArenaAllocator(const ArenaAllocator<Other>& other) : arena(other.arena) {}

  Value* allocate(std::size_t count) {
    static_assert(alignof(Value) <= Arena::kAlignment);
    if (arena == nullptr) return std::allocator<Value>().allocate(count);
    return static_cast<Value*>(arena->Allocate(count * sizeof(Value)));
  }
  void deallocate(Value* values, std::size_t count) {
    if (arena == nullptr) std::allocator<Value>().deallocate(values, count);
  }
  ArenaAllocator select_on_container_copy_construction() const { return {}; }

  bool operator==(const ArenaAllocator&) const = default;

 private:
  template <typename Other>
  friend class ArenaAllocator;

  Arena* arena = nullptr;
};

/// Moves the elements of `list` into `memory`, without room for more.
template <typename List>
void Settle(List& list, Arena& memory) {
  list = List(list.begin(), list.end(), typename List::allocator_type(&memory));
}

}  // namespace support

#endif
