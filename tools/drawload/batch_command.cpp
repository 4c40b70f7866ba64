#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <signal.h>
#include <thread>
#include <unistd.h>

#include "batch_inputs.h"
#include "batch_report.h"
#include "commands.h"
#include "conversion.h"
#include "messages.h"
#include "output_file.h"
#include "worker.h"

namespace {

namespace fs = std::filesystem;

volatile sig_atomic_t interrupted = 0;

/// Reads one drawing and writes its output: what a worker does.
WorkReport ConvertOne(const std::string& input, const std::string& output, OutputFormat format, bool replace,
                      const MendOptions& mend, LibraryNotes notes) {
  Job job = LoadJob(input, notes);
  if (job.results.empty()) {
    return {IsReadableFile(input) ? FileStatus::kEmpty : FileStatus::kFailed, 0, WhyNothingRead(input)};
  }
  MakeFolder(fs::path(output).parent_path().string());
  const std::size_t results = job.results.size();
  const std::vector<std::string> mended = Mend(job, mend);
  const Conversion conversion = ConvertJob(job, format, {});
  WriteOutputFile(output, conversion.bytes, replace);
  std::string message = job.dropped > 0 ? NotFiniteLeftOut(job.dropped) : "";
  for (const auto* texts : {&mended, &conversion.warnings}) {
    for (const std::string& text : *texts) message += (message.empty() ? "" : "; ") + text;
  }
  return {FileStatus::kOk, results, message};
}

/// One line that renews itself on a terminal, plain lines elsewhere.
class Progress {
 public:
  explicit Progress(std::size_t fileCount) : total(fileCount), started(std::chrono::steady_clock::now()) {}

  void Note(const BatchRow& row) {
    ++done;
    const bool isOk = row.outcome.status == FileStatus::kOk && row.outcome.message.empty();
    if (!onTerminal || !isOk) {
      std::printf("%s%s: %s%s%s%s\n", onTerminal ? "\r" : "", Shown(row.input).c_str(),
                  NameOf(row.outcome.status), row.outcome.message.empty() ? "" : ": ",
                  row.outcome.message.c_str(), onTerminal ? "\033[K" : "");
    }
    if (onTerminal) DrawBar();
    std::fflush(stdout);  // a worker that starts with text in the buffer would write it again
  }

  void Break() const {
    if (onTerminal && done > 0 && done < total) std::printf("\n");
  }

 private:
  void DrawBar() const {
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    const double rate = static_cast<double>(done) / std::max(seconds, 1e-3);
    const double remaining = static_cast<double>(total - done) / rate;
    constexpr std::size_t kBar = 30;
    const std::size_t filled = done * kBar / total;
    std::printf("\r[%.*s%*s] %zu of %zu, %.1f a second, %.0f s left \033[K", static_cast<int>(filled),
                "##############################", static_cast<int>(kBar - filled), "", done, total, rate,
                remaining);
    if (done == total) std::printf("\n");
  }

  std::size_t total;
  std::size_t done = 0;
  bool onTerminal = isatty(STDOUT_FILENO) != 0;
  std::chrono::steady_clock::time_point started;
};

/// Runs a batch with a fixed number of workers at a time.
class Batch {
 public:
  Batch(const BatchOptions& batchOptions, OutputFormat outputFormat)
      : options(batchOptions),
        format(outputFormat),
        inputs(CollectInputs(options.inputs, options.outputFolder, options.extension)),
        rows(inputs.size()),
        finished(inputs.size(), false) {}

  bool IsEmpty() const { return inputs.empty(); }
  /// Takes the rows of files that an earlier run finished.
  void Resume();
  void Run();
  void Summarize() const;
  bool AllOk() const;

 private:
  struct Running {
    std::size_t index;
    bool replaces;  ///< its output was there before
    std::unique_ptr<Worker> worker;
  };

  std::string OutputPath(std::size_t index) const {
    return options.outputFolder + "/" + inputs[index].outputName;
  }
  void Start(std::size_t index);
  /// Removes what a worker leaves that was ended or failed.
  void CleanBehind(const Running& slot) const;
  void Collect(Progress& progress);
  void WorkThrough(Progress& progress);
  /// Ends the workers that still run, and writes the report.
  void End();
  void Report() const;
  /// Writes the report so far, now and then: what kills this program leaves a report as well.
  void ReportSometimes();

  const BatchOptions& options;
  OutputFormat format;
  std::vector<BatchInput> inputs;
  std::vector<BatchRow> rows;
  std::vector<bool> finished;
  std::vector<Running> running;
  std::chrono::steady_clock::time_point nextReport;  ///< the first one comes with the first file
};

void Batch::Resume() {
  const auto earlier = ReadReport(options.outputFolder);
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    const auto found = earlier.find(inputs[i].path);
    if (found == earlier.end() || found->second.output != OutputPath(i)) continue;
    const FileStatus status = found->second.outcome.status;
    std::error_code error;
    const bool stands = status == FileStatus::kOk && fs::exists(OutputPath(i), error);
    if (!stands && status != FileStatus::kEmpty) continue;
    rows[i] = found->second;
    finished[i] = true;
  }
}

