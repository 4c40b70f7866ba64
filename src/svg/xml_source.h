#ifndef DRAWLOAD_SVG_XML_SOURCE_H
#define DRAWLOAD_SVG_XML_SOURCE_H

#include <optional>
#include <string_view>

#include "svg/attribute_store.h"

namespace tinyxml2 {
class XMLAttribute;
class XMLDocument;
}  // namespace tinyxml2

namespace Svg {

/// The bytes that an XML tree was made of, beside the tree. The XML parser looks at every character of a
/// value for references and line ends, and what it returns goes with the tree; nearly no value holds any, and
/// then the bytes of the file, which stay, are the value.
class XmlSource {
 public:
  /// `bytes`, of which `document` is the tree, must outlive what `ValueOf` returns.
  XmlSource(std::string_view bytes, const tinyxml2::XMLDocument& document);

  /// The value of an attribute of the tree: in the bytes of the file, or else copied to `store`.
  std::string_view ValueOf(const tinyxml2::XMLAttribute& attribute, AttributeStore& store) const;

 private:
  std::optional<std::string_view> PlainValueOf(const tinyxml2::XMLAttribute& attribute) const;

  std::string_view source;
  const char* parsed =
      nullptr;  ///< where the parser's copy of the bytes begins; null where that is not known
};

}  // namespace Svg

#endif
