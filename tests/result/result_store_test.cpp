#include "result/result_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/global_memory.h"

TEST(ResultStore, MakesACurveWithoutSegments) {
  ResultStore store;
  const CFileCurve* curve = store.NewCurve();
  EXPECT_EQ(curve->kind, kFileCurve);
  EXPECT_EQ(curve->segmentCount, 0);
  EXPECT_EQ(curve->segmentHead->next, curve->segmentHead);
  EXPECT_EQ(curve->segmentHead->previous, curve->segmentHead);
  EXPECT_EQ(curve->segmentCursor, curve->segmentHead);
}

TEST(ResultStore, MakesAGroupWithoutMembers) {
  ResultStore store;
  const CFileGroup* group = store.NewGroup();
  EXPECT_EQ(group->kind, kFileGroup);
  EXPECT_EQ(group->memberCount, 0);
  EXPECT_EQ(group->memberHead->next, group->memberHead);
  EXPECT_EQ(group->memberHead->previous, group->memberHead);
  EXPECT_EQ(group->name, "");
}

TEST(ResultStore, FreesWhatABitmapHolds) {
  // The leak checker of the sanitizer build is what watches this test.
  ResultStore store;
  CFileDib* dib = store.NewDib();
  dib->bitmap = platform::GlobalAlloc(platform::kZeroInitialised, 100);
  dib->auxiliary = ::operator new(10);
  EXPECT_EQ(store.NewDib()->bitmap, nullptr);
}

TEST(ResultStore, HandsARecycledCurveOutAsNew) {
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  store.AppendLine(*curve, {1, 2}, {3, 4});
  curve->color = 5;
  curve->cutPower = 6;
  store.Recycle(curve);
  const CFileCurve* again = store.NewCurve();
  EXPECT_EQ(again, curve);
  EXPECT_EQ(again->segmentCount, 0);
  EXPECT_EQ(again->segmentHead->next, again->segmentHead);
  EXPECT_EQ(again->color, 0u);
  EXPECT_EQ(again->cutPower, 30.0);
  EXPECT_NE(store.NewCurve(), curve);
}

TEST(ResultStore, HandsARecycledGroupOutAsNew) {
  ResultStore store;
  CFileGroup* first = store.NewGroup();
  CFileGroup* second = store.NewGroup();
  store.Append(*first, store.NewCurve());
  first->cutSpeed = 7;
  store.Recycle(first);
  store.Recycle(second);
  const CFileGroup* one = store.NewGroup();
  const CFileGroup* other = store.NewGroup();
  EXPECT_THAT((std::vector<const CFileGroup*>{one, other}), testing::UnorderedElementsAre(first, second));
  EXPECT_EQ(first->memberCount, 0);
  EXPECT_EQ(first->memberHead->next, first->memberHead);
  EXPECT_EQ(first->cutSpeed, 100.0);
}

TEST(ResultStore, KeepsWhatItMadeWhileItGrows) {
  // A million segments are more than any chunk has room for.
  ResultStore store;
  CFileCurve* curve = store.NewCurve();
  for (int i = 0; i < 1000000; ++i) store.AppendLine(*curve, {i + 0.0, 0}, {i + 1.0, 0});
  double expected = 0;
  for (const FileSegment* s = curve->segmentHead->next; s != curve->segmentHead; s = s->next) {
    ASSERT_EQ(s->start.x, expected);
    ASSERT_EQ(s->end.x, ++expected);
  }
  EXPECT_EQ(expected, 1000000.0);
}
