#include <cstdio>

#include "commands.h"
#include "conversion.h"
#include "messages.h"
#include "output_file.h"
#include "preflight/check.h"
#include "preflight/report_text.h"

namespace {

std::optional<OutputFormat> ReportFormat(const std::string& output) {
  const std::optional<OutputFormat> format = FormatOfName(output);
  return format == OutputFormat::kPng || format == OutputFormat::kHtml ? format : std::nullopt;
}

/// Turns the texts of the command line into options; false, with a complaint, where one is wrong.
bool Resolve(CheckCommandOptions& options) {
  for (const std::string& name : options.ignored) {
    const std::optional<Code> code = CodeNamed(name);
    if (!code) {
      Complain(std::string("'").append(Shown(name)).append("' is not a code; --ignore takes ") + CodeNames());
      return false;
    }
    options.check.ignored.push_back(*code);
  }
  if (!options.output.empty() && !ReportFormat(options.output)) {
    Complain("cannot write '" + Shown(options.output) + "': a report's name ends in .html or .png");
    return false;
  }
  if (!options.output.empty() && options.inputs.size() != 1) {
    Complain("a report shows one drawing; name one, or leave out -o");
    return false;
  }
  if (options.bed.size() == 2) options.check.bed = Point{options.bed[0], options.bed[1]};
  return true;
}

/// Writes the report with its picture, where one is asked for; false, with a complaint, where that fails.
bool WriteReport(const Job& job, const Report& report, const CheckCommandOptions& options) {
  if (options.output.empty()) return true;
  try {
    const OutputFormat format = *ReportFormat(options.output);
    WriteOutputFile(options.output, ConvertReport(job, report, options.check.bed, format), options.replace);
    return true;
  } catch (const std::runtime_error& error) {
    Complain(error.what());
    return false;
  }
}

}  // namespace

int RunCheck(CheckCommandOptions options) {
  if (!Resolve(options)) return kWrongUsage;
  int status = kDone;
  std::vector<CheckedFile> files;
  for (const std::string& input : options.inputs) {
    const Job job = LoadJob(input, options.notes);
    CheckedFile file{input, !job.results.empty() || job.dropped > 0, {}};
    if (file.isRead) {
      file.report = CheckJob(job, options.check);
      if (file.report.IsOfWeight()) status = kNothingRead;
      if (!options.json) std::fputs(ReportText(file).c_str(), stdout);
      if (!WriteReport(job, file.report, options)) status = kNothingRead;
    } else {
      Complain(WhyNothingRead(input));
      status = kNothingRead;
    }
    files.push_back(std::move(file));
  }
  if (options.json) std::fputs(ReportsJson(files).c_str(), stdout);
  if (std::fflush(stdout) == 0) return status;
  Complain("cannot write to standard output");
  return kNothingRead;
}
