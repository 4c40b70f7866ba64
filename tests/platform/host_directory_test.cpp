#include "platform/host_directory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using platform::DirectoryOf;

TEST(DirectoryOf, CutsBehindTheLastSlash) {
  EXPECT_EQ(DirectoryOf("/opt/cutter/bin/cutter", '/'), "/opt/cutter/bin/");
  EXPECT_EQ(DirectoryOf("/cutter", '/'), "/");
  EXPECT_EQ(DirectoryOf("/opt/bin/", '/'), "/opt/bin/");
}

TEST(DirectoryOf, CutsBehindTheSeparatorOfTheSystem) {
  EXPECT_EQ(DirectoryOf("C:\\cutter\\cutter.exe", '\\'), "C:\\cutter\\");
  EXPECT_EQ(DirectoryOf("C:\\a/b\\c/d.exe", '\\'), "C:\\a/b\\");
}

TEST(DirectoryOf, IsEmptyWithoutASlash) {
  EXPECT_EQ(DirectoryOf("cutter", '/'), "");
  EXPECT_EQ(DirectoryOf("", '/'), "");
}

TEST(DirectoryOf, LooksAtTheFirst255BytesOnly) {
  const std::string head = "/a/" + std::string(251, 'b');  // 254 bytes
  EXPECT_EQ(DirectoryOf(head + "/cutter", '/'), head + "/");
  EXPECT_EQ(DirectoryOf(head + "b/cutter", '/'), "/a/");
}

TEST(HostDirectory, IsWhereTheRunningProgramLies) {
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  ASSERT_LE(program.string().size(), 255u);
  EXPECT_EQ(platform::HostDirectory(), program.parent_path().string() + "/");
}

}  // namespace
