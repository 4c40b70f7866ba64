#include "pdf/cx_file.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

using pdf::CxIOFile;

namespace {

std::FILE* TemporaryFile(const char* text) {
  std::FILE* file = std::tmpfile();
  std::fputs(text, file);
  std::rewind(file);
  return file;
}

}  // namespace

TEST(CxIOFile, ReadsBytesOfMemory) {
  CxIOFile file;
  ASSERT_TRUE(file.OpenBytes("abcdef"));
  std::array<char, 4> buffer{};
  EXPECT_EQ(file.Read(buffer.data(), 1, 3), 3U);
  EXPECT_STREQ(buffer.data(), "abc");
  EXPECT_EQ(file.Tell(), 3);
  EXPECT_EQ(file.Size(), 6);
  EXPECT_EQ(file.Tell(), 3) << "the size leaves the position";
  EXPECT_TRUE(file.Seek(5, SEEK_SET));
  EXPECT_EQ(file.GetC(), 'f');
  EXPECT_FALSE(file.Eof());
  EXPECT_EQ(file.GetC(), EOF);
  EXPECT_TRUE(file.Eof());
  EXPECT_EQ(file.Error(), 0);
  EXPECT_TRUE(file.Close());
}

TEST(CxIOFile, HasNoOperationWithoutAHandle) {
  CxIOFile file;
  char byte = 0;
  EXPECT_FALSE(file.Close());
  EXPECT_EQ(file.Read(&byte, 1, 1), 0U);
  EXPECT_EQ(file.Write(&byte, 1, 1), 0U);
  EXPECT_FALSE(file.Seek(0, SEEK_SET));
  EXPECT_EQ(file.Tell(), -1);
  EXPECT_EQ(file.Size(), -1);
  EXPECT_FALSE(file.Flush());
  EXPECT_TRUE(file.Eof());
  EXPECT_NE(file.Error(), 0);
  EXPECT_FALSE(file.PutC('a'));
  EXPECT_EQ(file.GetC(), EOF);
  EXPECT_EQ(file.GetS(&byte, 1), nullptr);
  EXPECT_EQ(file.Scanf("x"), EOF);
  EXPECT_FALSE(file.Open("/nonexistent/file", "rb"));
}

TEST(CxIOFile, LeavesAHandleOpenThatItDidNotOpen) {
  std::FILE* handle = TemporaryFile("12 ab\nrest");
  {
    CxIOFile file(handle);
    int number = 0;
    std::array<char, 8> line{};
    EXPECT_EQ(file.Scanf("%d", &number), 1);
    EXPECT_EQ(number, 12);
    EXPECT_STREQ(file.GetS(line.data(), 8), " ab\n");
    EXPECT_FALSE(file.Close());
  }
  EXPECT_EQ(std::fgetc(handle), 'r');
  std::fclose(handle);
}

TEST(CxIOFile, WritesAndPutsBytes) {
  std::FILE* handle = TemporaryFile("");
  CxIOFile file(handle);
  EXPECT_EQ(file.Write("ab", 1, 2), 2U);
  EXPECT_TRUE(file.PutC('c'));
  EXPECT_TRUE(file.Flush());
  EXPECT_EQ(file.Size(), 3);
  EXPECT_TRUE(file.Seek(0, SEEK_SET));
  EXPECT_EQ(file.GetC(), 'a');
  std::fclose(handle);
}

TEST(CxFile, PutsAByteByWritingIt) {
  CxIOFile file(TemporaryFile(""));
  EXPECT_TRUE(file.CxFile::PutC('x'));
  EXPECT_EQ(file.Tell(), 1);
}
