// Bitmaps: pictures as grey bitmaps with the matrix that places their pixels.
#include <cmath>

#include "bitmapcore/set_dib_info.h"
#include "entity/image.h"
#include "result/processing_block.h"
#include "sink/grey_bitmap.h"
#include "sink/my_draw_load.h"
#include "sink/parameters.h"
#include "support/account.h"

namespace {

using Entity_ZR::ZR_Image;

/// From pixels to the entity's own coordinates.
Matrix2D PixelMatrix(const ZR_Image& image) {
  constexpr double noSize = 1e-8;
  double width = image.displayWidth;
  double height = image.displayHeight;
  if (std::abs(width) < noSize || std::abs(height) < noSize) {
    width = image.width;
    height = image.height;
  }
  Matrix2D matrix;
  Concat(matrix, {width / image.width, 0.0, 0.0, height / image.height, image.position.x, image.position.y});
  return matrix;
}

constexpr Matrix2D kZeroMatrix = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};

}  // namespace

CFileDib* CMyDrawLoad::NewDib(const Entity_ZR::ZR_Entity& entity) {
  CFileDib* dib = store.NewDib();
  if (!entity.attributes.empty()) {
    ApplyImageParameters(entity.attributes, *dib);
  } else if (groupDepth != 0) {
    CopyProcessingBlock(*frames.back().group, *dib);
  }
  return dib;
}

bool CMyDrawLoad::PackPixels(const ZR_Image& image, CFileDib& dib) {
  if (image.width < 0 || image.height < 0) return false;
  const std::uint64_t bytes = GreyBitmapBytes(image.width, image.height);
  support::Account* read = support::Account::Current();
  if (read != nullptr) read->Hold(bytes, support::MemoryUse::kResults);
  dib.bitmap =
      PackGreyBitmap(image.width, image.height, image.channels, {image.pixels.get(), image.pixelBytes});
  if (dib.bitmap == nullptr && read != nullptr) read->Release(bytes, support::MemoryUse::kResults);
  return dib.bitmap != nullptr;
}

// Kept: unlike a curve, a bitmap follows a frame that only translates, and no page of a PDF file moves it.
Matrix2D CMyDrawLoad::PlacementOf(const ZR_Image& image) const {
  Matrix2D placement = PixelMatrix(image);
  if (image.matrix != kZeroMatrix) Concat(placement, image.matrix);
  if (groupDepth != 0) Concat(placement, frames.back().matrix);
  if (fileType == PARSE::kSvgFile) Concat(placement, pageMatrix);
  return placement;
}

bool CMyDrawLoad::AddImage(ZR_Image* entity, PARSE::Context) {
  if (!entity->IsShown() || entity->pixels == nullptr) return false;
  bool isAdded = false;
  support::RunItem([&] {
    CFileDib* dib = NewDib(*entity);
    if (!PackPixels(*entity, *dib)) return;
    const Matrix2D m = PlacementOf(*entity);
    _dib_SetDibInfo(dib, m.a, m.c, m.b, m.d, m.e, m.f);
    AddResult(dib);
    isAdded = true;
  });
  return isAdded;
}
