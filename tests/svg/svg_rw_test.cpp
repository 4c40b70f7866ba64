#include "svg/svg_rw.h"

#include <cmath>
#include <gmock/gmock.h>

#include "svg_drawing.h"

using Entity_ZR::ZR_Line;
using Entity_ZR::ZR_Path;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double kUnit = 0.35277777777777775;

}  // namespace

TEST(SvgReader, RefusesAnEmptyPathAndCallsNothing) {
  RecordingSink sink;
  SVG_RW reader;
  reader.sink = &sink;
  EXPECT_FALSE(reader.Read("", 0));
  EXPECT_THAT(sink.Names(), IsEmpty());
}

TEST(SvgReader, DrawsNothingFromAMissingFile) {
  RecordingSink sink;
  SVG_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read("/nonexistent/drawing.svg", 0));
  EXPECT_THAT(sink.Names(), ElementsAre("BeginRead", "BeginFile", "EndFile", "EndRead"));
}

TEST(SvgReader, DrawsNothingFromAnotherRoot) {
  for (const char* const text :
       {"<html><svg><rect/></svg></html>", "<SVG/>", "not xml", "<!-- no root -->"}) {
    const SvgDrawing drawing(text);
    EXPECT_TRUE(drawing.isRead);
    EXPECT_THAT(drawing.Names(), ElementsAre("BeginRead", "BeginFile", "EndFile", "EndRead")) << text;
  }
}

TEST(SvgReader, BracketsTheDrawing) {
  const SvgDrawing drawing("<svg><g><rect/></g></svg>");
  EXPECT_THAT(drawing.Names(), ElementsAre("BeginRead", "BeginFile", "SetPage", "BeginGroup", "AddInsert",
                                           "AddPath", "EndGroup", "EndFile", "EndRead"));
}

TEST(SvgReader, RunsToItsEndWithASinkThatRefusesAll) {
  const SvgDrawing drawing("<svg><g><rect/><line stroke='red'/></g><text>A</text><image/></svg>", false);
  EXPECT_TRUE(drawing.isRead);
  EXPECT_EQ(drawing.Count("AddPath"), 1U);
  EXPECT_EQ(drawing.Names().back(), "EndRead");
}

TEST(SvgReader, ReadsASecondDocument) {
  RecordingSink sink;
  SVG_RW reader;
  reader.sink = &sink;
  const TemporarySvg first("<svg><style>.a{fill:red}</style><rect class='a'/></svg>");
  const TemporarySvg second("<svg><rect class='a'/></svg>");
  reader.Read(first.path, 0);
  reader.ResetReader();
  reader.Read(second.path, 0);
  const auto paths = sink.All<ZR_Path>();
  ASSERT_EQ(paths.size(), 2U);
  EXPECT_EQ(paths[0]->color, 0xFF0000FFU);
  EXPECT_EQ(paths[1]->color, 0xFF000000U);
}

namespace {

struct Page {
  std::vector<PARSE::PageRect> rects;
  Matrix2D matrix;  ///< of a line behind the last `svg`
};

Page PageOf(const std::string& svg) {
  const SvgDrawing drawing(svg);
  Page page;
  for (const RecordedCall& call : drawing.sink.calls) {
    if (call.name == "SetPage") page.rects.push_back(call.page);
  }
  page.matrix = drawing.Only<ZR_Line>().matrix;
  return page;
}

/// The page of a document whose root has `attributes`.
Page RootPage(const std::string& attributes) {
  return PageOf("<svg " + attributes + "><line stroke='red'/></svg>");
}

}  // namespace

TEST(SvgPage, TakesItsSizeInUserUnits) {
  const Page page = RootPage("width='100' height='50'");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{0, 0, 100 * kUnit, 50 * kUnit}));
  EXPECT_EQ(page.matrix, (Matrix2D{kUnit, 0, 0, kUnit, 0, 0}));
}

TEST(SvgPage, TakesTheFactorOfTheWidthForBothSizes) {
  const Page page = RootPage("width='10cm' height='50mm' x='3' y='4mm'");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{3, 4, 100, 500}));
  EXPECT_EQ(page.matrix.a, kUnit);
}

