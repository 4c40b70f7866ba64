#include <gmock/gmock.h>
#include <sys/stat.h>
#include <tinyxml2.h>

#include "svg/xml_source.h"
#include "svg_drawing.h"

using Svg::ElementType;
using Svg::SVG_Element;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> NamesOf(std::string_view text) {
  const LoadedSvg svg(text);
  std::vector<std::string> names;
  for (const SVG_Element* const record : svg.document->elements) names.emplace_back(record->elementName());
  return names;
}

/// Whether the record with id "x" is active.
bool IsActive(std::string_view text) { return LoadedSvg(text).FindId("x").active; }

/// The type and the element name of an element called `name`.
std::pair<ElementType, std::string> Classify(const std::string& name) {
  const LoadedSvg svg("<svg><" + name + " id='x'/></svg>");
  return {svg.FindId("x").elementType, std::string(svg.FindId("x").elementName())};
}

}  // namespace

TEST(DocumentWalker, MakesARecordForEachStartAndEachEnd) {
  EXPECT_THAT(NamesOf("<svg><g><rect/></g><!-- c --><path/>text</svg>"),
              ElementsAre("svg", "g", "rect", "recttail", "gtail", "path", "pathtail", "svgtail"));
}

TEST(DocumentWalker, ClassifiesElementsByTheirNames) {
  const std::tuple<const char*, int, const char*> rows[] = {{"svg", 0, "svg"},
                                                            {"g", 1, "g"},
                                                            {"defs", 2, "defs"},
                                                            {"symbol", 3, "symbol"},
                                                            {"flowRoot", 4, "flowroot"},
                                                            {"flowRegion", 26, ""},
                                                            {"line", 6, "line"},
                                                            {"rect", 7, "rect"},
                                                            {"circle", 8, "circle"},
                                                            {"ellipse", 9, "ellipse"},
                                                            {"polyline", 10, "polyline"},
                                                            {"polygon", 11, "polygon"},
                                                            {"path", 12, "path"},
                                                            {"text", 13, "text"},
                                                            {"tspan", 14, "tspan"},
                                                            {"image", 15, "image"},
                                                            {"use", 16, "use"},
                                                            {"clipPath", 17, ""},
                                                            {"style", 18, "style"},
                                                            {"linearGradient", 19, "linearGradient"},
                                                            {"radialGradient", 20, "radialGradient"},
                                                            {"stop", 21, "stop"},
                                                            {"switch", 22, ""},
                                                            {"foreignObject", 23, ""},
                                                            {"Param", 24, "Param"},
                                                            {"param", 26, "unknown"},
                                                            {"Rect", 26, "unknown"},
                                                            {"foo", 26, "unknown"},
                                                            {"svg:rect", 26, "unknown"}};
  for (const auto& [name, type, elementName] : rows) {
    const auto [actualType, actualName] = Classify(name);
    EXPECT_EQ(static_cast<int>(actualType), type) << name;
    EXPECT_EQ(actualName, elementName) << name;
  }
}

TEST(DocumentWalker, NamesTailsAfterTheXmlElement) {
  for (const char* const name : {"svg", "g", "defs", "symbol", "flowRoot", "flowRegion", "line", "clipPath",
                                 "switch", "stop", "foreignObject", "text", "Param", "style", "foo"}) {
    const LoadedSvg svg("<svg><" + std::string(name) + " id='x'/></svg>");
    const SVG_Element& tail = *svg.document->elements[2];
    EXPECT_EQ(tail.elementType, ElementType::Tail) << name;
    EXPECT_EQ(tail.elementName(), std::string(name) + "tail");
    EXPECT_EQ(tail.id, "x") << name;
  }
}

TEST(DocumentWalker, KeepsTheOwnAttributesAsWritten) {
  const LoadedSvg svg("<svg><rect b=' 1 ' a='&lt;&#65;&amp;'/></svg>");
  const auto own = svg.Find("rect").OwnAttributes();
  ASSERT_EQ(own.size(), 2U);
  EXPECT_EQ(svg.document->store.NameOf(own[0].key), "b");
  EXPECT_EQ(own[0].Value(), " 1 ");
  EXPECT_EQ(own[1].Value(), "<A&");
}

