#include "entry/file_dispatch.h"

#include <memory>

#include "dxf/dxf_rw.h"
#include "pdf/pdf_rw.h"
#include "sink/my_draw_load.h"
#include "svg/svg_rw.h"

namespace {

/// What stands behind the last dot, in small letters; the whole path where it has no dot.
std::string ExtensionOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  std::string extension = dot == std::string::npos ? path : path.substr(dot + 1);
  for (char& letter : extension) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return extension;
}

template <typename Reader>
bool ReadWith(CMyDrawLoad& sink, const std::string& path, PARSE::FileType type) {
  PARSE::DrawLoader& dispatcher = *sink.dispatcher;
  sink.fileType = type;
  dispatcher.path = path;
  dispatcher.fileType = type;
  Reader reader;
  reader.sink = dispatcher.sink;
  return reader.Read(path, 0);
}

}  // namespace

bool DispatchFile(CMyDrawLoad& sink, const std::string& path) {
  if (path.empty()) return false;
  sink.dispatcher = std::make_unique<PARSE::DrawLoader>();
  sink.dispatcher->fileType = sink.fileType;
  sink.dispatcher->sink = &sink;
  const std::string extension = ExtensionOf(path);
  if (extension == "pdf") return ReadWith<PDF_RW>(sink, path, PARSE::kPdfFile);
  if (extension == "dxf") return ReadWith<DXF_RW>(sink, path, PARSE::kDxfFile);
  if (extension == "svg") return ReadWith<SVG_RW>(sink, path, PARSE::kSvgFile);
  return true;
}
