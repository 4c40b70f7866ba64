#include "dxf_generator.h"

#include <algorithm>
#include <charconv>
#include <random>

namespace {

constexpr int kLayers = 50;
constexpr int kBlocks = 40;

/// Writes group code and value pairs as CAD programs do: codes in three columns, reals with six digits.
class DxfText {
 public:
  explicit DxfText(std::size_t bytes) { text.reserve(bytes + 4096); }

  void Pair(int code, const char* value) {
    Code(code);
    text += value;
    text += '\n';
  }
  void Pair(int code, int value) { Pair(code, std::to_string(value).c_str()); }
  void Pair(int code, double value) {
    Code(code);
    char buffer[64];
    text.append(buffer,
                std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6).ptr);
    text += '\n';
  }
  void Name(int code, const char* stem, int number) { Pair(code, (stem + std::to_string(number)).c_str()); }

  std::string text;

 private:
  void Code(int code) {
    const std::string digits = std::to_string(code);
    text.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ');
    text += digits;
    text += '\n';
  }
};

class Generator {
 public:
  explicit Generator(std::size_t bytes) : size(bytes), dxf(bytes) {}

  std::string Run() {
    Layers();
    Blocks();
    dxf.Pair(0, "SECTION");
    dxf.Pair(2, "ENTITIES");
    while (dxf.text.size() < size) Entity();
    dxf.Pair(0, "ENDSEC");
    dxf.Pair(0, "EOF");
    return std::move(dxf.text);
  }

 private:
  double Coordinate() { return std::uniform_real_distribution<>(0.0, 2000.0)(random); }
  int Below(int bound) { return std::uniform_int_distribution<>(0, bound - 1)(random); }

  void Layers() {
    dxf.Pair(0, "SECTION");
    dxf.Pair(2, "TABLES");
    dxf.Pair(0, "TABLE");
    dxf.Pair(2, "LAYER");
    for (int i = 0; i < kLayers; ++i) {
      dxf.Pair(0, "LAYER");
      dxf.Name(2, "LAYER_", i);
      dxf.Pair(70, 0);
      dxf.Pair(62, 1 + i % 255);
      dxf.Pair(6, "CONTINUOUS");
    }
    dxf.Pair(0, "ENDTAB");
    dxf.Pair(0, "ENDSEC");
  }

  void Blocks() {
    dxf.Pair(0, "SECTION");
    dxf.Pair(2, "BLOCKS");
    for (int i = 0; i < kBlocks; ++i) {
      dxf.Pair(0, "BLOCK");
      dxf.Name(2, "BLOCK_", i);
      for (int member = 0; member < 5; ++member) Line();
      Circle();
      dxf.Pair(0, "ENDBLK");
    }
    dxf.Pair(0, "ENDSEC");
  }

  void Begin(const char* name) {
    dxf.Pair(0, name);
    dxf.Pair(5, std::to_string(++handle).c_str());
    dxf.Name(8, "LAYER_", Below(kLayers));
    if (Below(4) == 0) dxf.Pair(62, 1 + Below(255));
  }

  void Line() {
    Begin("LINE");
    for (const int code : {10, 20, 11, 21}) dxf.Pair(code, Coordinate());
  }

  void Circle() {
    Begin("CIRCLE");
    dxf.Pair(10, Coordinate());
    dxf.Pair(20, Coordinate());
    dxf.Pair(40, 1.0 + Coordinate() / 100);
  }

  void Arc() {
    Begin("ARC");
    dxf.Pair(10, Coordinate());
    dxf.Pair(20, Coordinate());
    dxf.Pair(40, 1.0 + Coordinate() / 100);
    dxf.Pair(50, Coordinate() / 10);
    dxf.Pair(51, 200.0 + Coordinate() / 20);
  }

  void Polyline() {
    Begin("LWPOLYLINE");
    dxf.Pair(100, "AcDbEntity");
    dxf.Pair(100, "AcDbPolyline");
    const int count = 4 + Below(12);
    dxf.Pair(90, count);
    dxf.Pair(70, Below(2));
    for (int i = 0; i < count; ++i) {
      dxf.Pair(10, Coordinate());
      dxf.Pair(20, Coordinate());
      if (Below(3) == 0) dxf.Pair(42, Coordinate() / 2000 - 0.5);
    }
  }

  /// A clamped cubic spline.
  void Spline() {
    Begin("SPLINE");
    dxf.Pair(100, "AcDbEntity");
    dxf.Pair(100, "AcDbSpline");
    const int count = 4 + Below(6);
    dxf.Pair(70, 8);
    dxf.Pair(71, 3);
    dxf.Pair(72, count + 4);
    dxf.Pair(73, count);
    for (int i = 0; i < count + 4; ++i) dxf.Pair(40, static_cast<double>(std::clamp(i - 3, 0, count - 3)));
    for (int i = 0; i < count; ++i) {
      dxf.Pair(10, Coordinate());
      dxf.Pair(20, Coordinate());
      dxf.Pair(30, 0.0);
    }
  }

  void Insert() {
    Begin("INSERT");
    dxf.Name(2, "BLOCK_", Below(kBlocks));
    dxf.Pair(10, Coordinate());
    dxf.Pair(20, Coordinate());
    dxf.Pair(50, 1.0 + Coordinate() / 10);
  }

  void Entity() {
    const int kind = Below(20);
    if (kind < 9) return Line();
    if (kind < 12) return Circle();
    if (kind < 14) return Arc();
    if (kind < 18) return Polyline();
    if (kind < 19) return Spline();
    Insert();
  }

  std::size_t size;
  DxfText dxf;
  std::mt19937 random{20};
  int handle = 255;
};

}  // namespace

std::string GenerateDxf(std::size_t bytes) { return Generator(bytes).Run(); }
