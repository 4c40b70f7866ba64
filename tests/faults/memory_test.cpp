// Allocations that fail: the n-th one, for every n, while a drawing is read and walked.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <new>
#include <sys/mman.h>

#include "drawload/exports.h"
#include "dump/result_dump.h"
#include "entry/scratch_folder.h"
#include "faults/child.h"
#include "faults/drawing_files.h"
#include "faults/failing_memory.h"

namespace {

using drawing_files::Path;
using failing_memory::Failure;

/// Number of the failing allocation, where the parent still sees it when the child is gone.
class SharedNumber {
 public:
  SharedNumber()
      : number(static_cast<std::size_t*>(
            mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
  SharedNumber(const SharedNumber&) = delete;
  SharedNumber& operator=(const SharedNumber&) = delete;
  ~SharedNumber() { munmap(number, sizeof(std::size_t)); }

  std::size_t& operator*() { return *number; }

 private:
  std::size_t* number;
};

/// Reads every field of every result, without an allocation of its own.
std::size_t WalkAndCount() {
  std::size_t count = 0;
  CFileDraw* object = nullptr;
  for (int found = GetFirstData_Z7(&object); found == 1; found = GetNextData_Z7(&object)) {
    ++count;
    if (object->kind != kFileCurve) continue;
    const auto& curve = static_cast<const CFileCurve&>(*object);
    std::int32_t segments = 0;
    for (const FileSegment* next = curve.segmentHead->next; next != curve.segmentHead; next = next->next) {
      ++segments;
    }
    if (segments != curve.segmentCount) std::abort();
  }
  return count;
}

/// Loads, walks and releases the drawing while allocation `n` fails. Returns how many there were.
std::size_t LoadWithFault(const Path& drawing, std::size_t n, Failure failure) {
  const char* path = drawing.c_str();
  failing_memory::Start(n, failure);
  if (DrawLoad_Z7(path) == 1) WalkAndCount();
  DrawLoad_Z7(nullptr);
  return failing_memory::Stop();
}

std::string NameOfCaller(const void* caller) {
  Dl_info info = {};
  if (caller == nullptr || dladdr(caller, &info) == 0) return "nobody known";
  const auto offset = static_cast<const char*>(caller) - static_cast<const char*>(info.dli_fbase);
  return std::string(info.dli_fname) + " + " + std::to_string(offset) + " " +
         (info.dli_sname == nullptr ? "" : info.dli_sname);
}

std::string LostMessage() {
  const std::size_t lost = failing_memory::LostBlocks();
  if (lost == 0) return {};
  return "lost " + std::to_string(lost) + " blocks, one of them asked for by " +
         NameOfCaller(failing_memory::CallerOfALostBlock());
}

constexpr std::size_t kMostFaults = 4000;
constexpr std::size_t kFaultsBetweenChecks = 50;

/// Lets the allocations from 1 to 4,000 fail in turn. Empty where all went well.
std::string LoadWithEachFault(const Path& drawing, Failure failure, SharedNumber& failing) {
  std::set_new_handler(nullptr);  // failures are wanted here
  const std::string expected = result_dump::OfFile(drawing);
  const std::size_t count = LoadWithFault(drawing, 0, failure);
  if (std::string lost = LostMessage(); !lost.empty()) return "without a fault: " + lost;
  for (std::size_t n = 1; n <= std::min(count, kMostFaults); ++n) {
    *failing = n;
    LoadWithFault(drawing, n, failure);
    if (std::string lost = LostMessage(); !lost.empty()) return lost;
    if (n % kFaultsBetweenChecks == 0 && result_dump::OfFile(drawing) != expected) {
      return "the next read gives other results";
    }
  }
  return {};
}

class MemoryFaults : public ScratchFolder, public testing::WithParamInterface<Path> {
 protected:
  MemoryFaults() { drawing_files::WritePicturesHere(); }

  static void ExpectNoHarm(Failure failure) {
    SharedNumber failing;
    ChildLimits limits;
    limits.cpuSeconds = 60;
    const std::string harm =
        RunInChild([&] { return LoadWithEachFault(GetParam(), failure, failing); }, limits);
    EXPECT_EQ(harm, "") << "at allocation " << *failing;
  }
};

std::string NameOf(const testing::TestParamInfo<Path>& info) {
  return info.param.stem().string() + "_" + info.param.extension().string().substr(1);
}

}  // namespace

TEST_P(MemoryFaults, OfOneAllocationDoNoHarm) { ExpectNoHarm(Failure::kOne); }

TEST_P(MemoryFaults, OfAllAllocationsFromOneOnDoNoHarm) { ExpectNoHarm(Failure::kAllFromThere); }

INSTANTIATE_TEST_SUITE_P(All, MemoryFaults, testing::ValuesIn(drawing_files::Drawings()), NameOf);
