#include <gtest/gtest.h>
#include <typeinfo>
#include <vector>

#include "dxf/dxf_text_decoder.h"

namespace {

struct NameRow {
  const char* canonical;
  std::vector<const char*> accepted;
};

const NameRow kRows[] = {
    {"ANSI_874", {"ANSI_874", "CP874", "ISO8859-11", "TIS-620"}},
    {"ANSI_1250", {"ANSI_1250", "CP1250", "ISO8859-2"}},
    {"ANSI_1251", {"ANSI_1251", "CP1251", "ISO8859-5", "KOI8-R", "KOI8-U", "IBM 866"}},
    {"ANSI_1252",
     {"ANSI_1252", "CP1252", "LATIN1", "ISO-8859-1", "CP819", "CSISO", "IBM819", "ISO_8859-1", "APPLE ROMAN",
      "ISO8859-1", "ISO8859-15", "ISO-IR-100", "L1", "IBM 850"}},
    {"ANSI_1253", {"ANSI_1253", "CP1253"}},
    {"ANSI_1254", {"ANSI_1254", "CP1254"}},
    {"ANSI_1255", {"ANSI_1255", "CP1255"}},
    {"ANSI_1256", {"ANSI_1256", "CP1256", "ISO8859-6"}},
    {"ANSI_1257", {"ANSI_1257", "CP1257", "ISO8859-4", "ISO8859-10", "ISO8859-13"}},
    {"ANSI_1258", {"ANSI_1258", "CP1258"}},
    {"ANSI_932",
     {"ANSI_932", "SHIFT-JIS", "SHIFT_JIS", "CSSHIFTJIS", "CSWINDOWS31J", "MS_KANJI", "X-MS-CP932", "X-SJIS",
      "EUCJP", "EUC-JP", "CSEUCPKDFMTJAPANESE", "X-EUC", "X-EUC-JP", "JIS7"}},
    {"ANSI_936",
     {"ANSI_936", "GBK", "GB2312", "CHINESE", "CN-GB", "CSGB2312", "CSGB231280", "CSISO58BG231280",
      "GB_2312-80", "GB231280", "GB2312-80", "ISO-IR-58", "GB18030"}},
    {"ANSI_949", {"ANSI_949", "EUCKR"}},
    {"ANSI_950", {"ANSI_950", "BIG5", "CN-BIG5", "CSBIG5", "X-X-BIG5", "BIG5-HKSCS"}},
    {"UTF-8", {"UTF-8", "UTF8", "UTF8-BIT"}},
    {"UTF-16", {"UTF-16", "UTF16", "UTF16-BIT"}},
    // Listed in small letters, so that capitals never meet them; and a name that nobody lists.
    {"ANSI_1252",
     {"iso8859-7", "ISO8859-7", "iso8859-9", "iso8859-3", "ISO8859-8", "iso8859-8", "nonsense", ""}},
};

TEST(CanonicalCodePage, KnowsEveryAcceptedName) {
  for (const NameRow& row : kRows) {
    for (const char* name : row.accepted) EXPECT_EQ(CanonicalCodePage(name), row.canonical) << name;
  }
}

TEST(CanonicalCodePage, ComparesInCapitals) {
  EXPECT_EQ(CanonicalCodePage("ansi_1251"), "ANSI_1251");
  EXPECT_EQ(CanonicalCodePage("Gb2312"), "ANSI_936");
}

const std::type_info& TypeOf(const DXF_TextDecoder& decoder) {
  const DXF_Converter& converter = *decoder.converter;
  return typeid(converter);
}

TEST(TextDecoder, StartsOnThePlainConverterWithoutAName) {
  const DXF_TextDecoder decoder;
  EXPECT_EQ(decoder.versionClass, 7);
  EXPECT_EQ(decoder.encodingName, "");
  EXPECT_EQ(TypeOf(decoder), typeid(DXF_Converter));
}

TEST(TextDecoder, EndsOnClassSevenAndUtf8WhateverTheVersion) {
  for (const char* version :
       {"AC1006", "AC1009", "AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1032", "", "nonsense"}) {
    DXF_TextDecoder decoder;
    decoder.setVersion(version);
    EXPECT_EQ(decoder.versionClass, 7) << version;
    EXPECT_EQ(decoder.encodingName, "UTF-8") << version;
    EXPECT_EQ(TypeOf(decoder), typeid(DXF_Converter)) << version;
  }
}

TEST(TextDecoder, TakesTheNameOfACodePageButNotItsDecoding) {
  DXF_TextDecoder decoder;
  decoder.setVersion("AC1015");
  decoder.setCodePage("ANSI_936");
  EXPECT_EQ(decoder.encodingName, "ANSI_936");
  EXPECT_EQ(decoder.decode("\xD6\xD0"), "\xD6\xD0");
  decoder.setCodePage("iso8859-7");
  EXPECT_EQ(decoder.encodingName, "ANSI_1252");
}

TEST(TextDecoder, DoesNotConvertAGreekFile) {
  DXF_TextDecoder decoder;
  decoder.setCodePage("ANSI_1253");
  EXPECT_EQ(decoder.decode("\xE1\xE2"), "\xE1\xE2");
}

struct ClassCase {
  const char* name;
  const std::type_info* type;
  const std::uint32_t* table;
};

TEST(TextDecoder, BuildsTheConverterOfTheNameInAnOldVersionClass) {
  const std::uint32_t* const latin = codepages::kCodePage1252.data();
  const std::type_info* const single = &typeid(DXF_ConvTable);
  const std::type_info* const pairs = &typeid(DXF_ConvDBCSTable);
  const ClassCase cases[] = {
      {"ANSI_874", single, codepages::kCodePage874.data()},
      {"ANSI_1250", single, codepages::kCodePage1250.data()},
      {"ANSI_1251", single, codepages::kCodePage1251.data()},
      {"ANSI_1252", single, latin},
      {"ANSI_1253", single, codepages::kCodePage1253.data()},
      {"ANSI_1254", single, codepages::kCodePage1254.data()},
      {"ANSI_1255", single, codepages::kCodePage1255.data()},
      {"ANSI_1256", single, codepages::kCodePage1256.data()},
      {"ANSI_1257", single, codepages::kCodePage1257.data()},
      {"ANSI_1258", single, codepages::kCodePage1258.data()},
      {"ANSI_936", pairs, nullptr},
      {"ANSI_950", pairs, nullptr},
      {"ANSI_932", single, latin},
      {"ANSI_949", single, latin},
      {"UTF-16", single, latin},
      {"UTF-8", &typeid(DXF_Converter), nullptr},
  };
  for (const std::int32_t versionClass : {2, 5}) {
    for (const auto& [name, type, table] : cases) {
      DXF_TextDecoder decoder;
      decoder.versionClass = versionClass;
      decoder.setCodePage(name);
      EXPECT_EQ(TypeOf(decoder), *type) << name;
      EXPECT_EQ(decoder.converter->table, table) << name;
    }
  }
}

TEST(TextDecoder, NamesUtf8AsLatinInAnOldVersionClass) {
  DXF_TextDecoder decoder;
  decoder.versionClass = 5;
  decoder.setCodePage("UTF-8");
  EXPECT_EQ(decoder.encodingName, "ANSI_1252");
}

TEST(TextDecoder, TellsTheTwoDoubleBytePagesApart) {
  DXF_TextDecoder decoder;
  decoder.versionClass = 2;
  decoder.setCodePage("GBK");
  EXPECT_EQ(decoder.decode("\xD6\xD0"), "\xE4\xB8\xAD");
  decoder.setCodePage("BIG5");
  EXPECT_EQ(decoder.decode("\xA4\xA4"), "\xE4\xB8\xAD");
}

}  // namespace
