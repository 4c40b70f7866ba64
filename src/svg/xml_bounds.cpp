#include "svg/xml_bounds.h"

#include <tinyxml2.h>

#include "support/limits.h"
#include "support/text_to_number.h"

namespace Svg {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Counts the parts of an XML text from its begin to its end.
class XmlCounter {
 public:
  explicit XmlCounter(std::string_view document) : text(document) {}

  /// False where an element has too many attributes.
  bool Count() {
    while (at != kNone && PassText()) {
      const char next = at + 1 < text.size() ? text[at + 1] : '\0';
      if (next == '!' || next == '?') {
        ++extent.marks;
        PassMark();
      } else {
        extent.elements += next == '/' ? 0U : 1U;
        ++at;
        if (!PassTag()) return false;
      }
    }
    return true;
  }

  XmlExtent extent;

 private:
  /// Moves to the next "<"; false where there is none. White space alone makes no text.
  bool PassText() {
    while (at < text.size() && support::IsSpace(text[at])) ++at;
    if (at < text.size() && text[at] != '<') ++extent.texts;
    at = text.find('<', at);
    return at != kNone;
  }

  /// Moves past the tag. Quoted values count as attributes, whatever stands before them.
  bool PassTag() {
    std::size_t values = 0;
    while (at < text.size() && text[at] != '>') {
      const char c = text[at++];
      if (c != '"' && c != '\'') continue;
      ++extent.attributes;
      if (++values > support::limits::kSvgAttributes) return false;
      at = text.find(c, at);
      if (at == kNone) return true;
      ++at;
    }
    if (at < text.size()) ++at;
    return true;
  }

  /// Moves past the comment, section or declaration.
  void PassMark() {
    const std::string_view rest = text.substr(at);
    const std::string_view end = rest.starts_with("<!--")        ? "-->"
                                 : rest.starts_with("<![CDATA[") ? "]]>"
                                 : rest.starts_with("<?")        ? "?>"
                                                                 : ">";
    at = text.find(end, at);
    if (at != kNone) at += end.size();
  }

  std::string_view text;
  std::size_t at = 0;
};

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

/// What the parser allocates for `count` nodes: it takes them from blocks.
template <typename Node>
std::size_t BytesOf(std::size_t count) {
  constexpr std::size_t kBlockBytes = 4096;
  constexpr std::size_t kBlockHead = 64;  // of the C library, and two pointers to the block
  return (count / (kBlockBytes / sizeof(Node)) + 1) * (kBlockBytes + kBlockHead);
}

}  // namespace

/// A section of character data is a text.
std::size_t XmlExtent::TreeBytes() const {
  static_assert(sizeof(tinyxml2::XMLText) >= sizeof(tinyxml2::XMLComment));
  return BytesOf<tinyxml2::XMLElement>(elements + 1) + BytesOf<tinyxml2::XMLAttribute>(attributes) +
         BytesOf<tinyxml2::XMLText>(texts + marks) + BytesOf<tinyxml2::XMLComment>(0);
}

std::optional<XmlExtent> MeasureXml(std::string_view document) {
  XmlCounter counter(document);
  if (!counter.Count() || !HasBoundedReferences(document)) return std::nullopt;
  return counter.extent;
}

}  // namespace Svg
