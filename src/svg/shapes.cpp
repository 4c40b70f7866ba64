// Shapes of the document as entities. Numbers are in user units; the entity's matrix places them.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "support/text_to_number.h"
#include "svg/length.h"
#include "svg/points.h"
#include "svg/svg_rw.h"

using Entity_ZR::ZR_Path;
using Svg::SVG_Element;

namespace {

/// Room for more path segments than this is given back.
constexpr std::size_t kLargestKeptRoom = 65536;

template <typename Value>
void ReleaseRoom(std::vector<Value>& room) {
  if (room.capacity() > kLargestKeptRoom) room = {};
}

constexpr double kSmallestRounding = 0.001;
constexpr double kSmallestCornerRadius = 0.01;

struct Rounding {
  double rx;
  double ry;

  bool IsVisible() const { return std::fabs(rx + ry) > kSmallestRounding; }
};

/// Kept: a radius that stands for both is not clamped to the rectangle.
Rounding ResolveRadii(double rx, double ry, double width, double height) {
  if (ry == 0.0) return {rx, rx};
  if (rx == 0.0) return {ry, ry};
  return {std::min(rx, width / 2.0), std::min(ry, height / 2.0)};
}

/// A quarter of an ellipse, from the angle `from` on, as one cubic curve.
void AddCorner(ZR_Path& path, double centreX, double centreY, Rounding radii, double from) {
  constexpr double kQuarter = std::numbers::pi / 2.0;
  const double rx = std::max(radii.rx, kSmallestCornerRadius);
  const double ry = std::max(radii.ry, kSmallestCornerRadius);
  const double tangent = 4.0 / 3.0 * (1.0 - std::cos(kQuarter / 2.0)) / std::sin(kQuarter / 2.0);
  const auto at = [=](double angle, double along) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return Entity_ZR::Point3{centreX + rx * (c - along * s), centreY + ry * (s + along * c), 0.0};
  };
  path.CubicTo(at(from, tangent), at(from + kQuarter, -tangent), at(from + kQuarter, 0.0));
}

Entity_ZR::Point3 Flat(Svg::Point point) { return {point.x, point.y, 0.0}; }

void Append(const Svg::PathSegment& segment, ZR_Path& outline) {
  switch (segment.kind) {
    case Svg::kMove: return outline.MoveTo(segment.end.x, segment.end.y);
    case Svg::kLine: return outline.LineTo(segment.end.x, segment.end.y);
    case Svg::kQuadratic: return outline.QuadTo(Flat(segment.control1), Flat(segment.end));
    default: return outline.CubicTo(Flat(segment.control1), Flat(segment.control2), Flat(segment.end));
  }
}

}  // namespace

/// The room for segments goes from path to path. Where a path ends early, the next one makes new room.
void SVG_RW::DrawOutline(const SVG_Element& record, Emitter<ZR_Path> emit, PARSE::Context context) {
  ZR_Path outline;
  pathSegments = outline.segments;
  outline.segments.swap(pathSegments);
  (this->*emit)(record, outline);
  sink->AddPath(&outline, context);
  pathSegments.swap(outline.segments);
  ReleaseRoom(pathSegments);
}

void SVG_RW::EmitLine(const SVG_Element& record, Entity_ZR::ZR_Line& line) {
  ApplyStyle(record, line);
  line.start = {Number(Svg::kX1), Number(Svg::kY1), 0.0};
  line.end = {Number(Svg::kX2), Number(Svg::kY2), 0.0};
  for (const Svg::KnownKey key : {Svg::kX1, Svg::kY1, Svg::kX2, Svg::kY2}) groupAttributes->Erase(key);
  AttachRemaining(line);
}

void SVG_RW::EmitCircle(const SVG_Element& record, Entity_ZR::ZR_Circle& circle) {
  ApplyStyle(record, circle);
  circle.center = {Number(Svg::kCx), Number(Svg::kCy), 0.0};
  circle.radius = Number(Svg::kR);
  for (const Svg::KnownKey key : {Svg::kCx, Svg::kCy, Svg::kR}) groupAttributes->Erase(key);
  AttachRemaining(circle);
}

void SVG_RW::EmitEllipse(const SVG_Element& record, Entity_ZR::ZR_Ellipse& ellipse) {
  ApplyStyle(record, ellipse);
  ellipse.center = {Number(Svg::kCx), Number(Svg::kCy), 0.0};
  ellipse.radiusX = Number(Svg::kRx);
  ellipse.radiusY = Number(Svg::kRy);
  ellipse.startAngle = 0.0;
  ellipse.endAngle = 6.283185307179586;
  ellipse.rotation = 0.0;
  for (const Svg::KnownKey key : {Svg::kCx, Svg::kCy, Svg::kRx, Svg::kRy}) groupAttributes->Erase(key);
  AttachRemaining(ellipse);
}

void SVG_RW::EmitRect(const SVG_Element& record, ZR_Path& outline) {
  ApplyStyle(record, outline);
  const double x = Number(Svg::kX);
  const double y = Number(Svg::kY);
  const double w = Svg::ResolveLength(groupAttributes->Field(Svg::kWidth), page.width);
  const double h = Svg::ResolveLength(groupAttributes->Field(Svg::kHeight), page.height);
  const Rounding radii = ResolveRadii(Number(Svg::kRx), Number(Svg::kRy), w, h);
  const auto [rx, ry] = radii;
  constexpr double kHalfTurn = std::numbers::pi;
  const auto addCorner = [&](double centreX, double centreY, double from) {
    if (radii.IsVisible()) AddCorner(outline, centreX, centreY, radii, from);
  };
  outline.MoveTo(x + rx, y);
  outline.LineTo(x + w - rx, y);
  addCorner(x + w - rx, y + ry, -kHalfTurn / 2.0);
  outline.LineTo(x + w, y + h - ry);
  addCorner(x + w - rx, y + h - ry, 0.0);
  outline.LineTo(x + rx, y + h);
  addCorner(x + rx, y + h - ry, kHalfTurn / 2.0);
  outline.LineTo(x, y + ry);
  addCorner(x + rx, y + ry, kHalfTurn);
  for (const Svg::KnownKey key : {Svg::kX, Svg::kY, Svg::kWidth, Svg::kHeight, Svg::kRx, Svg::kRy}) {
    groupAttributes->Erase(key);
  }
  AttachRemaining(outline);
}

void SVG_RW::EmitPolyline(const SVG_Element& record, ZR_Path& outline) {
  ApplyStyle(record, outline);
  const std::vector<Svg::Point> points = Svg::ParsePoints(LongField(Svg::kPoints));
  for (const Svg::Point& point : points) {
    if (&point == &points.front()) {
      outline.MoveTo(point.x, point.y);
    } else {
      outline.LineTo(point.x, point.y);
    }
  }
  if (record.elementType == Svg::ElementType::Polygon && !points.empty()) outline.Close();
  groupAttributes->Erase(Svg::kPoints);
  AttachRemaining(outline);
}

void SVG_RW::EmitPath(const SVG_Element& record, ZR_Path& outline) {
  ApplyStyle(record, outline);
  pathData.Clear();
  Svg::Parse(LongField(Svg::kD), pathData, pathNumbers);
  outline.segments.reserve(outline.segments.size() + pathData.segments.size());
  for (const Svg::PathSegment& segment : pathData.segments) Append(segment, outline);
  ReleaseRoom(pathData.segments);
  if (isClone) outline.visible = 1;
  groupAttributes->Erase(Svg::kD);
  AttachRemaining(outline);
}
