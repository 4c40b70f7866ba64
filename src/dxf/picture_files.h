#ifndef DRAWLOAD_DXF_PICTURE_FILES_H
#define DRAWLOAD_DXF_PICTURE_FILES_H

#include "dxf/dxf_objects.h"
#include "support/picture.h"

/// The pictures that the image definitions of one drawing name, read when an image asks for them.
class DXF_PictureFiles {
 public:
  /// The picture of `definition`; one without pixels where its file cannot be read or decoded. The path is
  /// used as it stands.
  const support::Picture& Load(const DXF_ImageDef& definition);

 private:
  const DXF_ImageDef* lastDefinition = nullptr;
  support::Picture lastPicture;
};

#endif
