#include "json_writer.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "colors.h"
#include "png_image.h"

namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json, int indent) {
  // A file name may hold bytes that are not UTF-8; they are replaced rather than refused.
  return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// JSON has no infinity: a line spacing without end becomes null.
Json Finite(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

Json SettingsObject(const Settings& settings) {
  return {{"processType", settings.processType},
          {"cutMode", settings.cutMode},
          {"cutSpeed", Finite(settings.cutSpeed)},
          {"cutPower", Finite(settings.cutPower)},
          {"engraveSpeed", Finite(settings.engraveSpeed)},
          {"EngMinP", Finite(settings.engMinPower)},
          {"EngMaxP", Finite(settings.engMaxPower)},
          {"engStep", Finite(settings.engStep)},
          {"highFocus", Finite(settings.highFocus)},
          {"frequency", Finite(settings.frequency)},
          {"machineType", settings.machineType},
          {"diameter", Finite(settings.diameter)},
          {"imageType", settings.imageType},
          {"Reverse", settings.reverse}};
}

Json BoundsJson(const Box& box) {
  if (box.IsEmpty()) return nullptr;
  return {{"minX", box.minX}, {"minY", box.minY},     {"maxX", box.maxX},
          {"maxY", box.maxY}, {"width", box.Width()}, {"height", box.Height()}};
}

Json SummaryJson(const Summary& summary) {
  Json bitmaps = Json::array();
  for (const BitmapFacts& bitmap : summary.bitmaps) {
    bitmaps.push_back({{"widthPixels", bitmap.width},
                       {"heightPixels", bitmap.height},
                       {"widthMm", bitmap.placedWidth},
                       {"heightMm", bitmap.placedHeight},
                       {"dpiX", bitmap.dpiX},
                       {"dpiY", bitmap.dpiY}});
  }
  Json colors = Json::array();
  for (const auto& [color, length] : summary.cutLengthByColor) {
    colors.push_back({{"color", ColorText(color)}, {"cutLengthMm", length}});
  }
  Json groups = Json::array();
  for (const SettingsGroup& group : summary.groups) {
    groups.push_back({{"color", ColorText(group.color)},
                      {"curves", group.curves},
                      {"bitmaps", group.bitmaps},
                      {"cutLengthMm", group.cutLength},
                      {"settings", SettingsObject(group.settings)}});
  }
  return {{"path", summary.path},
          {"format", summary.format},
          {"read", summary.results > 0},
          {"results", summary.results},
          {"notFinite", summary.dropped},
          {"curves", summary.curves},
          {"lines", summary.lines},
          {"cubics", summary.cubics},
          {"bounds", BoundsJson(summary.bounds)},
          {"cutLengthMm", summary.cutLength},
          {"travelLengthMm", summary.travelLength},
          {"check",
           {{"duplicates", summary.check.duplicates},
            {"duplicatesMm", summary.check.duplicateLength},
            {"contoursClosed", summary.check.contoursClosed},
            {"contoursOpen", summary.check.contoursOpen},
            {"outlinesTooEarly", summary.check.outlinesTooEarly}}},
          {"colors", std::move(colors)},
          {"bitmaps", std::move(bitmaps)},
          {"groups", std::move(groups)}};
}

Json ResultJson(const Curve& curve) {
  Json segments = Json::array();
  for (const Segment& s : curve.segments) {
    Json numbers = {s.start.x, s.start.y};
    if (s.cubic) numbers.insert(numbers.end(), {s.control1.x, s.control1.y, s.control2.x, s.control2.y});
    numbers.insert(numbers.end(), {s.end.x, s.end.y});
    segments.push_back(std::move(numbers));
  }
  return {{"kind", "curve"},
          {"color", ColorText(curve.color)},
          {"settings", SettingsObject(curve.settings)},
          {"segments", std::move(segments)}};
}

Json ResultJson(const Bitmap& bitmap) {
  return {{"kind", "bitmap"},
          {"width", bitmap.width},
          {"height", bitmap.height},
          {"matrix", {bitmap.a, bitmap.b, bitmap.c, bitmap.d, bitmap.e, bitmap.f}},
          {"settings", SettingsObject(bitmap.settings)},
          {"greyBase64", Base64({bitmap.grey.begin(), bitmap.grey.end()})}};
}

}  // namespace

std::string SettingsJson(const Settings& settings) { return SettingsObject(settings).dump(); }

std::string SummariesJson(const std::vector<Summary>& summaries) {
  Json files = Json::array();
  for (const Summary& summary : summaries) files.push_back(SummaryJson(summary));
  return Dump({{"schema", kJsonSchema}, {"files", std::move(files)}}, 2);
}

std::string JobJson(const Job& job) {
  Json results = Json::array();
  for (const Result& result : job.results) {
    results.push_back(std::visit([](const auto& value) { return ResultJson(value); }, result));
  }
  return Dump({{"schema", kJsonSchema}, {"file", job.path}, {"results", std::move(results)}}, -1);
}
