#include "platform/global_memory.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

TEST(GlobalMemory, IsZeroedWhereThatIsAskedFor) {
  const platform::GlobalHandle handle = platform::GlobalAlloc(0x42, 1000);
  ASSERT_NE(handle, nullptr);
  const auto* bytes = static_cast<const unsigned char*>(platform::GlobalLock(handle));
  EXPECT_EQ(std::count(bytes, bytes + 1000, 0), 1000);
  platform::GlobalUnlock(handle);
  platform::GlobalFree(handle);
}

TEST(GlobalMemory, KeepsItsContentsBetweenLocks) {
  const platform::GlobalHandle handle = platform::GlobalAlloc(platform::kMoveable, 2);
  ASSERT_NE(handle, nullptr);
  static_cast<char*>(platform::GlobalLock(handle))[1] = 'x';
  platform::GlobalUnlock(handle);
  EXPECT_EQ(static_cast<char*>(platform::GlobalLock(handle))[1], 'x');
  platform::GlobalUnlock(handle);
  platform::GlobalFree(handle);
}

}  // namespace
