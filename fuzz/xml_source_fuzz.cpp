#include <tinyxml2.h>

#include "fuzz/target.h"
#include "svg/xml_source.h"

namespace {

/// What is read in the bytes of the file against what the XML parser makes of them.
void CheckValues(const tinyxml2::XMLElement* element, const Svg::XmlSource& source,
                 Svg::AttributeStore& store) {
  for (; element != nullptr; element = element->NextSiblingElement()) {
    for (const auto* attribute = element->FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
      fuzz::Check(source.ValueOf(*attribute, store) == attribute->Value(),
                  "a value that the XML parser reads differently");
    }
    CheckValues(element->FirstChildElement(), source, store);
  }
}

void Run(std::string_view input) {
  if (input.empty()) return;
  tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
  if (document.Parse(input.data(), input.size()) != tinyxml2::XML_SUCCESS) return;
  Svg::AttributeStore store;
  CheckValues(document.FirstChildElement(), Svg::XmlSource(input, document), store);
}

const fuzz::Target target("xml_source", Run);

}  // namespace
