#ifndef DRAWLOAD_PDF_PATH_LINES_H
#define DRAWLOAD_PDF_PATH_LINES_H

#include <cstddef>

#include "entity/matrix2d.h"
#include "pdf/content_lines.h"
#include "pdf/page_path.h"

namespace pdf {

/// The image of a point under a transformation.
PdfPoint TransformPoint(const Matrix2D& matrix, double x, double y);

/// The image of a direction: the translation plays no part.
PdfPoint TransformVector(const Matrix2D& matrix, double x, double y);

/// Appends the rectangle that a `re` line with four operands names: a move, three lines, and a line back.
void AppendRectangle(const Matrix2D& matrix, const ContentLine& line, PdfPathData& path);

/// Appends the segments of one block of path lines to a path.
class PathLineParser {
 public:
  /// Both must outlive the parser.
  PathLineParser(const Matrix2D& transformation, PdfPathData& target)
      : matrix(transformation), path(target), blockStart(target.size()), lastMove(target.size()) {}

  /// Takes the next line. Lines without a path operator are skipped; at the first one with a wrong number of
  /// tokens the parsing stops, and all later lines are skipped too.
  void Take(const ContentLine& line);

 private:
  void Move(const ContentLine& line);
  void Curve(PdfPoint control1, PdfPoint control2, PdfPoint end);
  void Close();
  bool HasTokens(const ContentLine& line, std::size_t count);
  /// The point that the operands at `index` and behind it name.
  PdfPoint PointAt(const ContentLine& line, std::size_t index) const;

  const Matrix2D& matrix;
  PdfPathData& path;
  std::size_t blockStart;
  std::size_t lastMove;  ///< index in `path`; the block's first segment where it has no move
  PdfPoint current;      ///< transformed; `h` and `re` leave it where it is
  bool stopped = false;
};

}  // namespace pdf

#endif
