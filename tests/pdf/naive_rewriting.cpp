#include "pdf/naive_rewriting.h"

namespace naive {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  std::size_t position = text.find(from);
  while (position != std::string::npos) {
    text.replace(position, from.size(), to);
    position = text.find(from, position + to.size());
  }
}

void ReplaceOutsideStrings(std::string& text, const std::string& from, const std::string& to) {
  constexpr std::size_t kNone = std::string::npos;
  std::size_t start = 0;
  for (;;) {
    const std::size_t p = text.find(from, start);
    if (p == kNone) return;
    const std::size_t rb = text.find(']', p);
    const std::size_t lb = rb == kNone ? kNone : text.rfind('[', rb);
    const std::size_t rp = text.find(')', p);
    const std::size_t lp = rp == kNone ? kNone : text.rfind('(', rp);
    if (rb != kNone && lb != kNone && p < rb && p > lb) {
      start = rb;
    } else if (rp != kNone && lp != kNone && p < rp && p > lp) {
      start = rp;
    } else {
      text.replace(p, from.size(), to);
      start = p + to.size();
    }
  }
}

void NormaliseObjectText(std::string& text) {
  ReplaceAll(text, "(", "\n(");
  ReplaceAll(text, "\r", "\n");
  ReplaceAll(text, "><", "> <");
  ReplaceAll(text, " ", "\n");
  ReplaceAll(text, "/", "\n/");
  ReplaceAll(text, "<<", "\n<<\n");
  ReplaceAll(text, ">>", "\n>>\n");
  ReplaceAll(text, "[", "\n[\n");
  ReplaceAll(text, "]", "\n]\n");
  ReplaceAll(text, "\n\n", "\n");
  ReplaceAll(text, "\n\n", "\n");
}

void NormaliseContentText(std::string& text) {
  ReplaceAll(text, "\n ", " ");
  ReplaceAll(text, "  ", " ");
  ReplaceOutsideStrings(text, "\nl", " l");
  ReplaceOutsideStrings(text, "\n l", " l");
  for (const std::string name :
       {"m", "l", "c", "v", "y", "h", "re", "S", "s", "F", "f", "f*", "B", "b", "b*", "n", "W"}) {
    ReplaceOutsideStrings(text, name + " ", name + "\n");
  }
  ReplaceOutsideStrings(text, "W* ", "W*\n");
  ReplaceOutsideStrings(text, " q", "\nq");
  ReplaceOutsideStrings(text, "q ", "q\n");
  ReplaceOutsideStrings(text, " Q", "\nQ\n");
  for (const std::string name : {"cm", "w", "J", "j", "M", "BX", "EX", "TJ", "Tj", "Tz"}) {
    ReplaceOutsideStrings(text, name + " ", name + "\n");
  }
  ReplaceOutsideStrings(text, "TL", "TL\n");
  ReplaceOutsideStrings(text, "TD", "TD\n");
  for (const std::string name : {"BT", "ET", "Do"}) ReplaceOutsideStrings(text, name + " ", name + "\n");
  ReplaceOutsideStrings(text, "cs", "cs\n");
  ReplaceOutsideStrings(text, "scn", "scn\n");
  ReplaceAll(text, "\r", "\n");
  ReplaceAll(text, "  ", " ");
  ReplaceAll(text, "\n\n", "\n");
}

}  // namespace naive
