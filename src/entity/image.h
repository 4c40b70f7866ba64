#ifndef DRAWLOAD_ENTITY_IMAGE_H
#define DRAWLOAD_ENTITY_IMAGE_H

#include <memory>
#include <span>

#include "entity/entity.h"

namespace Entity_ZR {

class ZR_Image : public ZR_Entity {
 public:
  ZR_Image() : ZR_Entity(kImage) {}

  Point3 position;
  /// Rows of `width` pixels of `channels` bytes, packed with no gap; null where there is no picture. Shared,
  /// so that a decoded picture passes through without a copy.
  std::shared_ptr<const unsigned char> pixels;
  std::size_t pixelBytes = 0;  ///< how many bytes `pixels` really holds
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t channels = 0;  ///< 1 to 4
  double displayWidth = 0.0;  ///< below 1e-8: one unit a pixel
  double displayHeight = 0.0;
  Point3 uVector;
  Point3 vVector;
  std::int32_t loaded = 0;
  std::int32_t resolutionUnits = 0;
};

}  // namespace Entity_ZR

#endif
