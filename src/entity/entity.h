#ifndef DRAWLOAD_ENTITY_ENTITY_H
#define DRAWLOAD_ENTITY_ENTITY_H

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "entity/matrix2d.h"
#include "entity/point3.h"
#include "entity/shared.h"

/// Format-independent drawing records, on their way from a reader to the sink. Coordinates are the entity's
/// own; `ZR_Entity::matrix` maps them. Angles are radians unless a member says otherwise.
namespace Entity_ZR {

/// Which class an entity is, and so which operation of the sink takes it.
enum EntityType : std::uint32_t {
  kPoint = 0,
  kLine = 1,
  kPolyline = 2,
  kLWPolyline = 3,
  kSpline = 4,
  kCircle = 5,
  kEllipse = 6,
  kArc = 7,
  kText = 8,
  kMText = 9,
  kInsert = 10,
  kHatch = 11,
  kHelix = 12,
  kMLine = 13,
  kSolid = 14,
  kTable = 15,
  kTolerance = 16,
  kDimension = 17,
  kImage = 18,
  kViewport = 19,
  kMLeader = 20,
  kEntity = 21,  ///< the base class: no kind
  kPath = 22,
};

/// (key, value) byte strings.
using AttributePairs = std::vector<std::pair<std::string, std::string>>;

/// Values of `Attribute::tag`.
enum AttributeTag : std::int32_t {
  kGradientAttribute = 1,   ///< the entity is filled with a gradient; without pairs
  kStyleAttribute = 5,      ///< a "style" attribute says more than is read; without pairs
  kParameterAttribute = 7,  ///< the only one that the sink reads: processing parameters
};

/// One tagged value of an entity's extended data.
struct Attribute {
  std::int32_t tag = 0;
  AttributePairs pairs;

  bool operator==(const Attribute&) const = default;
};

/// A fill pattern. Carried, never read by the sink.
struct Pattern {
  virtual ~Pattern() = default;
};

class ZR_Entity {
 public:
  ZR_Entity() : ZR_Entity(kEntity) {}
  ZR_Entity(const ZR_Entity&) = default;
  ZR_Entity(ZR_Entity&&) = default;
  ZR_Entity& operator=(const ZR_Entity&) = default;
  ZR_Entity& operator=(ZR_Entity&&) = default;
  virtual ~ZR_Entity() { type = kEntity; }

  /// Nothing is drawn of an entity that its file hides or whose layer is off.
  bool IsShown() const { return visible != 0 && layerOn != 0; }

  std::uint32_t type;
  std::string layer = "0";
  std::uint32_t color = 0xFF000000;  ///< byte 0 red, byte 1 green, byte 2 blue, byte 3 alpha
  double lineWidth = 0.0;
  double lineScale = 1.0;
  SharedNumbers dashes;       ///< above 0, gaps below
  std::int32_t units = 0;     ///< $INSUNITS of a DXF file
  std::int32_t lineCap = 0;   ///< 0 butt, 1 square, 2 round
  std::int32_t lineJoin = 0;  ///< 0 miter, 1 bevel, 2 round
  double miterLimit = 0.0;
  std::int32_t space = 0;  ///< DXF group 67
  std::uint8_t visible = 1;
  std::uint8_t layerOn = 1;
  Point3 origin;    ///< $UCSORG of a DXF file
  Matrix2D matrix;  ///< maps the entity's own coordinates to document coordinates
  std::string lineType;
  std::uint32_t fillMode = 0;
  std::uint32_t fillColor = 0xFF000000;
  std::shared_ptr<Pattern> pattern;
  std::vector<Attribute> attributes;

 protected:
  explicit ZR_Entity(EntityType entityType) : type(entityType) {}
};

}  // namespace Entity_ZR

#endif
