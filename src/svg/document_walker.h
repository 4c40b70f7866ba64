#ifndef DRAWLOAD_SVG_DOCUMENT_WALKER_H
#define DRAWLOAD_SVG_DOCUMENT_WALKER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "svg/element.h"
#include "svg/style_resolution.h"
#include "svg/xml_source.h"

namespace tinyxml2 {
class XMLDocument;
class XMLElement;
}  // namespace tinyxml2

namespace Svg {

class SVG_Interface;

/// What an element's own name says about `SVG_Element::active`.
enum class Activity : std::uint8_t { Kept, On, Off };

/// What the name of an XML element says about its records. Lives as long as they do.
struct ElementName {
  std::string_view xmlName;
  std::string_view elementName;
  std::string_view tailName;
  ElementType elementType = ElementType::Unknown;
  Activity activity = Activity::Kept;
};

/// Turns an SVG file into records: one for each element's start and one for each element's end, in document
/// order, attributes resolved.
class SvgDocumentWalker {
 public:
  SvgDocumentWalker(std::string filePath, SVG_Interface& recordOwner);

  /// Reads and walks the file. Nothing of the XML tree remains.
  void Load();

  bool loadOk = false;      ///< the file could be read and is well-formed XML
  bool isComplete = false;  ///< all of it was walked

 private:
  void ReadAndWalk();
  void Walk(const tinyxml2::XMLDocument& document);
  void WalkNodes(const tinyxml2::XMLElement* node);
  void StartElement(const tinyxml2::XMLElement& node, const ElementName& name);
  void EndElement(const ElementName& name);
  void ResolveByType(SVG_Element& record, const tinyxml2::XMLElement& node);
  void UpdateActive(SVG_Element& record, bool allow) const;
  void HandOverRules();
  const ElementName& NameOf(std::string_view xmlName);

  std::string path;
  SVG_Interface& owner;
  RuleQueue queue;
  std::optional<StyleResolver> resolver;
  std::optional<XmlSource> source;            ///< while the XML tree stands
  std::vector<std::string_view> nameStack;    ///< ids of the open elements
  std::vector<const ElementName*> pathNames;  ///< names of the open elements; see `EndElement` for `style`
  const InheritedAttributes* inheritedAttributes = nullptr;
  const InheritedAttributes* textAttributes = nullptr;  ///< of the last outermost `text`
  std::int32_t textDepth = 0;
  bool isRepeating = false;  ///< the elements were all walked before
  const ElementName* lastName = nullptr;
  std::unordered_map<std::string_view, const ElementName*> unknownNames;
};

}  // namespace Svg

#endif
