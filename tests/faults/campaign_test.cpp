// Files cut, flipped and shuffled, each read by a child process within 2 seconds and 512 MiB.
#include <functional>
#include <gtest/gtest.h>

#include "drawload/exports.h"
#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/child.h"
#include "faults/damage.h"
#include "faults/drawing_files.h"

namespace {

using drawing_files::Path;

/// How many places of a file are damaged in each way: DRAWLOAD_FAULT_POINTS, else what the build was given.
std::size_t Points() {
  const char* wanted = std::getenv("DRAWLOAD_FAULT_POINTS");
  return wanted == nullptr ? DRAWLOAD_FAULT_POINTS : std::strtoul(wanted, nullptr, 10);
}

/// One damaged form of a file after the other, each with a name that says what was done.
using Take = std::function<void(const std::string& name, const std::string& damaged)>;
using Damage = void (*)(const std::string& bytes, const Take& take);

void CutIt(const std::string& bytes, const Take& take) {
  for (const std::size_t place : damage::Places(bytes.size(), Points())) {
    take("cut at " + std::to_string(place), damage::CutAt(bytes, place));
  }
}

void FlipIt(const std::string& bytes, const Take& take) {
  damage::Random random(1);
  for (const std::size_t place : damage::Places(bytes.size(), Points())) {
    const std::string name = "flipped at " + std::to_string(place);
    take(name, damage::FlippedAt(bytes, place, 0xFF));
    const auto bit = static_cast<unsigned char>(1u << damage::Below(8, random));
    take(name + " by " + std::to_string(bit), damage::FlippedAt(bytes, place, bit));
  }
}

void ShuffleIt(const std::string& bytes, const Take& take) {
  damage::Random random(2);
  for (std::size_t i = 0; i < Points() / 2; ++i) {
    take("swapped " + std::to_string(i), damage::WithBlocksSwapped(bytes, random));
    take("repeated " + std::to_string(i), damage::WithABlockRepeated(bytes, random));
  }
}

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

/// The damaged file stays where it can be looked at.
std::string Kept(const std::string& file, const std::string& name, const std::string& bytes) {
  const Path folder = Path(DRAWLOAD_FAULT_FINDINGS);
  std::filesystem::create_directories(folder);
  const Path path = folder / (name + " " + file);
  drawing_files::WriteBytes(path, bytes);
  return path.string();
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
