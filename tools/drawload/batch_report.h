#ifndef DRAWLOAD_TOOLS_BATCH_REPORT_H
#define DRAWLOAD_TOOLS_BATCH_REPORT_H

#include <map>
#include <string>
#include <vector>

#include "worker.h"

/// One row of a batch's report.
struct BatchRow {
  std::string input;
  std::string output;
  FileOutcome outcome;
};

/// Writes report.json and report.csv into `folder`. Throws OutputError.
void WriteReport(const std::string& folder, const std::vector<BatchRow>& rows);

/// The rows of the report.json in `folder`, by their input; empty where there is none that can be read.
std::map<std::string, BatchRow> ReadReport(const std::string& folder);

#endif
