#include "svg/style_resolution.h"

#include <algorithm>

#include "support/account.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

/// Lists of this length are copied into one whatever they add, so that short chains stay short.
constexpr std::size_t kShortList = 32;

/// Work of looking for some keys in a list that elements share.
constexpr std::size_t kScanWork = 4;

bool IsNotInherited(AttributeKey key) { return key == kTransform || key == kId; }

bool HoldsKey(std::span<const AttributeEntry> entries, AttributeKey key) {
  return LastOf(entries, key) != nullptr;
}

/// What `record` says itself, rules included.
const AttributeEntry* LastSaid(const SVG_Element& record, AttributeKey key) {
  const AttributeEntry* const ruled = LastOf(record.RuleProperties(), key);
  return ruled == nullptr ? LastOf(record.Written(), key) : ruled;
}

const AttributeEntry* ClassOf(const SVG_Element& record) {
  const AttributeEntry* const written = LastOf(record.Written(), kClass);
  if (written != nullptr || record.inherited == nullptr) return written;
  return record.inherited->className;
}

/// Appends the properties that a "style" attribute's `text` declares.
void AppendStyle(std::string_view text, AttributeStore& store, std::vector<AttributeEntry>& entries) {
  ForEachDeclaration(text, [&](const Declaration& declaration) {
    entries.emplace_back(store.KeyOf(declaration.key), declaration.value);
  });
}

}  // namespace

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
  record.inherited = inherited;
  const AttributeEntry* id = queue.IsEmpty() ? nullptr : ApplyRules(record, elementName).id;
  if (id == nullptr) id = LastOf(record.Written(), kId);
  if (id != nullptr) record.id = TrimBlanks(id->Value());
}

StyleResolver::RuleProperties StyleResolver::ApplyRules(SVG_Element& record, std::string_view elementName) {
  const AttributeEntry* const className = ClassOf(record);
  const std::string_view classText =
      className == nullptr ? std::string_view{} : TrimBlanks(className->Value());
  const RuleProperties properties = PropertiesFor({elementName, classText, className != nullptr});
  record.ruleCount = static_cast<std::uint32_t>(properties.entries.size());
  record.ruled = properties.entries.data();
  return properties;
}

StyleResolver::RuleProperties StyleResolver::PropertiesFor(const RuleUser& user) {
  if (knownVersion != queue.Version()) knownProperties.clear();
  knownVersion = queue.Version();
  const auto known = knownProperties.find(user);
  if (known != knownProperties.end()) return known->second;
  rules.clear();
  queue.Collect(user.elementName, user.hasClass, user.classText, rules);
  entries.clear();
  for (const StyleRule* const rule : rules) {
    for (const auto& [key, entry] : rule->properties) entries.push_back(entry);
  }
  const std::span<const AttributeEntry> stored = store.Store(entries);
  return knownProperties.emplace(user, RuleProperties{stored, LastOf(stored, kId)}).first->second;
}

const InheritedAttributes* StyleResolver::HandOnWritten(const SVG_Element& record) {
  if (record.Written().empty()) return nullptr;
  return store.Make<InheritedAttributes>({.written = record.Written(),
                                          .styleProperties = record.StyleProperties(),
                                          .style = LastOf(record.OwnAttributes(), kStyle),
                                          .innerStyle = LastOf(record.StyleProperties(), kStyle),
                                          .className = LastOf(record.Written(), kClass),
                                          .count = record.Written().size()});
}

const InheritedAttributes* StyleResolver::HandOnMerged(const SVG_Element& record) {
  const auto isWrittenAlone = [](const AttributeEntry& entry) { return IsNotInherited(entry.key); };
  const bool addsNothing =
      record.ruleCount == 0 && std::all_of(record.Written().begin(), record.Written().end(), isWrittenAlone);
  // A style property called "style" makes a second expansion differ from the first.
  if (addsNothing && (record.inherited == nullptr || record.inherited->innerStyle == nullptr)) {
    return record.inherited;
  }
  if (record.inherited == nullptr && record.ruleCount == 0 && !HoldsKey(record.StyleProperties(), kStyle)) {
    return HandOnWritten(record);
  }
  const InheritedAttributes level = LevelOf(record);
  // A copy that is not much longer than what the element itself says makes look-ups faster. Longer ones would
  // add up to the square of the document's length.
  const std::size_t said = record.Written().size() + record.ruleCount;
  return level.count <= kShortList + 4 * said ? Flatten(level) : store.Make(level);
}

/// Kept: the "style" text that the merged attributes hold is taken apart once more, so that its properties
/// win over attributes and rules that had replaced them.
InheritedAttributes StyleResolver::LevelOf(const SVG_Element& record) {
  const auto [style, properties] = StyleOf(record);
  support::SpendWork(kScanWork * (properties.size() + record.ruleCount));
  InheritedAttributes level = {.outer = record.inherited,
                               .written = record.Written(),
                               .ruled = record.RuleProperties(),
                               .restyled = properties,
                               .styleProperties = properties,
                               .style = style,
                               .innerStyle = LastOf(properties, kStyle)};
  level.className = LastOf(properties, kClass);
  if (level.className == nullptr) level.className = LastSaid(record, kClass);
  if (level.className == nullptr && record.inherited != nullptr)
    level.className = record.inherited->className;
  level.count = level.written.size() + level.ruled.size() + level.restyled.size();
  if (record.inherited != nullptr) level.count += record.inherited->count;
  return level;
}

/// The "style" text of the merged attributes of `record`.
StyleResolver::TakenApart StyleResolver::StyleOf(const SVG_Element& record) {
  if (const AttributeEntry* const said = LastSaid(record, kStyle)) {
    const bool isOwnAttribute = said == LastOf(record.OwnAttributes(), kStyle);
    return isOwnAttribute ? TakenApart{said, record.StyleProperties()} : TakeApart(said);
  }
  const InheritedAttributes* const inherited = record.inherited;
  if (inherited == nullptr) return {nullptr, {}};
  if (inherited->innerStyle != nullptr) return TakeApart(inherited->innerStyle);
  return {inherited->style, inherited->styleProperties};
}

StyleResolver::TakenApart StyleResolver::TakeApart(const AttributeEntry* style) {
  entries.clear();
  AppendStyle(style->Value(), store, entries);
  return {style, store.Store(entries)};
}

/// `level` with all that it inherits in one list.
const InheritedAttributes* StyleResolver::Flatten(const InheritedAttributes& level) {
  merged.Load(level);
  entries.clear();
  merged.ForEach([this](const AttributeEntry& entry) { entries.push_back(entry); });
  return store.Make<InheritedAttributes>({.written = store.Store(entries),
                                          .styleProperties = level.styleProperties,
                                          .style = level.style,
                                          .innerStyle = level.innerStyle,
                                          .className = level.className,
                                          .count = entries.size()});
}

}  // namespace Svg
