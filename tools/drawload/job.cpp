#include "job.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <drawload/exports.h>
#include <fcntl.h>
#include <optional>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// Turns file descriptor 1 away for its own lifetime.
class StandardOutputTurnedAway {
 public:
  explicit StandardOutputTurnedAway(LibraryNotes notes) {
    std::fflush(stdout);
    saved = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    if (notes == LibraryNotes::kToStandardError) {
      dup2(STDERR_FILENO, STDOUT_FILENO);
      return;
    }
    int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) nowhere = memfd_create("notes", MFD_CLOEXEC);  // a sandbox may have no /dev
    if (nowhere < 0) return;
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
  }
  StandardOutputTurnedAway(const StandardOutputTurnedAway&) = delete;
  StandardOutputTurnedAway& operator=(const StandardOutputTurnedAway&) = delete;
  ~StandardOutputTurnedAway() {
    std::fflush(stdout);
    if (saved < 0) {
      close(STDOUT_FILENO);
      return;
    }
    dup2(saved, STDOUT_FILENO);
    close(saved);
  }

 private:
  int saved = -1;
};

Settings SettingsOf(const CFileDraw& draw) {
  Settings settings;
  settings.cutMode = draw.cutMode;
  settings.cutSpeed = draw.cutSpeed;
  settings.cutPower = draw.cutPower;
  settings.highFocus = draw.highFocus;
  settings.frequency = draw.frequency;
  settings.processType = draw.processType;
  settings.engraveSpeed = draw.engraveSpeed;
  settings.engMinPower = draw.EngMinP;
  settings.engMaxPower = draw.EngMaxP;
  settings.engStep = draw.engStep;
  settings.imageType = draw.imageType;
  settings.reverse = draw.Reverse;
  settings.machineType = draw.machineType;
  settings.diameter = draw.diameter;
  return settings;
}

bool IsFinite(Point p) { return std::isfinite(p.x) && std::isfinite(p.y); }

bool IsFinite(const Segment& segment) {
  return IsFinite(segment.start) && IsFinite(segment.end) && IsFinite(segment.control1) &&
         IsFinite(segment.control2);
}

Point PointOf(FilePosition position) { return {position.x, position.y}; }

Box BoxOf(const structRect& rect) { return {rect.minX, rect.minY, rect.maxX, rect.maxY}; }

/// The result's colour as 0xRRGGBB; the library keeps red in the lowest byte.
std::uint32_t ColorOf(const CFileDraw& draw) {
  return (draw.color & 0xFF) << 16 | (draw.color & 0xFF00) | (draw.color >> 16 & 0xFF);
}

std::optional<Result> CopyOf(CFileCurve& from) {
  Curve curve;
  curve.color = ColorOf(from);
  curve.settings = SettingsOf(from);
  if (from.segmentCount > 0) curve.bounds = BoxOf(from.CalRect());
  curve.segments.reserve(static_cast<std::size_t>(from.segmentCount));
  for (const FileSegment* node = from.segmentHead->next; node != from.segmentHead; node = node->next) {
    const Segment segment{node->type == kSegmentCubic, PointOf(node->start), PointOf(node->end),
                          PointOf(node->control1), PointOf(node->control2)};
    if (!IsFinite(segment)) return std::nullopt;
    curve.segments.push_back(segment);
  }
  return curve;
}

std::uint32_t HeaderWord(const std::uint8_t* block, std::size_t offset) {
  std::uint32_t word = 0;
  std::memcpy(&word, block + offset, sizeof word);
  return word;
}

std::optional<Result> CopyOf(CFileDib& from) {
  constexpr std::size_t kPixelsAt = 1064;
  Bitmap bitmap;
  bitmap.settings = SettingsOf(from);
  bitmap.bounds = BoxOf(from.CalRect());
  bitmap.a = from.a;
  bitmap.b = from.b;
  bitmap.c = from.c;
  bitmap.d = from.d;
  bitmap.e = from.e;
  bitmap.f = from.f;
  const auto* block = static_cast<const std::uint8_t*>(from.bitmap);
  if (block != nullptr) {
    bitmap.width = HeaderWord(block, 4);
    bitmap.height = HeaderWord(block, 8);
    const std::size_t stride = (static_cast<std::size_t>(bitmap.width) + 3) / 4 * 4;
    bitmap.grey.reserve(static_cast<std::size_t>(bitmap.width) * bitmap.height);
    for (std::size_t row = 0; row < bitmap.height; ++row) {
      const std::uint8_t* first = block + kPixelsAt + row * stride;
      bitmap.grey.insert(bitmap.grey.end(), first, first + bitmap.width);
    }
  }
  if (!IsFinite(bitmap.Place(0, 0)) || !IsFinite(bitmap.Place(bitmap.width, bitmap.height)))
    return std::nullopt;
  return bitmap;
}

std::optional<Result> CopyOf(CFileDraw& draw) {
  if (draw.kind == kFileCurve) return CopyOf(static_cast<CFileCurve&>(draw));
  if (draw.kind == kFileDib) return CopyOf(static_cast<CFileDib&>(draw));
  return std::nullopt;
}

}  // namespace

Job LoadJob(const std::string& path, LibraryNotes notes) {
  Job job;
  job.path = path;
  const StandardOutputTurnedAway turnedAway(notes);
  if (DrawLoad_Z7(path.c_str()) == 0) return job;
  CFileDraw* draw = nullptr;
  for (std::int32_t found = GetFirstData_Z7(&draw); found != 0; found = GetNextData_Z7(&draw)) {
    if (std::optional<Result> copy = CopyOf(*draw)) {
      job.results.push_back(std::move(*copy));
    } else {
      ++job.dropped;
    }
  }
  return job;
}
