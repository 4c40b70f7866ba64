#ifndef DRAWLOAD_TOOLS_COMMANDS_H
#define DRAWLOAD_TOOLS_COMMANDS_H

#include <string>
#include <vector>

#include "job.h"
#include "picture.h"
#include "preflight/findings.h"
#include "preflight/mending.h"

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
  MendOptions mend;
  LibraryNotes notes = LibraryNotes::kHidden;
};

struct CheckCommandOptions {
  std::vector<std::string> inputs;
  CheckOptions check;
  std::vector<std::string> ignored;  ///< codes
  std::vector<double> bed;           ///< nothing, or width and height
  bool json = false;
  std::string output;  ///< empty, or a report with a picture
  bool replace = false;
  LibraryNotes notes = LibraryNotes::kHidden;
};

/// Reports what will go wrong on the machine. Done only where nothing of weight is found.
int RunCheck(CheckCommandOptions options);

/// Writes the results of the input in the format that the output's extension names.
int RunConvert(const ConvertOptions& options);

struct ViewOptions {
  std::string input;
  MendOptions mend;
  LibraryNotes notes = LibraryNotes::kHidden;
};

/// Writes the viewer page to a temporary file, prints its name and opens it in the user's browser.
int RunView(const ViewOptions& options);

struct BatchOptions {
  std::vector<std::string> inputs;  ///< files and folders
  std::string outputFolder;
  std::string extension;  ///< without a dot
  std::size_t jobs = 1;
  double timeout = 60.0;  ///< seconds a file
  bool replace = false;
  bool resume = false;
  MendOptions mend;
  LibraryNotes notes = LibraryNotes::kHidden;
};

/// Converts many drawings, each in a process of its own, and writes a report. Done only where all are ok.
int RunBatch(const BatchOptions& options);

#endif
