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

bool SVG_Element::IsSameAs(const SVG_Element& other) const {
  return name == other.name && id == other.id && inherited == other.inherited && written == other.written &&
         ruled == other.ruled && text == other.text && ownCount == other.ownCount &&
         styleCount == other.styleCount && ruleCount == other.ruleCount && elementType == other.elementType &&
         active == other.active;
}

const AttributeEntry* LastOf(std::span<const AttributeEntry> entries, AttributeKey key) {
  for (std::size_t i = entries.size(); i > 0; --i) {
    if (entries[i - 1].key == key) return &entries[i - 1];
  }
  return nullptr;
}

const AttributeEntry* LastOf(const InheritedAttributes* inherited, AttributeKey key) {
  for (; inherited != nullptr; inherited = inherited->outer) {
    for (const auto entries : {inherited->restyled, inherited->ruled, inherited->written}) {
      if (const AttributeEntry* const found = LastOf(entries, key)) return found;
    }
  }
  return nullptr;
}

}  // namespace Svg
