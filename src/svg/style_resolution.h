#ifndef DRAWLOAD_SVG_STYLE_RESOLUTION_H
#define DRAWLOAD_SVG_STYLE_RESOLUTION_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "svg/element.h"
#include "svg/merged_attributes.h"

namespace Svg {

/// Gives the records of one document their attributes: what they write, what they inherit, what the style
/// sheets before them say.
class StyleResolver {
 public:
  StyleResolver(AttributeStore& attributeStore, RuleQueue& ruleQueue)
      : store(attributeStore), queue(ruleQueue), merged(attributeStore) {}

  /// Fills `record` with its own attributes and the properties of its "style" attribute.
  void ReadWritten(SVG_Element& record, const tinyxml2::XMLAttribute* first, const XmlSource& source);
  /// Reads the style sheet of a `style` record, then gives `record` what it inherits, the properties of the
  /// rules that act on `elementName`, and its id.
  void Resolve(SVG_Element& record, std::string_view elementName, const InheritedAttributes* inherited);

  /// What the elements inside `record` inherit where they get all of its merged attributes.
  const InheritedAttributes* HandOnMerged(const SVG_Element& record);
  /// What they inherit where they get only what `record` itself writes.
  const InheritedAttributes* HandOnWritten(const SVG_Element& record);

 private:
  /// Elements with the same name and the same class have the same rules, as long as no rule changes.
  struct RuleUser {
    std::string_view elementName;
    std::string_view classText;
    bool hasClass;
    bool operator==(const RuleUser&) const = default;
  };
  struct RuleUserHash {
    std::size_t operator()(const RuleUser& user) const {
      const std::hash<std::string_view> hash;
      return hash(user.elementName) * 31 + hash(user.classText);
    }
  };
  struct RuleProperties {
    std::span<const AttributeEntry> entries;
    const AttributeEntry* id;  ///< among them; null where they set none
  };
  /// A "style" attribute and its properties.
  struct TakenApart {
    const AttributeEntry* style;
    std::span<const AttributeEntry> properties;
  };

  RuleProperties ApplyRules(SVG_Element& record, std::string_view elementName);
  RuleProperties PropertiesFor(const RuleUser& user);
  TakenApart StyleOf(const SVG_Element& record);
  TakenApart TakeApart(const AttributeEntry* style);
  InheritedAttributes LevelOf(const SVG_Element& record);
  const InheritedAttributes* Flatten(const InheritedAttributes& level);

  AttributeStore& store;
  RuleQueue& queue;
  MergedAttributes merged;
  std::vector<AttributeEntry> entries;
  std::vector<const StyleRule*> rules;
  std::unordered_map<RuleUser, RuleProperties, RuleUserHash> knownProperties;
  std::uint64_t knownVersion = 0;  ///< of the rules, for `knownProperties`
};

}  // namespace Svg

#endif
