#ifndef DRAWLOAD_PDF_CONTENT_INTERPRETER_H
#define DRAWLOAD_PDF_CONTENT_INTERPRETER_H

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "pdf/content_lines.h"
#include "pdf/page_records.h"
#include "pdf/path_lines.h"
#include "pdf/resources.h"

namespace pdf {

/// Turns the normalised text of a page into the page's entities.
///
/// The interpreter goes line by line: the last token of a line is its operator, the tokens before it are the
/// operands. A line passes through a fixed cascade of tests, and may match several of them: that order is
/// what a file's drawing depends on. An operand that a line lacks ends the whole read with
/// `std::out_of_range`; one that is no number is 0.
class ContentInterpreter {
 public:
  /// Appends to `target`. All must outlive the interpreter. `formDepth` counts the forms around this text.
  ContentInterpreter(const PageResources& pageResources, PDF_Page& target, int formDepth = 0);

  /// Runs a whole text. What a form makes before the account of the read refuses it stays.
  void Run(std::string_view text);

 private:
  void RunLine(ContentLine& line, ContentLines& lines);
  void RunTextLine(const ContentLine& line);
  void RunStackOperator(const ContentLine& line);
  void RunStateLine(ContentLine& line);
  void RunPathLine(ContentLine& line, ContentLines& lines);

  void ResetText();
  void SetTextMatrix(const ContentLine& line);
  void SetFont(const ContentLine& line);
  void MoveText(const ContentLine& line, bool scaled);
  void Show(const ContentLine& line, bool array);

  void Draw(const ContentLine& line);
  void DrawImage(const std::shared_ptr<const PdfImage>& image);
  void PlaceImage();

  void SetTransformation(const ContentLine& line);
  void Save();
  void Restore();

  void SetColorSpace(const ContentLine& line);
  void SetSpaceColor(ContentLine& line);
  void SetRgb(const ContentLine& line, bool stroke);
  void SetCmyk(const ContentLine& line, bool stroke);
  std::int32_t GrayOf(double value) const;

  void TakeClip();
  void PaintShading(const ContentLine& line);
  void RunRectangle(const ContentLine& line, const ContentLines& lines);
  /// Takes the lines of a path up to the one that paints or clips, which is `line` afterwards. False where
  /// the text ends before.
  bool RunPathBlock(ContentLine& line, ContentLines& lines);
  void Paint(const ContentLine& line);
  void ClearPath();
  /// Appends a path in the paint of the state.
  void AppendPath(std::span<const PdfPathSegment> segments, PdfPaintMode mode);

  const PageResources& resources;
  PDF_Page& page;
  int depth;

  std::shared_ptr<const PdfFont> defaultFont;
  PdfGraphicsState state;
  std::vector<PdfGraphicsState> saved;
  std::shared_ptr<PdfPathData> currentPath;  ///< grows until it is cleared; clips share its start
  PDF_PageText workingText;
  PDF_PageImage workingImage;
  Matrix2D textMatrix;
  double baseFontSize = 0.0;
  PdfColorSpaceEntry colorSpace;
};

}  // namespace pdf

#endif
