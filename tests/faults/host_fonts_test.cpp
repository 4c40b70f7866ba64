// What a host has beside its program: damaged fonts, a damaged font.ini, and things of those names that are
// no files. This program has a folder of its own, so that no other test sees them.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "drawload/exports.h"
#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/child.h"
#include "faults/damaged_forms.h"
#include "faults/drawing_files.h"
#include "fonts/bitmap_font.h"
#include "fonts/direct_glyphs.h"
#include "platform/host_directory.h"

namespace {

using drawing_files::BytesOf;
using drawing_files::Path;
using drawing_files::WriteBytes;

constexpr const char* kIni =
    "; Fonts of this host\n"
    "[Font]\n"
    "Plate = plate.font\n"
    "Other=\"plate.font\"\n"
    "+Plate-Bold = plate.font\n"
    "[Size]\n"
    "Plate = 12\n";

/// A line, and then letters of all kinds, upright, small and large.
constexpr const char* kLineAndText =
    "<svg width='100' height='100'><path d='M0 0L1 1'/>"
    "<text font-family='Plate' font-size='12'>AaBbg&amp;8 \xC3\xA9\xC4\xB3 \xE2\x82\xAC</text>"
    "<text font-family='Plate' font-size='500'>A\xC3\xA9</text></svg>";
constexpr const char* kLineAlone = "<svg width='100' height='100'><path d='M0 0L1 1'/></svg>";

class HostFonts : public ScratchFolder {
 protected:
  HostFonts() : lock(open(Host().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    flock(lock, LOCK_EX);  // the tests of this program may run at the same time
    Clear();
    std::filesystem::create_directory(Host() / "fonts");
    WriteBytes(Ini(), kIni);
    WriteBytes("line.svg", kLineAlone);
    WriteBytes("text.svg", kLineAndText);
    line = result_dump::OfFile("line.svg");
  }
  ~HostFonts() override {
    Clear();
    close(lock);
  }

  static Path Host() { return platform::HostDirectory(); }
  static Path Ini() { return Host() / "font.ini"; }
  static Path Font() { return Host() / "fonts" / "plate.font"; }

  /// Empty where the text comes to an end, and the line that stands before it is there.
  static std::string ReadText() {
    return result_dump::OfFile("text.svg").empty() ? "the line is lost" : std::string();
  }

  /// Reads in a child, which is ended where it waits: the line comes, without the text.
  void ExpectTheLineAlone() const {
    const std::string failure = RunInChild([this]() -> std::string {
      alarm(20);
      return result_dump::OfFile("text.svg") == line ? "" : "not the line alone";
    });
    EXPECT_EQ(failure, "");
  }

  std::string line;

 private:
  static void Clear() {
    std::filesystem::remove_all(Host() / "fonts");
    std::filesystem::remove_all(Ini());
  }

  int lock;
};

}  // namespace

TEST_F(HostFonts, AreUsed) {
  std::filesystem::create_symlink(direct::kSans, Font());
  EXPECT_GT(result_dump::OfFile("text.svg").size(), 10 * line.size());
}

TEST_F(HostFonts, ThatArePipesAreNotWaitedFor) {
  ASSERT_EQ(mkfifo(Font().c_str(), 0600), 0);
  ExpectTheLineAlone();
  const int writer = open(Font().c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(writer, 0);
  ExpectTheLineAlone();
  close(writer);
}

TEST_F(HostFonts, ThatAreNoFilesAreNotRead) {
  std::filesystem::create_directory(Font());
  ExpectTheLineAlone();
  for (const char* target :
       {"/dev/zero", "/dev/urandom", "/dev/full", "/dev/tty", "plate.font", "/no/such"}) {
    std::filesystem::remove(Font());
    std::filesystem::create_symlink(target, Font());
    ExpectTheLineAlone();
  }
}

TEST_F(HostFonts, OfAnyLengthAreAnswered) {
  WriteBytes(Font(), "");
  ExpectTheLineAlone();
  std::filesystem::resize_file(Font(), std::uintmax_t{1} << 40);  // all of it a hole
  ExpectTheLineAlone();
}

// A font engine may look for what other systems keep beside a font.
TEST_F(HostFonts, ThatAreNoFontsAreNotReplacedByTheirCompanions) {
  WriteBytes(Font(), "no font");
  const Path fonts = Font().parent_path();
  for (const char* companion : {"._plate.font", "%plate.font"}) {
    ASSERT_EQ(mkfifo((fonts / companion).c_str(), 0600), 0);
  }
  for (const char* place : {".AppleDouble", "resource.frk", ".resource"}) {
    std::filesystem::create_directory(fonts / place);
    ASSERT_EQ(mkfifo((fonts / place / "plate.font").c_str(), 0600), 0);
  }
  ExpectTheLineAlone();
}

TEST_F(HostFonts, AreNotNamedByAPipe) {
  std::filesystem::remove(Ini());
  ASSERT_EQ(mkfifo(Ini().c_str(), 0600), 0);
  EXPECT_EQ(RunInChild([] {
              alarm(20);
              return ReadText();
            }),
            "");
}

namespace {

struct Campaign {
  const char* name;
  damaged_forms::Damage damage;
};

/// Most of what is read of a font stands at its start: the campaigns damage that and the whole.
constexpr std::size_t kHeadBytes = 2000;

class DamagedHostFonts : public HostFonts, public testing::WithParamInterface<Campaign> {
 protected:
  static void ReadWithDamaged(const std::string& bytes, const Path& place) {
    const std::string head = bytes.substr(0, kHeadBytes);
    const std::string tail = bytes.substr(head.size());
    GetParam().damage(head, [&](const std::string& name, const std::string& damaged) {
      Read(place, "head " + name, damaged + tail);
    });
    if (tail.empty()) return;
    GetParam().damage(
        bytes, [&](const std::string& name, const std::string& damaged) { Read(place, name, damaged); });
  }

 private:
  static void Read(const Path& place, const std::string& name, const std::string& bytes) {
    WriteBytes(place, bytes);
    const std::string failure = RunInChild(ReadText);
    if (failure.empty()) return;
    ADD_FAILURE() << failure << ": " << damaged_forms::Kept(place.filename(), name, bytes);
  }
};

}  // namespace

TEST_P(DamagedHostFonts, OfTrueTypeDoNoHarm) {
  ReadWithDamaged(BytesOf("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"), Font());
}

TEST_P(DamagedHostFonts, OfOpenTypeDoNoHarm) { ReadWithDamaged(BytesOf(direct::kNimbusOtf), Font()); }

TEST_P(DamagedHostFonts, OfType1DoNoHarm) { ReadWithDamaged(BytesOf(direct::kNimbusType1), Font()); }

TEST_P(DamagedHostFonts, OfBitmapsDoNoHarm) {
  const BitmapFont font("dots.bdf");
  ReadWithDamaged(BytesOf("dots.bdf"), Font());
}

TEST_P(DamagedHostFonts, NamedByADamagedFontIniDoNoHarm) {
  std::filesystem::create_symlink(direct::kSans, Font());
  ReadWithDamaged(kIni, Ini());
}

namespace {

std::string NameOf(const testing::TestParamInfo<Campaign>& info) { return info.param.name; }

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, DamagedHostFonts,
                         testing::Values(Campaign{"Cut", damaged_forms::CutIt},
                                         Campaign{"Flipped", damaged_forms::FlipIt},
                                         Campaign{"Shuffled", damaged_forms::ShuffleIt}),
                         NameOf);
