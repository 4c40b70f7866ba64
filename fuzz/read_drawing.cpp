#include "fuzz/read_drawing.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "drawload/exports.h"
#include "fuzz/target.h"

namespace fuzz {

namespace {

/// A file of this process; gone at its end.
class InputFile {
 public:
  InputFile(std::string_view contents, std::string_view extension)
      : path(std::filesystem::temp_directory_path() /
             ("drawload_fuzz_" + std::to_string(getpid()) + "." + std::string(extension))) {
    std::ofstream stream(path, std::ios::binary);
    stream.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    stream.close();
    Check(stream.good(), "the input could not be written to a file");
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() { unlink(path.c_str()); }

  const std::filesystem::path path;
};

void TouchCurve(const CFileCurve& curve) {
  CFileCurve copy = curve;
  Touch(&copy, sizeof copy);
  std::int32_t count = 0;
  for (const FileSegment* segment = copy.segmentHead->next; segment != copy.segmentHead;
       segment = segment->next) {
    Check(segment->next->previous == segment, "a segment's neighbour does not know it");
    Check(segment->type == kSegmentLine || segment->type == kSegmentCubic, "a segment of no known type");
    const FileSegment segmentCopy = *segment;
    Touch(&segmentCopy, sizeof segmentCopy);
    ++count;
  }
  Check(count == copy.segmentCount, "a curve does not have the segments that it counts");
}

/// The packed bitmap must hold all that its header promises.
void TouchBitmap(const CFileDib& bitmap) {
  const CFileDib copy = bitmap;
  Touch(&copy, sizeof copy);
  if (copy.bitmap == nullptr) return;
  constexpr std::size_t kHeaderSize = 40;
  constexpr std::size_t kPaletteSize = 1024;
  const auto* block = static_cast<const unsigned char*>(copy.bitmap);
  std::int32_t sides[2] = {};  // behind the size of the header
  std::memcpy(sides, block + 4, sizeof sides);
  Check(sides[0] >= 0 && sides[1] >= 0, "a bitmap with a side below 0");
  const std::size_t rowSize = (static_cast<std::size_t>(sides[0]) + 3) / 4 * 4;
  Touch(block, kHeaderSize + kPaletteSize + rowSize * static_cast<std::size_t>(sides[1]));
}

void TouchObject(CFileDraw& object) {
  Check(object.kind == kFileCurve || object.kind == kFileDib, "a result of a kind that no file makes");
  if (object.kind == kFileCurve) TouchCurve(static_cast<CFileCurve&>(object));
  if (object.kind == kFileDib) TouchBitmap(static_cast<CFileDib&>(object));
  const structRect bounds = object.CalRect();
  Touch(&bounds, sizeof bounds);
}

}  // namespace

void ReadDrawing(std::string_view file, std::string_view extension) {
  const InputFile input(file, extension);
  if (DrawLoad_Z7(input.path.c_str()) == 0) return;
  CFileDraw* object = nullptr;
  Check(GetFirstData_Z7(&object) == 1, "a file with results has no first one");
  do {
    TouchObject(*object);
  } while (GetNextData_Z7(&object) == 1);
  Check(GetFirstData_Z7(&object) == 0, "the walk went on behind its end");
}

}  // namespace fuzz
