#include <gtest/gtest.h>
#include <string>
#include <tinyxml2.h>

#include "support/limits.h"
#include "svg/xml_bounds.h"
#include "svg_drawing.h"

using Entity_ZR::ZR_Path;

namespace {

/// Takes everything and keeps nothing.
struct GreedySink : PARSE::DrawLoader {
  bool AddPath(ZR_Path* outline, PARSE::Context) override {
    ++paths;
    red += outline->color == 0xFF0000FF ? 1U : 0U;
    withAttributes += outline->attributes.empty() ? 0U : 1U;
    segments += outline->segments.size();
    for (const Entity_ZR::Attribute& attribute : outline->attributes) pairs += attribute.pairs.size();
    return true;
  }
  bool AddLine(Entity_ZR::ZR_Line*, PARSE::Context) override {
    ++lines;
    return true;
  }
  std::size_t paths = 0;
  std::size_t red = 0;  ///< of the paths
  std::size_t withAttributes = 0;
  std::size_t segments = 0;
  std::size_t pairs = 0;
  std::size_t lines = 0;
};

/// The style of a group, with more properties than are read.
std::string LongStyle(int properties) {
  std::string style = "stroke:red";
  for (int i = 0; i < properties; ++i) style += ";property-" + std::to_string(i) + ":value";
  return style;
}

/// A drawing under the account of a read of its own.
struct Drawing {
  /// `most` is what the read may do beyond what its file allows, less than usual.
  explicit Drawing(const std::string& text, std::uint64_t most = support::limits::kWorkBase) {
    const TemporarySvg file(text);
    support::Account account;
    account.AllowForFile(text.size());
    account.Spend(support::limits::kWorkBase - most);
    {
      const support::AccountScope scope(account);
      SVG_RW reader;
      reader.sink = &sink;
      EXPECT_TRUE(reader.Read(file.path, 0));
    }
    cuts = account.Cuts();
    work = account.Spent() - (support::limits::kWorkBase - most);
  }

  GreedySink sink;
  std::uint64_t cuts = 0;
  std::uint64_t work = 0;
};

}  // namespace

TEST(MeasureXml, CountsWhatTheParserMakes) {
  const auto extent =
      Svg::MeasureXml("<?x?><!-- <a/> --><svg a='>' b=\"<\"> A <g>\n</g><![CDATA[<]]>B</svg>\n");
  ASSERT_TRUE(extent.has_value());
  EXPECT_EQ(extent->elements, 2U);
  EXPECT_EQ(extent->attributes, 2U);
  EXPECT_EQ(extent->texts, 2U);
  EXPECT_EQ(extent->marks, 3U);
}

TEST(MeasureXml, EstimatesNoLessThanTheTree) {
  const auto bytesOf = [](std::string_view text) { return Svg::MeasureXml(text)->TreeBytes(); };
  EXPECT_GE(bytesOf(Repeated("<a/>", 10000)), 10000 * sizeof(tinyxml2::XMLElement));
  EXPECT_GE(bytesOf("<a>" + Repeated("x<!>", 10000) + "</a>"),
            10000 * (sizeof(tinyxml2::XMLText) + sizeof(tinyxml2::XMLUnknown)));
  EXPECT_GE(bytesOf(Repeated("<a b=''/>", 10000)),
            10000 * (sizeof(tinyxml2::XMLElement) + sizeof(tinyxml2::XMLAttribute)));
  EXPECT_LE(bytesOf(Repeated("<a/>\n", 10000)), 10000 * 128U + 50000);
}

TEST(MeasureXml, LetsOrdinaryDocumentsPass) {
  EXPECT_TRUE(Svg::MeasureXml(""));
  EXPECT_TRUE(Svg::MeasureXml("<svg a='1' b=\"2\"><!-- ' --><![CDATA[']]><?x '?><g>' &#65; &amp;</g></svg>"));
  EXPECT_TRUE(Svg::MeasureXml(Repeated("<rect a='1' b='2' c='&#65;'/>", 10000)));
}

TEST(MeasureXml, EndsWithTextsThatBreakOff) {
  for (const char* const text :
       {"<", "</", "<!", "<?", "<a", "<a b", "<a b='", "<!--", "<![CDATA[", "a", " "}) {
    EXPECT_TRUE(Svg::MeasureXml(text)) << text;
  }
}

