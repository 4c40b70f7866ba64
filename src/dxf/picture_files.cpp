#include "dxf/picture_files.h"

#include <optional>

#include "support/file_bytes.h"

const support::Picture& DXF_PictureFiles::Load(const DXF_ImageDef& definition) {
  if (lastDefinition == &definition) return lastPicture;
  lastDefinition = &definition;
  lastPicture = {};
  if (definition.path.empty()) return lastPicture;
  const std::optional<support::FileBytes> file = support::FileBytes::Read(definition.path);
  if (file) lastPicture = support::DecodePicture(file->View());
  return lastPicture;
}
