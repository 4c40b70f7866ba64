#include <cstdio>

#include "commands.h"
#include "json_writer.h"
#include "messages.h"
#include "summary.h"

int RunInfo(const InfoOptions& options) {
  int status = kDone;
  std::vector<Summary> summaries;
  for (const std::string& input : options.inputs) {
    const Job job = LoadJob(input, options.notes);
    if (job.results.empty() && job.dropped == 0) {
      Complain(WhyNothingRead(input));
      status = kNothingRead;
      if (!options.json) continue;
    }
    summaries.push_back(Summarize(job));
    if (!options.json) std::fputs(SummaryText(summaries.back()).c_str(), stdout);
  }
  if (options.json) {
    std::fputs(SummariesJson(summaries).c_str(), stdout);
  } else if (summaries.size() > 1) {
    std::fputs(OverviewText(summaries).c_str(), stdout);
  }
  if (std::fflush(stdout) == 0) return status;
  Complain("cannot write to standard output");
  return kNothingRead;
}
