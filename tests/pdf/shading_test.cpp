#include "pdf/shading.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

using pdf::PdfFileReader;
using pdf::PdfFunction;
using pdf::PdfPairs;
using pdf::PdfShading;
using pdf::PdfXrefSection;

namespace {

using Numbers = std::vector<double>;

/// A file of the given objects, with the numbers 1 and up.
class Objects {
 public:
  explicit Objects(const std::vector<std::string>& bodies) {
    for (std::size_t i = 0; i < bodies.size(); ++i) {
      section.entries[static_cast<std::uint32_t>(i + 1)].offset = static_cast<std::int32_t>(file.size());
      file += std::to_string(i + 1) + " 0 obj " + bodies[i] + " endobj\n";
    }
  }

  PdfShading Shading() {
    PdfFileReader reader(file);
    PdfShading shading;
    EXPECT_TRUE(ReadShading(reader, section, 1, shading));
    return shading;
  }

  PdfFunction Function() {
    PdfFileReader reader(file);
    return ReadFunction(reader, section, 1);
  }

 private:
  std::string file;
  PdfXrefSection section;
};

const std::string kRed = "<</FunctionType 2/Domain[0 1]/C0[1 0 0]/C1[0.5 0 0]/N 1>>";

}  // namespace

TEST(ReadShading, ReadsTheCommonKeys) {
  const PdfShading shading = Objects({"<</ShadingType 1/ColorSpace/DeviceRGB/AntiAlias true>>"}).Shading();
  EXPECT_EQ(shading.type, 1);
  EXPECT_EQ(shading.colourSpace, "/DeviceRGB");
  EXPECT_TRUE(shading.antiAlias);
  EXPECT_FALSE(Objects({"<</ShadingType 1/AntiAlias true/AntiAlias false>>"}).Shading().antiAlias);
}

TEST(ReadShading, DoesNotKnowBackgroundAndBBoxInTheirStandardSpelling) {
  const PdfShading shading = Objects({"<</ShadingType 1/Background[1 2 3]/BBox[1 2 3 4]>>"}).Shading();
  EXPECT_EQ(shading.background, "");
  EXPECT_EQ(shading.box, (std::array<double, 4>{}));
}

TEST(ReadShading, KnowsBackgrounAndBBOX) {
  const PdfShading shading = Objects({"<</ShadingType 1/Backgroun 5/BBOX[1 2.5 3 4]>>"}).Shading();
  EXPECT_EQ(shading.background, "5");
  EXPECT_EQ(shading.box, (std::array<double, 4>{1, 2.5, 3, 4}));
}

TEST(ReadShading, HasItsDefaults) {
  const PdfShading shading = Objects({"<</ShadingType 2>>"}).Shading();
  EXPECT_EQ(shading.domain, (std::array<double, 2>{0, 1}));
  EXPECT_EQ(shading.extend, (std::array<bool, 2>{false, false}));
  EXPECT_EQ(shading.functionNumber, 0);
  EXPECT_TRUE(shading.coords.empty());
}

TEST(ReadShading, ReadsAnAxialShadingWithItsFunction) {
  const PdfShading shading =
      Objects({"<</ShadingType 2/Coords[0 1.5 20 -3]/Domain[0.25 0.75]/Function 2 0 R/Extend[true false]>>",
               kRed})
          .Shading();
  EXPECT_EQ(shading.coords, (Numbers{0, 1.5, 20, -3}));
  EXPECT_EQ(shading.domain, (std::array<double, 2>{0.25, 0.75}));
  EXPECT_EQ(shading.functionNumber, 2);
  EXPECT_EQ(shading.extend, (std::array<bool, 2>{true, false}));
  EXPECT_EQ(shading.function.exponential.c1, (Numbers{0.5, 0, 0}));
}

