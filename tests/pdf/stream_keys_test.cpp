#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/stream_data.h"

using pdf::FirstBytes;
using pdf::PdfFileReader;
using pdf::PdfObject;
using pdf::PdfStreamKeys;
using pdf::PdfXrefSection;
using pdf::ReadStreamKey;

namespace {

using Names = std::vector<std::string>;

/// All keys of the object `text`, in a file that holds `file`.
PdfStreamKeys KeysOf(std::string_view text, std::string_view file = "") {
  PdfFileReader reader(file);
  PdfXrefSection section;
  PdfStreamKeys keys;
  const PdfObject object(text);
  for (std::size_t i = 0; i < object.tokens.size(); ++i)
    ReadStreamKey(reader, section, object.tokens, i, keys);
  return keys;
}

}  // namespace

TEST(ReadStreamKey, ReadsOneFilter) {
  EXPECT_EQ(KeysOf("<</Filter/FlateDecode>>").filters, Names{"/FlateDecode"});
}

TEST(ReadStreamKey, ReadsAnArrayOfFilters) {
  EXPECT_EQ(KeysOf("<</Filter[/ASCII85Decode /FlateDecode]>>").filters,
            (Names{"/ASCII85Decode", "/FlateDecode"}));
  EXPECT_EQ(KeysOf("<</Filter[]>>").filters, Names{});
}

TEST(ReadStreamKey, ReadsADirectLength) { EXPECT_EQ(KeysOf("<</Length 12 /A 1>>").length, 12); }

TEST(ReadStreamKey, ReadsALengthInAnObjectOfItsOwn) {
  EXPECT_EQ(KeysOf("<</Length 5 0 R>>", "5 0 obj\n345\nendobj").length, 345);
}

TEST(ReadStreamKey, GivesZeroForALengthObjectWithoutHeader) {
  EXPECT_EQ(KeysOf("<</Length 5 0 R>>", "345 endobj").length, 0);
}

TEST(ReadStreamKey, LeavesTheOtherKeysToTheCaller) {
  PdfFileReader reader("");
  PdfXrefSection section;
  PdfStreamKeys keys;
  const PdfObject object("/Type /A");
  std::size_t index = 1;
  EXPECT_FALSE(ReadStreamKey(reader, section, object.tokens, index, keys));
  EXPECT_EQ(index, 1U);
}

TEST(ReadStreamKey, MovesToTheLastTokenOfTheValue) {
  PdfFileReader reader("5 0 obj 3 endobj");
  PdfXrefSection section;
  PdfStreamKeys keys;
  const PdfObject object("x/Filter[/A /B]/Length 5 0 R end");
  std::size_t index = 1;
  EXPECT_TRUE(ReadStreamKey(reader, section, object.tokens, index, keys));
  EXPECT_EQ(object.tokens[index], "]");
  ++index;
  EXPECT_TRUE(ReadStreamKey(reader, section, object.tokens, index, keys));
  EXPECT_EQ(object.tokens[index], "R");
}

TEST(ReadStreamKey, FailsWhereTheTokensRunOut) {
  EXPECT_THROW(KeysOf("<</Filter"), std::out_of_range);
  EXPECT_THROW(KeysOf("<</Filter[/A"), std::out_of_range);
  EXPECT_THROW(KeysOf("<</Length 5"), std::out_of_range);
}

TEST(FirstBytes, FailsForMoreThanThereAre) {
  EXPECT_EQ(FirstBytes("abc", 3), "abc");
  EXPECT_EQ(FirstBytes("abc", 0), "");
  EXPECT_THROW(FirstBytes("abc", 4), std::out_of_range);
  EXPECT_THROW(FirstBytes("abc", -1), std::out_of_range);
}
