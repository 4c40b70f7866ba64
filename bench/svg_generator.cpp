#include "svg_generator.h"

#include <cstdio>
#include <random>

namespace {

constexpr const char* kRoot =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"600mm\" "
    "height=\"400mm\" viewBox=\"0 0 6000 4000\">\n"
    "<style>.cut{stroke:#ff0000;fill:none}.score{stroke:#0000ff;fill:none;stroke-width:0.5}</style>\n";

/// Writes elements with random numbers. The seed is fixed, so that every run reads the same drawing.
class Writer {
 public:
  std::string text = kRoot;

  void Path() {
    text += "<path class=\"" + std::string(random() % 2 == 0 ? "cut" : "score") + "\" id=\"path" +
            std::to_string(++ids) + "\" d=\"M" + Pair();
    const std::size_t count = 4 + random() % 24;
    for (std::size_t i = 0; i < count; ++i) {
      switch (random() % 5) {
        case 0: text += "C" + Pair() + " " + Pair() + " " + Pair(); break;
        case 1: text += "c" + Step() + " " + Step() + " " + Step(); break;
        case 2: text += "L" + Pair(); break;
        case 3: text += "l" + Step(); break;
        default: text += "a10 10 0 0 1 " + Step();
      }
    }
    text += "Z\"/>\n";
  }

  void Shape() {
    switch (random() % 4) {
      case 0:
        text += "<rect x=\"" + Number() + "\" y=\"" + Number() + "\" width=\"20.5\" height=\"10\" rx=\"2\" ";
        break;
      case 1: text += "<circle cx=\"" + Number() + "\" cy=\"" + Number() + "\" r=\"7.25\" "; break;
      case 2: text += "<polygon points=\"" + Pair() + " " + Pair() + " " + Pair() + "\" "; break;
      default: text += "<path d=\"M" + Pair() + "H" + Number() + "V" + Number() + "Z\" ";
    }
    text += "style=\"fill:none;stroke:#00ff00;stroke-width:0.264583;stroke-linecap:round\" cutPower=\"" +
            std::to_string(10 + random() % 80) + "\"/>\n";
  }

  void Group() {
    text += "<g transform=\"rotate(" + std::to_string(random() % 360) + ") scale(1.5)\" cutSpeed=\"20\">\n";
    for (int i = 0; i < 12; ++i) {
      Path();
      Shape();
    }
    text += "</g>\n";
    text += "<use xlink:href=\"#mark\" transform=\"translate(" + Pair() + ") scale(2)\"/>\n";
  }

 private:
  std::string Number() { return Fixed(0, 4000); }
  std::string Pair() { return Number() + "," + Number(); }
  std::string Step() { return Fixed(-50, 50) + "," + Fixed(-50, 50); }
  std::string Fixed(int low, int high) {
    char digits[32];
    const auto thousandths = static_cast<double>(random() % static_cast<unsigned>((high - low) * 1000));
    std::snprintf(digits, sizeof digits, "%.3f", low + thousandths / 1000.0);
    return digits;
  }

  std::mt19937 random{20240229};
  int ids = 0;
};

}  // namespace

std::string GenerateSvg(std::size_t bytes) {
  Writer writer;
  writer.text += "<g id=\"mark\"><circle r=\"3\"/><path d=\"M-5 0H5M0-5V5\" stroke=\"black\"/></g>\n";
  while (writer.text.size() < bytes) writer.Group();
  return writer.text + "</svg>\n";
}

std::string GenerateUses(int uses) {
  Writer writer;
  // The style sheet shortens the paths: a symbol in a single group would count as one at the top level.
  writer.text += "<g><g><symbol id=\"part\">\n";
  for (int i = 0; i < 6; ++i) {
    writer.Path();
    writer.Shape();
  }
  writer.text += "</symbol></g></g>\n";
  for (int i = 0; i < uses; ++i) {
    writer.text += "<use xlink:href=\"#part\" transform=\"translate(" + std::to_string(i % 600) + "," +
                   std::to_string(i / 600) + ") scale(0.5)\"/>\n";
  }
  return writer.text + "</svg>\n";
}
