#ifndef DRAWLOAD_TESTS_FAILING_MEMORY_H
#define DRAWLOAD_TESTS_FAILING_MEMORY_H

#include <cstddef>

/// Linked into a program, this takes the place of malloc, calloc, realloc and free for the program and for
/// every library in it (operator new calls malloc), and lets chosen allocations fail. Under AddressSanitizer,
/// which has these functions itself, it takes the place of operator new and delete alone. The linker is to
/// wrap the functions whose own allocations do not fail here: those of Fontconfig, and OpenJPEG's decoder.
namespace failing_memory {

enum class Failure { kOne, kAllFromThere };

/// From now on allocations count from 1, and number `n` fails; with 0 none does.
void Start(std::size_t n, Failure failure);

/// Nothing counts and fails any more. Returns how many allocations there were.
std::size_t Stop();

/// How many blocks that were allocated since the last start are not freed.
std::size_t LostBlocks();

/// The address from which the first of the lost blocks was asked for; null where none is lost.
const void* CallerOfALostBlock();

}  // namespace failing_memory

#endif
