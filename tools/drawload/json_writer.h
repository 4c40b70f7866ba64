#ifndef DRAWLOAD_TOOLS_JSON_WRITER_H
#define DRAWLOAD_TOOLS_JSON_WRITER_H

#include <string>
#include <vector>

#include "job.h"
#include "summary.h"

/// Version of both JSON forms; it changes only where a field changes its meaning or goes away. docs/json.md
/// tells the fields.
constexpr int kJsonSchema = 1;

/// What `drawload info --json` prints: {"schema", "files": [...]}.
std::string SummariesJson(const std::vector<Summary>& summaries);

/// One block of settings as a JSON object, on one line.
std::string SettingsJson(const Settings& settings);

/// Every number of the job in full precision: {"schema", "file", "results": [...]}.
std::string JobJson(const Job& job);

#endif
