#ifndef DRAWLOAD_TOOLS_SVG_WRITER_H
#define DRAWLOAD_TOOLS_SVG_WRITER_H

#include <string>
#include <vector>

#include "job.h"

/// A drawing as SVG text, and what SVG could not carry of it.
struct SvgText {
  std::string text;
  std::vector<std::string> warnings;
};

/// The job as an SVG document, true to scale: one user unit is one millimetre. Curves are unfilled paths in
/// their colour, bitmaps embedded PNG pictures, and settings that differ from the defaults stand on the
/// elements under the names by which drawload reads them.
SvgText WriteSvg(const Job& job);

#endif
