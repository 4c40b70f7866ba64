// Where the library works: closed outputs, folders that cannot be written, paths that name no regular file.
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "drawload/exports.h"
#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/child.h"
#include "faults/drawing_files.h"

namespace {

using drawing_files::BytesOf;

const std::string kPdf = DRAWLOAD_TEST_DATA "/drawings/filters.pdf";

class Surroundings : public ScratchFolder {
 protected:
  Surroundings() {
    testing::internal::CaptureStdout();
    expected = result_dump::OfFile(kPdf);
    testing::internal::GetCapturedStdout();
    EXPECT_NE(expected, "");
  }

  /// Empty where the drawing comes out as it does elsewhere.
  std::string Compare(const std::string& path) const {
    return result_dump::OfFile(path) == expected ? "" : "other results";
  }

  std::string expected;
};

/// Ends this process where it waits; an answer takes milliseconds.
void EndWhereItWaits() { alarm(20); }

/// Reads often enough to write more notes than a buffer holds.
template <typename Read>
std::string ManyTimes(Read read) {
  for (int i = 0; i < 200; ++i) {
    if (std::string failure = read(); !failure.empty()) return failure;
  }
  return {};
}

}  // namespace

TEST_F(Surroundings, WithStandardOutputClosedChangeNothing) {
  EXPECT_EQ(RunInChild([this] {
              close(STDOUT_FILENO);
              return ManyTimes([this] { return Compare(kPdf); });
            }),
            "");
}

TEST_F(Surroundings, WithAllStandardStreamsClosedChangeNothing) {
  EXPECT_EQ(RunInChild([this] {
              for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
              return ManyTimes([this] { return Compare(kPdf); });
            }),
            "");
}

TEST_F(Surroundings, WithAFullStandardOutputChangeNothing) {
  EXPECT_EQ(RunInChild([this] {
              dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
              return ManyTimes([this] { return Compare(kPdf); });
            }),
            "");
}

TEST_F(Surroundings, WhereNobodyReadsStandardOutputChangeNothing) {
  EXPECT_EQ(RunInChild([this] {
              int ends[2];
              if (pipe2(ends, O_CLOEXEC) != 0) return std::string("no pipe");
              dup2(ends[1], STDOUT_FILENO);
              close(ends[0]);
              close(ends[1]);
              return ManyTimes([this] { return Compare(kPdf); });
            }),
            "");
}

TEST_F(Surroundings, OfAFolderThatCannotBeWrittenLetPicturesDecode) {
  std::filesystem::copy_file(kPdf, "drawing.pdf");
  ASSERT_EQ(chmod("drawing.pdf", 0444), 0);
  ASSERT_EQ(chmod(".", 0555), 0);
  EXPECT_EQ(RunInChild([this]() -> std::string {
              constexpr uid_t nobody = 65534;
              if (geteuid() == 0 && setuid(nobody) != 0) return "still the superuser";
              if (open("proof", O_WRONLY | O_CREAT | O_CLOEXEC, 0600) >= 0)
                return "the folder can be written";
              return Compare("drawing.pdf");
            }),
            "");
  ASSERT_EQ(chmod(".", 0755), 0);
}

