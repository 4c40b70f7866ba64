#include "drawload/file_group.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "drawload/file_point.h"
#include "result/host_objects.h"

namespace {

using testing::ElementsAre;

/// A member that tells which operations reach it, and whose bounds are given. Its kind is none of the four.
class Listener : public CFileDraw {
 public:
  Listener(int listenerNumber, structRect givenBounds, std::vector<std::string>& callLog)
      : number(listenerNumber), bounds(givenBounds), log(callLog) {
    kind = 99;
  }

  void TransMove(double dx, double dy) override { Tell("move", {dx, dy}); }
  void TransRotate(double cx, double cy, double angle) override { Tell("rotate", {cx, cy, angle}); }
  void TransMirrorX(double x) override { Tell("mirror x", {x}); }
  void TransMirrorY(double y) override { Tell("mirror y", {y}); }
  void TransDrag(double cx, double cy, double sx, double sy) override { Tell("drag", {cx, cy, sx, sy}); }
  structRect CalRect() override {
    Tell("bounds", {});
    return bounds;
  }

 private:
  void Tell(const char* what, const std::vector<double>& arguments) {
    std::string line = std::to_string(number) + " " + what;
    for (const double argument : arguments) line += " " + std::to_string(static_cast<int>(argument));
    log.push_back(line);
  }

  int number;
  structRect bounds;
  std::vector<std::string>& log;
};

std::vector<double> Sides(const structRect& rect) { return {rect.minX, rect.minY, rect.maxX, rect.maxY}; }

class GroupOfListeners : public testing::Test {
 protected:
  void Add(structRect bounds) { AppendMember(group, new Listener(++count, bounds, log)); }

  CFileGroup group;
  std::vector<std::string> log;
  int count = 0;
};

}  // namespace

TEST_F(GroupOfListeners, PassesEveryTransformationToItsMembersInOrder) {
  Add({});
  Add({});
  group.TransMove(1, 2);
  group.TransRotate(3, 4, 5);
  group.TransMirrorX(6);
  group.TransMirrorY(7);
  group.TransDrag(8, 9, 10, 11);
  EXPECT_THAT(log, ElementsAre("1 move 1 2", "2 move 1 2", "1 rotate 3 4 5", "2 rotate 3 4 5", "1 mirror x 6",
                               "2 mirror x 6", "1 mirror y 7", "2 mirror y 7", "1 drag 8 9 10 11",
                               "2 drag 8 9 10 11"));
}

TEST_F(GroupOfListeners, AsksEveryMemberForItsBoundsOnce) {
  Add({});
  Add({});
  group.CalRect();
  EXPECT_THAT(log, ElementsAre("1 bounds", "2 bounds"));
}

TEST_F(GroupOfListeners, LeavesTheCursorAtTheSentinelBehindAWalk) {
  Add({});
  group.CalRect();
  EXPECT_EQ(group.memberCursor, group.memberHead);
}

TEST_F(GroupOfListeners, TakesTheFirstMembersBoundsAsTheyAre) {
  Add({10, 9, 1, 2});
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(10, 9, 1, 2));
  EXPECT_THAT(Sides(group.rect), ElementsAre(10, 9, 1, 2));
}

TEST_F(GroupOfListeners, WidensItsBoundsByLaterMembers) {
  Add({0, 0, 10, 10});
  Add({-5, 2, 5, 20});
  Add({1, -7, 30, 3});
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(-5, -7, 30, 20));
}

TEST_F(GroupOfListeners, KeepsItsBoundsAroundMembersInside) {
  Add({0, 0, 10, 10});
  Add({2, 3, 4, 5});
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(0, 0, 10, 10));
}

TEST_F(GroupOfListeners, OrdersTheBoundsOfLaterMembersFirst) {
  Add({0, 0, 10, 10});
  Add({15, 25, -5, -6});
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(-5, -6, 15, 25));
}

TEST(CFileGroup, HasItsDefaultBoundsWhenItIsEmpty) {
  CFileGroup group;
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(0, 0, 100, 100));
}

TEST(CFileGroup, KeepsTheBoundsThatItHasWhenItIsEmpty) {
  CFileGroup group;
  group.rect = {1, 2, 3, 4};
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(1, 2, 3, 4));
}

TEST(CFileGroup, BoundsItsPoints) {
  CFileGroup group;
  for (const double at : {3.0, -1.0, 2.0}) {
    auto* point = new CFilePoint;
    point->x = at;
    point->y = 10 * at;
    AppendMember(group, point);
  }
  EXPECT_THAT(Sides(group.CalRect()), ElementsAre(-1, -10, 3, 30));
}

TEST(CFileGroup, FreesMembersOfEveryKind) {
  // The leak checker of the sanitizer build is what watches this test.
  auto* curve = new CFileCurve;
  AppendSegment(*curve);
  auto* dib = new CFileDib;
  dib->bitmap = std::malloc(100);
  dib->auxiliary = ::operator new(10);
  auto* inner = new CFileGroup;
  AppendMember(*inner, new CFilePoint);
  inner->name = "a name that is too long for the string object itself";
  std::vector<std::string> log;
  CFileGroup group;
  AppendMember(group, curve);
  AppendMember(group, dib);
  AppendMember(group, new CFilePoint);
  AppendMember(group, inner);
  AppendMember(group, new Listener(1, {}, log));
  EXPECT_EQ(group.memberCount, 5);
}

TEST(CFileGroup, FreesNestingOfAnyDepth) {
  Owned<CFileGroup> innermost(new CFileGroup);
  AppendMember(*innermost, new CFilePoint);
  for (int level = 0; level < 200000; ++level) {
    Owned<CFileGroup> outer(new CFileGroup);
    AppendMember(*outer, innermost.release());
    innermost = std::move(outer);
  }
  innermost.reset();
}
