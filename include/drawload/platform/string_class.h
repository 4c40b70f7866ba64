#ifndef DRAWLOAD_PLATFORM_STRING_CLASS_H
#define DRAWLOAD_PLATFORM_STRING_CLASS_H

#include <string>

namespace drawload {

/// The string class of `CFileGroup::name`: the one place that decides it.
using StringClass = std::string;

/// Handle of a moveable memory block. On Linux it is the address of the block itself, so that a caller may
/// read the block without locking it first. On Windows it is an HGLOBAL: `GlobalLock` gives the address.
using GlobalHandle = void*;

}  // namespace drawload

#endif
