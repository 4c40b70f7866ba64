#include "dxf/text_format.h"

#include <gtest/gtest.h>

#include "dxf/dxf_tables.h"

namespace {

DXF_TextStyle StyleWithFont(std::string_view font) {
  DXF_TextStyle style;
  style.font = font;
  return style;
}

TEST(TextFormat, IsPlainSimSunWithoutAStyle) {
  const DXF_TextFormat format = TextFormatOf(nullptr);
  EXPECT_EQ(format.fontName, "SimSun");
  EXPECT_EQ(format.bigFontName, "");
  EXPECT_EQ(format.height, 1.0);
  EXPECT_EQ(format.widthScale, 1.0);
  EXPECT_EQ(format.oblique, 0.0);
  EXPECT_FALSE(format.bold || format.italic || format.backward || format.upsideDown || format.vertical);
  EXPECT_EQ(format.color, 0xFF000000U);
}

TEST(TextFormat, TakesSizesAndFontsFromTheStyle) {
  DXF_TextStyle style = StyleWithFont("isocp");
  style.bigFont = "gbcbig.shx";
  style.height = 2.5;
  style.widthScale = 0.75;
  style.oblique = 15.0;
  const DXF_TextFormat format = TextFormatOf(&style);
  EXPECT_EQ(format.fontName, "isocp");
  EXPECT_EQ(format.bigFontName, "gbcbig.shx");
  EXPECT_EQ(format.height, 2.5);
  EXPECT_EQ(format.widthScale, 0.75);
  EXPECT_EQ(format.oblique, 15.0);
}

TEST(TextFormat, CutsTheFontNameAtItsFirstDot) {
  const DXF_TextStyle file = StyleWithFont("arial.narrow.ttf");
  EXPECT_EQ(TextFormatOf(&file).fontName, "arial");
  const DXF_TextStyle dotFirst = StyleWithFont(".shx");
  EXPECT_EQ(TextFormatOf(&dotFirst).fontName, "");
}

TEST(TextFormat, IsSimSunWhereTheStyleNamesNoFont) {
  const DXF_TextStyle style = StyleWithFont("");
  EXPECT_EQ(TextFormatOf(&style).fontName, "SimSun");
}

TEST(TextFormat, PrefersTheFontOfTheExtendedData) {
  DXF_TextStyle style = StyleWithFont("txt");
  style.extText = "Arial";
  EXPECT_EQ(TextFormatOf(&style).fontName, "txt");
  style.extApp = "ACAD";
  EXPECT_EQ(TextFormatOf(&style).fontName, "Arial");
  style.extText = "AnnotativeData";
  EXPECT_EQ(TextFormatOf(&style).fontName, "txt");
  style.extText = "";
  EXPECT_EQ(TextFormatOf(&style).fontName, "SimSun");
}

TEST(TextFormat, ReadsTheGenerationFlagsAsOneNumber) {
  struct Row {
    std::int32_t flags;
    bool backward, upsideDown;
  };
  for (const Row& row : {Row{0, false, false},
                         {2, true, false},
                         {4, false, true},
                         {6, true, true},
                         {3, false, false},
                         {7, false, false}}) {
    DXF_TextStyle style;
    style.generationFlags = row.flags;
    EXPECT_EQ(TextFormatOf(&style).backward, row.backward) << row.flags;
    EXPECT_EQ(TextFormatOf(&style).upsideDown, row.upsideDown) << row.flags;
  }
}

TEST(TextFormat, ReadsBoldAndItalicFromTheTopByteOfTheFontFamily) {
  struct Row {
    std::int32_t family;
    bool italic, bold;
  };
  for (const Row& row : {Row{0x00000022, false, false},
                         {0x01000000, true, false},
                         {0x02000022, false, true},
                         {0x03000000, true, true},
                         {0x7C000000, false, false},
                         {-1, true, true}}) {
    DXF_TextStyle style;
    style.fontFamily = row.family;
    EXPECT_EQ(TextFormatOf(&style).italic, row.italic) << row.family;
    EXPECT_EQ(TextFormatOf(&style).bold, row.bold) << row.family;
  }
}

TEST(TextFormat, IsVerticalByTheStylesFlagOfTheValueFour) {
  DXF_TextStyle style;
  style.flags = 1 | 2 | 64;
  EXPECT_FALSE(TextFormatOf(&style).vertical);
  style.flags = 4 | 64;
  EXPECT_TRUE(TextFormatOf(&style).vertical);
}

}  // namespace
