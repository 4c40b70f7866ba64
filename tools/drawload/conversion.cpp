#include "conversion.h"

#include <cctype>
#include <cerrno>
#include <new>
#include <stdexcept>

#include "html_writer.h"
#include "json_writer.h"
#include "messages.h"
#include "preflight/check.h"
#include "svg_writer.h"

namespace {

Conversion Convert(const Job& job, OutputFormat format, PictureSize size) {
  switch (format) {
    case OutputFormat::kPng: return {DrawPng(job, size), {}};
    case OutputFormat::kHtml: return {WriteHtml(job, CheckJob(job, {})), {}};
    case OutputFormat::kJson: return {JobJson(job), {}};
    case OutputFormat::kSvg: break;
  }
  SvgText svg = WriteSvg(job);
  return {std::move(svg.text), std::move(svg.warnings)};
}

/// Runs `work`, and lets what it throws tell the drawing's name.
template <typename Work>
auto TellingName(const Job& job, const Work& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    throw std::runtime_error("cannot convert '" + Shown(job.path) + "': " + WhyNotWritten(ENOMEM));
  } catch (const std::runtime_error& error) {
    throw std::runtime_error("cannot convert '" + Shown(job.path) + "': " + error.what());
  }
}

}  // namespace

std::optional<OutputFormat> FormatOfExtension(std::string extension) {
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (extension == "svg") return OutputFormat::kSvg;
  if (extension == "png") return OutputFormat::kPng;
  if (extension == "html") return OutputFormat::kHtml;
  if (extension == "json") return OutputFormat::kJson;
  return std::nullopt;
}

std::optional<OutputFormat> FormatOfName(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string::npos ? std::nullopt : FormatOfExtension(path.substr(dot + 1));
}

Conversion ConvertJob(const Job& job, OutputFormat format, PictureSize size) {
  return TellingName(job, [&] { return Convert(job, format, size); });
}

std::string ConvertReport(const Job& job, const Report& report, const std::optional<Point>& bed,
                          OutputFormat format) {
  return TellingName(job, [&] {
    return format == OutputFormat::kPng ? DrawReportPng(job, report, bed, {}) : WriteHtml(job, report);
  });
}
