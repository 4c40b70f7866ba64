#include "fonts/font_lookup.h"

#include "support/limits.h"

namespace fonts {

const std::string& FontLookup::FileOf(const std::string& fontName) {
  if (const auto known = files.find(fontName); known != files.end()) return known->second;
  if (fontName.size() > support::limits::kFontNameBytes) return noFile;
  return files.emplace(fontName, Search(fontName)).first->second;
}

std::string FontLookup::Search(const std::string& fontName) {
  const std::size_t plus = fontName.find('+');
  if (plus != fontName.npos) return SearchWithPrefix(fontName, plus);
  std::string file = MappedFile(fontName);
  if (file.empty()) file = StyledFile(fontName);
  if (file.empty()) file = Installed().BestMatch(fontName);
  return file;
}

// A style search that failed fails again, so the second one that would stand before the best match is left
// out.
std::string FontLookup::SearchWithPrefix(const std::string& fontName, std::size_t plus) {
  std::string file = MappedFile(std::string_view(fontName).substr(0, plus));
  if (file.empty()) file = StyledFile(fontName.substr(plus + 1));
  if (file.empty()) file = MappedFile(std::string_view(fontName).substr(plus));
  if (file.empty()) file = Installed().BestMatch(fontName);
  return file;
}

const std::string& FontLookup::StyledFile(const std::string& name) {
  const auto known = styledFiles.find(name);
  if (known != styledFiles.end()) return known->second;
  return styledFiles.emplace(name, Installed().StyleSearch(name)).first->second;
}

std::string FontLookup::MappedFile(std::string_view key) {
  if (directory.empty()) return {};
  if (!profile) profile.emplace(directory + "font.ini");
  const std::string value = profile->Value("Font", key);
  if (value.empty()) return {};
  return directory + "fonts/" + value;
}

const InstalledFonts& FontLookup::Installed() {
  if (installed == nullptr) installed = std::make_unique<InstalledFonts>();
  return *installed;
}

}  // namespace fonts
