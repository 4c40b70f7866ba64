#ifndef DRAWLOAD_FONTS_OUTLINE_H
#define DRAWLOAD_FONTS_OUTLINE_H

#include <vector>

namespace fonts {

/// In pixels of the font engine, y up.
struct OutlinePoint {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const OutlinePoint&) const = default;
};

/// One step of a glyph's outline. A conic curve has one control point, a cubic one has two.
struct OutlineStep {
  enum Kind { kMove, kLine, kConic, kCubic };

  Kind kind;
  OutlinePoint end;
  OutlinePoint control1 = {};
  OutlinePoint control2 = {};

  bool operator==(const OutlineStep&) const = default;
};

using Outline = std::vector<OutlineStep>;

}  // namespace fonts

#endif
