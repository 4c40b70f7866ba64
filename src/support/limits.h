#ifndef DRAWLOAD_SUPPORT_LIMITS_H
#define DRAWLOAD_SUPPORT_LIMITS_H

#include <cstddef>
#include <cstdint>

/// Every bound of the readers, each with its reason. Within the bounds a file behaves exactly as if there
/// were none; beyond one, the reader stops that item, keeps what it has, and goes on. `docs/limits.md`
/// tells users the same.
namespace support::limits {

/// Nesting of block references in a DXF drawing. Real drawings nest a handful deep; each level costs stack.
constexpr int kInsertDepth = 100;

}  // namespace support::limits

#endif
