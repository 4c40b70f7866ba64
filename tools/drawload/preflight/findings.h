#ifndef DRAWLOAD_TOOLS_PREFLIGHT_FINDINGS_H
#define DRAWLOAD_TOOLS_PREFLIGHT_FINDINGS_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "job.h"

/// What can be found in a drawing, in the order in which it is reported.
enum class Code : std::uint8_t {
  kDuplicate,
  kOverlap,
  kOtherLayer,
  kOpen,
  kPieces,
  kOrder,
  kShort,
  kTurnBack,
  kOutside,
  kDpi,
  kSettings,
  kFar,
  kNotFinite,
};

struct CodeFacts {
  Code code;
  const char* name;  ///< for --ignore and JSON
  const char* one;   ///< what one such finding is called
  const char* many;
  std::uint32_t color;  ///< of its marks, 0xRRGGBB
};

const CodeFacts& FactsOf(Code code);
std::optional<Code> CodeNamed(const std::string& name);

/// "duplicate, overlap, ...": all codes, for messages.
std::string CodeNames();

constexpr std::uint32_t kNoSegment = 0xFFFFFFFF;

/// Where one finding is.
struct Place {
  Point at;
  std::optional<Point> other;  ///< the far end of an open contour
  Box box;
  double length = 0.0;  ///< millimetres; of an open contour the distance of its ends
  std::uint32_t result = 0;
  std::uint32_t segment = kNoSegment;  ///< of the result's curve, where the finding is a segment
};

/// All findings of one code.
struct Findings {
  Code code = Code::kDuplicate;
  bool isOfWeight = false;  ///< whether at least one will go wrong on the machine
  std::size_t count = 0;
  double length = 0.0;
  std::vector<Place> places;  ///< the first `kMostPlaces`
};

constexpr std::size_t kMostPlaces = 10'000;

struct CheckOptions {
  double tolerance = 0.01;   ///< millimetres
  std::optional<Point> bed;  ///< width and height
  std::vector<Code> ignored;
};

struct SegmentAddress {
  std::uint32_t result = 0;
  std::uint32_t segment = 0;
};

/// What the check of one drawing found.
struct Report {
  std::vector<Findings> findings;  ///< those that occur, in the order of their codes
  std::size_t closedContours = 0;
  std::size_t openContours = 0;
  std::vector<SegmentAddress> repeated;  ///< the segments that --drop-duplicates leaves out
  /// Searches that were cut short because the drawing asks for too much work: empty for all but made-up
  /// drawings.
  std::vector<std::string> cutShort;

  const Findings* Of(Code code) const;
  bool IsOfWeight() const;
};

#endif
