#include "drawload/exports.h"

#include <memory>

#include "entry/file_dispatch.h"
#include "sink/my_draw_load.h"

namespace {

/// The parse that is being walked. Null before the first load and behind every finished walk.
std::unique_ptr<CMyDrawLoad> currentSink;

/// Hands out `object`, or ends the life of the parse where there is none.
std::int32_t HandOut(CFileDraw* found, CFileDraw** object) {
  if (found == nullptr) {
    currentSink.reset();
    return 0;
  }
  *object = found;
  return 1;
}

}  // namespace

std::int32_t DrawLoad_Z7(const char* path) {
  currentSink.reset();
  try {
    currentSink = std::make_unique<CMyDrawLoad>();
    const support::AccountScope scope(currentSink->account);
    DispatchFile(*currentSink, path == nullptr ? "" : path);
  } catch (...) {
    // What escapes a reader ends the read, and nothing else: the results so far stand.
  }
  if (currentSink != nullptr && currentSink->HasResults()) return 1;
  currentSink.reset();
  return 0;
}

std::int32_t GetFirstData_Z7(CFileDraw** object) {
  return currentSink == nullptr ? 0 : HandOut(currentSink->FirstResult(), object);
}

std::int32_t GetNextData_Z7(CFileDraw** object) {
  return currentSink == nullptr ? 0 : HandOut(currentSink->NextResult(), object);
}