void Batch::Start(std::size_t index) {
  const std::string input = inputs[index].path;
  const std::string output = OutputPath(index);
  const OutputFormat to = format;
  const bool replace = options.replace;
  const MendOptions mend = options.mend;
  const LibraryNotes notes = options.notes;
  std::error_code unknown;
  const bool replaces = fs::exists(fs::symlink_status(output, unknown));
  running.push_back(
      {index, replaces,
       std::make_unique<Worker>([=] { return ConvertOne(input, output, to, replace, mend, notes); },
                                options.timeout)});
}

void Batch::CleanBehind(const Running& slot) const {
  std::error_code nothingThere;
  fs::remove(UnfinishedName(OutputPath(slot.index), slot.worker->ProcessId()), nothingThere);
  // It may have been ended between its output and its report.
  if (!slot.replaces) fs::remove(OutputPath(slot.index), nothingThere);
}

void Batch::Collect(Progress& progress) {
  for (Running& slot : running) {
    const std::optional<FileOutcome> outcome = slot.worker->Poll();
    if (!outcome) continue;
    rows[slot.index] = {inputs[slot.index].path, OutputPath(slot.index), *outcome};
    finished[slot.index] = true;
    progress.Note(rows[slot.index]);
    if (outcome->status != FileStatus::kOk) CleanBehind(slot);
    slot.worker.reset();
  }
  if (std::erase_if(running, [](const Running& slot) { return slot.worker == nullptr; }) > 0)
    ReportSometimes();
}

void Batch::ReportSometimes() {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point begin = Clock::now();
  if (begin < nextReport) return;
  try {
    Report();
  } catch (const OutputError&) {
    // The last report, at the end, tells why.
  }
  // A report of many files takes its time: a hundredth of all at most.
  constexpr Clock::duration kPause = std::chrono::seconds(2);
  const Clock::time_point end = Clock::now();
  nextReport = end + std::max(kPause, 100 * (end - begin));
}

void Batch::Run() {
  const auto left = static_cast<std::size_t>(std::count(finished.begin(), finished.end(), false));
  Progress progress(left);
  try {
    WorkThrough(progress);
  } catch (const std::exception&) {  // no further worker could be started
    End();
    throw;
  }
  progress.Break();
  End();
}

void Batch::WorkThrough(Progress& progress) {
  std::size_t next = 0;
  while (interrupted == 0) {
    while (next < inputs.size() && running.size() < options.jobs) {
      if (!finished[next]) Start(next);
      ++next;
    }
    if (running.empty()) break;
    Collect(progress);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void Batch::End() {
  for (const Running& slot : running) {
    slot.worker->Stop();
    CleanBehind(slot);
  }
  running.clear();
  Report();
}

void Batch::Report() const {
  std::vector<BatchRow> done;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (finished[i]) done.push_back(rows[i]);
  }
  WriteReport(options.outputFolder, done);
}

void Batch::Summarize() const {
  std::size_t done = 0;
  std::size_t ok = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!finished[i]) continue;
    ++done;
    if (rows[i].outcome.status == FileStatus::kOk) ++ok;
  }
  std::printf("%zu files: %zu ok, %zu not, %zu left; see %s/report.csv\n", inputs.size(), ok, done - ok,
              inputs.size() - done, Shown(options.outputFolder).c_str());
}

bool Batch::AllOk() const {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!finished[i] || rows[i].outcome.status != FileStatus::kOk) return false;
  }
  return true;
}

void StopOnSignals() {
  struct sigaction onSignal = {};
  onSignal.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) sigaction(signal, &onSignal, nullptr);  // nohup goes on
  }
}

}  // namespace

int RunBatch(const BatchOptions& options) {
  const std::optional<OutputFormat> format = FormatOfExtension(options.extension);
  if (!format) {
    Complain("cannot write '" + Shown(options.extension) + "': --to takes svg, png, html or json");
    return kWrongUsage;
  }
  try {
    MakeFolder(options.outputFolder);
    Batch batch(options, *format);
    if (batch.IsEmpty()) {
      Complain("no DXF, SVG or PDF file in what was named");
      return kNothingRead;
    }
    if (options.resume) batch.Resume();
    StopOnSignals();
    batch.Run();
    batch.Summarize();
    if (interrupted != 0) Complain("stopped; the same command with --resume goes on");
    return batch.AllOk() ? kDone : kNothingRead;
  } catch (const std::exception& error) {
    Complain(error.what());
    return kNothingRead;
  }
}
