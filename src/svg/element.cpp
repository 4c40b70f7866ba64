#include "svg/element.h"

#include <string>
#include <tinyxml2.h>

#include "svg/xml_source.h"

namespace Svg {

namespace {

std::string_view Joined(std::string_view kept, std::string_view text, AttributeStore& store) {
  return kept.empty() ? store.Store(text) : store.Store(std::string(kept).append(text));
}

}  // namespace

SVG_Element::~SVG_Element() = default;

void SVG_Element::ReadAttributes(const tinyxml2::XMLAttribute* first, const XmlSource& source,
                                 AttributeStore& store, std::vector<AttributeEntry>& entries) const {
  for (const auto* attribute = first; attribute != nullptr; attribute = attribute->Next()) {
    entries.emplace_back(store.KeyOf(attribute->Name()), source.ValueOf(*attribute, store));
  }
}

void SVG_Element::AppendText(std::string_view added, AttributeStore& store) {
  if (added.empty() || added == content()) return;
  text = store.Make<ElementText>({Joined(content(), added, store), secondaryContent()});
}

void SVG_Element::AppendTail(std::string_view added, AttributeStore& store) {
  if (added.empty()) return;
  text = store.Make<ElementText>({content(), Joined(secondaryContent(), added, store)});
}

void SVG_Element::ParseStyleSheet(std::string_view sheet, RuleQueue& queue) const {
  ReadStyleSheet(sheet, queue);
}

std::size_t SVG_Element::CopyBytes() const {
  const std::size_t received = inherited == nullptr ? 0 : inherited->copyBytes;
  return received + Svg::CopyBytes(Written()) + Svg::CopyBytes(RuleProperties());
}

std::size_t CopyBytes(std::span<const AttributeEntry> entries) {
  std::size_t total = 0;
  for (const AttributeEntry& entry : entries) total += entry.CopyBytes();
  return total;
}

const AttributeEntry* LastOf(std::span<const AttributeEntry> entries, AttributeKey key) {
  for (std::size_t i = entries.size(); i > 0; --i) {
    if (entries[i - 1].key == key) return &entries[i - 1];
  }
  return nullptr;
}

}  // namespace Svg
