#ifndef DRAWLOAD_SUPPORT_HUGE_PAGES_H
#define DRAWLOAD_SUPPORT_HUGE_PAGES_H

#include <cstddef>

namespace support {

/// Asks the system to back `bytes` bytes at `memory` with huge pages, where it has them: the first touch of
/// an ordinary page (4 KiB) can cost more than what is written into it. An advice only; nothing fails.
void AdviseHugePages(void* memory, std::size_t bytes);

}  // namespace support

#endif