TEST(DocumentWalker, ReadsNoAttributesFromNull) {
  Svg::AttributeStore store;
  std::vector<Svg::AttributeEntry> entries;
  SVG_Element().ReadAttributes(nullptr, Svg::XmlSource({}, tinyxml2::XMLDocument()), store, entries);
  EXPECT_THAT(entries.empty(), true);
}

TEST(DocumentWalker, TakesTheTextOfTextsAndStyles) {
  const LoadedSvg svg(
      "<svg><style> .a{b:c} </style><text> A &amp; B\n</text><tspan>T</tspan><rect>R</rect></svg>");
  EXPECT_EQ(svg.Find("style").content(), " .a{b:c} ");
  EXPECT_EQ(svg.Find("text").content(), " A & B\n");
  EXPECT_EQ(svg.Find("tspan").content(), "T");
  EXPECT_EQ(svg.Find("rect").content(), "");
}

TEST(DocumentWalker, PassesOverCommentsBeforeTheText) {
  EXPECT_EQ(LoadedSvg("<svg><text><!-- c -->A</text></svg>").Find("text").content(), "A");
  EXPECT_EQ(LoadedSvg("<svg><text><tspan/>A</text></svg>").Find("text").content(), "");
  EXPECT_EQ(LoadedSvg("<svg><text>A<tspan/>B</text></svg>").Find("text").content(), "A");
  EXPECT_EQ(LoadedSvg("<svg><text><![CDATA[A<B]]></text></svg>").Find("text").content(), "A<B");
}

TEST(SvgElement, AppendsTextThatDiffersFromWhatItHas) {
  Svg::AttributeStore store;
  SVG_Element record;
  record.AppendText("", store);
  EXPECT_EQ(record.content(), "");
  record.AppendText("ab", store);
  record.AppendText("ab", store);
  record.AppendText("c", store);
  EXPECT_EQ(record.content(), "abc");
  record.AppendTail("x", store);
  record.AppendTail("", store);
  record.AppendTail("x", store);
  EXPECT_EQ(record.secondaryContent(), "xx");
}

TEST(SvgElement, IsUnknownAndActiveAtFirst) {
  EXPECT_EQ(SVG_Element().elementType, ElementType::Unknown);
  EXPECT_EQ(static_cast<int>(ElementType::Tail), 25);
  EXPECT_TRUE(SVG_Element().active);
}

TEST(ActivityRule, KeepsDrawableElementsActive) {
  for (const char* const name : {"svg", "g", "line", "rect", "circle", "ellipse", "polyline", "polygon",
                                 "path", "text", "tspan", "image", "use"}) {
    EXPECT_TRUE(IsActive("<svg><" + std::string(name) + " id='x'/></svg>")) << name;
  }
  EXPECT_TRUE(IsActive("<svg id='x'/>"));
}

TEST(ActivityRule, SwitchesOffWhatIsNeverDrawn) {
  for (const char* const name :
       {"flowRoot", "flowRegion", "linearGradient", "radialGradient", "unknown", "style"}) {
    EXPECT_FALSE(IsActive("<svg><" + std::string(name) + " id='x'/></svg>")) << name;
  }
}

TEST(ActivityRule, LeavesOtherElementsActive) {
  for (const char* const name : {"clipPath", "switch", "foreignObject", "stop", "Param", "foo"}) {
    EXPECT_TRUE(IsActive("<svg><" + std::string(name) + " id='x'/></svg>")) << name;
  }
}

