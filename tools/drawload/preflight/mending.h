#ifndef DRAWLOAD_TOOLS_PREFLIGHT_MENDING_H
#define DRAWLOAD_TOOLS_PREFLIGHT_MENDING_H

#include <optional>
#include <string>
#include <vector>

#include "job.h"

/// What is to be mended before a job is written; nothing where nothing is said.
struct MendOptions {
  bool dropDuplicates = false;
  std::optional<double> join;      ///< tolerance in millimetres
  std::optional<double> simplify;  ///< tolerance in millimetres
  bool insideFirst = false;
  double tolerance = 0.01;  ///< for duplicates and for closed contours, in millimetres
};

/// Mends the job as far as it is asked to, in the order of the options above; a sentence on each says what
/// was done.
std::vector<std::string> Mend(Job& job, const MendOptions& options);

/// "12.5 mm", and from a meter on "1.3 m".
std::string LengthText(double millimetres);

#endif
