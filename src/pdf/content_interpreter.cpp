#include "pdf/content_interpreter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "pdf/show_string.h"
#include "support/account.h"
#include "support/float_to_integer.h"
#include "support/limits.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoF;
using support::AtoI;

constexpr double kDegreesPerPi = 180.0;
constexpr double kPi = 3.141592653589793;

/// Work of running a text: for each byte, and besides, so that empty forms are not free.
constexpr std::uint64_t kWorkPerByte = 4;
constexpr std::uint64_t kRunWork = 512;

/// Whether "T" and `second` stand next to each other anywhere in `text`.
bool Holds(std::string_view text, char second) {
  for (std::size_t at = text.find('T'); at != text.npos; at = text.find('T', at + 1)) {
    if (at + 1 < text.size() && text[at + 1] == second) return true;
  }
  return false;
}

/// A component of a color, 0 to 1, as 0 to 255.
std::int32_t ColorValue(double fraction) { return support::TruncateToI32(fraction * 255.0); }

/// The paint mode of a line that ends a path, by its first, eighth and last token; nothing for other lines.
/// `n` ends a path as well, but its caller paints nothing.
std::optional<PdfPaintMode> PaintModeOf(const ContentLine& line) {
  if (line.StartsWith('S') || line.StartsWith('s')) return kStroke;
  if (line.count > 7 && line.tokens[7] == "S") return kStroke;
  switch (line.code) {
    case OperatorCode("n"): return kStroke;
    case OperatorCode("f*"):
    case OperatorCode("b*"):
    case OperatorCode("B*"): return kEvenOddFill;
    case OperatorCode("f"):
    case OperatorCode("F"):
    case OperatorCode("b"):
    case OperatorCode("B"): return kNonZeroFill;
    default: return std::nullopt;
  }
}

bool IsClip(const ContentLine& line) {
  return line.code == OperatorCode("W") || line.code == OperatorCode("W*");
}

}  // namespace

ContentInterpreter::ContentInterpreter(const PageResources& pageResources, PDF_Page& target, int formDepth)
    : resources(pageResources),
      page(target),
      depth(formDepth),
      defaultFont(std::make_shared<const PdfFont>()),
      currentPath(std::make_shared<PdfPathData>()) {
  workingText.font = defaultFont;
}

void ContentInterpreter::Run(std::string_view text) {
  support::SpendWork(kRunWork + kWorkPerByte * text.size());
  ContentLines lines(text);
  ContentLine line;
  while (lines.Next(line)) {
    if (!line.text.empty()) RunLine(line, lines);
  }
}

// The order of the tests is part of the format's handling: "q 1 0 0 1 0 0 cm" sets the matrix and then saves
// it, and a string that holds the letters TJ is shown twice.
void ContentInterpreter::RunLine(ContentLine& line, ContentLines& lines) {
  RunTextLine(line);
  if (line.code == OperatorCode("Do")) Draw(line);
  if (line.code == OperatorCode("cm")) SetTransformation(line);
  RunStackOperator(line);
  RunStateLine(line);
  RunPathLine(line, lines);
}

void ContentInterpreter::RunTextLine(const ContentLine& line) {
  switch (line.code) {
    case OperatorCode("ET"): ResetText(); break;
    case OperatorCode("Tm"): SetTextMatrix(line); break;
    case OperatorCode("Tf"): SetFont(line); break;
    case OperatorCode("Tz"): workingText.horizontalScale = AtoF(line.At(0)) / 100; break;
    case OperatorCode("Td"): MoveText(line, false); break;
    case OperatorCode("TD"): MoveText(line, true); break;
    default: break;
  }
  if (Holds(line.text, 'J')) Show(line, true);
  if (Holds(line.text, 'j')) Show(line, false);
}

void ContentInterpreter::RunStackOperator(const ContentLine& line) {
  if (line.StartsWith('q')) {
    Save();
  } else if (line.StartsWith('Q')) {
    Restore();
  }
}

// Kept: `g` and `G` are recognised and change nothing.
void ContentInterpreter::RunStateLine(ContentLine& line) {
  PdfPaint& paint = state.paint;
  if (line.code == OperatorCode("SCN") || line.code == OperatorCode("scn")) SetSpaceColor(line);
  switch (line.code) {
    case OperatorCode("CS"):
    case OperatorCode("cs"): SetColorSpace(line); break;
    case OperatorCode("RG"): SetRgb(line, true); break;
    case OperatorCode("rg"): SetRgb(line, false); break;
    case OperatorCode("K"): SetCmyk(line, true); break;
    case OperatorCode("k"): SetCmyk(line, false); break;
    case OperatorCode("w"):
      paint.lineWidth = std::abs(TransformVector(state.transformation, AtoF(line.At(0)), 0.0).x);
      break;
    case OperatorCode("J"): paint.lineCap = AtoI(line.At(0)); break;
    case OperatorCode("j"): paint.lineJoin = AtoI(line.At(0)); break;
    case OperatorCode("M"): paint.miterLimit = AtoF(line.At(0)); break;
    // Kept: every `gs` scales the width once more, whatever its dictionary says.
    case OperatorCode("gs"):
      paint.lineWidth = TransformVector(state.transformation, paint.lineWidth, 0.0).x;
      break;
    default: break;
  }
}

