#include "svg/xml_source.h"

#include <gtest/gtest.h>
#include <string>
#include <tinyxml2.h>
#include <vector>

namespace {

/// The values of all attributes of a document, in its order.
std::vector<std::string> ValuesOf(const std::string& text) {
  tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
  EXPECT_EQ(document.Parse(text.data(), text.size()), tinyxml2::XML_SUCCESS) << text;
  const Svg::XmlSource source(text, document);
  Svg::AttributeStore store;
  std::vector<std::string> values;
  const auto visit = [&](const auto& self, const tinyxml2::XMLElement* element) -> void {
    for (; element != nullptr; element = element->NextSiblingElement()) {
      for (const auto* attribute = element->FirstAttribute(); attribute != nullptr;
           attribute = attribute->Next()) {
        values.emplace_back(source.ValueOf(*attribute, store));
      }
      self(self, element->FirstChildElement());
    }
  };
  visit(visit, document.FirstChildElement());
  return values;
}

using Values = std::vector<std::string>;

/// Whether the value of the one attribute of `text` lies in the bytes of `text`.
bool IsInPlace(const std::string& text) {
  tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
  document.Parse(text.data(), text.size());
  Svg::AttributeStore store;
  const Svg::XmlSource source(text, document);
  const std::string_view value = source.ValueOf(*document.FirstChildElement()->FirstAttribute(), store);
  return value.data() >= text.data() && value.data() < text.data() + text.size();
}

}  // namespace

TEST(XmlSource, FindsValuesInTheBytesOfTheFile) {
  EXPECT_TRUE(IsInPlace("<svg d='M0 0'/>"));
  EXPECT_TRUE(IsInPlace("<?xml version='1.0'?>\n<!-- <svg d='no'/> -->\n<svg d='M0 0'/>"));
}

TEST(XmlSource, CopiesValuesThatTheParserChanges) {
  EXPECT_FALSE(IsInPlace("<svg d='&lt;'/>"));
  EXPECT_FALSE(IsInPlace("<svg d='a\r\nb'/>"));
}

TEST(XmlSource, ReadsTheAttributesOfAllElements) {
  EXPECT_EQ(ValuesOf("<svg a='1' b=\"2\"><g c='' a='3'><p/></g><g d='4'/></svg>"),
            (Values{"1", "2", "", "3", "4"}));
}

TEST(XmlSource, ResolvesReferencesAndLineEnds) {
  EXPECT_EQ(ValuesOf("<svg a='&lt;&#65;&amp;' b='x\r\ny' c='x\ny' d='x\ry' e='x\n\ry'/>"),
            (Values{"<A&", "x\ny", "x\ny", "x\ny", "x\ny"}));
}

TEST(XmlSource, LetsAQuoteOfTheOtherKindStand) {
  EXPECT_EQ(ValuesOf("<svg a='say \"a\"' b=\"it's\"/>"), (Values{"say \"a\"", "it's"}));
}

TEST(XmlSource, PassesOverWhiteSpaceAroundTheEqualsSign) {
  EXPECT_EQ(ValuesOf("< svg a = '1'\n\tb\n=\n\"2\"/>"), (Values{"1", "2"}));
}

TEST(XmlSource, ReadsBehindAByteOrderMark) {
  EXPECT_EQ(ValuesOf("\xEF\xBB\xBF<svg a='1'/>"), (Values{"1"}));
  EXPECT_EQ(ValuesOf("\xEF\xBB\xBF <?xml version='1.0'?><svg a='1'/>"), (Values{"1"}));
}

TEST(XmlSource, ReadsBehindAnythingThatADocumentMayBeginWith) {
  for (const std::string front : {" \n", "<!DOCTYPE svg>", "<!-- <svg a='2'/> -->", "<?xml version='1.0'?>",
                                  "<?xml version='1.0'?><!DOCTYPE svg>\n<!-- c -->\n"}) {
    EXPECT_EQ(ValuesOf(front + "<svg a='1'><b c='d'/></svg>"), (Values{"1", "d"})) << front;
  }
}