TEST(SvgPage, TakesASizeInPercentForUserUnits) {
  EXPECT_THAT(RootPage("width='100%' height='50%'").rects,
              ElementsAre(PARSE::PageRect{0, 0, 100 * kUnit, 50 * kUnit}));
}

TEST(SvgPage, TakesItsSizeWhereTheViewBoxIsEmpty) {
  EXPECT_THAT(RootPage("viewBox='' width='5mm' height='6mm'").rects,
              ElementsAre(PARSE::PageRect{0, 0, 5, 6}));
}

TEST(SvgPage, HasNoHeightWhereAWidthAloneScalesTheViewBox) {
  EXPECT_THAT(RootPage("width='100mm' viewBox='0 0 200 100'").rects,
              ElementsAre(PARSE::PageRect{0, 0, 100, 0}));
}

TEST(SvgPage, IsEmptyWithoutSizes) {
  EXPECT_THAT(RootPage("").rects, ElementsAre(PARSE::PageRect{0, 0, 0, 0}));
}

TEST(SvgPage, TakesTheViewBoxInUserUnits) {
  const Page page = RootPage("viewBox='1 2 200 100'");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{1, 2, 200 * kUnit, 100 * kUnit}));
  EXPECT_EQ(page.matrix, (Matrix2D{kUnit, 0, 0, kUnit, 0, 0}));
}

TEST(SvgPage, ScalesTheViewBoxToTheSize) {
  const Page page = RootPage("width='100mm' height='50mm' viewBox='0 0 200 100'");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{0, 0, 100, 50}));
  const double ratio = (100.0 * 1.0) / (200.0 * kUnit);
  EXPECT_EQ(page.matrix, (Matrix2D{kUnit * ratio, 0, 0, kUnit * ratio, 0, 0}));
  EXPECT_NEAR(page.matrix.a, 0.5, 1e-15);
}

TEST(SvgPage, ScalesTheViewBoxDownAndToANegativeWidth) {
  const Page smaller = RootPage("width='10mm' height='5mm' viewBox='0 0 200 100'");
  EXPECT_THAT(smaller.rects, ElementsAre(PARSE::PageRect{0, 0, 10, 5}));
  EXPECT_NEAR(smaller.matrix.a, 0.05, 1e-15);
  const Page negative = RootPage("width='-100mm' height='50mm' viewBox='0 0 200 100'");
  EXPECT_THAT(negative.rects, ElementsAre(PARSE::PageRect{0, 0, -100, 50}));
  EXPECT_NEAR(negative.matrix.a, -0.5, 1e-15);
}

TEST(SvgPage, KeepsTheScaleForAWidthThatDiffersByLessThanATenThousandth) {
  EXPECT_EQ(RootPage("width='200.01px' height='7px' viewBox='0 0 200 100'").matrix.a, kUnit);
  EXPECT_NEAR(RootPage("width='200.1px' height='7px' viewBox='0 0 200 100'").matrix.a, kUnit * 1.0005, 1e-15);
  EXPECT_NEAR(RootPage("width='0.0002mm' height='7mm' viewBox='0 0 200 100'").matrix.a, 0.000001, 1e-18);
}

TEST(SvgPage, ScalesBothAxesByTheWidthAlone) {
  const Page page = RootPage("width='100mm' height='999mm' viewBox='0 0 200 100' preserveAspectRatio='none'");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{0, 0, 100, 999}));
  EXPECT_EQ(page.matrix.d, page.matrix.a);
}

TEST(SvgPage, DoesNotMoveByTheOriginOfTheViewBox) {
  EXPECT_EQ(RootPage("viewBox='10 20 200 100'").matrix.e, 0.0);
}

TEST(SvgPage, KeepsTheScaleForAWidthThatMatchesTheViewBox) {
  const Page page = RootPage("width='200px' height='7px' viewBox='0 0 200 100'");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{0, 0, 200 * kUnit, 100 * kUnit}));
  EXPECT_EQ(page.matrix.a, kUnit);
}

TEST(SvgPage, IgnoresAWidthOfNothing) {
  for (const char* const width : {"0mm", "0.00009mm", "abc", "  "}) {
    const Page page = RootPage("width='" + std::string(width) + "' height='7mm' viewBox='0 0 200 100'");
    EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{0, 0, 200 * kUnit, 100 * kUnit})) << width;
    EXPECT_EQ(page.matrix.a, kUnit) << width;
  }
}

