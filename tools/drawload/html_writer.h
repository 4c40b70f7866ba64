#ifndef DRAWLOAD_TOOLS_HTML_WRITER_H
#define DRAWLOAD_TOOLS_HTML_WRITER_H

#include <string>

#include "job.h"
#include "preflight/findings.h"

/// The job as one HTML page that needs nothing beside it: pan, zoom, layers, objects with their settings, and
/// the order of work. Coordinates are rounded to a tenth of a micrometre. Throws std::runtime_error where a
/// bitmap cannot be written as PNG.
/// Where the report has findings, the page lists and marks them.
std::string WriteHtml(const Job& job, const Report& report);

#endif
