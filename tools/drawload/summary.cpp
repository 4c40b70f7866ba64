#include "summary.h"

#include <cmath>
#include <cstdio>
#include <tuple>

#include "messages.h"
#include "preflight/check.h"
#include "preflight/mending.h"

namespace {

double DotsPerInch(std::uint32_t pixels, double millimetres) {
  return millimetres > 0.0 ? pixels * 25.4 / millimetres : 0.0;
}

BitmapFacts FactsOf(const Bitmap& bitmap) {
  BitmapFacts facts;
  facts.width = bitmap.width;
  facts.height = bitmap.height;
  facts.placedWidth = std::hypot(bitmap.a, bitmap.b) * bitmap.width;
  facts.placedHeight = std::hypot(bitmap.c, bitmap.d) * bitmap.height;
  facts.dpiX = DotsPerInch(bitmap.width, facts.placedWidth);
  facts.dpiY = DotsPerInch(bitmap.height, facts.placedHeight);
  return facts;
}

/// Adds results to a summary and finds the group of each by its colour and settings.
class Counter {
 public:
  explicit Counter(Summary& target) : summary(target) {}

  void Add(const Curve& curve) {
    const double length = LengthOf(curve);
    ++summary.curves;
    for (const Segment& segment : curve.segments) ++(segment.cubic ? summary.cubics : summary.lines);
    summary.cutLength += length;
    summary.cutLengthByColor[curve.color] += length;
    SettingsGroup& group = GroupFor(curve.color, curve.settings);
    ++group.curves;
    group.cutLength += length;
  }

  void Add(const Bitmap& bitmap) {
    summary.bitmaps.push_back(FactsOf(bitmap));
    ++GroupFor(0, bitmap.settings).bitmaps;
  }

 private:
  SettingsGroup& GroupFor(std::uint32_t color, const Settings& settings) {
    const auto [entry, isNew] = index.try_emplace({color, settings}, summary.groups.size());
    if (isNew) summary.groups.push_back({color, settings});
    return summary.groups[entry->second];
  }

  struct ByValue {
    using Key = std::pair<std::uint32_t, Settings>;
    bool operator()(const Key& left, const Key& right) const {
      if (left.first != right.first) return left.first < right.first;
      return (left.second <=> right.second) == std::partial_ordering::less;
    }
  };

  Summary& summary;
  std::map<std::pair<std::uint32_t, Settings>, std::size_t, ByValue> index;
};

template <typename... Values>
std::string Line(const char* format, Values... values) {
  const int length = std::snprintf(nullptr, 0, format, values...);
  std::string line(static_cast<std::size_t>(length), '\0');
  std::snprintf(line.data(), line.size() + 1, format, values...);
  return line + "\n";
}

/// `value` rounded to micrometres, so that a hair below zero prints as zero.
double Micrometres(double value) {
  const double rounded = std::round(value * 1000.0) / 1000.0;
  return rounded == 0.0 ? 0.0 : rounded;
}

std::string BitmapLine(const BitmapFacts& bitmap) {
  return Line("  bitmap     %u x %u pixels, %.3f x %.3f mm, %.0f x %.0f dpi", bitmap.width, bitmap.height,
              bitmap.placedWidth, bitmap.placedHeight, bitmap.dpiX, bitmap.dpiY);
}

/// What a group holds: "3 curves, 285.245 mm", "1 bitmap", or both.
std::string ContentText(const SettingsGroup& group) {
  std::string text;
  if (group.curves > 0) {
    text = Counted(group.curves, "curve") + Line(", %.3f mm", group.cutLength);
    text.pop_back();
  }
  if (group.bitmaps == 0) return text;
  return (text.empty() ? "" : text + ", ") + Counted(group.bitmaps, "bitmap");
}

std::string GroupText(const SettingsGroup& group) {
  const Settings& s = group.settings;
  std::string text = Line("  group      #%06x, %s", group.color, ContentText(group).c_str());
  text +=
      Line("             processType %d, cutSpeed %g, cutPower %g, engraveSpeed %g, EngMinP %g, EngMaxP %g,",
           s.processType, s.cutSpeed, s.cutPower, s.engraveSpeed, s.engMinPower, s.engMaxPower);
  text += Line("             line spacing %g mm, highFocus %g, frequency %g, machineType %d, diameter %g",
               s.engStep, s.highFocus, s.frequency, s.machineType, s.diameter);
  if (group.bitmaps > 0) text += Line("             imageType %d, Reverse %d", s.imageType, s.reverse);
  return text;
}

CheckFacts CheckFactsOf(const Job& job) {
  const Report report = CheckJob(job, {});
  CheckFacts facts;
  facts.contoursClosed = report.closedContours;
  facts.contoursOpen = report.openContours;
  if (const Findings* duplicates = report.Of(Code::kDuplicate)) {
    facts.duplicates = duplicates->count;
    facts.duplicateLength = duplicates->length;
  }
  if (const Findings* order = report.Of(Code::kOrder)) facts.outlinesTooEarly = order->count;
  return facts;
}

std::string CheckLine(const CheckFacts& facts) {
  std::string text = "  check      " + Counted(facts.duplicates, "duplicate");
  if (facts.duplicates > 0) text += " (" + LengthText(facts.duplicateLength) + ")";
  text += ", " + Counted(facts.contoursClosed, "contour") + " closed, " + std::to_string(facts.contoursOpen) +
          " open";
  if (facts.outlinesTooEarly > 0) {
    text += ", order: " + Counted(facts.outlinesTooEarly, "outline") +
            (facts.outlinesTooEarly == 1 ? " before what lies inside it" : " before what lies inside them");
  }
  return text + "\n";
}

}  // namespace