TEST(ActivityRule, SwitchesOffTopLevelDefsAndSymbolsWithAllInside) {
  EXPECT_FALSE(IsActive("<svg><defs id='x'/></svg>"));
  EXPECT_FALSE(IsActive("<svg><defs><g><rect id='x'/></g></defs></svg>"));
  EXPECT_FALSE(IsActive("<svg><symbol id='x'/></svg>"));
  EXPECT_FALSE(IsActive("<svg><symbol><rect id='x'/></symbol></svg>"));
  EXPECT_FALSE(LoadedSvg("<svg><defs><g/></defs></svg>").Find("gtail").active);
  EXPECT_FALSE(LoadedSvg("<svg><defs><g/></defs></svg>").Find("defstail").active);
}

TEST(ActivityRule, LeavesNestedDefsAndClipPathsActive) {
  EXPECT_TRUE(IsActive("<svg><g><defs id='x'/></g></svg>"));
  EXPECT_TRUE(IsActive("<svg><g><defs><rect id='x'/></defs></g></svg>"));
  EXPECT_TRUE(IsActive("<svg><clipPath><rect id='x'/></clipPath></svg>"));
  EXPECT_TRUE(LoadedSvg("<svg><clipPath/></svg>").Find("clipPathtail").active);
}

TEST(ActivityRule, TreatsTheTailLikeItsElement) {
  EXPECT_FALSE(LoadedSvg("<svg><linearGradient/></svg>").Find("linearGradienttail").active);
  EXPECT_TRUE(LoadedSvg("<svg><g/></svg>").Find("gtail").active);
  EXPECT_FALSE(LoadedSvg("<svg><style/></svg>").Find("styletail").active);
}

TEST(ActivityRule, LosesANameForEachStyleElement) {
  // Behind the style element the path of the rectangle is its own name alone.
  EXPECT_TRUE(IsActive("<svg><style/><rect id='x'/></svg>"));
  // "defs" is the first name then, not the second.
  EXPECT_TRUE(IsActive("<svg><style/><defs id='x'/></svg>"));
  EXPECT_FALSE(IsActive("<svg><style/><defs><defs id='x'/></defs></svg>"));
  EXPECT_TRUE(IsActive("<svg><style/><linearGradient id='x'/></svg>"));
  EXPECT_FALSE(IsActive("<svg><style/><g><linearGradient id='x'/></g></svg>"));
}

TEST(ActivityRule, LosesTheNameOfTheElementAroundAStyleElement) {
  // Inside the group the path is (svg, g); the style element takes "g" off, the end of the group "svg".
  EXPECT_FALSE(IsActive("<svg><g><style/><defs id='x'/></g></svg>"));
  EXPECT_TRUE(IsActive("<svg><g><style/></g><defs id='x'/></svg>"));
}

TEST(DocumentWalker, LoadsNothingFromAMissingFile) {
  Svg::SVG_Interface document("/nonexistent/drawing.svg");
  EXPECT_FALSE(document.loaded);
  EXPECT_TRUE(document.elements.empty());
}

TEST(DocumentWalker, LoadsNothingFromDamagedXml) {
  for (const char* const text : {"", " ", "<svg>", "<svg></g>", "<svg a=1/>", "<svg a='1' a='2'/>", "<svg",
                                 "no xml", "<svg><?php x?></svg>"}) {
    const LoadedSvg svg(text);
    EXPECT_FALSE(svg.document->loaded) << text;
    EXPECT_TRUE(svg.document->elements.empty()) << text;
  }
}

TEST(DocumentWalker, LoadsNothingFromAPipe) {
  const std::string path = testing::TempDir() + "drawload_pipe_" + std::to_string(getpid()) + ".svg";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  Svg::SVG_Interface document(path);
  std::remove(path.c_str());
  EXPECT_FALSE(document.loaded);
}

TEST(DocumentWalker, LoadsADocumentWithDeclarationDoctypeAndByteOrderMark) {
  EXPECT_THAT(NamesOf("\xEF\xBB\xBF<?xml version='1.0'?>\n<!DOCTYPE svg [<!ENTITY a 'b'>]>\n<svg x='&a;'/>"),
              ElementsAre("svg", "svgtail"));
  EXPECT_EQ(
      LoadedSvg("<!DOCTYPE svg [<!ENTITY a 'b'>]><svg x='&a;'/>").Find("svg").OwnAttributes()[0].Value(),
      "&a;");
}

