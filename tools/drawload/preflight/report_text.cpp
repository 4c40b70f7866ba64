#include "report_text.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "json_writer.h"
#include "mending.h"
#include "messages.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kMostPlacesTold = 1000;

template <typename... Values>
std::string Formatted(const char* format, Values... values) {
  char text[200];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

/// `value` rounded to micrometres, so that a hair below zero prints as zero.
std::string Coordinate(double value) {
  const std::string text = Formatted(value > -1e9 && value < 1e9 ? "%.3f" : "%g", value);
  return text == "-0.000" ? "0.000" : text;
}

std::string FirstPlaceText(const Findings& findings) {
  if (findings.places.empty()) return "";
  const Place& first = findings.places.front();
  std::string text = "; first at (" + Coordinate(first.at.x) + ", " + Coordinate(first.at.y) +
                     ") mm, result " + std::to_string(first.result + 1);
  if (first.segment != kNoSegment) text += ", segment " + std::to_string(first.segment + 1);
  if (findings.code == Code::kOpen) text += ", ends " + LengthText(first.length) + " apart";
  return text;
}

Json PointJson(Point point) { return {{"x", point.x}, {"y", point.y}}; }

Json PlaceJson(const Findings& findings, const Place& place) {
  Json json = PointJson(place.at);
  json["result"] = place.result + 1;
  if (place.segment != kNoSegment) json["segment"] = place.segment + 1;
  json[findings.code == Code::kOpen ? "gapMm" : "lengthMm"] = place.length;
  return json;
}

Json FindingsJson(const Findings& findings) {
  Json places = Json::array();
  for (std::size_t i = 0; i < std::min(findings.places.size(), kMostPlacesTold); ++i)
    places.push_back(PlaceJson(findings, findings.places[i]));
  return {{"code", FactsOf(findings.code).name}, {"text", FindingsText(findings)},
          {"ofWeight", findings.isOfWeight},     {"count", findings.count},
          {"lengthMm", findings.length},         {"places", std::move(places)}};
}

Json FileJson(const CheckedFile& file) {
  Json findings = Json::array();
  for (const Findings& entry : file.report.findings) findings.push_back(FindingsJson(entry));
  return {{"path", file.path},
          {"read", file.isRead},
          {"ofWeight", file.report.IsOfWeight()},
          {"contoursClosed", file.report.closedContours},
          {"contoursOpen", file.report.openContours},
          {"cutShort", file.report.cutShort},
          {"findings", std::move(findings)}};
}

}  // namespace

std::string FindingsText(const Findings& findings) {
  const CodeFacts& facts = FactsOf(findings.code);
  std::string text = std::to_string(findings.count) + " " + (findings.count == 1 ? facts.one : facts.many);
  if (findings.length > 0.0 && findings.code != Code::kOpen) text += ", " + LengthText(findings.length);
  return text;
}

std::string ReportText(const CheckedFile& file) {
  std::string text = Shown(file.path) + ": " + Counted(file.report.closedContours, "contour") + " closed, " +
                     std::to_string(file.report.openContours) + " open";
  if (file.report.findings.empty()) text += "; nothing found";
  text += "\n";
  for (const Findings& entry : file.report.findings) {
    text += Formatted("  %-12s", FactsOf(entry.code).name) + FindingsText(entry) + FirstPlaceText(entry) +
            (entry.isOfWeight ? "\n" : " (may be meant)\n");
  }
  for (const std::string& what : file.report.cutShort)
    text += "  cut short   the drawing asks for too much work: " + what + "\n";
  return text;
}

std::string ReportsJson(const std::vector<CheckedFile>& files) {
  Json list = Json::array();
  for (const CheckedFile& file : files) list.push_back(FileJson(file));
  const Json report = {{"schema", kJsonSchema}, {"files", std::move(list)}};
  return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string FindingsForPage(const Report& report) {
  Json list = Json::array();
  for (const Findings& findings : report.findings) {
    char color[8];
    std::snprintf(color, sizeof color, "#%06x", FactsOf(findings.code).color);
    Json places = Json::array();
    for (std::size_t i = 0; i < std::min(findings.places.size(), kMostPlacesTold); ++i) {
      const Place& place = findings.places[i];
      Json json = {{"at", {place.at.x, place.at.y}}, {"result", place.result}};
      if (place.segment != kNoSegment) json["segment"] = place.segment;
      if (place.other) json["other"] = {place.other->x, place.other->y};
      if (!place.box.IsEmpty())
        json["box"] = {place.box.minX, place.box.minY, place.box.maxX, place.box.maxY};
      places.push_back(std::move(json));
    }
    list.push_back({{"code", FactsOf(findings.code).name},
                    {"text", FindingsText(findings)},
                    {"ofWeight", findings.isOfWeight},
                    {"count", findings.count},
                    {"color", color},
                    {"places", std::move(places)}});
  }
  Json repeated = Json::array();
  for (const SegmentAddress& address : report.repeated)
    repeated.insert(repeated.end(), {address.result, address.segment});
  return Json{{"findings", std::move(list)}, {"repeated", std::move(repeated)}}.dump();
}
