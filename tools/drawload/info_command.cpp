#include <cstdio>

#include "commands.h"
#include "messages.h"
#include "summary.h"

int RunInfo(const InfoOptions& options) {
  int status = kDone;
  for (const std::string& input : options.inputs) {
    const Job job = LoadJob(input, options.notes);
    if (job.results.empty() && job.dropped == 0) {
      Complain(WhyNothingRead(input));
      status = kNothingRead;
      continue;
    }
    std::fputs(SummaryText(Summarize(job)).c_str(), stdout);
  }
  if (std::fflush(stdout) == 0) return status;
  Complain("cannot write to standard output");
  return kNothingRead;
}
