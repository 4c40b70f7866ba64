#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <string>
#include <thread>

#include "commands.h"
#include "messages.h"
#include "versions.h"

namespace {

constexpr char kDescription[] =
    "Reads DXF, SVG and PDF drawings for laser cutters and engravers, and shows what will be cut.\n"
    "The numbers of a DXF drawing are taken for millimetres, whatever unit it names.";

constexpr char kExamples[] =
    "Examples:\n"
    "  drawload info bracket.dxf\n"
    "  drawload info --json *.svg\n"
    "  drawload check bracket.dxf --bed 600,400\n"
    "  drawload convert bracket.dxf -o clean.svg --drop-duplicates --join 0.05 --inside-first\n"
    "  drawload convert bracket.dxf -o bracket.svg\n"
    "  drawload convert bracket.dxf -o bracket.png --width 800\n"
    "  drawload convert bracket.dxf -o bracket.html   a page that shows the order of work\n"
    "  drawload view bracket.dxf\n"
    "  drawload batch drawings/ --out previews --to png --jobs 4\n"
    "Exit status: 0 done, 1 something could not be read or written, 2 wrong usage.";

LibraryNotes NotesFor(bool verbose) {
  return verbose ? LibraryNotes::kToStandardError : LibraryNotes::kHidden;
}

/// What was wrong with the command line.
std::string UsageMessage(const CLI::App* app, const CLI::Error& error) {
  std::string text = "drawload: ";
  if (!app->get_subcommands().empty()) {
    text += error.what();
    return text + "\nRun with --help for more information.\n";
  }
  const std::vector<std::string> words = app->remaining();
  if (!words.empty()) text.append("'").append(Shown(words.front())).append("' is not a command; ");
  return text + "name info, check, convert, view or batch first; 'drawload --help' has examples\n";
}

void AddMendOptions(CLI::App* command, MendOptions& mend) {
  command->add_flag("--drop-duplicates", mend.dropDuplicates, "Leave out segments that are drawn before");
  command->add_option("--join", mend.join, "Join loose pieces whose ends are so near, in mm")
      ->check(CLI::Range(0.0, 100.0));
  command->add_flag("--inside-first", mend.insideFirst,
                    "Cut what lies inside an outline before it, with short travel");
  command
      ->add_option("--simplify", mend.simplify, "Leave out points of lines that change them by less, in mm")
      ->check(CLI::Range(0.0, 100.0));
  command->add_option("--tolerance", mend.tolerance, "How near duplicates lie, in mm (0.01)")
      ->check(CLI::Range(0.0, 10.0));
}

}  // namespace

// What escapes here is that there is no memory for the options themselves.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is an error to tell of, not a reason to die
  CLI::App app(kDescription, "drawload");
  app.footer(kExamples);
  app.set_version_flag("--version", Versions());
  app.require_subcommand(1);
  app.failure_message(UsageMessage);
  app.fallthrough();  // --verbose counts behind a command too
  bool verbose = false;
  app.add_flag("-v,--verbose", verbose, "Show the notes that the library prints while it reads");

  InfoOptions info;
  CLI::App* infoCommand = app.add_subcommand("info", "Print what is in each drawing: results, size, lengths");
  infoCommand->add_option("FILE", info.inputs, "Drawings to read")->required();
  infoCommand->add_flag("--json", info.json, "Print JSON, for programs");

  CheckCommandOptions check;
  CLI::App* checkCommand = app.add_subcommand("check", "Report what will go wrong on the machine");
  checkCommand->add_option("FILE", check.inputs, "Drawings to check")->required();
  checkCommand->add_flag("--json", check.json, "Print JSON, for programs");
  checkCommand->add_option("-o,--output", check.output, "Report with a picture to write: .html or .png");
  checkCommand->add_flag("-f,--force", check.replace, "Replace the report if it exists");
  checkCommand
      ->add_option("--tolerance", check.check.tolerance, "What counts as the same place, in mm (0.01)")
      ->check(CLI::Range(0.0, 10.0));
  checkCommand->add_option("--bed", check.bed, "Size of the bed from (0, 0) on, in mm: W,H")
      ->delimiter(',')
      ->expected(2)
      ->check(CLI::PositiveNumber);
  checkCommand
      ->add_option("--ignore", check.ignored, "Code of findings to pass over, as duplicate; may repeat")
      ->delimiter(',')
      ->expected(1)
      ->take_all();

  ConvertOptions convert;
  CLI::App* convertCommand =
      app.add_subcommand("convert", "Write what will be cut: SVG, PNG, JSON or a viewer page");
  convertCommand->add_option("FILE", convert.input, "Drawing to read")->required();
  convertCommand->add_option("-o,--output", convert.output, "File to write: .svg, .png, .html or .json")
      ->required();
  convertCommand->add_flag("-f,--force", convert.replace, "Replace the output if it exists");
  convertCommand
      ->add_option("--dpi", convert.pictureSize.dpi,
                   "Pixels an inch of a PNG (96, or less for a large drawing)")
      ->check(CLI::Range(1e-3, 1e5));
  convertCommand
      ->add_option("--width", convert.pictureSize.width, "Width of a PNG in pixels, instead of --dpi")
      ->check(CLI::Range(1, 32767));
  AddMendOptions(convertCommand, convert.mend);

  ViewOptions view;
  CLI::App* viewCommand = app.add_subcommand("view", "Open the viewer page of a drawing in the browser");
  viewCommand->add_option("FILE", view.input, "Drawing to read")->required();
  AddMendOptions(viewCommand, view.mend);

  BatchOptions batch;
  batch.jobs = std::max(1U, std::thread::hardware_concurrency());
  CLI::App* batchCommand = app.add_subcommand("batch", "Convert many drawings, each in a process of its own");
  batchCommand->add_option("INPUT", batch.inputs, "Drawings, and folders that hold some")->required();
  batchCommand->add_option("--out", batch.outputFolder, "Folder for the outputs and the report")->required();
  batchCommand->add_option("--to", batch.extension, "Format of the outputs: svg, png, html or json")
      ->required();
  batchCommand->add_option("--jobs", batch.jobs, "Files at a time (as many as there are processors)")
      ->check(CLI::Range(1, 1024));
  batchCommand->add_option("--timeout", batch.timeout, "Seconds that one file may take (60)")
      ->check(CLI::Range(0.001, 1e6));
  batchCommand->add_flag("-f,--force", batch.replace, "Replace outputs that exist");
  batchCommand->add_flag("--resume", batch.resume, "Go on with what the report in the output folder leaves");
  AddMendOptions(batchCommand, batch.mend);

  try {
    app.parse(argc, argv);
    info.notes = check.notes = convert.notes = view.notes = batch.notes = NotesFor(verbose);
    if (infoCommand->parsed()) return RunInfo(info);
    if (checkCommand->parsed()) return RunCheck(check);
    if (convertCommand->parsed()) return RunConvert(convert);
    return viewCommand->parsed() ? RunView(view) : RunBatch(batch);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const std::exception& error) {
    Complain(error.what());
    return kNothingRead;
  }
}
