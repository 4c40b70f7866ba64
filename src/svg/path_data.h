#ifndef DRAWLOAD_SVG_PATH_DATA_H
#define DRAWLOAD_SVG_PATH_DATA_H

#include <cstdint>
#include <string_view>
#include <vector>

namespace Svg {

struct Point {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const Point&) const = default;
};

enum PathSegmentKind : std::int32_t { kMove = 1, kLine = 2, kQuadratic = 3, kCubic = 4 };

/// One step of a path, all coordinates absolute. `control1` is the control point of a quadratic curve.
struct PathSegment {
  std::int32_t kind;
  Point end;
  Point control1 = {};
  Point control2 = {};

  bool operator==(const PathSegment&) const = default;
};

/// What a "d" attribute draws: moves, lines and curves; arcs have become cubic curves.
class Path {
 public:
  Path() = default;
  Path(const Path&) = default;
  Path& operator=(const Path&) = default;
  virtual ~Path();

  void AddMove(double x, double y);
  void AddLine(double x, double y);
  void AddQuadratic(Point control, Point end);
  void AddCubic(Point end, Point control1, Point control2);
  /// Appends a line to the point of the last move, or of the first segment where there is no move. Nothing on
  /// an empty path.
  void ClosePath();
  /// Appends the elliptic arc from `start` to `end` as cubic curves of at most a quarter turn. Nothing where
  /// the arc is undefined: a radius of zero, or both points the same.
  void AddArc(double rx, double ry, double rotationDegrees, bool largeArc, bool sweep, Point end,
              Point start);

  /// Forgets the segments and keeps their memory for the next path.
  void Clear();

  std::vector<PathSegment> segments;

 private:
  Point closingPoint;  ///< of the last move, else of the first segment
};

/// Appends to `path` what `text` says, up to the first thing that cannot be used. `numbers` is room for the
/// numbers of one command.
void Parse(std::string_view text, Path& path, std::vector<double>& numbers);
void Parse(std::string_view text, Path& path);

}  // namespace Svg

#endif
