#include <CLI/CLI.hpp>
#include <string>

#include "commands.h"
#include "messages.h"

namespace {

constexpr char kDescription[] =
    "Reads DXF, SVG and PDF drawings for laser cutters and engravers, and shows what will be cut.";

constexpr char kExamples[] =
    "Examples:\n"
    "  drawload info bracket.dxf\n"
    "  drawload info --json *.svg\n"
    "  drawload convert bracket.dxf -o bracket.svg\n"
    "  drawload convert bracket.dxf -o bracket.png --width 800\n"
    "  drawload convert bracket.dxf -o bracket.html   a page that shows the order of work\n"
    "Exit status: 0 done, 1 nothing could be read or written, 2 wrong usage.";

LibraryNotes NotesFor(bool verbose) {
  return verbose ? LibraryNotes::kToStandardError : LibraryNotes::kHidden;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(kDescription, "drawload");
  app.footer(kExamples);
  app.set_version_flag("--version", DRAWLOAD_VERSION);
  app.require_subcommand(1);
  bool verbose = false;
  app.add_flag("-v,--verbose", verbose, "Show the notes that the library prints while it reads");

  InfoOptions info;
  CLI::App* infoCommand = app.add_subcommand("info", "Print what is in each drawing: results, size, lengths");
  infoCommand->add_option("FILE", info.inputs, "Drawings to read")->required();
  infoCommand->add_flag("--json", info.json, "Print JSON, for programs");

  ConvertOptions convert;
  CLI::App* convertCommand =
      app.add_subcommand("convert", "Write what will be cut, true to scale: SVG, PNG, JSON or a viewer page");
  convertCommand->add_option("FILE", convert.input, "Drawing to read")->required();
  convertCommand->add_option("-o,--output", convert.output, "File to write: .svg, .png, .html or .json")
      ->required();
  convertCommand->add_flag("-f,--force", convert.replace, "Replace the output if it exists");
  convertCommand->add_option("--dpi", convert.pictureSize.dpi, "Pixels an inch of a PNG (96)")
      ->check(CLI::Range(1e-3, 1e5));
  convertCommand
      ->add_option("--width", convert.pictureSize.width, "Width of a PNG in pixels, instead of --dpi")
      ->check(CLI::Range(1, 32767));

  try {
    app.parse(argc, argv);
    info.notes = convert.notes = NotesFor(verbose);
    return infoCommand->parsed() ? RunInfo(info) : RunConvert(convert);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const std::exception& error) {
    Complain(error.what());
    return kNothingRead;
  }
}
