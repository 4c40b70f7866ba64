#ifndef DRAWLOAD_SUPPORT_LARGE_BLOCK_H
#define DRAWLOAD_SUPPORT_LARGE_BLOCK_H

#include <cstddef>
#include <memory>
#include <string_view>

namespace support {

/// What frees a `LargeBlock`.
struct LargeBlockDeleter {
  void operator()(char* block) const;

  std::size_t alignment = 0;
};

/// Memory for much that is written once, from its start to its end; not initialised.
using LargeBlock = std::unique_ptr<char[], LargeBlockDeleter>;

/// From this many bytes on a block consists of huge pages, where the system has them.
constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

/// A block of `bytes` bytes. The first touch of an ordinary page (4 KiB) can cost more than what is written
/// into it, so a large block begins where a huge page does and asks the system for such pages; that is an
/// advice only. Throws where there is no memory.
LargeBlock NewLargeBlock(std::size_t bytes);

/// Asks for huge pages in memory that comes from elsewhere.
void AdviseHugePages(void* memory, std::size_t bytes);

/// A text at the start of a block.
struct BlockText {
  std::string_view View() const { return {block.get(), size}; }

  LargeBlock block{nullptr, {}};
  std::size_t size = 0;
};

}  // namespace support

#endif
