#ifndef DRAWLOAD_SUPPORT_LARGE_BLOCK_H
#define DRAWLOAD_SUPPORT_LARGE_BLOCK_H

#include <cstddef>
#include <memory>
#include <string_view>

#include "support/account.h"

namespace support {

/// Frees a `LargeBlock`.
struct LargeBlockDeleter {
  void operator()(char* block) const;

  std::size_t bytes = 0;
  MemoryUse use = MemoryUse::kWorking;
};

/// Memory for much that is written once, from its start to its end; not initialized.
using LargeBlock = std::unique_ptr<char[], LargeBlockDeleter>;

/// Blocks of this size and above are mapped from the system and given back to it when they are freed. The C
/// library's heap would keep them, and fragment.
constexpr std::size_t kMappedBytes = std::size_t{1} << 20;

/// A block of `bytes` bytes, counted by the account of the current read. The first touch of an ordinary page
/// (4 KiB) can cost more than what is written into it, so a mapped block starts at a huge page (2 MiB) and
/// asks the system for such pages; the system may ignore that. Throws where there is no memory.
LargeBlock NewLargeBlock(std::size_t bytes, MemoryUse use = MemoryUse::kWorking);

/// A text at the start of a block.
struct BlockText {
  std::string_view View() const { return {block.get(), size}; }

  LargeBlock block{nullptr, {}};
  std::size_t size = 0;
};

}  // namespace support

#endif
