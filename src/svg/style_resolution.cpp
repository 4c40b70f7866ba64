#include "svg/style_resolution.h"

#include <algorithm>

#include "support/limits.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

bool IsNotInherited(AttributeKey key) { return key == kTransform || key == kId; }

bool HoldsKey(std::span<const AttributeEntry> entries, AttributeKey key) {
  return LastOf(entries, key) != nullptr;
}

/// Takes `amount` from what is left. False, and nothing taken, where that is too little.
bool Spend(std::size_t& left, std::size_t amount) {
  if (amount > left) return false;
  left -= amount;
  return true;
}

/// Appends the properties that a "style" attribute's `text` declares.
void AppendStyle(std::string_view text, AttributeStore& store, std::vector<AttributeEntry>& entries) {
  ForEachDeclaration(text, [&](const Declaration& declaration) {
    entries.emplace_back(store.KeyOf(declaration.key), declaration.value);
  });
}

}  // namespace

StyleResolver::StyleResolver(AttributeStore& attributeStore, RuleQueue& ruleQueue, std::size_t documentBytes)
    : store(attributeStore),
      queue(ruleQueue),
      merged(attributeStore),
      copyBytesLeft(support::limits::kSvgInheritedBase +
                    support::limits::kSvgInheritedPerByte * documentBytes),
      storeBytesLeft(support::limits::kSvgHandedOnBase +
                     support::limits::kSvgHandedOnPerByte * documentBytes) {}

void StyleResolver::ReadWritten(SVG_Element& record, const tinyxml2::XMLAttribute* first,
                                const XmlSource& source) {
  entries.clear();
  record.ReadAttributes(first, source, store, entries);
  record.ownCount = static_cast<std::uint32_t>(entries.size());
  if (const AttributeEntry* const style = LastOf(entries, kStyle)) {
    const std::string_view text = style->Value();
    AppendStyle(text, store, entries);
  }
  record.styleCount = static_cast<std::uint32_t>(entries.size()) - record.ownCount;
  record.written = store.Store(entries).data();
}

void StyleResolver::Resolve(SVG_Element& record, std::string_view elementName,
                            const InheritedAttributes* inherited) {
  if (record.elementType == ElementType::Style) record.ParseStyleSheet(record.content(), queue);
  Inherit(record, inherited);
  if (!queue.IsEmpty() && copyBytesLeft > 0) ApplyRules(record, elementName);
  const AttributeEntry* id = LastOf(record.RuleProperties(), kId);
  if (id == nullptr) id = LastOf(record.Written(), kId);
  if (id != nullptr) record.id = TrimBlanks(id->Value());
}

void StyleResolver::Inherit(SVG_Element& record, const InheritedAttributes* inherited) {
  if (inherited != nullptr && Spend(copyBytesLeft, inherited->copyBytes)) record.inherited = inherited;
}

const AttributeEntry* StyleResolver::ClassOf(const SVG_Element& record) const {
  const AttributeEntry* const written = LastOf(record.Written(), kClass);
  if (written != nullptr || record.inherited == nullptr) return written;
  return LastOf(record.inherited->entries, kClass);
}

void StyleResolver::ApplyRules(SVG_Element& record, std::string_view elementName) {
  const AttributeEntry* const classEntry = ClassOf(record);
  const std::string_view classText =
      classEntry == nullptr ? std::string_view{} : TrimBlanks(classEntry->Value());
  rules.clear();
  queue.Collect(elementName, classEntry != nullptr, classText, rules);
  entries.clear();
  for (const StyleRule* const rule : rules) {
    if (!Spend(copyBytesLeft, rule->copyBytes)) {
      copyBytesLeft = 0;
      return;
    }
    for (const auto& [key, entry] : rule->properties) entries.push_back(entry);
  }
  record.ruleCount = static_cast<std::uint32_t>(entries.size());
  record.ruled = store.Store(entries).data();
}

const InheritedAttributes* StyleResolver::HandOnWritten(const SVG_Element& record) {
  if (record.Written().empty()) return nullptr;
  return store.Make<InheritedAttributes>({record.Written(), record.StyleProperties(),
                                          CopyBytes(record.Written()) + CopyBytes(record.StyleProperties())});
}

const InheritedAttributes* StyleResolver::HandOnMerged(const SVG_Element& record) {
  const auto isWrittenAlone = [](const AttributeEntry& entry) { return IsNotInherited(entry.key); };
  const bool addsNothing =
      record.ruleCount == 0 && std::all_of(record.Written().begin(), record.Written().end(), isWrittenAlone);
  // A style property called "style" makes a second expansion differ from the first.
  if (addsNothing && (record.inherited == nullptr || !HoldsKey(record.inherited->styleProperties, kStyle))) {
    return record.inherited;
  }
  if (record.inherited == nullptr && record.ruleCount == 0 && !HoldsKey(record.StyleProperties(), kStyle)) {
    return HandOnWritten(record);
  }
  return Flatten(record);
}

/// Kept: the "style" text that the merged attributes hold is taken apart once more, so that its properties
/// win over attributes and rules that had replaced them.
const InheritedAttributes* StyleResolver::Flatten(const SVG_Element& record) {
  merged.Load(record);
  entries.clear();
  if (const AttributeEntry* const style = merged.Find(kStyle)) AppendStyle(style->Value(), store, entries);
  if (!Spend(storeBytesLeft, entries.size() * sizeof(AttributeEntry))) return nullptr;
  const std::span<const AttributeEntry> styleProperties = store.Store(entries);
  for (const AttributeEntry& entry : styleProperties) merged.Set(entry);
  entries.clear();
  merged.ForEach([this](const AttributeEntry& entry) {
    if (!IsNotInherited(entry.key)) entries.push_back(entry);
  });
  if (!Spend(storeBytesLeft, entries.size() * sizeof(AttributeEntry))) return nullptr;
  return store.Make<InheritedAttributes>(
      {store.Store(entries), styleProperties, CopyBytes(entries) + CopyBytes(styleProperties)});
}

}  // namespace Svg
