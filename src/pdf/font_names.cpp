#include "pdf/font_names.h"

#include <utility>

#include "support/limits.h"

namespace pdf {

namespace {

/// Fontconfig is only asked, and started, for names that say a style.
FontNames::Lookup InstalledLookup() {
  auto fonts = std::make_shared<std::unique_ptr<fonts::InstalledFonts>>();
  return [fonts](const std::string& name) -> ResolvedFont {
    if (name.find('-') == std::string::npos) return {};
    if (*fonts == nullptr) *fonts = std::make_unique<fonts::InstalledFonts>();
    const fonts::StyledFont found = (*fonts)->FindStyled(name);
    return {found.family, found.style};
  };
}

}  // namespace

FontNames::FontNames() : lookup(InstalledLookup()) {}

const ResolvedFont& FontNames::Resolve(const std::string& name) {
  const auto known = resolved.find(name);
  if (known != resolved.end()) return known->second;
  return resolved.emplace(name, Search(name)).first->second;
}

ResolvedFont FontNames::Search(std::string_view name) {
  ResolvedFont font;
  for (std::size_t plus = name.find('+'); plus != name.npos; plus = name.find('+')) {
    AddPart(name.substr(0, plus), font);
    name.remove_prefix(plus + 1);
  }
  AddPart(name, font);
  return font;
}

/// Subsets of one font have names that share all but the first part.
const ResolvedFont& FontNames::FindPart(std::string_view part) {
  std::string name(part);
  const auto known = parts.find(name);
  if (known != parts.end()) return known->second;
  ResolvedFont found = lookup(name);
  return parts.emplace(std::move(name), std::move(found)).first->second;
}

void FontNames::AddPart(std::string_view part, ResolvedFont& font) {
  if (part.size() > support::limits::kFontNameBytes) return;
  const ResolvedFont& found = FindPart(part);
  if (found.family.empty()) return;
  if (!font.family.empty()) font.family += '+';
  font.family += found.family;
  font.style = found.style;
}

}  // namespace pdf
