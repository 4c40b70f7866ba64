#include "html_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>

#include "colors.h"
#include "geometry.h"
#include "json_writer.h"
#include "page_template.h"
#include "png_image.h"
#include "preflight/report_text.h"

namespace {

std::string NameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

void AppendNumber(std::string& out, double value) {
  constexpr double kSteps = 1e4;  // a tenth of a micrometre
  const double rounded = std::round(value * kSteps) / kSteps;
  char buffer[32];
  out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, rounded == 0.0 ? 0.0 : rounded).ptr);
}

void AppendPoint(std::string& out, Point p) {
  out += ',';
  AppendNumber(out, p.x);
  out += ',';
  AppendNumber(out, p.y);
}

void AppendPath(std::string& out, const Curve& curve) {
  out += '[';
  for (const Segment& segment : curve.segments) {
    if (out.back() != '[') out += ',';
    out += segment.cubic ? '3' : '0';
    AppendPoint(out, segment.start);
    if (segment.cubic) {
      AppendPoint(out, segment.control1);
      AppendPoint(out, segment.control2);
    }
    AppendPoint(out, segment.end);
  }
  out += ']';
}

/// Gives every different block of settings a number, in the order of its first use.
class SettingsTable {
 public:
  std::size_t NumberOf(const Settings& settings) {
    std::string text = SettingsJson(settings);
    const auto [entry, isNew] = numbers.try_emplace(text, texts.size());
    if (isNew) texts.push_back(std::move(text));
    return entry->second;
  }

  std::string Json() const {
    std::string all = "[";
    for (const std::string& text : texts) all += (all.size() > 1 ? "," : "") + text;
    return all + "]";
  }

 private:
  std::map<std::string, std::size_t> numbers;
  std::vector<std::string> texts;
};

class JobText {
 public:
  explicit JobText(const Job& job) {
    for (const Result& result : job.results) {
      if (!results.empty()) results += ",\n";
      std::visit([this](const auto& value) { Add(value); }, result);
    }
  }

  std::string results;
  SettingsTable settings;
  double cutLength = 0.0;

 private:
  void Add(const Curve& curve) {
    const double length = LengthOf(curve);
    cutLength += length;
    results += "{\"kind\":\"curve\",\"color\":\"" + ColorText(curve.color) +
               "\",\"settings\":" + std::to_string(settings.NumberOf(curve.settings)) +
               ",\"segments\":" + std::to_string(curve.segments.size()) + ",\"length\":";
    AppendNumber(results, length);
    results += ",\"path\":";
    AppendPath(results, curve);
    results += '}';
  }

  void Add(const Bitmap& bitmap) {
    const nlohmann::json matrix = {bitmap.a, bitmap.b, bitmap.c, bitmap.d, bitmap.e, bitmap.f};
    results += "{\"kind\":\"bitmap\",\"color\":\"#000000\",\"settings\":" +
               std::to_string(settings.NumberOf(bitmap.settings)) +
               ",\"width\":" + std::to_string(bitmap.width) + ",\"height\":" + std::to_string(bitmap.height) +
               ",\"matrix\":" + matrix.dump() + ",\"png\":\"data:image/png;base64," +
               (bitmap.grey.empty() ? "" : Base64(EncodePng(bitmap))) + "\"}";
  }
};

std::string JobAsJson(const Job& job) {
  Box box = BoundsOf(job);
  if (box.IsEmpty()) box = {0.0, 0.0, 1.0, 1.0};
  const JobText text(job);
  const nlohmann::json head = {{"name", NameOf(job.path)},
                               {"bounds",
                                {{"minX", box.minX},
                                 {"minY", box.minY},
                                 {"maxX", box.maxX},
                                 {"maxY", box.maxY},
                                 {"width", box.Width()},
                                 {"height", box.Height()}}},
                               {"cutLength", text.cutLength},
                               {"travelLength", TravelOf(job)}};
  std::string json = head.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  json.pop_back();
  return json + ",\"settings\":" + text.settings.Json() + ",\"results\":[" + text.results + "]}";
}

/// Text that can stand in an element of the page without ending it.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      default: escaped += c;
    }
  }
  return escaped;
}

/// JSON that can stand in a script element: no "</" and no "<!--" comes up in it.
std::string InScript(std::string_view json) {
  std::string escaped;
  escaped.reserve(json.size());
  for (const char c : json) {
    if (c == '<') {
      escaped += "\\u003c";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

}  // namespace

std::string WriteHtml(const Job& job, const Report& report) {
  const bool hasFindings = !report.findings.empty();
  const auto added = [hasFindings](std::string_view part) { return std::string(hasFindings ? part : ""); };
  const std::array<std::pair<std::string_view, std::string>, 5> parts{
      {{"@TITLE@", Escaped(NameOf(job.path))},
       {"@FINDINGS_STYLE@", added(kFindingsStyle)},
       {"@FINDINGS_PANEL@", added(kFindingsPanel)},
       {"@JOB@", InScript(JobAsJson(job))},
       {"@FINDINGS_SCRIPT@", hasFindings ? "const preflight = " + InScript(FindingsForPage(report)) + ";\n" +
                                               std::string(kFindingsScript)
                                         : ""}}};
  std::string page;
  std::string_view rest = kPageTemplate;
  for (const auto& [mark, text] : parts) {
    const std::size_t place = rest.find(mark);
    page += rest.substr(0, place);
    page += text;
    rest.remove_prefix(place + mark.size());
  }
  return page.append(rest);
}
