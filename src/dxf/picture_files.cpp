#include "dxf/picture_files.h"

#include <optional>

#include "support/file_bytes.h"

bool DXF_PictureFiles::Spend(std::size_t amount) {
  if (amount > workLeft) workLeft = 0;
  if (workLeft == 0) return false;
  workLeft -= amount;
  return true;
}

support::Picture DXF_PictureFiles::Load(const DXF_ImageDef& definition) {
  if (definition.path.empty()) return {};
  if (lastDefinition != &definition) {
    lastDefinition = &definition;
    lastPicture = {};
    const std::optional<support::FileBytes> file = support::FileBytes::Read(definition.path, workLeft);
    if (!file || !Spend(file->View().size())) return {};
    lastPicture = support::DecodePicture(file->View());
    if (!Spend(lastPicture.work)) lastPicture = {};
    return lastPicture;
  }
  const auto pixels =
      static_cast<std::size_t>(lastPicture.width) * static_cast<std::size_t>(lastPicture.height);
  return Spend(pixels) ? lastPicture : support::Picture{};
}
