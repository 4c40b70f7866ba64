#ifndef DRAWLOAD_SVG_STYLE_RESOLUTION_H
#define DRAWLOAD_SVG_STYLE_RESOLUTION_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "svg/element.h"
#include "svg/merged_attributes.h"

namespace Svg {

/// Gives the records of one document their attributes: what they write, what they inherit, what the style
/// sheets before them say.
class StyleResolver {
 public:
  /// `documentBytes` is the length of the file; the bounds on what is handed on grow with it.
  StyleResolver(AttributeStore& attributeStore, RuleQueue& ruleQueue, std::size_t documentBytes);

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
  void Inherit(SVG_Element& record, const InheritedAttributes* inherited);
  void ApplyRules(SVG_Element& record, std::string_view elementName);
  const AttributeEntry* ClassOf(const SVG_Element& record) const;
  const InheritedAttributes* Flatten(const SVG_Element& record);

  AttributeStore& store;
  RuleQueue& queue;
  MergedAttributes merged;
  std::size_t copyBytesLeft;   ///< of what elements receive from others
  std::size_t storeBytesLeft;  ///< of attributes that are stored a second time to be handed on
  std::vector<AttributeEntry> entries;
  std::vector<const StyleRule*> rules;
};

}  // namespace Svg

#endif