void ContentInterpreter::RunPathLine(ContentLine& line, ContentLines& lines) {
  switch (line.code) {
    case OperatorCode("re"): RunRectangle(line, lines); break;
    case OperatorCode("n"): ClearPath(); return;
    case OperatorCode("W*"):
    case OperatorCode("W"): TakeClip(); break;
    case OperatorCode("sh"): PaintShading(line); break;
    case OperatorCode("m"):
      if (!RunPathBlock(line, lines)) return;
      break;
    default: break;
  }
  Paint(line);
}

// Kept: the font, its size and the text matrix outlive the reset.
void ContentInterpreter::ResetText() {
  PDF_PageText fresh;
  fresh.font = std::move(workingText.font);
  workingText = std::move(fresh);
}

void ContentInterpreter::SetTextMatrix(const ContentLine& line) {
  textMatrix = {AtoF(line.At(0)), AtoF(line.At(1)), AtoF(line.At(2)),
                AtoF(line.At(3)), AtoF(line.At(4)), AtoF(line.At(5))};
  if (textMatrix.b != 0.0) workingText.rotation = std::asin(textMatrix.b) * kDegreesPerPi / kPi;
  workingText.position = TransformPoint(state.transformation, textMatrix.e, textMatrix.f);
}

void ContentInterpreter::SetFont(const ContentLine& line) {
  const auto found = resources.fonts.find(line.At(0));
  workingText.font = found == resources.fonts.end() ? defaultFont : found->second;
  double size = AtoF(line.At(1));
  const Matrix2D& matrix = state.transformation;
  if (matrix.b == 0.0 && matrix.c == 0.0) size *= matrix.a;
  baseFontSize = size;
  workingText.fontSize = size;
}

void ContentInterpreter::MoveText(const ContentLine& line, bool scaled) {
  const double x = AtoF(line.At(0));
  const double y = AtoF(line.At(1));
  const PdfPoint step =
      scaled ? PdfPoint{x * textMatrix.a, y * textMatrix.a} : TransformVector(textMatrix, x, y);
  workingText.position.x += step.x;
  workingText.position.y += step.y;
}

// Kept: showing a text does not move the position.
void ContentInterpreter::Show(const ContentLine& line, bool array) {
  if (textMatrix.a != 0.0) workingText.fontSize = textMatrix.a * baseFontSize;
  workingText.fill = state.paint.fill;
  const PdfFont& font = *workingText.font;
  std::optional<std::string> text =
      array ? DecodeShowArray(line.text, font) : DecodeShowString(line.text, font);
  if (!text) return;
  workingText.text = *std::move(text);
  page.entities.Add(workingText);
}

void ContentInterpreter::Draw(const ContentLine& line) {
  const PdfXObject* xobject = FindResource(resources.xobjects, line.At(0));
  if (xobject == nullptr) return;
  if (xobject->image != nullptr) DrawImage(xobject->image);
  // A form runs from a state of its own: nothing of this one's reaches it.
  if (xobject->form == nullptr || depth >= support::limits::kPdfFormDepth) return;
  support::RunItem([&] { ContentInterpreter(resources, page, depth + 1).Run(xobject->form->content); });
}

void ContentInterpreter::DrawImage(const std::shared_ptr<const PdfImage>& image) {
  workingImage.image = image;
  // Kept: under a turned or sheared matrix the placement of the image before stays.
  if (state.transformation.b == 0.0 && state.transformation.c == 0.0) PlaceImage();
  page.entities.Add(workingImage);
}

void ContentInterpreter::PlaceImage() {
  const Matrix2D& matrix = state.transformation;
  workingImage.scaleX = std::abs(matrix.a / workingImage.image->width);
  workingImage.scaleY = std::abs(matrix.d / workingImage.image->height);
  workingImage.rotation = 0.0;
  workingImage.x = matrix.e;
  workingImage.y = matrix.d + matrix.f;
  if (!(matrix.d < 0.0)) return;
  if (matrix.a < 0.0) {
    workingImage.rotation = 180.0;
  } else {
    workingImage.y = page.mediaBox[3] - workingImage.y;
  }
}

// Kept: a matrix replaces the one before, it is not multiplied with it.
void ContentInterpreter::SetTransformation(const ContentLine& line) {
  state.transformation = {AtoF(line.At(0)), AtoF(line.At(1)), AtoF(line.At(2)),
                          AtoF(line.At(3)), AtoF(line.At(4)), AtoF(line.At(5))};
}

