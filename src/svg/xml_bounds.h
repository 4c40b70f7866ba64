#ifndef DRAWLOAD_SVG_XML_BOUNDS_H
#define DRAWLOAD_SVG_XML_BOUNDS_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace Svg {

/// How much there is in an XML text; never too little.
struct XmlExtent {
  std::size_t elements = 0;
  std::size_t attributes = 0;
  std::size_t texts = 0;
  std::size_t marks = 0;  ///< comments, declarations and the like

  /// What the parser's tree takes.
  std::size_t TreeBytes() const;
};

/// Goes through `document` once, before anything is made of it. Nothing where the XML parser would not get
/// through it in time that grows with its length: it compares each attribute of an element with all those
/// before it, and looks for the end of each character reference ("&#") to the end of the text; both are
/// quadratic in what a hostile file can hold.
std::optional<XmlExtent> MeasureXml(std::string_view document);

}  // namespace Svg

#endif
