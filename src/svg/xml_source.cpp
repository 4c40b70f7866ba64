#include "svg/xml_source.h"

#include <cstdint>
#include <cstring>
#include <tinyxml2.h>

#include "support/text_to_number.h"

namespace Svg {

namespace {

/// Where the value of the first node of a document stands in its text: behind the mark that opens it. Nothing
/// where text stands before that.
std::optional<std::size_t> PlaceOfFirstValue(std::string_view text, const tinyxml2::XMLNode& first) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::size_t at = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  while (at < text.size() && support::IsSpace(text[at])) ++at;
  const std::string_view mark = first.ToElement() != nullptr       ? "<"
                                : first.ToDeclaration() != nullptr ? "<?"
                                : first.ToComment() != nullptr     ? "<!--"
                                                                   : "<!";
  if (first.ToText() != nullptr || !text.substr(at).starts_with(mark)) return std::nullopt;
  at += mark.size();
  if (first.ToElement() == nullptr) return at;
  while (at < text.size() && support::IsSpace(text[at])) ++at;
  return at;
}

bool Holds(std::string_view text, char c) { return std::memchr(text.data(), c, text.size()) != nullptr; }

/// Moves `text` to what stands behind the white space at its front.
void SkipSpace(std::string_view& text) {
  while (!text.empty() && support::IsSpace(text.front())) text.remove_prefix(1);
}

}  // namespace

XmlSource::XmlSource(std::string_view bytes, const tinyxml2::XMLDocument& document) : source(bytes) {
  const tinyxml2::XMLNode* const first = document.FirstChild();
  if (first == nullptr) return;
  if (const auto place = PlaceOfFirstValue(bytes, *first)) parsed = first->Value() - *place;
}

std::string_view XmlSource::ValueOf(const tinyxml2::XMLAttribute& attribute, AttributeStore& store) const {
  if (const auto value = PlainValueOf(attribute)) return *value;
  return store.Store(attribute.Value());
}

/// The parser leaves the name where it stood in its copy; the same place in the file is followed by the
/// value.
std::optional<std::string_view> XmlSource::PlainValueOf(const tinyxml2::XMLAttribute& attribute) const {
  const std::string_view name = attribute.Name();
  const auto place = reinterpret_cast<std::uintptr_t>(name.data()) - reinterpret_cast<std::uintptr_t>(parsed);
  if (parsed == nullptr || place >= source.size()) return std::nullopt;
  std::string_view rest = source.substr(place);
  if (!rest.starts_with(name)) return std::nullopt;
  rest.remove_prefix(name.size());
  SkipSpace(rest);
  if (!rest.starts_with('=')) return std::nullopt;
  rest.remove_prefix(1);
  SkipSpace(rest);
  if (!rest.starts_with('"') && !rest.starts_with('\'')) return std::nullopt;
  const std::size_t end = rest.find(rest.front(), 1);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view value = rest.substr(1, end - 1);
  if (Holds(value, '&') || Holds(value, '\r')) return std::nullopt;
  return value;
}

}  // namespace Svg
