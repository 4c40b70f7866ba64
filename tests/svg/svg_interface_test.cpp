#include "svg/svg_interface.h"

#include <gmock/gmock.h>
#include <random>

#include "svg_drawing.h"

using Svg::ExtractHrefId;
using Svg::RecordList;
using Svg::SVG_Element;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> Describe(const RecordList& records) {
  std::vector<std::string> names;
  for (const SVG_Element* const record : records) {
    names.push_back(std::string(record->elementName()) + "#" + std::string(record->id));
  }
  return names;
}

std::vector<std::string> RangeOf(std::string_view text, std::string_view id) {
  const LoadedSvg svg(text);
  return Describe(svg.document->FindRange(id));
}

std::vector<std::string> Lookup(std::string_view text, std::string_view id) {
  const LoadedSvg svg(text);
  const RecordList result = svg.document->FindById(id);
  EXPECT_EQ(svg.document->lookupResult, result);
  return Describe(result);
}

/// The look-up as a scan over all records, as its rules tell it.
RecordList Scan(const RecordList& elements, std::string_view id) {
  RecordList found;
  bool inside = false;
  for (const SVG_Element* const record : elements) {
    if (!inside && record->id == id) {
      found.push_back(record);
      inside = true;
    } else if (inside) {
      found.push_back(record);
      if (record->id == id) inside = false;
    }
  }
  return found;
}

}  // namespace

TEST(ExtractHrefId, TakesWordCharactersBehindTheLastHash) {
  EXPECT_EQ(ExtractHrefId("#abc"), "abc");
  EXPECT_EQ(ExtractHrefId("x.svg#a_1-b"), "a_1");
  EXPECT_EQ(ExtractHrefId("#a#b"), "b");
  EXPECT_EQ(ExtractHrefId("#"), "");
  EXPECT_EQ(ExtractHrefId("abc"), "");
  EXPECT_EQ(ExtractHrefId("#a\nb"), "");
}

TEST(FindRange, RunsFromTheElementToItsEnd) {
  EXPECT_THAT(RangeOf("<svg><g id='a'><rect/></g><rect/></svg>", "a"),
              ElementsAre("g#a", "rect#", "recttail#", "gtail#a"));
}

TEST(FindRange, FindsNothingForAMissingId) {
  EXPECT_THAT(RangeOf("<svg/>", "a"), IsEmpty());
  EXPECT_THAT(RangeOf("<svg id='A'/>", "a"), IsEmpty());
}

TEST(FindRange, AppendsTheRangesOfLaterElements) {
  EXPECT_THAT(RangeOf("<svg><rect id='a'/><line/><circle id='a'/></svg>", "a"),
              ElementsAre("rect#a", "recttail#a", "circle#a", "circletail#a"));
}

TEST(FindRange, EndsEarlyAtAChildOfTheSameId) {
  EXPECT_THAT(
      RangeOf("<svg><g id='a'><line/><rect id='a'/><circle/></g></svg>", "a"),
      ElementsAre("g#a", "line#", "linetail#", "rect#a", "recttail#a", "circle#", "circletail#", "gtail#a"));
  EXPECT_THAT(RangeOf("<svg><g id='a'><rect id='a'><line/></rect></g></svg>", "a"),
              ElementsAre("g#a", "rect#a", "recttail#a", "gtail#a"));
}

TEST(FindRange, FindsInactiveElements) {
  EXPECT_THAT(RangeOf("<svg><defs><linearGradient id='a'/></defs></svg>", "a"),
              ElementsAre("linearGradient#a", "linearGradienttail#a"));
}

TEST(FindRange, PairsRecordsWithoutIdForTheEmptyId) {
  EXPECT_THAT(RangeOf("<svg><g id='a'><rect/></g></svg>", ""),
              ElementsAre("svg#", "g#a", "rect#", "recttail#", "gtail#a", "svgtail#"));
}

TEST(FindRange, RunsToTheEndOfTheDocumentFromALastRecord) {
  // The document was cut: the end of the first element is missing.
  Svg::SVG_Interface document("");
  SVG_Element record;
  record.id = "a";
  document.AddElement(record);
  record.id = "b";
  document.AddElement(record);
  EXPECT_EQ(document.FindRange("a").size(), 2U);
}

TEST(FindRange, GivesWhatAScanOverAllRecordsGives) {
  std::mt19937 random(7);
  for (int run = 0; run < 200; ++run) {
    Svg::SVG_Interface document("");
    const char* const ids[] = {"", "a", "b", "c"};
    const std::size_t count = random() % 40;
    for (std::size_t i = 0; i < count; ++i) {
      SVG_Element record;
      record.id = ids[random() % 4];
      document.AddElement(record);
    }
    for (const char* const id : {"", "a", "b", "c", "d"}) {
      const RecordList expected = Scan(document.elements, id);
      ASSERT_EQ(document.FindRange(id), expected);
    }
  }
}

