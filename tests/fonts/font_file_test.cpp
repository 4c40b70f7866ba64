#include "fonts/font_file.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <unistd.h>

namespace {

using fonts::FontFile;

constexpr std::size_t kBytes = 300'000;

/// A file of which no two parts are alike.
class NumberedBytes {
 public:
  NumberedBytes() {
    for (std::size_t i = 0; bytes.size() < kBytes; ++i) bytes += std::to_string(i) + ' ';
    bytes.resize(kBytes);
    std::ofstream(path, std::ios::binary) << bytes;
  }
  ~NumberedBytes() { std::filesystem::remove(path); }

  const std::string path = testing::TempDir() + "drawload_font_file_" + std::to_string(getpid());
  std::string bytes;
};

std::string Read(FontFile& file, std::size_t offset, std::size_t count) {
  std::string buffer(count, '\0');
  FT_Stream const stream = file.Stream();
  buffer.resize(stream->read(stream, offset, reinterpret_cast<unsigned char*>(buffer.data()), count));
  return buffer;
}

TEST(FontFile, ReadsTheSameBytesInAnyOrder) {
  const NumberedBytes contents;
  FontFile file(contents.path);
  ASSERT_NE(file.Stream(), nullptr);
  for (const std::size_t count : std::initializer_list<std::size_t>{1, 2, 16, 4095, 4096, 4097, 70'000}) {
    for (std::size_t i = 0; i < 200; ++i) {
      const std::size_t offset = i * 65'521 % kBytes;
      ASSERT_EQ(Read(file, offset, count), contents.bytes.substr(offset, count)) << offset << ' ' << count;
    }
  }
}

TEST(FontFile, ReadsUpToTheEndOfTheFile) {
  const NumberedBytes contents;
  FontFile file(contents.path);
  EXPECT_EQ(Read(file, kBytes - 3, 3), contents.bytes.substr(kBytes - 3));
  EXPECT_EQ(Read(file, kBytes - 3, 10), contents.bytes.substr(kBytes - 3));
  EXPECT_EQ(Read(file, kBytes, 10), "");
  EXPECT_EQ(Read(file, kBytes + 100'000, 10), "");
}

TEST(FontFile, FailsToSeekBehindTheEndOnly) {
  const NumberedBytes contents;
  FontFile file(contents.path);
  FT_Stream const stream = file.Stream();
  EXPECT_EQ(stream->size, kBytes);
  EXPECT_EQ(stream->read(stream, kBytes, nullptr, 0), 0u);
  EXPECT_NE(stream->read(stream, kBytes + 1, nullptr, 0), 0u);
}

TEST(FontFile, OpensRegularFilesOnly) {
  EXPECT_EQ(FontFile("/").Stream(), nullptr);
  EXPECT_EQ(FontFile("/no/such/font.ttf").Stream(), nullptr);
}

}  // namespace
