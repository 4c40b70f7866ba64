#include "svg_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "colors.h"
#include "geometry.h"
#include "messages.h"
#include "png_image.h"

namespace {

/// Segments that lie closer together are joined; millimetres. Arcs often end a rounding error beside the next
/// segment's start.
constexpr double kGap = 1e-7;

std::string Number(double value) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value == 0.0 ? 0.0 : value).ptr;
  return {buffer, end};
}

std::string Number(std::int32_t value) { return std::to_string(value); }

/// Writes the elements of one document, whose page runs from y = `pageHeight` down to 0.
class SvgPage {
 public:
  SvgPage(const Job& job, SvgText& output)
      : box(BoundsOf(job)), pageColor(PageColorFor(job)), out(output.text), warnings(output.warnings) {
    if (box.IsEmpty()) box = {0.0, 0.0, 1.0, 1.0};
  }

  void Begin();
  void Add(const Curve& curve);
  void Add(const Bitmap& bitmap);
  void End();

 private:
  /// SVG's y runs downward from the top of the page.
  std::string At(Point p) const { return Number(p.x) + " " + Number(pageHeight - p.y); }
  void AddSettings(const Settings& settings);
  template <typename Value>
  void AddSetting(const char* name, Value value, Value usual) {
    if (value != usual) out += std::string(" ") + name + "=\"" + Number(value) + "\"";
  }
  void AddDensity(double step);

  Box box;
  std::uint32_t pageColor;
  double pageHeight = 0.0;
  double strokeWidth = 0.0;
  std::string& out;
  std::vector<std::string>& warnings;
  std::size_t emptyCurves = 0;
  std::size_t gaps = 0;
  std::size_t densities = 0;
};

void SvgPage::Begin() {
  // A page without width or height shows nothing: a straight line gets a millimetre of room.
  const double width = std::max(box.Width(), 1.0);
  pageHeight = std::max(box.Height(), 1.0);
  strokeWidth = std::clamp(std::max(width, pageHeight) / 1000.0, 0.01, 1.0);
  out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
      "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" +
      Number(width) + "mm\" height=\"" + Number(pageHeight) + "mm\" viewBox=\"" + Number(box.minX) + " " +
      Number(pageHeight - box.maxY) + " " + Number(width) + " " + Number(pageHeight) + "\">\n";
  if (pageColor == kWhitePage) return;
  // Viewers draw the first child of a switch; drawload reads nothing inside one, so the page is never cut.
  out += "<switch><rect x=\"" + Number(box.minX) + "\" y=\"" + Number(pageHeight - box.maxY) + "\" width=\"" +
         Number(width) + "\" height=\"" + Number(pageHeight) + "\" fill=\"" + ColorText(pageColor) +
         "\"/></switch>\n";
}

void SvgPage::AddDensity(double step) {
  constexpr double kUsualStep = 0.08;
  if (step == kUsualStep) return;
  const double density = 25.4 / step;
  if (density == std::trunc(density) && std::abs(density) < 2e9 && 25.4 / density == step) {
    out += " engDensity=\"" + Number(density) + "\"";
    return;
  }
  ++densities;
}

void SvgPage::AddSettings(const Settings& settings) {
  const Settings usual;
  AddSetting("cutPower", settings.cutPower, usual.cutPower);
  AddSetting("cutSpeed", settings.cutSpeed, usual.cutSpeed);
  AddSetting("engraveSpeed", settings.engraveSpeed, usual.engraveSpeed);
  AddDensity(settings.engStep);
  AddSetting("highFocus", settings.highFocus, usual.highFocus);
  AddSetting("EngMinP", settings.engMinPower, usual.engMinPower);
  AddSetting("EngMaxP", settings.engMaxPower, usual.engMaxPower);
  AddSetting("processType", settings.processType, usual.processType);
  AddSetting("diameter", settings.diameter, usual.diameter);
  AddSetting("machineType", settings.machineType, usual.machineType);
  AddSetting("imageType", settings.imageType, usual.imageType);
  AddSetting("Reverse", settings.reverse, usual.reverse);
}

void SvgPage::Add(const Curve& curve) {
  if (curve.segments.empty()) {
    ++emptyCurves;
    return;
  }
  out += "<path fill=\"none\" stroke=\"" + ColorText(curve.color);
  out += "\" stroke-width=\"" + Number(strokeWidth) + "\"";
  // The reader starts from frequency 1 as soon as an element has any setting, and from 0 where it has none.
  if (curve.settings != Settings{}) {
    AddSettings(curve.settings);
    out += " frequency=\"" + Number(curve.settings.frequency) + "\"";
  }
  out += " d=\"";
  const Segment* previous = nullptr;
  for (const Segment& segment : curve.segments) {
    if (previous == nullptr || Distance(previous->end, segment.start) > kGap) {
      if (previous != nullptr) ++gaps;
      out.append("M").append(At(segment.start));
    }
    if (segment.cubic) {
      out.append("C").append(At(segment.control1)).append(" ").append(At(segment.control2)).append(" ");
    } else {
      out += "L";
    }
    out += At(segment.end);
    previous = &segment;
  }
  out += "\"/>\n";
}

void SvgPage::Add(const Bitmap& bitmap) {
  if (bitmap.grey.empty()) return;
  out += "<image x=\"0\" y=\"0\" width=\"" + std::to_string(bitmap.width) + "\" height=\"" +
         std::to_string(bitmap.height) + "\" preserveAspectRatio=\"none\" transform=\"matrix(" +
         Number(bitmap.a) + " " + Number(-bitmap.b) + " " + Number(bitmap.c) + " " + Number(-bitmap.d) + " " +
         Number(bitmap.e) + " " + Number(pageHeight - bitmap.f) + ")\"";
  AddSettings(bitmap.settings);
  AddSetting("frequency", bitmap.settings.frequency, 1.0);
  out += " xlink:href=\"data:image/png;base64," + Base64(EncodePng(bitmap)) + "\"/>\n";
}

void SvgPage::End() {
  out += "</svg>\n";
  if (emptyCurves > 0) warnings.push_back(LeftOut(emptyCurves, "curve", "without segments"));
  if (gaps > 0) {
    warnings.push_back(Counted(gaps, "gap") +
                       " inside curves: reading the SVG again gives a curve on each side of a gap");
  }
  if (densities > 0) {
    warnings.push_back(Counted(densities, "line spacing") +
                       " that no whole \"engDensity\" gives: reading the SVG again gives 0.08 mm");
  }
}

}  // namespace

SvgText WriteSvg(const Job& job) {
  SvgText output;
  SvgPage page(job, output);
  page.Begin();
  for (const Result& result : job.results) {
    std::visit([&page](const auto& value) { page.Add(value); }, result);
  }
  page.End();
  return output;
}
