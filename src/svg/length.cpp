#include "svg/length.h"

#include "support/text_to_number.h"

namespace Svg {

namespace {

bool IsUnitCharacter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '%'; }

struct Unit {
  std::string_view name;
  double millimetres;
};

/// Kept: points and picas are not among them and count as user units.
constexpr Unit kUnits[] = {{"in", 25.4}, {"em", 5.644444444444444}, {"mm", 1.0}, {"cm", 10.0}};

double FactorOfUnit(std::string_view unit) {
  for (const Unit& row : kUnits) {
    if (row.name == unit) return row.millimetres;
  }
  return kMillimetresPerUnit;
}

}  // namespace

std::string_view SplitUnit(std::string_view text) {
  std::size_t start = text.size();
  while (start > 0 && IsUnitCharacter(text[start - 1])) --start;
  return text.substr(start);
}

double UnitFactor(std::string_view text) { return FactorOfUnit(SplitUnit(text)); }

double ResolveLength(std::string_view text, double pageExtent) {
  const double value = support::AtoF(text);
  const std::string_view unit = SplitUnit(text);
  if (unit.empty()) return value;
  if (unit == "%") return value * 0.01 * pageExtent;
  return value * FactorOfUnit(unit);
}

}  // namespace Svg
