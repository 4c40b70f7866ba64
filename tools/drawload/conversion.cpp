#include "conversion.h"

#include "html_writer.h"
#include "json_writer.h"
#include "svg_writer.h"

std::optional<OutputFormat> FormatOfExtension(const std::string& extension) {
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
  switch (format) {
    case OutputFormat::kPng: return {DrawPng(job, size), {}};
    case OutputFormat::kHtml: return {WriteHtml(job), {}};
    case OutputFormat::kJson: return {JobJson(job), {}};
    case OutputFormat::kSvg: break;
  }
  SvgText svg = WriteSvg(job);
  return {std::move(svg.text), std::move(svg.warnings)};
}
