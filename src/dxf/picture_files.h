#ifndef DRAWLOAD_DXF_PICTURE_FILES_H
#define DRAWLOAD_DXF_PICTURE_FILES_H

#include <cstddef>

#include "dxf/dxf_objects.h"
#include "support/limits.h"
#include "support/picture.h"

/// The pictures that the image definitions of one drawing name, read when an image asks for them.
class DXF_PictureFiles {
 public:
  /// The picture of `definition`; one without pixels where its file cannot be read or decoded, or where the
  /// pictures of this drawing have been too much already. The path is used as it stands.
  support::Picture Load(const DXF_ImageDef& definition);

 private:
  bool Spend(std::size_t amount);

  const DXF_ImageDef* lastDefinition = nullptr;
  support::Picture lastPicture;
  std::size_t workLeft = support::limits::kDrawingPictureWork;
};

#endif
