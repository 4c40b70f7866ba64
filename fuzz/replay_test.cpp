#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

#include "fuzz/target.h"

namespace {

const std::filesystem::path kFolder = DRAWLOAD_FUZZ_FOLDER;

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  if (std::filesystem::is_directory(folder)) {
    const std::filesystem::directory_iterator entries(folder);
    std::copy(begin(entries), end(entries), std::back_inserter(files));
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// Every input of a folder through the target. None may take more than seconds, whatever the build.
void Replay(const fuzz::Target& target, const std::filesystem::path& folder) {
  constexpr double kMostSeconds = 10.0;
  for (const std::filesystem::path& file : FilesIn(folder)) {
    SCOPED_TRACE(file.string());
    const std::string input = BytesOf(file);
    const std::clock_t start = std::clock();
    testing::internal::CaptureStdout();
    target.run(input);
    testing::internal::GetCapturedStdout();
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kMostSeconds);
  }
}

class FuzzTarget : public testing::TestWithParam<const fuzz::Target*> {};

TEST_P(FuzzTarget, StandsItsSeeds) {
  const auto folder = kFolder / "corpus" / GetParam()->name;
  EXPECT_FALSE(FilesIn(folder).empty()) << "no seeds in " << folder;
  Replay(*GetParam(), folder);
}

TEST_P(FuzzTarget, StandsTheInputsThatOnceBrokeIt) {
  Replay(*GetParam(), kFolder / "regressions" / GetParam()->name);
}

TEST(FuzzFolders, BelongToTargets) {
  for (const char* kind : {"corpus", "regressions"}) {
    for (const std::filesystem::path& folder : FilesIn(kFolder / kind)) {
      if (!std::filesystem::is_directory(folder)) continue;
      const auto& targets = fuzz::Targets();
      EXPECT_TRUE(std::any_of(targets.begin(), targets.end(), [&](const fuzz::Target* target) {
        return folder.filename() == target->name;
      })) << folder;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, FuzzTarget, testing::ValuesIn(fuzz::Targets()),
                         [](const auto& target) { return target.param->name; });

}  // namespace
