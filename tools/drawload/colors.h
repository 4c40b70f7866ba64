#ifndef DRAWLOAD_TOOLS_COLORS_H
#define DRAWLOAD_TOOLS_COLORS_H

#include <string>

#include "job.h"

/// 0xRRGGBB as "#rrggbb".
std::string ColorText(std::uint32_t color);

constexpr std::uint32_t kWhitePage = 0xFFFFFF;

/// A page colour, 0xRRGGBB, on which all curves of the job can be seen. DXF drawings are white on black by
/// custom, so pale curves get a dark page, and a mixture of pale and dark ones a grey page.
std::uint32_t PageColorFor(const Job& job);

#endif