TEST(FindRange, TellsManyIdsApart) {
  std::vector<std::string> ids;
  for (int i = 0; i < 700; ++i) ids.push_back("id" + std::to_string(i));
  Svg::SVG_Interface document("");
  std::mt19937 random(11);
  for (int i = 0; i < 1500; ++i) {
    SVG_Element record;
    record.id = ids[random() % ids.size()];
    document.AddElement(record);
  }
  for (const std::string& id : ids) {
    const RecordList expected = Scan(document.elements, id);
    ASSERT_EQ(document.FindRange(id), expected);
  }
}

TEST(FindById, InsertsTheStopsOfALinkedGradientAtTheirPlaces) {
  EXPECT_THAT(Lookup("<svg><linearGradient id='base'><stop id='1'/><stop id='2'/></linearGradient>"
                     "<linearGradient id='g' xlink:href='#base'><stop id='3'/></linearGradient></svg>",
                     "g"),
              ElementsAre("linearGradient#g", "stop#1", "stoptail#1", "stop#2", "stoptail#2", "stop#3",
                          "stoptail#3", "linearGradienttail#g"));
}

TEST(FindById, AppendsALinkedStopWhoseIndexLiesBeyondTheEnd) {
  EXPECT_THAT(Lookup("<svg><radialGradient id='base'><foo/><foo/><foo/><stop id='1'/></radialGradient>"
                     "<radialGradient id='g' xlink:href='#base'/></svg>",
                     "g"),
              ElementsAre("radialGradient#g", "radialGradienttail#g", "stop#1", "stoptail#1"));
}

TEST(FindById, FollowsOneLinkOnly) {
  EXPECT_THAT(
      Lookup("<svg><linearGradient id='a'><stop/></linearGradient><linearGradient id='b' xlink:href='#a'/>"
             "<linearGradient id='c' xlink:href='#b'/></svg>",
             "c"),
      ElementsAre("linearGradient#c", "linearGradienttail#c"));
}

TEST(FindById, FollowsALinkThatAGradientInherits) {
  EXPECT_THAT(Lookup("<svg><linearGradient id='base'><stop id='1'/></linearGradient>"
                     "<g xlink:href='#base'><linearGradient id='g'/></g></svg>",
                     "g"),
              ElementsAre("linearGradient#g", "stop#1", "stoptail#1", "linearGradienttail#g"));
}

TEST(FindById, FollowsNoLinkOfOtherElements) {
  EXPECT_THAT(
      Lookup("<svg><linearGradient id='a'><stop/></linearGradient><g id='b' xlink:href='#a'/></svg>", "b"),
      ElementsAre("g#b", "gtail#b"));
}

TEST(FindById, SurvivesAGradientThatLinksToItself) {
  EXPECT_THAT(
      Lookup("<svg><linearGradient id='a' xlink:href='#a'><stop id='s'/></linearGradient></svg>", "a"),
      ElementsAre("linearGradient#a", "stop#s", "stoptail#s", "stop#s", "stoptail#s",
                  "linearGradienttail#a"));
}

TEST(FindById, SurvivesGradientsThatLinkToEachOther) {
  EXPECT_THAT(Lookup("<svg><linearGradient id='a' xlink:href='#b'><stop id='s'/></linearGradient>"
                     "<linearGradient id='b' xlink:href='#a'><stop id='t'/></linearGradient></svg>",
                     "a"),
              ElementsAre("linearGradient#a", "stop#t", "stoptail#t", "stop#s", "stoptail#s",
                          "linearGradienttail#a"));
}

TEST(IsLinearGradient, GivesWhatTheFirstRecordOfALookupSays) {
  const LoadedSvg svg(
      "<svg><stop id='s'/><g id='o'><linearGradient id='a'/></g><radialGradient id='r'/>"
      "<linearGradient id='b' xlink:href='#a'/><linearGradient id='c' xlink:href='#s'/>"
      "<linearGradient id='d' xlink:href='#none'/><rect id='e'/><linearGradient id='e'/></svg>");
  for (const char* const id : {"s", "o", "a", "r", "b", "c", "d", "e", "none", ""}) {
    const RecordList records = svg.document->FindById(id);
    const bool expected =
        !records.empty() && records.front()->elementType == Svg::ElementType::LinearGradient;
    EXPECT_EQ(svg.document->IsLinearGradient(id), expected) << id;
    EXPECT_EQ(svg.document->IsLinearGradient(id), expected) << id << " the second time";
  }
}

TEST(FindById, EmptiesTheResultWhereNothingIsFound) {
  const LoadedSvg svg("<svg id='a'/>");
  EXPECT_EQ(svg.document->FindById("a").size(), 2U);
  EXPECT_TRUE(svg.document->FindById("b").empty());
  EXPECT_TRUE(svg.document->lookupResult.empty());
}
