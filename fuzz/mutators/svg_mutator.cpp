#include "fuzz/mutators/svg_mutator.h"

#include <iterator>
#include <tinyxml2.h>

namespace fuzz {

namespace {

using tinyxml2::XMLAttribute;
using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

constexpr const char* kElements[] = {"svg",      "g",        "defs",           "symbol",         "line",
                                     "rect",     "circle",   "ellipse",        "polyline",       "polygon",
                                     "path",     "text",     "tspan",          "image",          "use",
                                     "clipPath", "style",    "linearGradient", "radialGradient", "stop",
                                     "switch",   "flowRoot", "foreignObject",  "param",          "unknown"};

constexpr const char* kAttributes[] = {"display",
                                       "transform",
                                       "rotate",
                                       "fill",
                                       "fill-opacity",
                                       "stroke",
                                       "stroke-dasharray",
                                       "stroke-width",
                                       "stop-color",
                                       "font-family",
                                       "font-size",
                                       "font-style",
                                       "font-weight",
                                       "class",
                                       "cx",
                                       "cy",
                                       "d",
                                       "dx",
                                       "dy",
                                       "height",
                                       "width",
                                       "href",
                                       "xlink:href",
                                       "id",
                                       "offset",
                                       "points",
                                       "r",
                                       "rx",
                                       "ry",
                                       "x",
                                       "y",
                                       "x1",
                                       "y1",
                                       "x2",
                                       "y2",
                                       "style",
                                       "viewBox",
                                       "text-anchor",
                                       "xlink_href",
                                       "cutPower",
                                       "cutSpeed",
                                       "processType",
                                       "machineType",
                                       "imageType",
                                       "engDensity",
                                       "Reverse",
                                       "diameter",
                                       "opacity"};

constexpr const char* kValues[] = {"",
                                   "0",
                                   "1",
                                   "-1",
                                   "1e300",
                                   "1e-300",
                                   "nan",
                                   "100%",
                                   "10mm",
                                   "5in",
                                   "none",
                                   "#a",
                                   "url(#a)",
                                   "red",
                                   "rgb(1,2,3)",
                                   "a",
                                   "inherit",
                                   "rotate(45)",
                                   "scale(1e9)",
                                   "0 0 10 10",
                                   "#b",
                                   "inline",
                                   "middle",
                                   "Plate",
                                   "M0 0 1 1A5 5 0 0 1 9 9Z",
                                   "matrix(1 0 0 1 5 5)",
                                   "fill:red;display:none",
                                   "99999999999"};

template <typename Item, std::size_t count>
const Item& OneOf(const Item (&items)[count], Chance& chance) {
  return items[chance.Below(count)];
}

void Gather(XMLNode& node, std::vector<XMLNode*>& nodes) {
  for (XMLNode* child = node.FirstChild(); child != nullptr; child = child->NextSibling()) {
    nodes.push_back(child);
    Gather(*child, nodes);
  }
}

const XMLAttribute* SomeAttribute(const XMLElement& element, Chance& chance) {
  const XMLAttribute* found = nullptr;
  std::size_t count = 0;
  for (const XMLAttribute* each = element.FirstAttribute(); each != nullptr; each = each->Next()) {
    if (chance.OneIn(++count)) found = each;
  }
  return found;
}

void ChangeAttribute(XMLElement& element, Chance& chance) {
  const XMLAttribute* attribute = SomeAttribute(element, chance);
  if (attribute == nullptr || chance.OneIn(4)) {
    element.SetAttribute(OneOf(kAttributes, chance), OneOf(kValues, chance));
  } else if (chance.OneIn(8)) {
    element.DeleteAttribute(attribute->Name());
  } else {
    const std::string name = attribute->Name();
    element.SetAttribute(name.c_str(), chance.mutateBytes(attribute->Value()).c_str());
  }
}

/// Puts a copy of `node` into `parent`.
void CopyInto(XMLNode& parent, const XMLNode& node, XMLDocument& document) {
  if (parent.ToElement() != nullptr) parent.InsertEndChild(node.DeepClone(&document));
}

void ChangeElement(XMLElement& element, XMLNode& other, XMLDocument& document, Chance& chance) {
  switch (chance.Below(12)) {
    case 0: element.SetName(OneOf(kElements, chance)); break;
    case 1: CopyInto(element, other, document); break;
    case 2: CopyInto(*element.Parent(), element, document); break;
    case 3: element.InsertNewChildElement(OneOf(kElements, chance)); break;
    case 4: element.Parent()->DeleteChild(&element); break;
    default: ChangeAttribute(element, chance);
  }
}

void ChangeOnce(XMLDocument& document, Chance& chance) {
  std::vector<XMLNode*> nodes;
  Gather(document, nodes);
  if (nodes.empty()) return;
  XMLNode& node = *nodes[chance.Below(nodes.size())];
  if (XMLElement* const element = node.ToElement()) {
    ChangeElement(*element, *nodes[chance.Below(nodes.size())], document, chance);
  } else {
    node.SetValue(chance.mutateBytes(node.Value()).c_str());
  }
}

}  // namespace

std::string MutateSvg(std::string_view input, Chance& chance) {
  XMLDocument document;
  if (document.Parse(input.data(), input.size()) != tinyxml2::XML_SUCCESS) return {};
  for (std::size_t changes = 1 + chance.Below(3); changes > 0; --changes) ChangeOnce(document, chance);
  tinyxml2::XMLPrinter printer(nullptr, true);
  document.Print(&printer);
  return printer.CStr();
}

}  // namespace fuzz
