#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

#include "commands.h"
#include "conversion.h"
#include "messages.h"
#include "output_file.h"

namespace {

/// Loads `input`; complains where nothing could be read or where something is left out.
std::optional<Job> LoadOrComplain(const std::string& input, LibraryNotes notes) {
  Job job = LoadJob(input, notes);
  if (job.results.empty() && job.dropped == 0) {
    Complain(WhyNothingRead(input));
    return std::nullopt;
  }
  if (job.dropped > 0) {
    Complain("warning: '" + Shown(input) + "': " + NotFiniteLeftOut(job.dropped));
  }
  return job;
}

/// Mends the job, and tells on standard error what was done.
void MendAndTell(Job& job, const MendOptions& options) {
  for (const std::string& done : Mend(job, options))
    Complain(std::string("'").append(Shown(job.path)).append("': ") + done);
}

}  // namespace

int RunConvert(const ConvertOptions& options) {
  const std::optional<OutputFormat> format = FormatOfName(options.output);
  if (!format) {
    Complain("cannot tell the format of '" + Shown(options.output) +
             "': end its name in .svg, .png, .html or .json");
    return kWrongUsage;
  }
  std::optional<Job> job = LoadOrComplain(options.input, options.notes);
  if (!job) return kNothingRead;
  try {
    MendAndTell(*job, options.mend);
    const Conversion conversion = ConvertJob(*job, *format, options.pictureSize);
    WriteOutputFile(options.output, conversion.bytes, options.replace);
    for (const std::string& warning : conversion.warnings)
      Complain("warning: '" + Shown(options.output) + "': " + warning);
  } catch (const std::runtime_error& error) {
    Complain(error.what());
    return kNothingRead;
  }
  return kDone;
}

int RunView(const ViewOptions& options) {
  std::optional<Job> job = LoadOrComplain(options.input, options.notes);
  if (!job) return kNothingRead;
  MendAndTell(*job, options.mend);
  // The browser reads the page after this program has ended, so the folder stays; it is the user's alone.
  const char* chosen = std::getenv("TMPDIR");
  std::string folder =
      std::string(chosen != nullptr && *chosen != '\0' ? chosen : "/tmp") + "/drawload-XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) {
    Complain("cannot make the temporary folder '" + Shown(folder) + "': " + WhyNotWritten(errno) +
             "; TMPDIR names the folder that is used");
    return kNothingRead;
  }
  const std::string page = folder + "/view.html";
  try {
    WriteOutputFile(page, ConvertJob(*job, OutputFormat::kHtml, {}).bytes, false);
  } catch (const std::runtime_error& error) {
    Complain(error.what());
    rmdir(folder.c_str());
    return kNothingRead;
  }
  std::printf("%s\n", page.c_str());
  std::fflush(stdout);
  // Through the environment, so that the shell takes the name as it is.
  setenv("DRAWLOAD_PAGE", page.c_str(), 1);
  if (std::system("xdg-open \"$DRAWLOAD_PAGE\"") == 0) return kDone;
  Complain("xdg-open did not open '" + Shown(page) + "'; open that file in a browser");
  return kNothingRead;
}