TEST(MeasureXml, LimitsTheAttributesOfAnElement) {
  const auto element = [](std::size_t count) {
    std::string text = "<svg";
    for (std::size_t i = 0; i < count; ++i) text += " a" + std::to_string(i) + "='>'";
    return text + "/>";
  };
  EXPECT_TRUE(Svg::MeasureXml(element(support::limits::kSvgAttributes)));
  EXPECT_FALSE(Svg::MeasureXml(element(support::limits::kSvgAttributes + 1)));
  EXPECT_FALSE(LoadedSvg(element(100000)).document->loaded);
}

TEST(MeasureXml, LimitsTheSearchForTheEndsOfReferences) {
  EXPECT_FALSE(Svg::MeasureXml("<svg a='" + Repeated("&#", 100000) + "'/>"));
  EXPECT_FALSE(Svg::MeasureXml("<svg a='" + Repeated("&#", 100000) + ";'/>"));
}

TEST(LargeSvg, HandsTheStyleOfAGroupToAllOfManyElements) {
  const std::string text = "<svg><g style='" + LongStyle(50) + "'>" + Repeated("<path/>", 30000) +
                           Repeated("<line/>", 25000) + "</g></svg>";
  const Drawing drawing(text);
  EXPECT_EQ(drawing.sink.red, 30000U);
  EXPECT_EQ(drawing.sink.lines, 25000U);
  EXPECT_EQ(drawing.cuts, 0U);
}

TEST(LargeSvg, HandsManyAttributesToAllOfManyElements) {
  std::string text = "<svg><g";
  for (int i = 0; i < 400; ++i) text += " a" + std::to_string(i) + "='" + std::string(200, 'x') + "'";
  const Drawing drawing(text + ">" + Repeated("<path/>", 5000) + "</g></svg>");
  EXPECT_EQ(drawing.sink.pairs, 400U * 5000);
}

TEST(LargeSvg, DrawsTiledClonesWhole) {
  const std::string path = "<path style='" + LongStyle(50) + "' d='M0 0h1v1h1v1h1'/>";
  const Drawing drawing("<svg><g id='t'>" + Repeated(path, 1000) + "</g>" +
                        Repeated("<use xlink:href='#t' x='1'/>", 100) + "</svg>");
  EXPECT_EQ(drawing.sink.red, 101U * 1000);
  EXPECT_EQ(drawing.sink.segments, 101U * 1000 * 6);
  EXPECT_EQ(drawing.cuts, 0U);
}

TEST(LargeSvg, FillsAllOfManyShapesWithOneGradient) {
  const Drawing drawing("<svg><linearGradient id='g'>" + Repeated("<stop/>", 5000) + "</linearGradient>" +
                        Repeated("<path fill='url(#g)'/>", 2500) + "</svg>");
  EXPECT_EQ(drawing.sink.withAttributes, 2500U);
  EXPECT_EQ(drawing.cuts, 0U);
}

TEST(LargeSvg, LooksAtTheStyleOfAGradientOnce) {
  const auto workOf = [](const std::string& style) {
    return Drawing("<svg><linearGradient id='g' style='" + style + "'/>" +
                   Repeated("<path fill='url(#g)'/>", 2000) + "</svg>")
        .work;
  };
  // Each property is read, stored and found by its name, but not for each of the paths.
  EXPECT_LT(workOf(LongStyle(20000)), workOf("") + 20000 * 2000U);
}

TEST(LargeSvg, StoresWhatNeighbouringDefsAddUpOnce) {
  // Each of the neighbours hands on the attributes of all before it: 5,000 lists of up to 5,000 attributes.
  std::string text = "<svg><g>";
  for (int i = 0; i < 5000; ++i) text += "<defs a" + std::to_string(i) + "=''/>";
  const Drawing drawing(text + "<path/></g></svg>");
  EXPECT_EQ(drawing.sink.pairs, 5000U);
  EXPECT_LT(drawing.work, 5000U * 5000 * sizeof(Svg::AttributeEntry) / 10);
}

