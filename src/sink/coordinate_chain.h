#ifndef DRAWLOAD_SINK_COORDINATE_CHAIN_H
#define DRAWLOAD_SINK_COORDINATE_CHAIN_H

#include "drawload/file_segment.h"
#include "entity/matrix2d.h"

/// The way of a point from an entity to a result: the entity's own matrix, the innermost frame's, the page's.
/// Refers to the matrices that it is given; valid for the length of one operation of the sink.
class CoordinateChain {
 public:
  /// `frame` is null where no frame places points.
  CoordinateChain(const Matrix2D& entityMatrix, const Matrix2D* frameMatrix, const Matrix2D& page)
      : entity(entityMatrix), frame(frameMatrix), pageMatrix(page) {}

  /// The place of a point in the entity's own coordinates.
  FilePosition Place(Entity_ZR::Point3 p) const { return PlaceDocumentPoint(entity.Apply(p)); }

  /// The place of a point that the entity's matrix has mapped already, or must not map.
  FilePosition PlaceDocumentPoint(Entity_ZR::Point3 p) const {
    if (frame != nullptr) p = frame->Apply(p);
    p = pageMatrix.Apply(p);
    return {p.x, p.y};
  }

 private:
  const Matrix2D& entity;
  const Matrix2D* frame;
  const Matrix2D& pageMatrix;
};

#endif