TEST(DocumentWalker, LoadsElementsNested98DeepAndNoDeeper) {
  const auto nested = [](std::size_t depth) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) text += "<g>";
    for (std::size_t i = 0; i < depth; ++i) text += "</g>";
    return text;
  };
  EXPECT_TRUE(LoadedSvg(nested(98)).document->loaded);
  EXPECT_FALSE(LoadedSvg(nested(99)).document->loaded);
  EXPECT_FALSE(LoadedSvg(nested(100000)).document->loaded);
}

TEST(DocumentWalker, WalksSeveralTopLevelElementsFromEachOfThem) {
  EXPECT_THAT(NamesOf("<svg/><g/><rect/>"),
              ElementsAre("svg", "svgtail", "g", "gtail", "rect", "recttail", "g", "gtail", "rect",
                          "recttail", "rect", "recttail"));
}

TEST(DocumentWalker, RepeatsNothingOfADocumentThatIsNotDrawn) {
  EXPECT_EQ(NamesOf("<g/><svg/><rect/>").size(), 6U);
}

TEST(DocumentWalker, EndsRepeatedWalksWhereTheAccountRefusesMore) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "<svg/>";
  support::Account account;
  const support::AccountScope scope(account);
  const LoadedSvg svg(text);
  EXPECT_TRUE(svg.document->loaded);
  EXPECT_FALSE(svg.document->isComplete);
  EXPECT_GT(svg.document->elements.size(), 2U * 20000);
  // 20,000 · 20,001 / 2 starts would be far more.
  EXPECT_LT(svg.document->elements.size(), 20000U * 1000);
  EXPECT_EQ(account.Cuts(), 1U);
}

TEST(DocumentWalker, KeepsEqualRecordsOnce) {
  std::string text = "<svg>";
  for (int i = 0; i < 1000; ++i) text += "<a/><b c=''/><b id='d'/>";
  const LoadedSvg svg(text + "</svg>");
  const auto& elements = svg.document->elements;
  EXPECT_EQ(elements.size(), 2U + 6 * 1000);
  // The root's two; one for all starts and one for all ends of "a", one for all ends of "b" between others.
  EXPECT_EQ(elements[1], elements[7]);
  EXPECT_EQ(elements[2], elements[8]);
  EXPECT_NE(elements[3], elements[9]);
  EXPECT_EQ(elements[4]->id, "");
  EXPECT_EQ(elements[6]->id, "d");
}

TEST(DocumentWalker, ReadsNothingWhereTheTreeWouldBeTooLarge) {
  std::string text = "<svg>";
  for (int i = 0; i < 1000; ++i) text += "<a/>";
  text += "</svg>";
  // Elements take more than a hundred bytes each.
  const AccountWithMemory read(text, 100'000);
  EXPECT_FALSE(LoadedSvg(text).document->loaded);
  EXPECT_EQ(read.account.Cuts(), 1U);
}

TEST(SvgInterface, CopiesTheRecordsThatItIsGiven) {
  Svg::SVG_Interface document("");
  SVG_Element record;
  record.id = "a";
  document.AddElement(record);
  record.id = "b";
  document.AddElement(record);
  ASSERT_EQ(document.elements.size(), 2U);
  EXPECT_EQ(document.elements[0]->id, "a");
}

TEST(SvgInterface, ReplacesARuleOfTheSameClass) {
  Svg::SVG_Interface document("");
  Svg::StyleRule rule;
  document.AddStyleRule("a", rule);
  rule.Set({Svg::kFill, "red"});
  document.AddStyleRule("a", rule);
  EXPECT_EQ(document.styleRules.size(), 1U);
  EXPECT_EQ(document.ClassProperties("a")->size(), 1U);
}