void ContentInterpreter::Save() {
  saved.push_back(state);
  ResetText();
  workingImage = {};
}

void ContentInterpreter::Restore() {
  if (saved.empty()) return;
  state = std::move(saved.back());
  saved.pop_back();
}

void ContentInterpreter::SetColorSpace(const ContentLine& line) {
  const PdfColorSpaceEntry* found = FindResource(resources.colorSpaces, line.At(0));
  colorSpace = found == nullptr ? PdfColorSpaceEntry{} : *found;
}

void ContentInterpreter::SetSpaceColor(ContentLine& line) {
  const bool stroke = line.code == OperatorCode("SCN");
  const std::size_t operandCount = line.count - 1;
  if (operandCount == 1 || operandCount == 2) {
    const std::int32_t gray = GrayOf(AtoF(line.At(0)));
    (stroke ? state.paint.stroke : state.paint.fill) = {gray, gray, gray};
  } else if (operandCount == 3) {
    line.code = stroke ? OperatorCode("RG") : OperatorCode("rg");
  } else if (operandCount == 4) {
    line.code = stroke ? OperatorCode("K") : OperatorCode("k");
  }
}

// Kept: the operators for stroke colours set the fill colour as well.
void ContentInterpreter::SetRgb(const ContentLine& line, bool stroke) {
  const PdfColor color = {ColorValue(AtoF(line.At(0))), ColorValue(AtoF(line.At(1))),
                          ColorValue(AtoF(line.At(2)))};
  state.paint.fill = color;
  if (stroke) state.paint.stroke = color;
}

void ContentInterpreter::SetCmyk(const ContentLine& line, bool stroke) {
  const double black = AtoF(line.At(3));
  const auto value = [&](std::size_t index) {
    return ColorValue(1 - std::min(1.0, AtoF(line.At(index)) + black));
  };
  const PdfColor color = {value(0), value(1), value(2)};
  state.paint.fill = color;
  if (stroke) state.paint.stroke = color;
}

std::int32_t ContentInterpreter::GrayOf(double value) const {
  if (colorSpace.c0 == 0.0 && colorSpace.c1 == 1.0) return ColorValue(value);
  if (colorSpace.c0 == 1.0 && colorSpace.c1 == 0.0) return ColorValue(1 - value);
  return 0;
}

void ContentInterpreter::TakeClip() { state.clip = {currentPath, currentPath->size()}; }

void ContentInterpreter::PaintShading(const ContentLine& line) {
  std::span<const PdfPathSegment> outline;
  if (state.clip.path != nullptr) outline = std::span(*state.clip.path).first(state.clip.size);
  const PdfShading* shading = FindResource(resources.shadings, line.At(0));
  // No gradient reaches the sink, so the end points are only asked for: an axis without its four numbers, or
  // a radial one without its five, ends the read.
  if (shading != nullptr && shading->type == 2) static_cast<void>(shading->coords.at(3));
  if (shading != nullptr && shading->type == 3) static_cast<void>(shading->coords.at(4));
  AppendPath(outline, kStroke);
  state.clip = {};
}

// Kept: a rectangle that is a clip leaves no path, and so an empty clip.
void ContentInterpreter::RunRectangle(const ContentLine& line, const ContentLines& lines) {
  AppendRectangle(state.transformation, line, *currentPath);
  const std::string_view next = lines.Peek();
  if (next == "W" || next == "W*") ClearPath();
}

bool ContentInterpreter::RunPathBlock(ContentLine& line, ContentLines& lines) {
  PathLineParser parser(state.transformation, *currentPath);
  parser.Take(line);
  std::size_t lineStart = 0;
  do {
    lineStart = lines.Position();
    if (!lines.Next(line)) return false;
    parser.Take(line);
  } while (!PaintModeOf(line) && !IsClip(line));
  if (line.code == OperatorCode("n")) ClearPath();
  // The main loop takes the clip.
  if (IsClip(line)) lines.GoTo(lineStart);
  return true;
}

void ContentInterpreter::Paint(const ContentLine& line) {
  const std::optional<PdfPaintMode> mode = PaintModeOf(line);
  if (!mode) return;
  if (!saved.empty() && state.transformation != saved.back().transformation) {
    state.paint.lineWidth = std::abs(TransformVector(state.transformation, state.paint.lineWidth, 0.0).x);
  }
  if (line.code == OperatorCode("n")) {
    ClearPath();
    return;
  }
  AppendPath(*currentPath, *mode);
  ClearPath();
}

void ContentInterpreter::ClearPath() {
  if (currentPath.use_count() > 1) {
    currentPath = std::make_shared<PdfPathData>();
  } else {
    currentPath->clear();
  }
}

void ContentInterpreter::AppendPath(std::span<const PdfPathSegment> segments, PdfPaintMode mode) {
  page.entities.AddPath(segments, state.paint, mode);
}

}  // namespace pdf