TEST(SvgPage, ComputesAScaleOfExactlyOneForMillimetreUnits) {
  // Whether a group that only translates is applied depends on this being exact.
  for (const char* const size : {"100", "200", "210", "297", "300"}) {
    const std::string n = size;
    EXPECT_EQ(RootPage("width='" + n + "mm' height='50mm' viewBox='0 0 " + n + " 50'").matrix.a, 1.0) << n;
  }
}

TEST(SvgPage, MissesAScaleOfOneByRoundingForSomeWidths) {
  // The quotient 500 / (500 · 0.35277777777777775) is rounded, and so is its product with the unit.
  EXPECT_EQ(RootPage("width='500mm' height='50mm' viewBox='0 0 500 50'").matrix.a, std::nextafter(1.0, 0.0));
  EXPECT_EQ(RootPage("width='3mm' height='50mm' viewBox='0 0 3 50'").matrix.a, std::nextafter(1.0, 2.0));
}

TEST(SvgPage, SplitsTheViewBoxAtBlanksElseAtCommas) {
  const PARSE::PageRect expected = {1, 2, 3 * kUnit, 4 * kUnit};
  EXPECT_THAT(RootPage("viewBox='1,2,3,4'").rects, ElementsAre(expected));
  EXPECT_THAT(RootPage("viewBox='  1  2 3 4 '").rects, ElementsAre(expected));
  EXPECT_THAT(RootPage("viewBox='1, 2, 3, 4'").rects, ElementsAre(expected));
}

TEST(SvgPage, StaysAsItWasForAnotherCountOfNumbers) {
  for (const char* const box : {"1 2 3", "1 2 3 4 5", "1,2 3,4", " ", "1;2;3;4"}) {
    EXPECT_THAT(RootPage("width='5mm' height='6mm' viewBox='" + std::string(box) + "'").rects,
                ElementsAre(PARSE::PageRect{0, 0, 0, 0}))
        << box;
  }
}

TEST(SvgPage, ReadsTheViewBoxUnderItsProperSpellingOnly) {
  EXPECT_THAT(RootPage("viewbox='1 2 3 4'").rects, ElementsAre(PARSE::PageRect{0, 0, 0, 0}));
  EXPECT_THAT(RootPage("style='viewBox:1 2 3 4'").rects, ElementsAre(PARSE::PageRect{0, 0, 0, 0}));
}

TEST(SvgPage, CompoundsTheScaleOfNestedRoots) {
  const Page page =
      PageOf("<svg width='10' height='20'><svg width='1' height='2'><line stroke='red'/></svg></svg>");
  EXPECT_THAT(page.rects, ElementsAre(PARSE::PageRect{0, 0, 10 * kUnit, 20 * kUnit},
                                      PARSE::PageRect{0, 0, 1 * kUnit, 2 * kUnit}));
  EXPECT_EQ(page.matrix.a, kUnit * kUnit);
}

TEST(SvgPage, LeavesThePageAloneForASecondViewBox) {
  const Page page = PageOf("<svg viewBox='1 2 3 4'><svg viewBox='5 6 7 8'><line stroke='red'/></svg></svg>");
  const PARSE::PageRect first = {1, 2, 3 * kUnit, 4 * kUnit};
  EXPECT_THAT(page.rects, ElementsAre(first, first));
  EXPECT_EQ(page.matrix.a, kUnit * kUnit);
}

TEST(SvgPage, GathersTheNumbersOfAllViewBoxes) {
  const Page page = PageOf("<svg viewBox='1 2'><svg viewBox='3 4'><line stroke='red'/></svg></svg>");
  EXPECT_THAT(page.rects,
              ElementsAre(PARSE::PageRect{0, 0, 0, 0}, PARSE::PageRect{1, 2, 3 * kUnit, 4 * kUnit}));
}

TEST(SvgPage, PlacesANestedRootInsideAGroupOnceMore) {
  // The nested root unsets that the group's frame already holds the document's matrix.
  const Page page = PageOf("<svg><g><svg><line stroke='red'/></svg></g></svg>");
  EXPECT_EQ(page.matrix.a, kUnit * kUnit);
}
