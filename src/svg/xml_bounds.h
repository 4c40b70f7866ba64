#ifndef DRAWLOAD_SVG_XML_BOUNDS_H
#define DRAWLOAD_SVG_XML_BOUNDS_H

#include <string_view>

namespace Svg {

/// Whether the XML parser gets through `document` in time that grows with its length. It compares each
/// attribute of an element with all those before it, and looks for the end of each character reference ("&#")
/// to the end of the text; both are quadratic in what a hostile file can hold.
bool IsWithinXmlBounds(std::string_view document);

}  // namespace Svg

#endif
