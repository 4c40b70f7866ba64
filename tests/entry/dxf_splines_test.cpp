// Splines of DXF files, through the C functions.
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "drawload/exports.h"

namespace {

struct Shape {
  std::vector<FileSegment> segments;
};

std::string Tag(int code, const std::string& value) { return std::to_string(code) + "\n" + value + "\n"; }

std::string Tags(int code, const std::vector<std::string>& values) {
  std::string text;
  for (const std::string& value : values) text += Tag(code, value);
  return text;
}

/// The curves that the walk hands out of a drawing with these entities.
std::vector<Shape> ShapesOf(const std::string& entities) {
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("drawload_splines_" + std::to_string(getpid()) + ".dxf");
  std::ofstream(path) << Tag(0, "SECTION") + Tag(2, "ENTITIES") + entities + Tag(0, "ENDSEC") + Tag(0, "EOF");
  std::vector<Shape> shapes;
  if (DrawLoad_Z7(path.c_str()) == 1) {
    CFileDraw* object = nullptr;
    for (int more = GetFirstData_Z7(&object); more == 1; more = GetNextData_Z7(&object)) {
      EXPECT_EQ(object->kind, kFileCurve);
      const auto* curve = static_cast<const CFileCurve*>(object);
      Shape& shape = shapes.emplace_back();
      for (const FileSegment* s = curve->segmentHead->next; s != curve->segmentHead; s = s->next) {
        shape.segments.push_back(*s);
      }
    }
  }
  std::filesystem::remove(path);
  return shapes;
}

void ExpectAt(const FilePosition& position, double x, double y) {
  EXPECT_NEAR(position.x, x, 1e-9);
  EXPECT_NEAR(position.y, y, 1e-9);
}

const std::string kCubicPoints = Tag(10, "0") + Tag(20, "0") + Tag(10, "0") + Tag(20, "8") + Tag(10, "8") +
                                 Tag(20, "8") + Tag(10, "16") + Tag(20, "8") + Tag(10, "16") + Tag(20, "0");
const std::vector<std::string> kCubicKnots = {"0", "0", "0", "0", "0.5", "1", "1", "1", "1"};
const std::string kCubic = Tag(0, "SPLINE") + Tag(8, "0") + Tag(70, "8") + Tag(71, "3") + Tag(72, "9") +
                           Tag(73, "5") + Tags(40, kCubicKnots) + kCubicPoints;

void ExpectTheTwoPieces(const std::vector<Shape>& shapes) {
  ASSERT_EQ(shapes.size(), 2u);
  ASSERT_EQ(shapes[0].segments.size(), 1u);
  ASSERT_EQ(shapes[1].segments.size(), 1u);
  const FileSegment& first = shapes[0].segments[0];
  EXPECT_EQ(first.type, 3);
  ExpectAt(first.start, 0, 0);
  ExpectAt(first.control1, 0, 8);
  ExpectAt(first.control2, 4, 8);
  ExpectAt(first.end, 8, 8);
  const FileSegment& second = shapes[1].segments[0];
  EXPECT_EQ(second.type, 3);
  ExpectAt(second.start, 8, 8);
  ExpectAt(second.control1, 12, 8);
  ExpectAt(second.control2, 16, 8);
  ExpectAt(second.end, 16, 0);
}

TEST(DxfSpline, ReachesTheCallerAsBezierPieces) { ExpectTheTwoPieces(ShapesOf(kCubic)); }

TEST(DxfSpline, LosesOnlyABadSpline) {
  std::string decreasing = kCubic;
  decreasing.replace(decreasing.find("0.5"), 3, "-.5");
  ExpectTheTwoPieces(ShapesOf(decreasing + kCubic));
}

TEST(DxfSpline, ReachesTheCallerAsLinesWhereItHasWeights) {
  const std::vector<Shape> shapes =
      ShapesOf(Tag(0, "SPLINE") + Tag(8, "0") + Tag(70, "4") + Tag(71, "2") + Tag(72, "6") + Tag(73, "3") +
               Tags(40, {"0", "0", "0", "1", "1", "1"}) + Tags(41, {"1", "0.70710678118654752", "1"}) +
               Tag(10, "50") + Tag(20, "0") + Tag(10, "50") + Tag(20, "50") + Tag(10, "0") + Tag(20, "50"));
  ASSERT_EQ(shapes.size(), 1u);
  ASSERT_GT(shapes[0].segments.size(), 2u);
  ExpectAt(shapes[0].segments.front().start, 50, 0);
  ExpectAt(shapes[0].segments.back().end, 0, 50);
  for (const FileSegment& segment : shapes[0].segments) {
    EXPECT_EQ(segment.type, 0);
    EXPECT_NEAR(std::hypot(segment.end.x, segment.end.y), 50.0, 1e-9);
  }
}

TEST(DxfSpline, ReachesTheCallerAsAnEdgeOfAHatch) {
  ExpectTheTwoPieces(ShapesOf(Tag(0, "HATCH") + Tag(8, "0") + Tag(10, "0") + Tag(20, "0") + Tag(2, "SOLID") +
                              Tag(70, "1") + Tag(91, "1") + Tag(92, "1") + Tag(93, "1") + Tag(72, "4") +
                              Tag(94, "3") + Tag(73, "0") + Tag(74, "0") + Tag(95, "9") + Tag(96, "5") +
                              Tags(40, kCubicKnots) + kCubicPoints + Tag(97, "0") + Tag(98, "0") +
                              Tag(75, "0") + Tag(76, "1")));
}

}  // namespace
