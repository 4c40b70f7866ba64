#include <stdexcept>

#include "commands.h"
#include "html_writer.h"
#include "json_writer.h"
#include "messages.h"
#include "output_file.h"
#include "svg_writer.h"

namespace {

enum class OutputFormat { kUnknown, kSvg, kPng, kHtml, kJson };

OutputFormat FormatOf(const std::string& path) {
  const std::string ending = path.substr(std::min(path.rfind('.'), path.size()));
  if (ending == ".svg") return OutputFormat::kSvg;
  if (ending == ".png") return OutputFormat::kPng;
  if (ending == ".html") return OutputFormat::kHtml;
  if (ending == ".json") return OutputFormat::kJson;
  return OutputFormat::kUnknown;
}

std::string Convert(const Job& job, const ConvertOptions& options, std::vector<std::string>& warnings) {
  switch (FormatOf(options.output)) {
    case OutputFormat::kPng: return DrawPng(job, options.pictureSize);
    case OutputFormat::kHtml: return WriteHtml(job);
    case OutputFormat::kJson: return JobJson(job);
    default: break;
  }
  SvgText svg = WriteSvg(job);
  warnings = std::move(svg.warnings);
  return std::move(svg.text);
}

}  // namespace

int RunConvert(const ConvertOptions& options) {
  if (FormatOf(options.output) == OutputFormat::kUnknown) {
    Complain("cannot tell the format of '" + options.output +
             "': end its name in .svg, .png, .html or .json");
    return kWrongUsage;
  }
  const Job job = LoadJob(options.input, options.notes);
  if (job.results.empty() && job.dropped == 0) {
    Complain(WhyNothingRead(options.input));
    return kNothingRead;
  }
  if (job.dropped > 0) {
    Complain("warning: '" + options.input + "': " + std::to_string(job.dropped) +
             " results with coordinates that are not finite are left out");
  }
  try {
    std::vector<std::string> warnings;
    WriteOutputFile(options.output, Convert(job, options, warnings), options.replace);
    for (const std::string& warning : warnings) Complain("warning: '" + options.output + "': " + warning);
  } catch (const std::runtime_error& error) {
    Complain(error.what());
    return kNothingRead;
  }
  return kDone;
}
