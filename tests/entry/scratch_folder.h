#ifndef DRAWLOAD_TESTS_SCRATCH_FOLDER_H
#define DRAWLOAD_TESTS_SCRATCH_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

/// A test in an empty folder of its own, which is the current one for as long as the test runs.
class ScratchFolder : public testing::Test {
 protected:
  ScratchFolder() : before(std::filesystem::current_path()) {
    std::string pattern = (std::filesystem::temp_directory_path() / "drawload_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    folder = pattern;
    std::filesystem::current_path(folder);
  }
  ~ScratchFolder() override {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  /// Writes a file, in a folder that is made where its name has one; gives the name back.
  static const char* Write(const char* name, std::string_view text) {
    const std::filesystem::path path(name);
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
    return name;
  }

 private:
  std::filesystem::path before;
  std::filesystem::path folder;
};

/// A DXF drawing of lines from (0, 0) to (1, 0), (2, 0) and so on.
inline std::string DxfOfLines(int count) {
  std::string text = "0\nSECTION\n2\nENTITIES\n";
  for (int i = 1; i <= count; ++i) {
    text += "0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n" + std::to_string(i) + "\n21\n0.0\n";
  }
  return text + "0\nENDSEC\n0\nEOF\n";
}

#endif
