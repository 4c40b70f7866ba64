#include "svg/path_data.h"

#include "svg/number_scanner.h"

namespace Svg {

namespace {

bool IsCubicCommand(char command) {
  return command == 'C' || command == 'c' || command == 'S' || command == 's';
}

bool IsQuadraticCommand(char command) {
  return command == 'Q' || command == 'q' || command == 'T' || command == 't';
}

/// Draws the commands of one "d" text. One round of a command takes a fixed count of numbers.
class PathWriter {
 public:
  explicit PathWriter(Path& target) : path(target) {}

  /// Consumes `numbers` by rounds of `command`. False where the parse must end.
  bool Run(char command, const std::vector<double>& numbers) {
    next = numbers.data();
    end = next + numbers.size();
    while (next != end) {
      if (!Round(command)) return false;
      if (command == 'M') command = 'L';
      if (command == 'm') command = 'l';
      previous = command;
    }
    return true;
  }

 private:
  bool Round(char command) {
    switch (command) {
      case 'M':
      case 'm': return Move(command == 'm');
      case 'L':
      case 'l': return Line(command == 'l');
      case 'H': return LineTo({Take(), current.y});
      case 'h': return LineTo({current.x + Take(), current.y});
      case 'V': return LineTo({current.x, Take()});
      case 'v': return LineTo({current.x, current.y + Take()});
      case 'C':
      case 'c': return Has(6) && Cubic(command == 'c');
      case 'S':
      case 's': return Has(4) && SmoothCubic(command == 's');
      case 'Q':
      case 'q': return Has(4) && Quadratic(command == 'q');
      case 'T':
      case 't': return Has(2) && SmoothQuadratic(command == 't');
      case 'A':
      case 'a': return Has(7) && Arc(command == 'a');
      case 'Z':
      case 'z': return Close();
      default: return false;
    }
  }

  bool Has(std::ptrdiff_t count) const { return end - next >= count; }
  double Take() { return *next++; }
  Point TakePoint(bool relative) {
    const double x = Take();
    const double y = Take();
    return relative ? Point{current.x + x, current.y + y} : Point{x, y};
  }
  /// A lone coordinate is dropped and counts as a round.
  bool DropLoneNumber() {
    if (Has(2)) return false;
    next = end;
    return true;
  }

  bool Move(bool relative) {
    if (DropLoneNumber()) return true;
    current = subpathStart = TakePoint(relative);
    path.AddMove(current.x, current.y);
    return true;
  }

  bool Line(bool relative) { return DropLoneNumber() || LineTo(TakePoint(relative)); }

  bool LineTo(Point lineEnd) {
    current = lineEnd;
    path.AddLine(lineEnd.x, lineEnd.y);
    return true;
  }

  bool Cubic(bool relative) {
    const Point control1 = TakePoint(relative);
    return CubicFrom(control1, relative);
  }

  bool SmoothCubic(bool relative) {
    return CubicFrom(IsCubicCommand(previous) ? Reflection() : current, relative);
  }

  bool CubicFrom(Point control1, bool relative) {
    lastControl = TakePoint(relative);
    const Point curveEnd = TakePoint(relative);
    path.AddCubic(curveEnd, control1, lastControl);
    current = curveEnd;
    return true;
  }

  bool Quadratic(bool relative) {
    lastControl = TakePoint(relative);
    return QuadraticTo(TakePoint(relative));
  }

  bool SmoothQuadratic(bool relative) {
    lastControl = IsQuadraticCommand(previous) ? Reflection() : current;
    return QuadraticTo(TakePoint(relative));
  }

  bool QuadraticTo(Point curveEnd) {
    path.AddQuadratic(lastControl, curveEnd);
    current = curveEnd;
    return true;
  }

  bool Arc(bool relative) {
    const double rx = Take();
    const double ry = Take();
    const double rotation = Take();
    const bool largeArc = Take() != 0.0;
    const bool sweep = Take() != 0.0;
    const Point arcEnd = TakePoint(relative);
    path.AddArc(rx, ry, rotation, largeArc, sweep, arcEnd, current);
    current = arcEnd;
    return true;
  }

  bool Close() {
    Take();
    current = subpathStart;
    path.ClosePath();
    return true;
  }

  Point Reflection() const { return {2.0 * current.x - lastControl.x, 2.0 * current.y - lastControl.y}; }

  Path& path;
  const double* next = nullptr;
  const double* end = nullptr;
  Point current;
  Point subpathStart;
  Point lastControl;  ///< serves smooth cubic and smooth quadratic curves alike
  char previous = 0;
};

}  // namespace

void Parse(std::string_view text, Path& path, std::vector<double>& numbers) {
  PathWriter writer(path);
  TextCursor cursor(text);
  for (cursor.SkipSpace(); !cursor.AtEnd(); cursor.SkipSpace()) {
    const char command = *cursor.next++;
    numbers.clear();
    ScanNumberList(cursor, numbers);
    // The closing commands take no number; the 0 stands in for it, so that they run once.
    if (command == 'Z' || command == 'z') numbers.push_back(0.0);
    if (numbers.empty() || !writer.Run(command, numbers)) return;
  }
}

void Parse(std::string_view text, Path& path) {
  std::vector<double> numbers;
  Parse(text, path, numbers);
}

}  // namespace Svg
