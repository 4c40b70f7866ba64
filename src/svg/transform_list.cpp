#include "svg/transform_list.h"

#include <cmath>
#include <vector>

#include "svg/number_scanner.h"

namespace Svg {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

enum class Operation { None, Matrix, Translate, Rotate, Scale, SkewX, SkewY };

Operation TakeKeyword(TextCursor& cursor) {
  if (cursor.Take("matrix")) return Operation::Matrix;
  if (cursor.Take("translate")) return Operation::Translate;
  if (cursor.Take("rotate")) return Operation::Rotate;
  if (cursor.Take("scale")) return Operation::Scale;
  if (cursor.Take("skewX")) return Operation::SkewX;
  if (cursor.Take("skewY")) return Operation::SkewY;
  return Operation::None;
}

void Translate(Matrix2D& m, double tx, double ty) {
  m.e += m.a * tx + m.c * ty;
  m.f += m.b * tx + m.d * ty;
}

void Scale(Matrix2D& m, double sx, double sy) {
  m.a *= sx;
  m.b *= sx;
  m.c *= sy;
  m.d *= sy;
}

struct SineAndCosine {
  double sine;
  double cosine;
};

/// Exact at the right angles, so that a rotated grid stays a grid.
SineAndCosine OfDegrees(double degrees) {
  if (degrees == 90.0 || degrees == -270.0) return {1.0, 0.0};
  if (degrees == 270.0 || degrees == -90.0) return {-1.0, 0.0};
  if (degrees == 180.0) return {0.0, -1.0};
  const double radians = degrees * kRadiansPerDegree;
  return {std::sin(radians), std::cos(radians)};
}

void Rotate(Matrix2D& m, double degrees) {
  const auto [s, c] = OfDegrees(degrees);
  const Matrix2D old = m;
  m.a = old.a * c + old.c * s;
  m.b = old.b * c + old.d * s;
  m.c = old.c * c - old.a * s;
  m.d = old.d * c - old.b * s;
}

void SkewX(Matrix2D& m, double degrees) {
  const double t = std::tan(degrees * kRadiansPerDegree);
  m.c += m.a * t;
  m.d += m.b * t;
}

void SkewY(Matrix2D& m, double degrees) {
  const double t = std::tan(degrees * kRadiansPerDegree);
  m.a += m.c * t;
  m.b += m.d * t;
}

bool CountFits(Operation operation, std::size_t count) {
  switch (operation) {
    case Operation::Matrix: return count == 6;
    case Operation::Translate:
    case Operation::Scale: return count == 1 || count == 2;
    case Operation::Rotate: return count == 1 || count == 3;
    default: return count == 1;
  }
}

/// Changes `m` so that the operation acts on points first. False if the numbers do not fit the operation.
bool Apply(Matrix2D& m, Operation operation, const std::vector<double>& n) {
  if (!CountFits(operation, n.size())) return false;
  switch (operation) {
    case Operation::Matrix: m = Concatenated({n[0], n[1], n[2], n[3], n[4], n[5]}, m); break;
    case Operation::Translate: Translate(m, n[0], n.size() == 2 ? n[1] : 0.0); break;
    case Operation::Scale: Scale(m, n[0], n.size() == 2 ? n[1] : n[0]); break;
    case Operation::SkewX: SkewX(m, n[0]); break;
    case Operation::SkewY: SkewY(m, n[0]); break;
    default:
      if (n.size() == 3) Translate(m, n[1], n[2]);
      Rotate(m, n[0]);
      if (n.size() == 3) Translate(m, -n[1], -n[2]);
  }
  return true;
}

void SkipSpaceAndCommas(TextCursor& cursor) {
  while (!cursor.AtEnd() && (support::IsSpace(*cursor.next) || *cursor.next == ',')) ++cursor.next;
}

}  // namespace

Matrix2D ParseTransform(std::string_view text) {
  Matrix2D matrix;
  TextCursor cursor(text);
  std::vector<double> numbers;
  for (SkipSpaceAndCommas(cursor); !cursor.AtEnd(); SkipSpaceAndCommas(cursor)) {
    const Operation operation = TakeKeyword(cursor);
    if (operation == Operation::None) break;
    cursor.SkipSpace();
    if (!cursor.Take('(')) break;
    numbers.clear();
    ScanNumberList(cursor, numbers);
    if (!cursor.Take(')') || !Apply(matrix, operation, numbers)) break;
  }
  return matrix;
}

}  // namespace Svg
