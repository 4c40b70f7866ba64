#ifndef DRAWLOAD_SVG_ELEMENT_H
#define DRAWLOAD_SVG_ELEMENT_H

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "svg/attribute_store.h"
#include "svg/style_rule.h"

namespace tinyxml2 {
class XMLAttribute;
}

namespace Svg {

class XmlSource;

enum class ElementType : std::uint8_t {
  Svg = 0,
  G = 1,
  Defs = 2,
  Symbol = 3,
  FlowRoot = 4,
  FlowRegion = 5,
  Line = 6,
  Rect = 7,
  Circle = 8,
  Ellipse = 9,
  Polyline = 10,
  Polygon = 11,
  Path = 12,
  Text = 13,
  Tspan = 14,
  Image = 15,
  Use = 16,
  ClipPath = 17,
  Style = 18,
  LinearGradient = 19,
  RadialGradient = 20,
  Stop = 21,
  Switch = 22,
  ForeignObject = 23,
  Param = 24,
  Tail = 25,
  Unknown = 26,
};

/// What an element hands on to the elements inside it, shared by all of them: what it inherits itself, then
/// its own lists in their order. A later entry of a key replaces an earlier one; "transform" and "id" are not
/// inherited. Lives in the document's `AttributeStore`.
struct InheritedAttributes {
  const InheritedAttributes* outer = nullptr;
  std::span<const AttributeEntry> written = {};
  std::span<const AttributeEntry> ruled = {};
  std::span<const AttributeEntry> restyled = {};  ///< style properties that win over what replaced them
  std::span<const AttributeEntry> styleProperties = {};  ///< those that came out of the "style" attribute
  const AttributeEntry* style = nullptr;                 ///< the "style" attribute that they came out of
  const AttributeEntry* innerStyle = nullptr;            ///< the last property that is called "style" itself
  const AttributeEntry* className = nullptr;             ///< the last "class" of all lists
  std::size_t count = 0;                                 ///< of the entries of all lists
};

/// The character data of an element.
struct ElementText {
  std::string_view content;  ///< or the text of a style sheet
  std::string_view secondaryContent;
};

/// One record of a document: the start of an element or, as `ElementType::Tail`, its end. Nesting shows in
/// the order of the records alone. All texts lie in the document's `AttributeStore` or
/// in the bytes of its file.
///
/// The merged attributes of a record are the inherited entries, then its own attributes as written, then the
/// properties of its "style" attribute, then the properties of the style sheet rules that act on it; what
/// comes later replaces what came before under the same key.
class SVG_Element {
 public:
  SVG_Element() = default;
  SVG_Element(const SVG_Element&) = default;
  SVG_Element& operator=(const SVG_Element&) = default;
  virtual ~SVG_Element();

  /// Appends the XML attributes from `first` on, which may be null, to `entries`.
  virtual void ReadAttributes(const tinyxml2::XMLAttribute* first, const XmlSource& source,
                              AttributeStore& store, std::vector<AttributeEntry>& entries) const;
  /// Appends `added` to the content, unless it is empty or what already stands there.
  virtual void AppendText(std::string_view added, AttributeStore& store);
  /// Appends `added` to the secondary content.
  virtual void AppendTail(std::string_view added, AttributeStore& store);
  /// Appends the rules of a style sheet to `queue`.
  virtual void ParseStyleSheet(std::string_view sheet, RuleQueue& queue) const;

  std::span<const AttributeEntry> OwnAttributes() const { return {written, ownCount}; }
  std::span<const AttributeEntry> StyleProperties() const { return {written + ownCount, styleCount}; }
  /// Own attributes and style properties, in this order.
  std::span<const AttributeEntry> Written() const { return {written, ownCount + styleCount}; }
  std::span<const AttributeEntry> RuleProperties() const { return {ruled, ruleCount}; }

  /// Whether a list may hold this record in the place of `other`.
  bool IsSameAs(const SVG_Element& other) const;

  /// As the rules and look-ups compare it; a tail's ends in "tail".
  std::string_view elementName() const { return *name; }
  std::string_view content() const { return text == nullptr ? std::string_view{} : text->content; }
  std::string_view secondaryContent() const {
    return text == nullptr ? std::string_view{} : text->secondaryContent;
  }

  // A document has two records for each element: they are kept small.
  const std::string_view* name = &kNoName;  ///< of a name that lives as long as the document
  std::string_view id;                      ///< a tail has that of its start
  const InheritedAttributes* inherited = nullptr;
  const AttributeEntry* written = nullptr;  ///< `ownCount` attributes, then `styleCount` style properties
  const AttributeEntry* ruled = nullptr;
  const ElementText* text = nullptr;
  std::uint32_t ownCount = 0;
  std::uint32_t styleCount = 0;
  std::uint32_t ruleCount = 0;
  ElementType elementType = ElementType::Unknown;
  bool active = true;  ///< the walk over the records passes over the others

 private:
  static constexpr std::string_view kNoName = {};
};

/// The last value of `key` in `entries`, or null.
const AttributeEntry* LastOf(std::span<const AttributeEntry> entries, AttributeKey key);
/// The value of `key` that holds in `inherited`, which may be null.
const AttributeEntry* LastOf(const InheritedAttributes* inherited, AttributeKey key);

}  // namespace Svg

#endif
