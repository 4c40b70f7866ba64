#ifndef DRAWLOAD_TOOLS_PREFLIGHT_REPORT_TEXT_H
#define DRAWLOAD_TOOLS_PREFLIGHT_REPORT_TEXT_H

#include <string>
#include <utility>
#include <vector>

#include "findings.h"

struct CheckedFile {
  std::string path;
  bool isRead = false;
  Report report;
};

/// What `drawload check` prints of one drawing: a line for each code.
std::string ReportText(const CheckedFile& file);

/// "152 segments drawn before, 1.2 m": one code's findings in words, without their place.
std::string FindingsText(const Findings& findings);

/// What `drawload check --json` prints. docs/json.md tells the fields.
std::string ReportsJson(const std::vector<CheckedFile>& files);

/// The findings as a JSON list for the viewer page.
std::string FindingsForPage(const Report& report);

#endif
