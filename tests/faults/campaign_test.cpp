// Files cut, flipped and shuffled, each read by a child process within 2 seconds and 512 MiB.
#include <gtest/gtest.h>

#include "drawload/exports.h"
#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/child.h"
#include "faults/damaged_forms.h"
#include "faults/drawing_files.h"

namespace {

using damaged_forms::CutIt;
using damaged_forms::Damage;
using damaged_forms::FlipIt;
using damaged_forms::Kept;
using damaged_forms::ShuffleIt;
using drawing_files::Path;

std::string LoadAndWalk(const std::string& drawing) {
  std::string bytes;
  CFileDraw* object = nullptr;
  DrawLoad_Z7(drawing.c_str());
  for (int found = GetFirstData_Z7(&object); found == 1; found = GetNextData_Z7(&object)) {
    bytes.clear();
    result_dump::Append(bytes, *object);
  }
  return GetFirstData_Z7(&object) == 0 ? std::string() : "results are left behind the walk";
}

struct Campaign {
  const char* format;
  const char* name;
  Damage damage;
};

class DamagedFiles : public ScratchFolder, public testing::WithParamInterface<Campaign> {
 protected:
  DamagedFiles() { drawing_files::WritePicturesHere(); }

  /// Reads `drawing` with every damaged form of `file`, which `write` puts in its place.
  static void ReadAll(const Path& file, const std::string& drawing,
                      const std::function<void(const std::string&)>& write) {
    GetParam().damage(drawing_files::BytesOf(file), [&](const std::string& name, const std::string& damaged) {
      write(damaged);
      const std::string failure = RunInChild([&] { return LoadAndWalk(drawing); });
      if (!failure.empty()) ADD_FAILURE() << failure << ": " << Kept(file.filename(), name, damaged);
    });
  }
};

}  // namespace

TEST_P(DamagedFiles, NeitherCrashNorHangNorBloatTheReader) {
  const std::string format = GetParam().format;
  for (const Path& file : drawing_files::WithExtension({"." + format})) {
    const std::string drawing = "damaged." + format;
    ReadAll(file, drawing, [&](const std::string& bytes) { drawing_files::WriteBytes(drawing, bytes); });
  }
}

class DamagedPictures : public DamagedFiles {};

TEST_P(DamagedPictures, NeitherCrashNorHangNorBloatTheReader) {
  std::size_t drawings = 0;
  for (const Path& picture : drawing_files::Pictures()) {
    for (const Path& drawing : drawing_files::WithExtension({".dxf"})) {
      if (drawing_files::BytesOf(drawing).find(picture.filename()) == std::string::npos) continue;
      ++drawings;
      ReadAll(picture, drawing,
              [&](const std::string& bytes) { drawing_files::WritePicture(picture, bytes); });
    }
  }
  EXPECT_EQ(drawings, drawing_files::Pictures().size());
}

namespace {

std::vector<Campaign> OnFormats(const std::vector<const char*>& formats) {
  std::vector<Campaign> campaigns;
  for (const char* format : formats) {
    campaigns.push_back({format, "Cut", CutIt});
    campaigns.push_back({format, "Flipped", FlipIt});
    campaigns.push_back({format, "Shuffled", ShuffleIt});
  }
  return campaigns;
}

std::string NameOf(const testing::TestParamInfo<Campaign>& info) {
  return std::string(info.param.format) + info.param.name;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, DamagedFiles, testing::ValuesIn(OnFormats({"dxf", "svg", "pdf"})), NameOf);
INSTANTIATE_TEST_SUITE_P(All, DamagedPictures, testing::ValuesIn(OnFormats({"picture"})), NameOf);
