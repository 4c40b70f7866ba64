#include "sink/parameters.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "drawload/file_group.h"
#include "result/host_objects.h"
#include "sink/sink_results.h"

namespace {

using Entity_ZR::AttributePairs;
using Field = std::function<double(const CFileDraw&)>;

template <typename Member>
Field Of(Member CFileDraw::*member) {
  return [member](const CFileDraw& object) { return static_cast<double>(object.*member); };
}

Owned<CFileCurve> CurveWith(AttributePairs pairs) {
  Owned<CFileCurve> curve(new CFileCurve);
  ApplyCurveParameters(Parameters(std::move(pairs)), *curve);
  return curve;
}

Owned<CFileDib> ImageWith(AttributePairs pairs) {
  Owned<CFileDib> image(new CFileDib);
  ApplyImageParameters(Parameters(std::move(pairs)), *image);
  return image;
}

Owned<CFileGroup> GroupWith(AttributePairs pairs) {
  Owned<CFileGroup> group(new CFileGroup);
  ApplyGroupParameters(Parameters(std::move(pairs)), *group);
  return group;
}

/// One key with a value, and what stands in one field behind each of the three appliers.
struct Case {
  const char* key;
  const char* value;
  Field field;
  double curve;
  double image;
  double group;
};

const double kInfinity = std::numeric_limits<double>::infinity();

const Case kCases[] = {
    {"cutPower", "1.5e1", Of(&CFileDraw::cutPower), 15, 15, 15},
    {"engraveSpeed", "1.5e1", Of(&CFileDraw::engraveSpeed), 15, 15, 15},
    {"cutSpeed", "1.5e1", Of(&CFileDraw::cutSpeed), 15, 15, 15},
    {"highFocus", "1.5e1", Of(&CFileDraw::highFocus), 15, 15, 15},
    {"highFocus", "1.5e1", Of(&CFileDraw::highFocus2), 15, 15, 15},
    {"EngMinP", "1.5e1", Of(&CFileDraw::EngMinP), 15, 15, 15},
    {"EngMaxP", "1.5e1", Of(&CFileDraw::EngMaxP), 15, 15, 15},
    {"diameter", "1.5e1", Of(&CFileDraw::diameter), 15, 15, 15},

    // 25.4 divided by a whole number, or for groups by one with fractions.
    {"engDensity", "254", Of(&CFileDraw::engStep), 0.1, 0.1, 0.1},
    {"engDensity", "2.5", Of(&CFileDraw::engStep), 12.7, 12.7, 10.16},
    {"engDensity", "1e2", Of(&CFileDraw::engStep), 25.4, 25.4, 0.254},
    {"engDensity", "-2", Of(&CFileDraw::engStep), -12.7, -12.7, -12.7},
    {"engDensity", "0", Of(&CFileDraw::engStep), kInfinity, kInfinity, kInfinity},
    {"engDensity", "0.5", Of(&CFileDraw::engStep), kInfinity, kInfinity, 50.8},
    {"engDensity", "dense", Of(&CFileDraw::engStep), kInfinity, kInfinity, kInfinity},

    {"processType", "2", Of(&CFileDraw::processType), 2, 2, 2},
    {"processType", "2", Of(&CFileDraw::cutMode), 0, 0, 0},
    {"processType", "0", Of(&CFileDraw::processType), 0, 0, 0},
    {"processType", "0", Of(&CFileDraw::cutMode), 1, 1, 1},
    {"processType", "0.9", Of(&CFileDraw::cutMode), 1, 1, 1},
    {"processType", "-1", Of(&CFileDraw::cutMode), 0, 0, 0},
    {"processType", "1e2", Of(&CFileDraw::processType), 1, 1, 1},

    // Cut to 16 bits, from a whole number, or for groups from one with fractions.
    {"machineType", "3", Of(&CFileDraw::machineType), 3, 3, 3},
    {"machineType", "1e2", Of(&CFileDraw::machineType), 1, 1, 100},
    {"machineType", "-1.9", Of(&CFileDraw::machineType), -1, -1, -1},
    {"machineType", "65537", Of(&CFileDraw::machineType), 1, 1, 1},
    {"machineType", "32768", Of(&CFileDraw::machineType), -32768, -32768, -32768},
    // 99999999999 is 0x174876E7FF: its low 16 bits, or what a float beyond 32 bits becomes.
    {"machineType", "99999999999", Of(&CFileDraw::machineType), -6145, -6145, 0},
    {"machineType", "nan", Of(&CFileDraw::machineType), 0, 0, 0},

    {"imageType", "7", Of(&CFileDraw::imageType), 0, 7, 0},
    {"imageType", "65537", Of(&CFileDraw::imageType), 0, 1, 0},
    {"imageType", "1e2", Of(&CFileDraw::imageType), 0, 1, 0},
    {"Reverse", "1", Of(&CFileDraw::Reverse), 0, 1, 0},
    {"Reverse", "70000", Of(&CFileDraw::Reverse), 0, 70000, 0},

    {"frequency", "2000", Of(&CFileDraw::frequency), 2000, 2000, 2000},
    {"frequency", "2.9", Of(&CFileDraw::frequency), 2, 2, 2},
    {"frequency", "1e3", Of(&CFileDraw::frequency), 1, 1, 1},
    {"frequency", "often", Of(&CFileDraw::frequency), 0, 0, 0},
};

}  // namespace

