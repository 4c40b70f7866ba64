#ifndef DRAWLOAD_SVG_LENGTH_H
#define DRAWLOAD_SVG_LENGTH_H

#include <string_view>

namespace Svg {

/// Millimetres in one user unit: 72 user units to the inch.
constexpr double kMillimetresPerUnit = 0.35277777777777775;

/// The run of letters and "%" at the end of `text`.
std::string_view SplitUnit(std::string_view text);

/// Millimetres in one of the units in which `text` is written. Unknown units and none count as user units.
double UnitFactor(std::string_view text);

/// The length that `text` states: the bare number where it has no unit, that share of `pageExtent` for "%",
/// else millimetres. Empty text is 0.
double ResolveLength(std::string_view text, double pageExtent);

}  // namespace Svg

#endif
