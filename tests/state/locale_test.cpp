// A host that speaks German: its decimal point is a comma.
#include <clocale>
#include <cstdio>
#include <gtest/gtest.h>

#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/drawing_files.h"

namespace {

class GermanHost : public ScratchFolder {
 protected:
  GermanHost() { drawing_files::WritePicturesHere(); }
  ~GermanHost() override { std::setlocale(LC_ALL, "C"); }

  /// Makes the locale in the current folder and speaks it from then on.
  static void SpeakGerman() {
    ASSERT_EQ(std::system("localedef -i de_DE -f UTF-8 ./de_DE.UTF-8"), 0) << "the package locales has it";
    const std::string folder = std::filesystem::current_path().string();
    setenv("LOCPATH", folder.c_str(), 1);
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    char number[8];
    std::snprintf(number, sizeof number, "%.1f", 1.5);
    ASSERT_STREQ(number, "1,5");
  }

  /// The results of all drawings, and what the library writes on standard output.
  static std::vector<std::string> ReadAll() {
    std::vector<std::string> read;
    for (const auto& drawing : drawing_files::Drawings()) {
      testing::internal::CaptureStdout();
      read.push_back(drawing.filename().string() + result_dump::OfFile(drawing));
      read.push_back(testing::internal::GetCapturedStdout());
    }
    return read;
  }
};

TEST_F(GermanHost, GetsTheSameResultsAndNotes) {
  const std::vector<std::string> inC = ReadAll();
  SpeakGerman();
  const std::vector<std::string> inGerman = ReadAll();
  ASSERT_EQ(inC.size(), inGerman.size());
  for (std::size_t i = 0; i < inC.size(); ++i) {
    EXPECT_TRUE(inC[i] == inGerman[i]) << "differs: " << inC[i - i % 2].substr(0, 20);
  }
}

}  // namespace
