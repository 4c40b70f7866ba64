#ifndef DRAWLOAD_TOOLS_HTML_WRITER_H
#define DRAWLOAD_TOOLS_HTML_WRITER_H

#include <string>

#include "job.h"

/// The job as one HTML page that needs nothing beside it: pan, zoom, layers, objects with their settings, and
/// the order of work. Coordinates are rounded to a tenth of a micrometre. Throws std::runtime_error where a
/// bitmap cannot be written as PNG.
std::string WriteHtml(const Job& job);

#endif
