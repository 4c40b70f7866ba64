#include <gtest/gtest.h>

#include "contract/layout_checks.h"

namespace {

/// The address of a field, counted from the start of its object, in a real object.
template <typename Object, typename Field>
std::ptrdiff_t Distance(const Object& object, const Field& field) {
  return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&object);
}

}  // namespace

TEST(Layout, HoldsInRealObjects) {
  const CFilePoint point;
  EXPECT_EQ(Distance(point, point.rect), 8);
  EXPECT_EQ(Distance(point, point.kind), 40);
  EXPECT_EQ(Distance(point, point.color), 44);
  EXPECT_EQ(Distance(point, point.flag0), 48);
  EXPECT_EQ(Distance(point, point.diameter), 216);
  EXPECT_EQ(Distance(point, point.x), 224);
}

TEST(Layout, HasASegmentOfAHundredAndFourBytesHere) {
  EXPECT_EQ(sizeof(FileSegment), sizeof(void*) == 8 ? 104u : 96u);
}

TEST(Layout, HasAProcessingBlockOfAHundredAndSeventySixBytes) {
  const CFilePoint point;
  EXPECT_EQ(Distance(point.flag0, point.diameter) + static_cast<std::ptrdiff_t>(sizeof point.diameter), 176);
}
