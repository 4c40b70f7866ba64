#ifndef DRAWLOAD_TOOLS_JOB_H
#define DRAWLOAD_TOOLS_JOB_H

#include <cstdint>
#include <limits>
#include <string>
#include <variant>
#include <vector>

/// A point of the drawing in millimetres, y up.
struct Point {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const Point&) const = default;
};

/// An axis-parallel box in millimetres; empty until something is included.
struct Box {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();

  void Include(const Box& other);
  double Width() const { return maxX - minX; }
  double Height() const { return maxY - minY; }
  bool IsEmpty() const { return minX > maxX; }
};

/// What the machine is told about one result: the fields of its processing block that a file can set.
struct Settings {
  std::int32_t cutMode = 1;
  double cutSpeed = 100.0;
  double cutPower = 30.0;
  double highFocus = 0.0;
  double frequency = 0.0;
  std::int32_t processType = 0;
  double engraveSpeed = 300.0;
  double engMinPower = 10.0;
  double engMaxPower = 30.0;
  double engStep = 0.08;  ///< millimetres
  std::int32_t imageType = 0;
  std::int32_t reverse = 0;
  std::int32_t machineType = 0;
  double diameter = 50.0;

  // NOLINTNEXTLINE(modernize-use-nullptr): the comparison with 0 is the compiler's
  auto operator<=>(const Settings&) const = default;
};

/// A straight segment, or a cubic Bezier where `cubic` is set.
struct Segment {
  bool cubic = false;
  Point start;
  Point end;
  Point control1;
  Point control2;

  bool operator==(const Segment&) const = default;
};

/// A chain of segments. `color` is 0xRRGGBB.
struct Curve {
  std::uint32_t color = 0;
  Settings settings;
  Box bounds;  ///< of the curve itself, not of its control points
  std::vector<Segment> segments;
};

/// A grey bitmap, rows packed without gap, with its placement x' = a·x + c·y + e, y' = b·x + d·y + f.
struct Bitmap {
  Settings settings;
  Box bounds;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  double a = 1.0;
  double b = 0.0;
  double c = 0.0;
  double d = 1.0;
  double e = 0.0;
  double f = 0.0;
  std::vector<std::uint8_t> grey;

  /// Where the pixel coordinate (x, y) lies on the page.
  Point Place(double x, double y) const { return {a * x + c * y + e, b * x + d * y + f}; }
};

using Result = std::variant<Curve, Bitmap>;

/// One drawing as the library read it, in the order in which the machine works it.
struct Job {
  std::string path;
  std::vector<Result> results;
  std::size_t dropped = 0;  ///< results with coordinates that are not finite: left out of `results`
};

enum class LibraryNotes { kHidden, kToStandardError };

/// Loads the drawing at `path`. The notes that the library prints while it reads never reach the program's
/// own output. A job without results is one from which nothing could be read.
Job LoadJob(const std::string& path, LibraryNotes notes);

#endif
