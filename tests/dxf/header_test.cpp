#include <gtest/gtest.h>

#include "dxf/dxf_header.h"
#include "dxf/tag_text.h"

namespace {

/// The header and the reader that it was read from.
struct ParsedHeader {
  explicit ParsedHeader(std::string_view tags) : source(TagText(tags)) {
    std::int32_t code = 0;
    while (source.reader.nextGroup(code)) header.parseGroup(code, source.reader);
  }
  TextReader source;
  DXF_Header header;
};

std::int32_t TypeOf(std::string_view group) {
  const ParsedHeader parsed("9|$X|" + std::string(group));
  return parsed.header.variables.at("$X")->type;
}

TEST(Header, StartsAtVersionSevenWithoutUnits) {
  const DXF_Header header;
  EXPECT_EQ(header.version, 7);
  EXPECT_EQ(header.insUnits, 0);
  EXPECT_EQ(header.current, nullptr);
}

TEST(Header, IgnoresGroupsBeforeTheFirstVariable) {
  EXPECT_TRUE(ParsedHeader("1|AC1015|70|4|10|1").header.variables.empty());
}

TEST(Header, GivesEachGroupTheTypeOfItsVariable) {
  for (const char* group : {"1|a", "2|a", "3|a", "6|a", "7|a", "8|a", "390|a"})
    EXPECT_EQ(TypeOf(group), 0) << group;
  for (const char* group : {"62|1", "70|1", "280|1", "290|1", "370|1", "380|1"})
    EXPECT_EQ(TypeOf(group), 1) << group;
  for (const char* group : {"40|1", "50|1"}) EXPECT_EQ(TypeOf(group), 2) << group;
  EXPECT_EQ(TypeOf("10|1"), 3);
  for (const char* group : {"4|a", "5|a", "20|1", "30|1", "41|1", "71|1", "160|1"})
    EXPECT_EQ(TypeOf(group), 4) << group;
}

TEST(Header, FindsVariablesByNameAndType) {
  const ParsedHeader parsed("9|$LTSCALE|40|2.5|9|$INSUNITS|70|4|9|$CLAYER|8|walls|9|$UCSORG|10|1|20|2|30|3");
  std::int32_t integer = -1;
  EXPECT_TRUE(parsed.header.intVariable("$INSUNITS", integer));
  EXPECT_EQ(integer, 4);
  std::string text;
  EXPECT_TRUE(parsed.header.textVariable("$CLAYER", text));
  EXPECT_EQ(text, "walls");
  double x = 0;
  double y = 0;
  double z = 0;
  EXPECT_TRUE(parsed.header.coordVariable("$UCSORG", x, y, z));
  EXPECT_EQ(x, 1.0);
  EXPECT_EQ(y, 2.0);
  EXPECT_EQ(z, 3.0);
  EXPECT_EQ(parsed.header.variables.at("$LTSCALE")->value.real, 2.5);
}

TEST(Header, DoesNotFindAVariableOfAnotherTypeOrName) {
  const ParsedHeader parsed("9|$INSUNITS|1|4|9|$UCSORG|40|1|9|$ACADVER|70|1");
  std::int32_t integer = -1;
  EXPECT_FALSE(parsed.header.intVariable("$INSUNITS", integer));
  EXPECT_FALSE(parsed.header.intVariable("$insunits", integer));
  EXPECT_EQ(integer, -1);
  double x = 7;
  EXPECT_FALSE(parsed.header.coordVariable("$UCSORG", x, x, x));
  EXPECT_EQ(x, 7.0);
  std::string text = "kept";
  EXPECT_FALSE(parsed.header.textVariable("$ACADVER", text));
  EXPECT_EQ(text, "kept");
}

TEST(Header, ResetsYAndZAtASecondX) {
  const ParsedHeader parsed("9|$UCSORG|10|1|20|2|30|3|10|4");
  const DXF_Variant& origin = *parsed.header.variables.at("$UCSORG");
  EXPECT_EQ(origin.x, 4.0);
  EXPECT_EQ(origin.y, 0.0);
  EXPECT_EQ(origin.z, 0.0);
}

TEST(Header, LetsALaterVariableTakeThePlaceOfItsName) {
  const ParsedHeader parsed("9|$INSUNITS|70|1|9|$INSUNITS|70|4");
  std::int32_t units = 0;
  EXPECT_TRUE(parsed.header.intVariable("$INSUNITS", units));
  EXPECT_EQ(units, 4);
  EXPECT_EQ(parsed.header.variables.size(), 1U);
}

TEST(Header, LeavesNothingOfAnEarlierVariableWhenTheLaterHasNoValue) {
  const ParsedHeader parsed("9|$INSUNITS|70|1|9|$INSUNITS");
  std::int32_t units = 0;
  EXPECT_FALSE(parsed.header.intVariable("$INSUNITS", units));
}

TEST(Header, KeepsTheUnitsInAMemberToo) {
  EXPECT_EQ(ParsedHeader("9|$INSUNITS|70|4").header.insUnits, 4);
  EXPECT_EQ(ParsedHeader("9|$MEASUREMENT|70|4").header.insUnits, 0);
}

TEST(Header, TakesTheVersionClassOfTheDecoder) {
  ParsedHeader parsed("9|$ACADVER|1|AC1009");
  EXPECT_EQ(parsed.header.version, 7);
  EXPECT_EQ(parsed.source.reader.decoder.versionClass, 7);
  EXPECT_EQ(parsed.source.reader.decoder.encodingName, "UTF-8");
  EXPECT_EQ(parsed.header.variables.at("$ACADVER")->text, "AC1009");
}

TEST(Header, ReplacesACodePageByItsCanonicalName) {
  EXPECT_EQ(ParsedHeader("9|$DWGCODEPAGE|3|gb2312").header.variables.at("$DWGCODEPAGE")->text, "ANSI_936");
  EXPECT_EQ(ParsedHeader("9|$DWGCODEPAGE|3|iso8859-7").header.variables.at("$DWGCODEPAGE")->text,
            "ANSI_1252");
  EXPECT_EQ(ParsedHeader("9|$DIMPOST|3|gb2312").header.variables.at("$DIMPOST")->text, "gb2312");
}

TEST(Header, ReadsCodePageAndVersionInEitherOrder) {
  const ParsedHeader before("9|$DWGCODEPAGE|3|ANSI_936|9|$ACADVER|1|AC1015");
  const ParsedHeader behind("9|$ACADVER|1|AC1015|9|$DWGCODEPAGE|3|ANSI_936");
  for (const ParsedHeader* parsed : {&before, &behind}) {
    EXPECT_EQ(parsed->source.reader.decoder.decode("\xD6\xD0"), "\xD6\xD0");
    EXPECT_EQ(parsed->header.variables.at("$DWGCODEPAGE")->text, "ANSI_936");
  }
}

TEST(Header, RenamesTheUnitsOfDimensionsOnlyBelowVersionFive) {
  EXPECT_EQ(ParsedHeader("9|$DIMUNIT|70|2").header.variables.count("$DIMUNIT"), 1U);
  TextReader source(TagText("9|$DIMUNIT|70|2"));
  DXF_Header header;
  header.version = 2;
  std::int32_t code = 0;
  while (source.reader.nextGroup(code)) header.parseGroup(code, source.reader);
  EXPECT_EQ(header.variables.count("$DIMUNIT"), 0U);
  EXPECT_EQ(header.variables.count("$DIMLUNIT"), 1U);
}

TEST(Header, DecodesTexts) {
  EXPECT_EQ(ParsedHeader("9|$CLAYER|8|a\\U+00B0").header.variables.at("$CLAYER")->text, "a\xC2\xB0");
}

}  // namespace