TEST(LargeSvg, GivesThePropertiesOfARuleToManyElementsAtNoCost) {
  const std::string sheet = "<style>.a{" + Repeated("a:b;", 1000) + LongStyle(2000) + "}</style>";
  const LoadedSvg svg("<svg>" + sheet + Repeated("<path class='a'/>", 100) + "</svg>");
  const Svg::SVG_Element* first = nullptr;
  for (const Svg::SVG_Element* const record : svg.document->elements) {
    if (record->elementType != Svg::ElementType::Path) continue;
    if (first == nullptr) first = record;
    EXPECT_EQ(record->RuleProperties().data(), first->RuleProperties().data());
    EXPECT_EQ(record->RuleProperties().size(), 2002U);
  }
}

TEST(HostileSvg, EndsGeometryThatElementsInherit) {
  // 20,000 paths of 5,000 segments, 10,000 bytes each.
  const Drawing drawing(
      "<svg><g d='M0 0" + Repeated("h1", 5000) + "'>" + Repeated("<path/>", 20000) + "</g></svg>", 0);
  EXPECT_GT(drawing.cuts, 0U);
  EXPECT_GT(drawing.sink.segments, 100U * 5000);
  EXPECT_LT(drawing.sink.segments, 20000U * 5000);
}

TEST(HostileSvg, EndsPropertiesThatRulesGiveToManyElements) {
  std::string sheet = ".a{";
  for (int i = 0; i < 2000; ++i) sheet += "a" + std::to_string(i) + ":b;";
  const Drawing drawing("<svg><style>" + sheet + "}</style>" + Repeated("<path class='a'/>", 5000) + "</svg>",
                        0);
  EXPECT_GT(drawing.cuts, 0U);
  EXPECT_GT(drawing.sink.pairs, 2000U * 100);
  EXPECT_LT(drawing.sink.pairs, 2000U * 5000);
}

TEST(HostileSvg, ClosesTheGroupsThatReferencesOpen) {
  const std::string text =
      "<svg><g id='a'><g id='a'></g></g>" + Repeated("<use xlink:href='#a'/>", 1000) + "<path/></svg>";
  const SvgDrawing drawing(text);
  EXPECT_EQ(drawing.Count("BeginGroup"), 2U + 2 * 1000);
  EXPECT_EQ(drawing.Count("EndGroup"), 2U + 2 * 1000);
  EXPECT_EQ(drawing.Count("AddPath"), 1U);
}

TEST(HostileSvg, DrawsWhatStandsBehindABrokenStyleSheet) {
  for (const char* const sheet : {"{fill:red}", ".a{}", "{", "}", "{}", "{{", ".a{{", ".{x:y}"}) {
    EXPECT_EQ(Drawing("<svg><style>" + std::string(sheet) + "</style><path/></svg>").sink.paths, 1U) << sheet;
  }
}

TEST(HostileSvg, ReadsALongPath) {
  EXPECT_EQ(Drawing("<svg><path d='M0 0" + Repeated("h1", 1000000) + "'/></svg>").sink.segments, 1000001U);
}

TEST(HostileSvg, ReadsManyNumbersOfOneCommand) {
  EXPECT_EQ(Drawing("<svg><path d='M" + Repeated("1 ", 1000000) + "'/></svg>").sink.segments, 500000U);
}

TEST(HostileSvg, ReadsManyNestedTransforms) {
  const std::string text =
      "<svg><path transform='" + Repeated("scale(9e9)", 100000) + "' d='M0 0L1 1'/></svg>";
  EXPECT_EQ(Drawing(text).sink.paths, 1U);
}

TEST(HostileSvg, ReadsOddNumbersEverywhere) {
  for (const char* const number : {"nan", "inf", "-inf", "1e999", "-1e999", "0x1p9999", "1e-999", "-0"}) {
    const std::string n = number;
    const std::string text = "<svg width='" + n + "' height='" + n + "' viewBox='" + n + " " + n + " " + n +
                             " " + n + "'><rect x='" + n + "' width='" + n + "' height='" + n + "' rx='" + n +
                             "' ry='" + n + "'/><path d='M" + n + " 0A" + n + " " + n + " " + n + " 1 1 " +
                             n + " 5'/><circle r='" + n + "' fill='rgb(" + n + "," + n + "," + n +
                             ")' stroke-opacity='" + n + "'/><text x='" + n + "' font-size='" + n +
                             "'>A</text><image width='" + n + "' height='" + n +
                             "' href='data:image,'/><Param diameter='" + n + "'/></svg>";
    EXPECT_EQ(SvgDrawing(text).Count("AddCircle"), 1U) << n;
  }
}
