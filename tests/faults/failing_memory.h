#ifndef DRAWLOAD_TESTS_FAILING_MEMORY_H
#define DRAWLOAD_TESTS_FAILING_MEMORY_H

#include <cstddef>

/// Linked into a program, this takes the place of malloc, calloc, realloc and free for the program and for
/// every library in it (operator new calls malloc), and lets chosen allocations fail. Under AddressSanitizer,
/// which has these functions itself, it takes the place of operator new and delete alone.
namespace failing_memory {

enum class Failure { kOne, kAllFromThere };

/// Where allocations come from that count and may fail: what Fontconfig and its XML parser ask for is told
/// apart by the address of the caller.
enum class Callers { kAllButFontconfig, kAll };

/// From now on allocations count from 1, and number `n` fails; with 0 none does.
void Start(std::size_t n, Failure failure, Callers callers);

/// Nothing counts and fails any more. Returns how many allocations there were.
std::size_t Stop();

/// Blocks that were allocated since the last start and are not freed: all of them, and those of Fontconfig.
struct Lost {
  std::size_t all = 0;
  std::size_t byFontconfig = 0;
};
Lost LostBlocks();

/// The address from which the first of the lost blocks was asked for; null where none is lost.
const void* CallerOfALostBlock();

}  // namespace failing_memory

#endif
