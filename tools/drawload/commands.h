#ifndef DRAWLOAD_TOOLS_COMMANDS_H
#define DRAWLOAD_TOOLS_COMMANDS_H

#include <string>
#include <vector>

#include "job.h"
#include "picture.h"

/// Exit statuses of the program.
enum ExitStatus : int {
  kDone = 0,
  kNothingRead = 1,  ///< also: an output that could not be written
  kWrongUsage = 2,
};

struct InfoOptions {
  std::vector<std::string> inputs;
  bool json = false;
  LibraryNotes notes = LibraryNotes::kHidden;
};

/// Prints a summary of each input.
int RunInfo(const InfoOptions& options);

struct ConvertOptions {
  std::string input;
  std::string output;
  bool replace = false;
  PictureSize pictureSize;
  LibraryNotes notes = LibraryNotes::kHidden;
};

/// Writes the results of the input in the format that the output's extension names.
int RunConvert(const ConvertOptions& options);

#endif