Summary Summarize(const Job& job) {
  Summary summary;
  summary.path = job.path;
  summary.format = FormatOf(job.path);
  summary.results = job.results.size();
  summary.dropped = job.dropped;
  Counter counter(summary);
  for (const Result& result : job.results) {
    std::visit([&counter](const auto& value) { counter.Add(value); }, result);
  }
  summary.bounds = BoundsOf(job);
  summary.travelLength = TravelOf(job);
  summary.check = CheckFactsOf(job);
  return summary;
}

std::string SummaryText(const Summary& summary) {
  std::string text = Shown(summary.path) + ": " + summary.format + "\n";
  text += "  results    " + std::to_string(summary.results) + ": " + Counted(summary.curves, "curve") + ", " +
          Counted(summary.bitmaps.size(), "bitmap") + "\n";
  text += Line("  segments   %zu lines, %zu cubic curves", summary.lines, summary.cubics);
  if (!summary.bounds.IsEmpty()) {
    text += Line("  bounds     (%.3f, %.3f) to (%.3f, %.3f) mm, size %.3f x %.3f mm",
                 Micrometres(summary.bounds.minX), Micrometres(summary.bounds.minY),
                 Micrometres(summary.bounds.maxX), Micrometres(summary.bounds.maxY), summary.bounds.Width(),
                 summary.bounds.Height());
  }
  text += Line("  cut        %.3f mm, travel %.3f mm", summary.cutLength, summary.travelLength);
  for (const auto& [color, length] : summary.cutLengthByColor)
    text += Line("  color      #%06x %.3f mm", color, length);
  for (const BitmapFacts& bitmap : summary.bitmaps) text += BitmapLine(bitmap);
  for (const SettingsGroup& group : summary.groups) text += GroupText(group);
  if (summary.dropped > 0) {
    text += "  left out   " + Counted(summary.dropped, "result") + " with coordinates that are not finite\n";
  }
  text += CheckLine(summary.check);
  return text;
}

std::string OverviewText(const std::vector<Summary>& summaries) {
  std::string text = "\n";
  text += Line("%-6s %8s %8s %8s %8s %7s %21s %12s %12s  %s", "format", "results", "curves", "lines",
               "cubics", "bitmaps", "size mm", "cut mm", "travel mm", "file");
  for (const Summary& s : summaries) {
    std::string size = s.bounds.IsEmpty() ? "\n" : Line("%.2f x %.2f", s.bounds.Width(), s.bounds.Height());
    size.pop_back();
    text += Line("%-6s %8zu %8zu %8zu %8zu %7zu %21s %12.2f %12.2f  %s", s.format.c_str(), s.results,
                 s.curves, s.lines, s.cubics, s.bitmaps.size(), size.c_str(), s.cutLength, s.travelLength,
                 Shown(s.path).c_str());
  }
  return text;
}
