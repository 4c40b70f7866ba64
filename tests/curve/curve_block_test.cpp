#include "curve/curve_block.h"

#include <gtest/gtest.h>
#include <string>

#include "curve/knots.h"

using namespace curve;

/// The sanitizer's allocator is to give null, as malloc does, where there is no memory.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

struct Refused {
  std::uint32_t controlPointCount;
  std::uint32_t dimension;
  std::uint32_t degree;
  KnotMode mode;
  std::int32_t code;
  std::string message;
};

class CreateCurveRefuses : public testing::TestWithParam<Refused> {};

TEST_P(CreateCurveRefuses, WithCodeAndMessageAndNoCurve) {
  const Refused& refused = GetParam();
  CurvePointer made;
  ASSERT_EQ(CreateCurve(2, 1, 1, KnotMode::kClamped, made, nullptr), kSuccess);
  Status status;
  EXPECT_EQ(
      CreateCurve(refused.controlPointCount, refused.dimension, refused.degree, refused.mode, made, &status),
      refused.code);
  EXPECT_EQ(status.code, refused.code);
  EXPECT_EQ(status.message, refused.message);
  EXPECT_EQ(made, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    EachCheck, CreateCurveRefuses,
    testing::Values(
        Refused{4, 0, 3, KnotMode::kClamped, -2, "unsupported dimension: 0"},
        // The order of the checks: dimension, knots, degree.
        Refused{49999, 0, 3, KnotMode::kClamped, -2, "unsupported dimension: 0"},
        Refused{49999, 2, 3, KnotMode::kClamped, -7, "unsupported number of knots: 50003 > 50000"},
        Refused{3, 2, 60000, KnotMode::kClamped, -7, "unsupported number of knots: 60004 > 50000"},
        Refused{4294967295u, 1, 0, KnotMode::kClamped, -7, "unsupported number of knots: 4294967296 > 50000"},
        Refused{4294967295u, 1, 4294967295u, KnotMode::kClamped, -7,
                "unsupported number of knots: 8589934591 > 50000"},
        Refused{3, 2, 3, KnotMode::kClamped, -3, "degree (3) >= num(control_points) (3)"},
        Refused{0, 1, 0, KnotMode::kClamped, -3, "degree (0) >= num(control_points) (0)"},
        Refused{5, 2, 3, KnotMode::kBezier, -7, "num(knots) (9) % order (4) != 0"},
        Refused{40000, 4294967295u, 3, KnotMode::kClamped, -1, "out of memory"}));

TEST(CreateCurve, TakesFiftyThousandKnots) {
  CurvePointer made;
  EXPECT_EQ(CreateCurve(49996, 1, 3, KnotMode::kClamped, made, nullptr), kSuccess);
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->knotCount, 50000u);
}

TEST(CreateCurve, NeedsNoStatus) {
  CurvePointer made;
  EXPECT_EQ(CreateCurve(3, 2, 3, KnotMode::kClamped, made, nullptr), -3);
}

TEST(CreateCurve, EmptiesTheMessageOfAnEarlierFailure) {
  CurvePointer made;
  Status status;
  CreateCurve(4, 0, 3, KnotMode::kClamped, made, &status);
  EXPECT_EQ(CreateCurve(4, 2, 3, KnotMode::kClamped, made, &status), kSuccess);
  EXPECT_STREQ(status.message, "");
}

TEST(CreateCurve, FillsTheHeadOfTheBlock) {
  CurvePointer made;
  ASSERT_EQ(CreateCurve(7, 3, 2, KnotMode::kOpened, made, nullptr), kSuccess);
  EXPECT_EQ(made->degree, 2u);
  EXPECT_EQ(made->Order(), 3u);
  EXPECT_EQ(made->dimension, 3u);
  EXPECT_EQ(made->controlPointCount, 7u);
  EXPECT_EQ(made->knotCount, 10u);
  EXPECT_EQ(made->BlockSize(), (7u * 3 + 10) * 8 + 16);
}

TEST(CreateCurve, LaysPointsAndKnotsBehindTheHead) {
  CurvePointer made;
  ASSERT_EQ(CreateCurve(7, 3, 2, KnotMode::kOpened, made, nullptr), kSuccess);
  const char* block = reinterpret_cast<const char*>(made.get());
  EXPECT_EQ(reinterpret_cast<const char*>(made->ControlPoints()), block + 16);
  EXPECT_EQ(reinterpret_cast<const char*>(made->ControlPoint(2)), block + 16 + 2 * 3 * 8);
  EXPECT_EQ(reinterpret_cast<const char*>(made->Knots()), block + 16 + 7 * 3 * 8);
}

TEST(CopyCurve, CopiesTheWholeBlock) {
  CurvePointer made;
  ASSERT_EQ(CreateCurve(2, 1, 1, KnotMode::kClamped, made, nullptr), kSuccess);
  made->ControlPoints()[0] = 5.0;
  made->ControlPoints()[1] = 6.0;
  CurvePointer copy;
  ASSERT_EQ(CopyCurve(*made, copy, nullptr), kSuccess);
  ASSERT_NE(copy.get(), made.get());
  EXPECT_EQ(copy->degree, 1u);
  EXPECT_EQ(copy->ControlPoints()[0], 5.0);
  EXPECT_EQ(copy->ControlPoints()[1], 6.0);
  EXPECT_EQ(copy->Knots()[3], 1.0);
}

}  // namespace