TEST(ReadShading, ReadsARadialShading) {
  const PdfShading shading =
      Objects({"<</ShadingType 3/Coords[1 2 3 4 5 6]/Function 2 0 R>>", kRed}).Shading();
  EXPECT_EQ(shading.coords, (Numbers{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(shading.function.type, "2");
}

TEST(ReadShading, StopsAtTheCommonKeysForOtherTypes) {
  for (const char* type : {"1", "4", "5", "6", "7", "0"}) {
    const PdfShading shading =
        Objects({"<</ShadingType " + std::string(type) + "/Coords[1 2]/Domain[3 4]/Function 2 0 R>>", kRed})
            .Shading();
    EXPECT_TRUE(shading.coords.empty()) << type;
    EXPECT_EQ(shading.functionNumber, 0);
    EXPECT_EQ(shading.function.type, "");
  }
}

TEST(ReadShading, ReadsNoInlineFunctionAndNoValuesThatAreNoArrays) {
  const PdfShading shading =
      Objects({"<</ShadingType 2/Coords 5 0 R/Domain 6 0 R/Extend 7 0 R/Function" + kRed + ">>"}).Shading();
  EXPECT_TRUE(shading.coords.empty());
  EXPECT_EQ(shading.functionNumber, 0);
  // The inline function's own /Domain is met by the walk over all tokens.
  EXPECT_EQ(shading.domain, (std::array<double, 2>{0, 1}));
}

TEST(ReadShading, FailsWhereTheTokensRunOut) {
  EXPECT_THROW(Objects({"<</ShadingType 2/Coords[1 2>>"}).Shading(), std::out_of_range);
  EXPECT_THROW(Objects({"/BBOX[1"}).Shading(), std::out_of_range);
}

TEST(ReadFunction, ReadsAnExponentialFunction) {
  const PdfFunction function =
      Objects({"<</FunctionType 2/Domain[0 1]/C0[1 0.5 0]/C1[0 0 1 0.25]/N 1.5>>"}).Function();
  EXPECT_EQ(function.type, "2");
  EXPECT_EQ(function.exponential.domain, (PdfPairs{{0, 1}}));
  EXPECT_EQ(function.exponential.c0, (Numbers{1, 0.5, 0}));
  EXPECT_EQ(function.exponential.c1, (Numbers{0, 0, 1, 0.25}));
  EXPECT_EQ(function.exponential.n, 1.5);
}

TEST(ReadFunction, MakesAStopOfEachPartOfAStitchingFunction) {
  const PdfFunction function =
      Objects(
          {"<</FunctionType 3/Domain[0 1]/Functions[2 0 R 3 0 R 2 0 R]/Bounds[0.3 0.6]/Encode[0 1 1 0 0 1]>>",
           kRed, "<</FunctionType 2/N 2>>"})
          .Function();
  EXPECT_EQ(function.type, "3");
  EXPECT_EQ(function.stitching.domain, (PdfPairs{{0, 1}}));
  EXPECT_EQ(function.stitching.functions, (std::vector<std::int32_t>{2, 3, 2}));
  EXPECT_EQ(function.stitching.bounds, (Numbers{0.3, 0.6}));
  EXPECT_EQ(function.stitching.encode, (PdfPairs{{0, 1}, {1, 0}, {0, 1}}));
  ASSERT_EQ(function.stitching.stops.size(), 3U);
  EXPECT_EQ(function.stitching.stops[0]->c0, (Numbers{1, 0, 0}));
  EXPECT_EQ(function.stitching.stops[1]->n, 2.0);
  EXPECT_TRUE(function.stitching.stops[1]->c0.empty());
  EXPECT_EQ(function.stitching.stops[2]->n, 1.0);
}

TEST(ReadFunction, IgnoresOtherTypes) {
  for (const char* type : {"0", "4"}) {
    const PdfFunction function =
        Objects({"<</FunctionType " + std::string(type) + "/Domain[0 1]/C0[1]/N 2>>"}).Function();
    EXPECT_EQ(function.type, type);
    EXPECT_TRUE(function.exponential.domain.empty());
    EXPECT_TRUE(function.exponential.c0.empty());
    EXPECT_TRUE(function.stitching.stops.empty());
  }
}

TEST(ReadFunction, GivesAnEmptyStopForAPartThatIsNotExponential) {
  const PdfFunction function =
      Objects({"<</FunctionType 3/Functions[2 0 R]>>", "<</FunctionType 0/C0[1]>>"}).Function();
  ASSERT_EQ(function.stitching.stops.size(), 1U);
  EXPECT_TRUE(function.stitching.stops[0]->c0.empty());
}

TEST(ReadFunction, DoesNotFollowAFunctionThatNamesItself) {
  // Object 1 has both types' keys: followed, it would give its own C0 as a stop.
  const PdfFunction function =
      Objects({"<</FunctionType 3/FunctionType 2/C0[1]/Functions[1 0 R 2 0 R 1 0 R]>>", kRed}).Function();
  EXPECT_EQ(function.exponential.c0, (Numbers{1}));
  ASSERT_EQ(function.stitching.stops.size(), 3U);
  EXPECT_TRUE(function.stitching.stops[0]->c0.empty());
  EXPECT_EQ(function.stitching.stops[1]->c0, (Numbers{1, 0, 0}));
  EXPECT_TRUE(function.stitching.stops[2]->c0.empty());
}

TEST(ReadFunction, ReadsAPartOnceHoweverOftenItIsNamed) {
  std::string numbers;
  for (int i = 0; i < 1000; ++i) numbers += "2 0 R ";
  const PdfFunction function = Objects({"<</FunctionType 3/Functions[" + numbers + "]>>", kRed}).Function();
  ASSERT_EQ(function.stitching.stops.size(), 1000U);
  EXPECT_EQ(function.stitching.stops.front(), function.stitching.stops.back());
  EXPECT_EQ(function.stitching.stops.back()->c0, (Numbers{1, 0, 0}));
}

TEST(ReadFunction, TakesEveryFirstOfThreeTokensUpToTheFirstBracket) {
  const auto functionsOf = [](const std::string& array) {
    return Objects({"<</FunctionType 3/Functions" + array + "/Bounds[0.5]>>", kRed}).Function().stitching;
  };
  EXPECT_EQ(functionsOf("[2 0 R 3]").functions, (std::vector<std::int32_t>{2, 3}));
  EXPECT_EQ(functionsOf("[2 0 R 3 0]").functions, (std::vector<std::int32_t>{2, 3}));
  // Six line ends leave an empty token: "2", "", "R".
  EXPECT_EQ(functionsOf("[2 0 R      3 0 R]").functions, (std::vector<std::int32_t>{2, 0, 0}));
  // "<<", "/Domain", "1": the "]" of the domain ends the functions.
  const pdf::StitchingFunction inlined = functionsOf("[<</N 1 /Domain[0 1]>> 2 0 R]");
  EXPECT_EQ(inlined.functions, (std::vector<std::int32_t>{0, 0, 1}));
  EXPECT_EQ(inlined.bounds, (Numbers{0.5}));
}

TEST(ReadFunction, DropsAnEncodeValueWithoutAPartner) {
  EXPECT_EQ(Objects({"<</FunctionType 3/Encode[0 1 2]>>"}).Function().stitching.encode, (PdfPairs{{0, 1}}));
  EXPECT_TRUE(Objects({"<</FunctionType 3/Encode[0]>>"}).Function().stitching.encode.empty());
}

TEST(ReadFunction, FailsForArraysWithoutAnEnd) {
  EXPECT_THROW(Objects({"<</FunctionType 3/Encode[0 1>>"}).Function(), std::out_of_range);
  EXPECT_THROW(Objects({"<</FunctionType 3/Functions[1 0 R>>"}).Function(), std::out_of_range);
}
