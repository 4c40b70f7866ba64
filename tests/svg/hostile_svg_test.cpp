#include <gtest/gtest.h>
#include <string>

#include "support/limits.h"
#include "svg/xml_bounds.h"
#include "svg_drawing.h"

using Entity_ZR::ZR_Path;

namespace {

/// Takes everything and keeps nothing.
struct GreedySink : PARSE::DrawLoader {
  bool AddPath(ZR_Path* outline, PARSE::Context) override {
    ++paths;
    segments += outline->segments.size();
    for (const Entity_ZR::Attribute& attribute : outline->attributes) {
      pairs += attribute.pairs.size();
      stops += attribute.tag == Entity_ZR::kStopAttribute ? 1U : 0U;
    }
    return true;
  }
  std::size_t paths = 0;
  std::size_t segments = 0;
  std::size_t pairs = 0;
  std::size_t stops = 0;
};

std::string Repeated(std::string_view text, std::size_t count) {
  std::string result;
  result.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

/// Bytes of attributes that the elements of a document of this length may receive from others.
std::size_t BytesToReceive(const std::string& text) {
  return support::limits::kSvgInheritedBase + support::limits::kSvgInheritedPerByte * text.size();
}

std::unique_ptr<GreedySink> Draw(const std::string& text) {
  const TemporarySvg file(text);
  auto sink = std::make_unique<GreedySink>();
  SVG_RW reader;
  reader.sink = sink.get();
  EXPECT_TRUE(reader.Read(file.path, 0));
  return sink;
}

}  // namespace

TEST(XmlBounds, LetOrdinaryDocumentsPass) {
  EXPECT_TRUE(Svg::IsWithinXmlBounds(""));
  EXPECT_TRUE(
      Svg::IsWithinXmlBounds("<svg a='1' b=\"2\"><!-- ' --><![CDATA[']]><?x '?><g>' &#65; &amp;</g></svg>"));
  EXPECT_TRUE(Svg::IsWithinXmlBounds(Repeated("<rect a='1' b='2' c='&#65;'/>", 10000)));
}

TEST(XmlBounds, LimitTheAttributesOfAnElement) {
  const auto element = [](std::size_t count) {
    std::string text = "<svg";
    for (std::size_t i = 0; i < count; ++i) text += " a" + std::to_string(i) + "='>'";
    return text + "/>";
  };
  EXPECT_TRUE(Svg::IsWithinXmlBounds(element(support::limits::kSvgAttributes)));
  EXPECT_FALSE(Svg::IsWithinXmlBounds(element(support::limits::kSvgAttributes + 1)));
  EXPECT_FALSE(LoadedSvg(element(100000)).document->loaded);
}

TEST(XmlBounds, LimitTheSearchForTheEndsOfReferences) {
  EXPECT_FALSE(Svg::IsWithinXmlBounds("<svg a='" + Repeated("&#", 100000) + "'/>"));
  EXPECT_FALSE(Svg::IsWithinXmlBounds("<svg a='" + Repeated("&#", 100000) + ";'/>"));
}

TEST(HostileSvg, SharesWhatAGroupHandsOn) {
  // 400 attributes for each of 20,000 elements: what goes over the bound comes without them.
  std::string text = "<svg><g";
  for (int i = 0; i < 400; ++i) text += " a" + std::to_string(i) + "='" + std::string(200, 'x') + "'";
  text += ">" + Repeated("<path/>", 20000) + "</g></svg>";
  const auto sink = Draw(text);
  EXPECT_EQ(sink->paths, 20000U);
  EXPECT_GT(sink->pairs, 400U * 100);
  EXPECT_LE(sink->pairs * 264, BytesToReceive(text));
}

TEST(HostileSvg, BoundsWhatNeighbouringDefsAddUp) {
  // Each of the neighbours stores the attributes of all before it once more, 16 bytes each: those of 5,000
  // would be 16 · (1 + 2 + ... + 5,000) bytes, some 200 MB.
  std::string text = "<svg><g>";
  for (int i = 0; i < 5000; ++i) text += "<defs a" + std::to_string(i) + "=''/>";
  text += "<path/></g></svg>";
  const auto sink = Draw(text);
  EXPECT_EQ(sink->paths, 1U);
  EXPECT_LE(8 * sink->pairs * (sink->pairs + 1),
            support::limits::kSvgHandedOnBase + support::limits::kSvgHandedOnPerByte * text.size());
}

TEST(HostileSvg, HandsOnNothingWhereGroupsBeforeHandedOnTooMuch) {
  // Each of the neighbours hands on the attributes of all before it, 16 bytes each, until these lists reach
  // the bound, some 130 MB; then they start over, with what little is left.
  std::string text = "<svg><!--" + std::string(8U << 20, ' ') + "--><g>";
  for (int i = 0; i < 4200; ++i) text += "<defs a" + std::to_string(i) + "=''/>";
  const auto sink = Draw(text + "<path/></g></svg>");
  EXPECT_EQ(sink->paths, 1U);
  EXPECT_LT(sink->pairs, 200U);
}

TEST(HostileSvg, BoundsGeometryThatElementsInherit) {
  const std::string text =
      "<svg><g d='M0 0" + Repeated("h1", 50000) + "'>" + Repeated("<path/>", 3000) + "</g></svg>";
  const auto sink = Draw(text);
  EXPECT_EQ(sink->paths, 3000U);
  EXPECT_LE(sink->segments, support::limits::kSvgReferencedBase + 50000 +
                                support::limits::kSvgReferencedPerByte * text.size() + 2 * 3000);
  EXPECT_GT(sink->segments, 10U * 50000U);
}

TEST(HostileSvg, BoundsPropertiesThatRulesGiveToManyElements) {
  std::string sheet = ".a{";
  for (int i = 0; i < 20000; ++i) sheet += "a" + std::to_string(i) + ":b;";
  const std::string text =
      "<svg><style>" + sheet + "}</style>" + Repeated("<path class='a'/>", 5000) + "</svg>";
  const auto sink = Draw(text);
  EXPECT_EQ(sink->paths, 5000U);
  // Each path has its class, and those that come first have the 20,000 properties too, 65 bytes each.
  EXPECT_GT(sink->pairs, 20000U);
  EXPECT_LE((sink->pairs - 5000) * 65, BytesToReceive(text));
}

TEST(HostileSvg, BoundsRulesThatActOnManyElements) {
  std::string sheet;
  for (int i = 0; i < 4000; ++i) sheet += "path.a" + std::to_string(i) + "{x:y}";
  const std::string text = "<svg><style>" + sheet + "</style>" + Repeated("<path/>", 4000) + "</svg>";
  const auto sink = Draw(text);
  EXPECT_EQ(sink->paths, 4000U);
  // All rules give the same property, each anew, 65 bytes; the paths that come first have it.
  EXPECT_GT(sink->pairs, 0U);
  EXPECT_LE(sink->pairs * 4000 * 65, BytesToReceive(text));
}

TEST(HostileSvg, BoundsGradientsOfManyStops) {
  const std::string text = "<svg><linearGradient id='g'>" + Repeated("<stop/>", 5000) + "</linearGradient>" +
                           Repeated("<path fill='url(#g)'/>", 2500) + "</svg>";
  const auto sink = Draw(text);
  EXPECT_EQ(sink->paths, 2500U);
  EXPECT_GT(sink->stops, 5000U);
  EXPECT_LE(sink->stops, support::limits::kSvgGradientUnits);
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
    EXPECT_EQ(Draw("<svg><style>" + std::string(sheet) + "</style><path/></svg>")->paths, 1U) << sheet;
  }
}

TEST(HostileSvg, ReadsALongPath) {
  EXPECT_EQ(Draw("<svg><path d='M0 0" + Repeated("h1", 1000000) + "'/></svg>")->segments, 1000001U);
}

TEST(HostileSvg, ReadsManyNumbersOfOneCommand) {
  EXPECT_EQ(Draw("<svg><path d='M" + Repeated("1 ", 1000000) + "'/></svg>")->segments, 500000U);
}

TEST(HostileSvg, ReadsManyNestedTransforms) {
  const std::string text =
      "<svg><path transform='" + Repeated("scale(9e9)", 100000) + "' d='M0 0L1 1'/></svg>";
  EXPECT_EQ(Draw(text)->paths, 1U);
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