TEST(Parameters, AreConvertedAsTheKindOfResultHasIt) {
  for (const Case& one : kCases) {
    const std::string name = std::string(one.key) + " = " + one.value;
    EXPECT_DOUBLE_EQ(one.field(*CurveWith({{one.key, one.value}})), one.curve) << name;
    EXPECT_DOUBLE_EQ(one.field(*ImageWith({{one.key, one.value}})), one.image) << name;
    EXPECT_DOUBLE_EQ(one.field(*GroupWith({{one.key, one.value}})), one.group) << name;
  }
}

TEST(Parameters, ChangeNoFieldButTheirOwn) {
  const auto curve = CurveWith({{"cutPower", "77"}});
  EXPECT_EQ(curve->cutPower, 77.0);
  EXPECT_EQ(curve->cutSpeed, 100.0);
  EXPECT_EQ(curve->engraveSpeed, 300.0);
  EXPECT_EQ(curve->EngMinP, 10.0);
  EXPECT_EQ(curve->EngMaxP, 30.0);
  EXPECT_EQ(curve->engStep, 0.08);
  EXPECT_EQ(curve->diameter, 50.0);
  EXPECT_EQ(curve->cutMode, 1);
}

TEST(Parameters, AreKnownByTheirExactNameOnly) {
  const auto curve = CurveWith({{"CutPower", "77"}, {"cutpower", "77"}, {"cutPower ", "77"}, {"", "77"}});
  EXPECT_EQ(curve->cutPower, 30.0);
}

TEST(Parameters, PassUnknownKeysOver) {
  const auto curve = CurveWith({{"colour", "77"}, {"cutPower", "12"}});
  EXPECT_EQ(curve->cutPower, 12.0);
}

TEST(Parameters, CountTheLastOfSeveralValues) {
  EXPECT_EQ(CurveWith({{"cutPower", "1"}, {"cutPower", "2"}})->cutPower, 2.0);
}

TEST(Parameters, CountTheLastOfSeveralElements) {
  auto attributes = Parameters({{"cutPower", "1"}, {"cutSpeed", "5"}});
  attributes.push_back({Entity_ZR::kParameterAttribute, {{"cutPower", "2"}}});
  const Owned<CFileCurve> curve(new CFileCurve);
  ApplyCurveParameters(attributes, *curve);
  EXPECT_EQ(curve->cutPower, 2.0);
  EXPECT_EQ(curve->cutSpeed, 5.0);
}

TEST(Parameters, StandInElementsOfTheirOwnTagOnly) {
  const Owned<CFileCurve> curve(new CFileCurve);
  ApplyCurveParameters({{1, {{"cutPower", "1"}}}, {2, {{"cutPower", "2"}}}, {5, {{"cutPower", "5"}}}},
                       *curve);
  EXPECT_EQ(curve->cutPower, 30.0);
}

TEST(Parameters, SetTheFrequencyToOneFirst) {
  EXPECT_EQ(CurveWith({})->frequency, 1.0);
  EXPECT_EQ(ImageWith({})->frequency, 1.0);
  EXPECT_EQ(GroupWith({})->frequency, 1.0);
}
