#include "svg/xml_bounds.h"

#include <cstddef>

#include "support/limits.h"

namespace Svg {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Goes through the tag that begins at `at` and returns where it ends; nothing where it has too many
/// attributes. Quoted values count as attributes, whatever stands before them.
std::size_t EndOfTag(std::string_view text, std::size_t at, bool& hasTooMany) {
  std::size_t values = 0;
  while (at < text.size() && text[at] != '>') {
    const char c = text[at++];
    if (c != '"' && c != '\'') continue;
    if (++values > support::limits::kSvgAttributes) hasTooMany = true;
    at = text.find(c, at);
    if (at == kNone || hasTooMany) return kNone;
    ++at;
  }
  return at;
}

/// Where the comment, section or declaration that begins at `at` ends.
std::size_t EndOfMarkup(std::string_view text, std::size_t at) {
  const auto behind = [text, at](std::string_view mark) {
    const std::size_t found = text.find(mark, at);
    return found == kNone ? kNone : found + mark.size();
  };
  const std::string_view rest = text.substr(at);
  if (rest.starts_with("<!--")) return behind("-->");
  if (rest.starts_with("<![CDATA[")) return behind("]]>");
  if (rest.starts_with("<?")) return behind("?>");
  return behind(">");
}

bool HasBoundedAttributes(std::string_view text) {
  bool hasTooMany = false;
  for (std::size_t at = text.find('<'); at != kNone; at = text.find('<', at)) {
    const bool isElement = at + 1 < text.size() && text[at + 1] != '!' && text[at + 1] != '?';
    at = isElement ? EndOfTag(text, at + 1, hasTooMany) : EndOfMarkup(text, at);
    if (hasTooMany) return false;
    if (at == kNone) return true;
  }
  return true;
}

bool HasBoundedReferences(std::string_view text) {
  std::size_t passed = 0;
  std::size_t semicolon = 0;
  for (std::size_t at = text.find("&#"); at != kNone; at = text.find("&#", at + 2)) {
    if (semicolon <= at) semicolon = text.find(';', at);
    if (semicolon == kNone) semicolon = text.size();
    passed += semicolon - at;
    if (passed / support::limits::kSvgReferenceSearchPerByte > text.size()) return false;
  }
  return true;
}

}  // namespace

bool IsWithinXmlBounds(std::string_view document) {
  return HasBoundedAttributes(document) && HasBoundedReferences(document);
}

}  // namespace Svg
