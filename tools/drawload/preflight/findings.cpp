#include "findings.h"

#include <algorithm>

namespace {

constexpr std::array<CodeFacts, 13> kCodes{{
    {Code::kDuplicate, "duplicate", "segment drawn before", "segments drawn before", 0xE00000},
    {Code::kOverlap, "overlap", "line that shares a part with another", "lines that share a part with others",
     0xFF6A00},
    {Code::kOtherLayer, "other-layer", "segment drawn before in another color or with other settings",
     "segments drawn before in another color or with other settings", 0xC08000},
    {Code::kOpen, "open", "open contour", "open contours", 0x0060E0},
    {Code::kPieces, "pieces", "closed contour in loose pieces", "closed contours in loose pieces", 0x00A0A0},
    {Code::kOrder, "order", "outline cut before what lies inside it",
     "outlines cut before what lies inside them", 0x9000C0},
    {Code::kShort, "short", "segment shorter than the tolerance", "segments shorter than the tolerance",
     0x707070},
    {Code::kTurnBack, "turn-back", "place where a curve turns back on itself",
     "places where a curve turns back on itself", 0xD0006A},
    {Code::kOutside, "outside", "result outside the bed", "results outside the bed", 0xB00000},
    {Code::kDpi, "dpi", "bitmap with too few or too many dots an inch",
     "bitmaps with too few or too many dots an inch", 0x007030},
    {Code::kSettings, "settings", "result with settings that no machine takes",
     "results with settings that no machine takes", 0x805000},
    {Code::kFar, "far", "result too far away for any machine", "results too far away for any machine",
     0x000000},
    {Code::kNotFinite, "not-finite", "result with coordinates that are not finite",
     "results with coordinates that are not finite", 0x000000},
}};

}  // namespace

const CodeFacts& FactsOf(Code code) { return kCodes[static_cast<std::size_t>(code)]; }

std::optional<Code> CodeNamed(const std::string& name) {
  const auto* found =
      std::find_if(kCodes.begin(), kCodes.end(), [&](const CodeFacts& facts) { return facts.name == name; });
  if (found == kCodes.end()) return std::nullopt;
  return found->code;
}

std::string CodeNames() {
  std::string names;
  for (const CodeFacts& facts : kCodes) names += (names.empty() ? "" : ", ") + std::string(facts.name);
  return names;
}

const Findings* Report::Of(Code code) const {
  const auto found = std::find_if(findings.begin(), findings.end(),
                                  [code](const Findings& entry) { return entry.code == code; });
  return found == findings.end() ? nullptr : &*found;
}

bool Report::IsOfWeight() const {
  return std::any_of(findings.begin(), findings.end(),
                     [](const Findings& entry) { return entry.isOfWeight; });
}
