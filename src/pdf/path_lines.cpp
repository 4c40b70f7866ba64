#include "pdf/path_lines.h"

#include "support/text_to_number.h"

namespace pdf {

PdfPoint TransformPoint(const Matrix2D& matrix, double x, double y) {
  return {matrix.a * x + matrix.c * y + matrix.e, matrix.b * x + matrix.d * y + matrix.f};
}

PdfPoint TransformVector(const Matrix2D& matrix, double x, double y) {
  return {matrix.a * x + matrix.c * y, matrix.b * x + matrix.d * y};
}

void AppendRectangle(const Matrix2D& matrix, const ContentLine& line, PdfPathData& path) {
  const double x = support::AtoF(line.At(0));
  const double y = support::AtoF(line.At(1));
  const double width = support::AtoF(line.At(2));
  const double height = support::AtoF(line.At(3));
  const PdfPoint start = TransformPoint(matrix, x, y);
  path.push_back({kPdfMove, start});
  path.push_back({kPdfLine, TransformPoint(matrix, x + width, y)});
  path.push_back({kPdfLine, TransformPoint(matrix, x + width, y + height)});
  path.push_back({kPdfLine, TransformPoint(matrix, x, y + height)});
  path.push_back({kPdfLine, start});
}

void PathLineParser::Take(const ContentLine& line) {
  if (stopped) return;
  switch (line.code) {
    case OperatorCode("m"):
      if (HasTokens(line, 3)) Move(line);
      break;
    case OperatorCode("l"):
      if (!HasTokens(line, 3)) break;
      current = PointAt(line, 0);
      path.push_back({kPdfLine, current});
      break;
    case OperatorCode("v"):
      if (HasTokens(line, 5)) Curve(current, PointAt(line, 0), PointAt(line, 2));
      break;
    case OperatorCode("y"):
      if (HasTokens(line, 5)) Curve(PointAt(line, 0), PointAt(line, 2), PointAt(line, 2));
      break;
    case OperatorCode("c"):
      if (HasTokens(line, 7)) Curve(PointAt(line, 0), PointAt(line, 2), PointAt(line, 4));
      break;
    case OperatorCode("h"): Close(); break;
    case OperatorCode("re"):
      if (!HasTokens(line, 5)) break;
      lastMove = path.size();
      AppendRectangle(matrix, line, path);
      break;
    default: break;
  }
}

void PathLineParser::Move(const ContentLine& line) {
  current = PointAt(line, 0);
  lastMove = path.size();
  path.push_back({kPdfMove, current});
}

void PathLineParser::Curve(PdfPoint control1, PdfPoint control2, PdfPoint end) {
  path.push_back({kPdfCurve, end, control1, control2});
  current = end;
}

void PathLineParser::Close() {
  if (path.size() == blockStart) return;
  const PdfPoint start = path[lastMove].end;
  path.push_back({kPdfLine, start});
}

bool PathLineParser::HasTokens(const ContentLine& line, std::size_t count) {
  if (line.count != count) stopped = true;
  return !stopped;
}

PdfPoint PathLineParser::PointAt(const ContentLine& line, std::size_t index) const {
  return TransformPoint(matrix, support::AtoF(line.tokens[index]), support::AtoF(line.tokens[index + 1]));
}

}  // namespace pdf
