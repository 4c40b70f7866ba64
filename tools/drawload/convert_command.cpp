#include <stdexcept>

#include "commands.h"
#include "messages.h"
#include "output_file.h"
#include "svg_writer.h"

namespace {

bool EndsWith(const std::string& text, const std::string& ending) {
  return text.size() >= ending.size() &&
         text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

}  // namespace

int RunConvert(const ConvertOptions& options) {
  if (!EndsWith(options.output, ".svg")) {
    Complain("cannot tell the format of '" + options.output + "': end its name in .svg");
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
    const SvgText svg = WriteSvg(job);
    WriteOutputFile(options.output, svg.text, options.replace);
    for (const std::string& warning : svg.warnings) Complain("warning: '" + options.output + "': " + warning);
  } catch (const std::runtime_error& error) {
    Complain(error.what());
    return kNothingRead;
  }
  return kDone;
}
