// The page of a document, from its `svg` element.

#include <cmath>

#include "support/text_to_number.h"
#include "svg/length.h"
#include "svg/svg_rw.h"
#include "svg/text_pieces.h"
#include "svg/transform_list.h"

using support::AtoF;

namespace {

constexpr double kNegligible = 0.0001;

Matrix2D Scaling(double factor) { return {factor, 0.0, 0.0, factor, 0.0, 0.0}; }

}  // namespace

/// Kept: a nested `svg` does this once more, so that its scale comes on top of that of the outer one.
void SVG_RW::SetupPage(const Svg::SVG_Element& record) {
  groupAttributes->Load(record);
  Concat(documentMatrix, Scaling(Svg::kMillimetresPerUnit));
  hasDocumentMatrix = true;
  documentMatrixAbsorbed = false;
  const Svg::AttributeEntry* const viewBox = LastOf(record.OwnAttributes(), Svg::kViewBox);
  if (viewBox == nullptr || viewBox->Value().empty()) {
    SetupPageFromSize();
  } else {
    SetupPageFromViewBox(viewBox->Value());
  }
}

void SVG_RW::SetupPageFromSize() {
  const std::string_view widthText = groupAttributes->Field(Svg::kWidth);
  const double unit = Svg::UnitFactor(widthText);
  page.x = Number(Svg::kX);
  page.y = Number(Svg::kY);
  page.width = AtoF(widthText) * unit;
  page.height = Number(Svg::kHeight) * unit;
}

/// Kept: the numbers gather over all `svg` elements of a document, so that a second view box changes nothing.
void SVG_RW::SetupPageFromViewBox(std::string_view viewBox) {
  const char separator = viewBox.find(' ') == std::string_view::npos ? ',' : ' ';
  Svg::ForEachPiece(viewBox, separator,
                    [this](std::string_view piece) { viewBoxNumbers.push_back(AtoF(piece)); });
  if (viewBoxNumbers.size() != 4) return;
  page = {viewBoxNumbers[0], viewBoxNumbers[1], viewBoxNumbers[2] * Svg::kMillimetresPerUnit,
          viewBoxNumbers[3] * Svg::kMillimetresPerUnit};
  const std::string_view widthText = groupAttributes->Field(Svg::kWidth);
  if (widthText.empty()) return;
  const double width = AtoF(widthText);
  const double height = Number(Svg::kHeight);
  if (!(std::fabs(width) >= kNegligible)) return;
  const double unit = Svg::UnitFactor(widthText);
  const double ratio = (width * unit) / page.width;
  if (!(std::fabs(ratio - 1.0) >= kNegligible)) return;
  page.width = width * unit;
  page.height = height * unit;
  Concat(documentMatrix, Scaling(ratio));
}
