#ifndef DRAWLOAD_SVG_ATTRIBUTE_KEYS_H
#define DRAWLOAD_SVG_ATTRIBUTE_KEYS_H

#include <array>
#include <cstdint>
#include <string_view>

namespace Svg {

/// The number of an attribute's name. The names that the reader looks at have fixed numbers; all others get
/// theirs as they are met in a document.
using AttributeKey = std::uint32_t;

enum KnownKey : AttributeKey {
  kDisplay,
  kTransform,
  kRotate,
  kFill,
  kFillOpacity,
  kStroke,
  kStrokeDashArray,
  kStrokeLineCap,
  kStrokeLineJoin,
  kStrokeMiterLimit,
  kStrokeOpacity,
  kStrokeWidth,
  kStopColor,
  kFontFamily,
  kFontSize,
  kFontStyle,
  kFontWeight,
  kTextRendering,
  kClass,
  kCx,
  kCy,
  kD,
  kDx,
  kDy,
  kHeight,
  kWidth,
  kHref,
  kXlinkHref,
  kId,
  kOffset,
  kPoints,
  kR,
  kRx,
  kRy,
  kX,
  kY,
  kX1,
  kY1,
  kX2,
  kY2,
  kStyle,
  kViewBox,
  kTextAnchor,
  kXlinkUnderscoreHref,
  kDiameter,
  kMachineType,
  kAutoFocus,
  kMachineModel,
  kFrequency,
  kKnownKeyCount,
};

/// A name that the reader looks at, and what counts where an element does not have it.
struct KnownAttribute {
  std::string_view name;
  std::string_view defaultValue;
};

/// In the order of `KnownKey`. Names compare exactly, with case.
constexpr std::array<KnownAttribute, kKnownKeyCount> kKnownAttributes = {{
    {"display", "inline"},
    {"transform", ""},
    {"rotate", ""},
    {"fill", "black"},
    {"fill-opacity", "1"},
    {"stroke", "none"},
    {"stroke-dasharray", "none"},
    {"stroke-linecap", "butt"},
    {"stroke-linejoin", "miter"},
    {"stroke-miterlimit", "4"},
    {"stroke-opacity", "1"},
    {"stroke-width", "1"},
    {"stop-color", "black"},
    {"font-family", ""},
    {"font-size", ""},
    {"font-style", ""},
    {"font-weight", ""},
    {"text-rendering", ""},
    {"class", ""},
    {"cx", "0"},
    {"cy", "0"},
    {"d", ""},
    {"dx", ""},
    {"dy", ""},
    {"height", ""},
    {"width", ""},
    {"href", ""},
    {"xlink:href", ""},
    {"id", ""},
    {"offset", "0"},
    {"points", ""},
    {"r", ""},
    {"rx", ""},
    {"ry", ""},
    {"x", ""},
    {"y", ""},
    {"x1", "0%"},
    {"y1", "0%"},
    {"x2", "100%"},
    {"y2", "100%"},
    {"style", ""},
    {"viewBox", ""},
    {"text-anchor", ""},
    {"xlink_href", ""},
    {"diameter", ""},
    {"machineType", ""},
    {"AutoFocus", ""},
    {"machineModel", ""},
    {"frequency", ""},
}};

}  // namespace Svg

#endif
