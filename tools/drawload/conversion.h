#ifndef DRAWLOAD_TOOLS_CONVERSION_H
#define DRAWLOAD_TOOLS_CONVERSION_H

#include <optional>
#include <string>
#include <vector>

#include "job.h"
#include "picture.h"
#include "preflight/findings.h"

enum class OutputFormat { kSvg, kPng, kHtml, kJson };

/// The format that an extension without its dot names ("svg", in any case), or nothing.
std::optional<OutputFormat> FormatOfExtension(std::string extension);

/// The format that the end of a file's name tells, or nothing.
std::optional<OutputFormat> FormatOfName(const std::string& path);

/// A job in another format, and what that format could not carry of it.
struct Conversion {
  std::string bytes;
  std::vector<std::string> warnings;
};

/// Throws std::runtime_error, which tells the drawing's name, where the job has no form in that format (a
/// picture too large) or memory is short.
Conversion ConvertJob(const Job& job, OutputFormat format, PictureSize size);

/// The drawing with its findings marked, as a picture or a viewer page. Throws as the above.
std::string ConvertReport(const Job& job, const Report& report, const std::optional<Point>& bed,
                          OutputFormat format);

#endif
