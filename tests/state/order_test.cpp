// What was read before, and how it was walked, has no effect on what is read next.
#include <gtest/gtest.h>
#include <map>

#include "drawload/exports.h"
#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/child.h"
#include "faults/damage.h"
#include "faults/drawing_files.h"

namespace {

using damage::Below;
using drawing_files::Path;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;  // and a process many times as slow
#else
constexpr bool kIsSanitized = false;
#endif

/// What a process of its own reads from the file.
std::string DumpInChild(const std::string& file) {
  std::filesystem::remove("dump");
  const std::string failure = RunInChild([&file] {
    drawing_files::WriteBytes("dump", result_dump::OfFile(file));
    return std::string();
  });
  EXPECT_EQ(failure, "") << file;
  return drawing_files::BytesOf("dump");
}

class Reads : public ScratchFolder {
 protected:
  Reads() { drawing_files::WritePicturesHere(); }
  ~Reads() override { DrawLoad_Z7(nullptr); }

  /// The sound drawings and, of each, forms with blocks swapped and repeated.
  std::vector<std::string> WriteFiles() {
    constexpr int formsOfEach = kIsSanitized ? 1 : 6;
    std::vector<std::string> files;
    for (const Path& drawing : drawing_files::Drawings()) {
      const std::string bytes = drawing_files::BytesOf(drawing);
      files.push_back(drawing);
      for (int i = 0; i < formsOfEach; ++i) {
        const std::string name = drawing.stem().string() + std::to_string(i) + drawing.extension().string();
        const bool swap = i % 2 == 0;
        drawing_files::WriteBytes(name, swap ? damage::WithBlocksSwapped(bytes, random)
                                             : damage::WithABlockRepeated(bytes, random));
        files.push_back(name);
      }
    }
    return files;
  }

  /// Leaves the results of `file` in one of the ways that a host may: not walked, walked half, begun again in
  /// the middle, or taken from the next one on.
  void LoadAndLeave(const std::string& file) {
    if (DrawLoad_Z7(file.c_str()) == 0) return;
    CFileDraw* object = nullptr;
    const std::size_t steps = Below(4, random);
    if (Below(2, random) == 0) GetFirstData_Z7(&object);
    for (std::size_t i = 0; i < steps; ++i) {
      if (GetNextData_Z7(&object) == 0) return;
    }
    if (Below(2, random) == 0) GetFirstData_Z7(&object);
  }

  /// Walks a little, then begins again and walks to the end.
  std::string DumpWithAFalseStart(const std::string& file) {
    if (DrawLoad_Z7(file.c_str()) == 0) return {};
    CFileDraw* object = nullptr;
    GetFirstData_Z7(&object);
    CFileDraw* next = object;
    if (Below(2, random) == 0 && GetNextData_Z7(&next) == 0) DrawLoad_Z7(file.c_str());
    return result_dump::OfTheWalk();
  }

  damage::Random random{7};
};

}  // namespace

TEST_F(Reads, OfAThousandFilesInOneProcessGiveWhatEachGivesAlone) {
  const std::vector<std::string> files = WriteFiles();
  std::map<std::string, std::string> alone;
  for (const std::string& file : files) alone[file] = DumpInChild(file);
  std::size_t withResults = 0;
  testing::internal::CaptureStdout();
  for (int i = 0; i < 1000; ++i) {
    const std::string& file = files[Below(files.size(), random)];
    if (Below(3, random) == 0) LoadAndLeave(files[Below(files.size(), random)]);
    ASSERT_TRUE(DumpWithAFalseStart(file) == alone[file]) << file << ", read " << i;
    if (!alone[file].empty()) ++withResults;
  }
  testing::internal::GetCapturedStdout();
  EXPECT_GT(withResults, 300u);
}

TEST_F(Reads, InTwoProcessesGiveTheSameBytes) {
  for (const std::string& file : WriteFiles()) {
    ASSERT_TRUE(DumpInChild(file) == DumpInChild(file)) << file;
  }
}
