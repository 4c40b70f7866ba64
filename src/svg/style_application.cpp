// What all entities take from the style of their element: colours, line style, placement, parameters.

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "support/account.h"
#include "support/text_to_number.h"
#include "svg/color_value.h"
#include "svg/svg_rw.h"
#include "svg/text_pieces.h"
#include "svg/transform_list.h"

using Entity_ZR::ZR_Entity;
using support::AtoF;
using Svg::AttributeEntry;
using Svg::SVG_Element;

namespace {

constexpr std::uint32_t kNoColor = 0xFFFFFFFF;

constexpr std::string_view kDefaultDashArray = "none";
const Entity_ZR::SharedNumbers kDefaultDashes = std::vector<double>{0.0};

Entity_ZR::SharedNumbers DashesOf(std::string_view dashArray) {
  if (dashArray == kDefaultDashArray) return kDefaultDashes;
  std::vector<double> dashes;
  Svg::ForEachPiece(dashArray, ',', [&dashes](std::string_view piece) { dashes.push_back(AtoF(piece)); });
  return dashes;
}

/// Work of parsing a byte of a path, of a list of points or of a transform.
constexpr std::size_t kParseWork = 8;

/// The keys that are read here and travel no further.
constexpr std::array kAppliedKeys = {Svg::kDisplay,       Svg::kStroke,         Svg::kStrokeOpacity,
                                     Svg::kFill,          Svg::kFillOpacity,    Svg::kStrokeDashArray,
                                     Svg::kStrokeLineCap, Svg::kStrokeLineJoin, Svg::kStrokeMiterLimit,
                                     Svg::kStrokeWidth};

bool IsApplied(Svg::AttributeKey key) {
  return std::find(kAppliedKeys.begin(), kAppliedKeys.end(), key) != kAppliedKeys.end();
}

/// `fill` names no colour by itself: neither a text nor "none".
bool IsUnpainted(std::string_view text) { return text.empty() || text == "none"; }

/// Sets `member` to the code of `text` where it has one.
template <std::size_t Count>
void SetCode(std::int32_t& member, std::string_view text,
             const std::pair<std::string_view, std::int32_t> (&codes)[Count]) {
  for (const auto& [name, code] : codes) {
    if (name == text) member = code;
  }
}

constexpr std::pair<std::string_view, std::int32_t> kLineCaps[] = {{"butt", 0}, {"square", 1}, {"round", 2}};
constexpr std::pair<std::string_view, std::int32_t> kLineJoins[] = {{"miter", 0}, {"bevel", 1}, {"round", 2}};

/// The id in `url(#id)`, white space aside: all from the sixth character on, without a ")" at the end.
std::string IdOfUrl(std::string_view text) {
  std::string id;
  std::copy_if(text.begin(), text.end(), std::back_inserter(id), [](char c) { return !support::IsSpace(c); });
  id.erase(0, 5);
  if (id.ends_with(')')) id.pop_back();
  return id;
}

}  // namespace

double SVG_RW::Number(Svg::KnownKey key) const { return AtoF(groupAttributes->Field(key)); }

std::string_view SVG_RW::LongField(Svg::KnownKey key) const {
  const std::string_view text = groupAttributes->Field(key);
  support::SpendWork(kParseWork * text.size());
  return text;
}

/// Kept: here, and only here, a class is looked up as one whole text, and among the rules of all sheets,
/// those behind the element included.
void SVG_RW::ApplyClassRule(std::string_view className, std::string_view& stroke,
                            std::string_view& fill) const {
  const Svg::StyleProperties* const rule = className.empty() ? nullptr : document->ClassProperties(className);
  if (rule == nullptr) return;
  if (const auto found = rule->find(Svg::kStroke); found != rule->end()) stroke = found->second.Value();
  if (const auto found = rule->find(Svg::kFill); found != rule->end()) fill = found->second.Value();
}