TEST_F(Surroundings, StayAsTheyWere) {
  testing::internal::CaptureStdout();
  for (const auto& drawing : drawing_files::Drawings()) result_dump::OfFile(drawing);
  testing::internal::GetCapturedStdout();
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

namespace {

/// Paths of every kind that are no drawings' files. Each has the extension of a format.
class NoRegularFile : public ScratchFolder, public testing::WithParamInterface<const char*> {
 protected:
  std::string Named(const std::string& name) const { return name + "." + GetParam(); }

  /// Loads in a child, which is ended where it waits.
  static void ExpectANo(const std::string& path) {
    const std::string failure = RunInChild([&path]() -> std::string {
      EndWhereItWaits();
      return DrawLoad_Z7(path.c_str()) == 0 ? "" : "it was read";
    });
    EXPECT_EQ(failure, "") << path.substr(0, 80);
  }
};

}  // namespace

TEST_P(NoRegularFile, AFolderIsAnswered) {
  std::filesystem::create_directory(Named("folder"));
  ExpectANo(Named("folder"));
}

TEST_P(NoRegularFile, APipeIsAnswered) {
  ASSERT_EQ(mkfifo(Named("pipe").c_str(), 0600), 0);
  ExpectANo(Named("pipe"));
}

TEST_P(NoRegularFile, APipeWhoseWriterIsSilentIsAnswered) {
  ASSERT_EQ(mkfifo(Named("pipe").c_str(), 0600), 0);
  const int writer = open(Named("pipe").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(writer, 0);
  ExpectANo(Named("pipe"));
  close(writer);
}

TEST_P(NoRegularFile, ASocketIsAnswered) {
  const int socketFile = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  Named("socket").copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(socketFile, 1), 0);
  ExpectANo(Named("socket"));
  close(socketFile);
}

TEST_P(NoRegularFile, AnEndlessDeviceIsAnswered) {
  for (const char* device : {"/dev/zero", "/dev/urandom", "/dev/full", "/dev/tty", "/dev/stdin"}) {
    std::filesystem::create_symlink(device, Named("device"));
    ExpectANo(Named("device"));
    std::filesystem::remove(Named("device"));
  }
}

TEST_P(NoRegularFile, ALoopOfLinksIsAnswered) {
  std::filesystem::create_symlink(Named("a"), Named("b"));
  std::filesystem::create_symlink(Named("b"), Named("a"));
  ExpectANo(Named("a"));
}

TEST_P(NoRegularFile, APathOfAnyLengthIsAnswered) {
  for (const std::size_t length : {300u, 4000u, 4096u, 5000u, 1'000'000u}) {
    ExpectANo(Named(std::string(length, 'x')));
    std::string folders;
    while (folders.size() < length) folders += "./";
    ExpectANo(Named(folders + "missing"));
  }
}

TEST_F(Surroundings, OfAFileBeyondItsBoundTakeNoMemory) {
  Write("large.svg", "<svg width='9' height='9'><path d='M0 0L1 1'/></svg>");
  Write("large.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n11\n1\n0\nENDSEC\n0\nEOF\n");
  Write("large.pdf", "%PDF-1.4\n");
  for (const char* name : {"large.svg", "large.dxf", "large.pdf"}) {
    std::filesystem::resize_file(name, (std::uintmax_t{1} << 31) + 1);  // almost all of it a hole
    EXPECT_EQ(RunInChild([name]() -> std::string {
                EndWhereItWaits();
                return DrawLoad_Z7(name) == 0 ? "" : "it was read";
              }),
              "")
        << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Under, NoRegularFile, testing::Values("dxf", "svg", "pdf"),
                         [](const auto& format) { return std::string(format.param); });

namespace {

/// A drawing whose picture stands at `path`, and a line.
std::string DxfWithPicture(const std::string& path) {
  return "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n1\n10\n0\n20\n0\n11\n5\n21\n5\n0\nIMAGE\n10\n0\n20\n0\n340\nA"
         "\n"
         "0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nIMAGEDEF\n5\nA\n1\n" +
         path + "\n0\nENDSEC\n0\nEOF\n";
}

}  // namespace

TEST_F(Surroundings, OfPicturesThatAreNoFilesAreAnswered) {
  ASSERT_EQ(mkfifo("pipe.png", 0600), 0);
  std::filesystem::create_directory("folder.png");
  const std::vector<std::string> paths = {"pipe.png", "folder.png",           "/dev/zero",
                                          "/dev/tty", std::string(4000, 'x'), "drawing.dxf"};
  for (const std::string& path : paths) {
    Write("drawing.dxf", DxfWithPicture(path));
    EXPECT_EQ(RunInChild([]() -> std::string {
                EndWhereItWaits();
                return result_dump::OfFile("drawing.dxf").empty() ? "the line is lost" : "";
              }),
              "")
        << path.substr(0, 80);
  }
}
