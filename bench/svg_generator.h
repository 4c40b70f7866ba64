#ifndef DRAWLOAD_BENCH_SVG_GENERATOR_H
#define DRAWLOAD_BENCH_SVG_GENERATOR_H

#include <cstddef>
#include <string>

/// An SVG drawing of about `bytes` bytes, the same on every call: groups of paths, rectangles, circles and
/// polygons with attributes and styles, machine parameters among them, and references to a small group.
std::string GenerateSvg(std::size_t bytes);

/// `uses` references to one symbol of twelve shapes.
std::string GenerateUses(int uses);

#endif
