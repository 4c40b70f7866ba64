#include "check.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "bezier.h"
#include "contours.h"
#include "duplicates.h"
#include "geometry.h"
#include "layers.h"
#include "nesting.h"

namespace {

class Checker {
 public:
  Checker(const Job& drawing, const CheckOptions& checkOptions) : job(drawing), options(checkOptions) {}

  Report Run() {
    for (std::uint32_t r = 0; r < job.results.size(); ++r) {
      if (!IsWithinReach(job.results[r])) {
        Add(Code::kFar, true, Place{StartOf(job.results[r]).value_or(Point{}), {}, {}, 0.0, r, kNoSegment});
        continue;
      }
      std::visit([&](const auto& value) { Check(value, r); }, job.results[r]);
    }
    for (std::size_t i = 0; i < job.dropped; ++i) Add(Code::kNotFinite, true, std::nullopt);
    CheckTogether();
    return Finish();
  }

 private:
  Findings& Of(Code code) {
    Findings& entry = all[static_cast<std::size_t>(code)];
    entry.code = code;
    return entry;
  }

  void Add(Code code, bool isOfWeight, const std::optional<Place>& place) {
    Findings& entry = Of(code);
    entry.isOfWeight = entry.isOfWeight || isOfWeight;
    ++entry.count;
    if (!place) return;
    entry.length += place->length;
    if (entry.places.size() < kMostPlaces) entry.places.push_back(*place);
  }

  void Check(const Curve& curve, std::uint32_t r) {
    for (std::uint32_t i = 0; i < curve.segments.size(); ++i) {
      const Segment& segment = curve.segments[i];
      if (PolygonLength(segment) == 0.0 || IsShorterThan(segment, options.tolerance))
        Add(Code::kShort, false, PlaceOf(segment, LengthOf(segment), r, i));
      CheckTurns(curve, r, i);
    }
    if (curve.segments.empty()) return;
    CheckBed(curve.bounds, r);
    CheckSettings(curve.settings, curve.bounds, r);
  }

  void Check(const Bitmap& bitmap, std::uint32_t r) {
    const double across = std::hypot(bitmap.a, bitmap.b);
    const double down = std::hypot(bitmap.c, bitmap.d);
    constexpr double kInch = 25.4;
    const auto isSensible = [](double millimetres) {
      return millimetres * kMostDpi >= kInch * (1 - 1e-9) && millimetres * kLeastDpi <= kInch * (1 + 1e-9);
    };
    const Place place{{bitmap.bounds.minX, bitmap.bounds.minY}, {}, bitmap.bounds, 0.0, r, kNoSegment};
    if (!isSensible(across) || !isSensible(down)) Add(Code::kDpi, true, place);
    CheckBed(bitmap.bounds, r);
    CheckSettings(bitmap.settings, bitmap.bounds, r);
  }

  static Place PlaceOf(const Segment& segment, double length, std::uint32_t r, std::uint32_t i) {
    return {segment.start, {}, ControlBoxOf(segment), length, r, i};
  }

  /// Whether the segment turns back within itself, or to the one before it.
  void CheckTurns(const Curve& curve, std::uint32_t r, std::uint32_t i) {
    const Segment& segment = curve.segments[i];
    const double within = RetracedLength(segment, options.tolerance);
    if (within > options.tolerance) Add(Code::kTurnBack, true, PlaceOf(segment, within, r, i));
    const std::size_t count = curve.segments.size();
    if (count < 2) return;
    const Segment& before = curve.segments[i == 0 ? count - 1 : i - 1];
    // Of two segments that make a closed curve there and back, one joint tells it.
    if (i == 0 && count == 2) return;
    const double back = RetracedAtJoint(before, segment);
    if (back <= options.tolerance) return;
    Place place = PlaceOf(segment, back, r, i);
    place.at = segment.start;
    Add(Code::kTurnBack, true, place);
  }

  double RetracedAtJoint(const Segment& before, const Segment& after) const {
    const double tolerance = options.tolerance;
    if (Distance(before.end, after.start) > tolerance) return 0.0;
    if (before.cubic && after.cubic && IsSameWithin(before, after, tolerance) &&
        Distance(before.start, after.end) <= tolerance && PolygonLength(after) > tolerance)
      return LengthOf(after);
    if (!IsStraight(before, tolerance) || !IsStraight(after, tolerance)) return 0.0;
    const double lengthBefore = Distance(before.start, before.end);
    const double lengthAfter = Distance(after.start, after.end);
    const bool isLonger = lengthBefore >= lengthAfter;
    const Point corner = after.start;
    const Point far = isLonger ? before.start : after.end;   // of the longer one
    const Point near = isLonger ? after.end : before.start;  // of the shorter one
    const double longer = std::max(lengthBefore, lengthAfter);
    if (longer == 0.0) return 0.0;
    const double x = (far.x - corner.x) / longer;
    const double y = (far.y - corner.y) / longer;
    const double along = (near.x - corner.x) * x + (near.y - corner.y) * y;
    const double aside = std::abs((near.y - corner.y) * x - (near.x - corner.x) * y);
    // A sharp corner of short segments is no turn back: what is retraced is long beside the tolerance.
    return along > 2 * tolerance && aside <= tolerance && aside <= along / 10 ? along : 0.0;
  }