void SVG_RW::ApplyStyle(const SVG_Element& record, ZR_Entity& entity) {
  std::string_view stroke = groupAttributes->Field(Svg::kStroke);
  std::string_view fill = groupAttributes->Field(Svg::kFill);
  ApplyClassRule(groupAttributes->Field(Svg::kClass), stroke, fill);
  if (groupAttributes->Field(Svg::kDisplay) == "none") entity.visible = 0;
  if (IsUnpainted(stroke)) {
    if (IsUnpainted(fill)) {
      entity.visible = 0;
    } else {
      stroke = fill;
    }
  }
  ApplyLineStyle(entity);
  for (const Svg::KnownKey key : kAppliedKeys) groupAttributes->Erase(key);
  const Svg::ColorValue color = Svg::ParseColor(stroke, groupAttributes->Field(Svg::kStrokeOpacity));
  entity.color = color.valid ? color.Packed() : kNoColor;
  if (fill.starts_with("url")) {
    ApplyGradient(fill, entity);
  } else {
    entity.fillColor = Svg::ParseColor(fill, groupAttributes->Field(Svg::kFillOpacity)).Packed();
  }
  const std::string_view transform = LongField(Svg::kTransform);
  entity.lineType = transform;
  entity.matrix = Svg::ParseTransform(transform);
  groupAttributes->Erase(Svg::kTransform);
  PlaceInDocument(entity.matrix);
  AttachStyle(record, entity);
  groupAttributes->Erase(Svg::kStyle);
}

/// Kept: the default "none" reads as one dash of length 0, and the width has neither unit nor scale.
void SVG_RW::ApplyLineStyle(ZR_Entity& entity) {
  entity.dashes = DashesOf(groupAttributes->Field(Svg::kStrokeDashArray));
  SetCode(entity.lineCap, groupAttributes->Field(Svg::kStrokeLineCap), kLineCaps);
  SetCode(entity.lineJoin, groupAttributes->Field(Svg::kStrokeLineJoin), kLineJoins);
  entity.miterLimit = Number(Svg::kStrokeMiterLimit);
  entity.lineWidth = Number(Svg::kStrokeWidth);
}

void SVG_RW::PlaceInDocument(Matrix2D& matrix) const {
  if (hasDocumentMatrix && !documentMatrixAbsorbed) Concat(matrix, documentMatrix);
}

/// A gradient is not drawn, and no sink reads what it consists of. That there is one still counts as an
/// attribute of the entity.
void SVG_RW::ApplyGradient(std::string_view fillText, ZR_Entity& entity) {
  entity.fillColor = kNoColor;
  if (!document->IsLinearGradient(IdOfUrl(fillText))) return;
  entity.fillColor = ZR_Entity().fillColor;
  entity.attributes.push_back({Entity_ZR::kGradientAttribute, {}});
}

/// Kept: what a "style" attribute says beyond the keys above is put aside, where no sink reads it, and so a
/// parameter written there does not arrive. That there is something counts as an attribute of the entity.
void SVG_RW::AttachStyle(const SVG_Element& record, ZR_Entity& entity) {
  bool hasMore = false;
  const auto putAside = [this, &hasMore](const AttributeEntry& entry) {
    if (IsApplied(entry.key)) return;
    hasMore = true;
    groupAttributes->Erase(entry.key);
  };
  if (record.inherited != nullptr) {
    std::for_each(record.inherited->styleProperties.begin(), record.inherited->styleProperties.end(),
                  putAside);
  }
  std::for_each(record.StyleProperties().begin(), record.StyleProperties().end(), putAside);
  if (hasMore) entity.attributes.push_back({Entity_ZR::kStyleAttribute, {}});
}

/// This is how machine parameters, and with them all that was not read, reach the sink.
void SVG_RW::AttachRemaining(ZR_Entity& entity) {
  Entity_ZR::AttributePairs pairs = groupAttributes->Remaining();
  if (!pairs.empty()) entity.attributes.push_back({Entity_ZR::kParameterAttribute, std::move(pairs)});
}
