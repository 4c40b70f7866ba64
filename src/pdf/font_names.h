#ifndef DRAWLOAD_PDF_FONT_NAMES_H
#define DRAWLOAD_PDF_FONT_NAMES_H

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "fonts/installed_fonts.h"

namespace pdf {

/// Which installed font a font name of a file stands for. Both are empty where there is none.
struct ResolvedFont {
  std::string family;
  std::string style;

  bool operator==(const ResolvedFont&) const = default;
};

/// Resolves the font names of one file. Each name, and each part of one, is looked up once.
class FontNames {
 public:
  /// A name without "+", in; the installed font that has its style, out.
  using Lookup = std::function<ResolvedFont(const std::string& name)>;

  /// Looks among the fonts of the system.
  FontNames();
  explicit FontNames(Lookup familyLookup) : lookup(std::move(familyLookup)) {}

  /// The families of the parts of `name`, which "+" separates, joined by "+"; parts without one are left out.
  /// The style is that of the last part that has a family.
  const ResolvedFont& Resolve(const std::string& name);

 private:
  ResolvedFont Search(std::string_view name);
  const ResolvedFont& FindPart(std::string_view part);
  void AddPart(std::string_view part, ResolvedFont& font);

  Lookup lookup;
  std::unordered_map<std::string, ResolvedFont> resolved;  ///< by name
  std::unordered_map<std::string, ResolvedFont> parts;     ///< by part of a name
};

}  // namespace pdf

#endif