  void CheckBed(const Box& box, std::uint32_t r) {
    if (!options.bed) return;
    const double t = options.tolerance;
    if (box.minX >= -t && box.minY >= -t && box.maxX <= options.bed->x + t && box.maxY <= options.bed->y + t)
      return;
    Add(Code::kOutside, true, Place{{box.minX, box.minY}, {}, box, 0.0, r, kNoSegment});
  }

  void CheckSettings(const Settings& s, const Box& box, std::uint32_t r) {
    // Written so that NaN is taken for a fault.
    const auto isPower = [](double value) { return value >= 0.0 && value <= 100.0; };
    const auto isAboveZero = [](double value) { return value > 0.0 && std::isfinite(value); };
    if (isPower(s.cutPower) && isPower(s.engMinPower) && isPower(s.engMaxPower) && isAboveZero(s.cutSpeed) &&
        isAboveZero(s.engraveSpeed) && isAboveZero(s.engStep))
      return;
    Add(Code::kSettings, true, Place{{box.minX, box.minY}, {}, box, 0.0, r, kNoSegment});
  }

  /// What needs all results at once.
  void CheckTogether() {
    const std::vector<std::uint32_t> layers = LayersOf(job);
    std::vector<bool> repeated;
    {
      const Repeats repeats = FindRepeats(job, layers, options.tolerance);
      for (const RepeatedSegment& segment : repeats.segments) AddRepeated(segment);
      if (!repeats.isComplete) report.cutShort.emplace_back("lines that share a part with others");
      repeated = RepeatedResults(job, repeats);
    }
    const Contours contours = FindContours(job, layers, repeated, options.tolerance);
    for (const Contour& contour : contours.contours) AddContour(contours, contour);
    const Nesting nesting = FindNesting(job, contours, options.tolerance);
    if (!nesting.isComplete) report.cutShort.emplace_back("what lies inside outlines");
    AddOrder(nesting);
  }

  void AddRepeated(const RepeatedSegment& repeated) {
    const Segment& segment = std::get<Curve>(job.results[repeated.result]).segments[repeated.segment];
    const Place place = PlaceOf(segment, repeated.length, repeated.result, repeated.segment);
    if (repeated.repeat == Repeat::kSegment || repeated.repeat == Repeat::kWithin)
      report.repeated.push_back({repeated.result, repeated.segment});
    switch (repeated.repeat) {
      case Repeat::kNothing: return;
      case Repeat::kSegment: return Add(Code::kDuplicate, true, place);
      case Repeat::kWithin:
      case Repeat::kPart: return Add(Code::kOverlap, true, place);
      case Repeat::kElsewhere: return Add(Code::kOtherLayer, false, place);
    }
  }

  void AddContour(const Contours& contours, const Contour& contour) {
    if (contour.length <= options.tolerance) return;
    ++(contour.isClosed ? report.closedContours : report.openContours);
    const Piece& first = contours.pieces[contour.first];
    const Piece& last = contours.pieces[contour.first + contour.count - 1];
    Place place{StartOf(job, first), {}, {}, 0.0, first.result, kNoSegment};
    for (std::uint32_t i = 0; i < contour.count; ++i)
      place.box.Include(std::get<Curve>(job.results[contours.pieces[contour.first + i].result]).bounds);
    if (contour.isClosed) {
      if (contour.count < 2) return;
      place.length = contour.length;
      return Add(Code::kPieces, true, place);
    }
    place.length = contour.gap;
    place.other = EndOf(job, last);
    Add(Code::kOpen, contour.gap <= kLikelyGap && contour.gap * 10 < contour.length, place);
  }

  void AddOrder(const Nesting& nesting) {
    for (const std::uint32_t s : OutlinesCutTooEarly(nesting)) {
      const Shape& shape = nesting.shapes[s];
      const Point start = StartOf(job.results[shape.firstResult]).value_or(Point{});
      Add(Code::kOrder, true, Place{start, {}, shape.bounds, 0.0, shape.firstResult, kNoSegment});
    }
  }

  Report Finish() {
    for (Findings& entry : all) {
      const bool isIgnored =
          std::find(options.ignored.begin(), options.ignored.end(), entry.code) != options.ignored.end();
      if (entry.count > 0 && !isIgnored) report.findings.push_back(std::move(entry));
    }
    return std::move(report);
  }

  const Job& job;
  const CheckOptions& options;
  std::array<Findings, 13> all;
  Report report;
};

}  // namespace

Report CheckJob(const Job& job, const CheckOptions& options) { return Checker(job, options).Run(); }
