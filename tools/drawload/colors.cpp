#include "colors.h"

#include <cstdio>

namespace {

double LuminanceOf(std::uint32_t color) {
  return (0.299 * (color >> 16 & 0xFF) + 0.587 * (color >> 8 & 0xFF) + 0.114 * (color & 0xFF)) / 255.0;
}

}  // namespace

std::string ColorText(std::uint32_t color) {
  char text[8];
  std::snprintf(text, sizeof text, "#%06x", color & 0xFFFFFF);
  return text;
}

std::uint32_t PageColorFor(const Job& job) {
  bool pale = false;
  bool dark = false;
  for (const Result& result : job.results) {
    const auto* curve = std::get_if<Curve>(&result);
    if (curve == nullptr) continue;
    pale = pale || LuminanceOf(curve->color) > 0.8;
    dark = dark || LuminanceOf(curve->color) < 0.25;
  }
  if (!pale) return kWhitePage;
  return dark ? 0x8C8C8C : 0x202428;
}
