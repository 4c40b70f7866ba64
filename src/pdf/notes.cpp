#include "pdf/notes.h"

#include <cstdio>

#include "support/account.h"

namespace pdf {

void PdfNotes::Write(std::string_view note) {
  std::string line(note);
  line += '\n';
  Replay(line);
}

void PdfNotes::Replay(std::string_view recorded) {
  constexpr std::uint64_t kWorkPerByte = 8;
  support::SpendWork(kWorkPerByte * recorded.size());
  std::fwrite(recorded.data(), 1, recorded.size(), stdout);
  if (recordings > 0) log += recorded;
}

PdfNotes::Recording::Recording(PdfNotes& target) : notes(target), start(target.log.size()) {
  ++notes.recordings;
}

PdfNotes::Recording::~Recording() {
  if (--notes.recordings == 0) notes.log.clear();
}

}  // namespace pdf
