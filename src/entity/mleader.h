#ifndef DRAWLOAD_ENTITY_MLEADER_H
#define DRAWLOAD_ENTITY_MLEADER_H

#include <memory>
#include <string>
#include <vector>

#include "entity/entity.h"

namespace Entity_ZR {

/// One line of a leader, from the arrow's point on.
struct MLeaderLine {
  std::vector<Point3> points;
  std::int32_t index = 0;
  std::int32_t type = 0;
  std::int32_t color = 0;
  std::int32_t lineWeight = 0;
  double arrowheadSize = 0.0;
  std::uint32_t lineTypeHandle = 0;
  std::uint32_t arrowheadHandle = 0;

  bool operator==(const MLeaderLine&) const = default;
};

/// One leader: its lines meet in a short straight piece, the dogleg.
struct MLeaderBranch {
  bool lastPointSet = false;
  bool doglegSet = false;
  Point3 lastPoint;
  Point3 doglegVector;
  std::int32_t index = 0;
  double doglegLength = 0.0;
  std::int32_t attachmentDirection = 0;
  std::vector<MLeaderLine> lines;

  bool operator==(const MLeaderBranch&) const = default;
};

/// What a multileader shows: its text or block, and the leaders that point from it. Rotations in the file's
/// own unit.
struct MLeaderContext {
  double contentScale = 0.0;
  Point3 contentBase;
  double textHeight = 0.0;
  double arrowheadSize = 0.0;
  double landingGap = 0.0;
  bool hasText = false;
  std::string text;
  Point3 textNormal;
  std::uint32_t textStyleHandle = 0;
  Point3 textLocation;
  Point3 textDirection;
  double textRotation = 0.0;
  double textWidth = 0.0;
  double textBoxHeight = 0.0;
  double lineSpacingFactor = 0.0;
  std::int32_t lineSpacingStyle = 0;
  std::int32_t textColor = 0;
  std::int32_t textAttachment = 0;
  std::int32_t flowDirection = 0;
  bool hasBlock = false;
  std::uint32_t blockHandle = 0;
  Point3 blockNormal;
  Point3 blockLocation;
  Point3 blockScale;
  double blockRotation = 0.0;
  std::int32_t blockColor = 0;
  Point3 planeOrigin;
  Point3 planeX;
  Point3 planeY;
  std::vector<MLeaderBranch> leaders;

  bool operator==(const MLeaderContext&) const = default;
};

/// Text or a block with leaders. Handles refer to records of the file; colours are the file's own numbers.
class ZR_MLeader : public ZR_Entity {
 public:
  ZR_MLeader() : ZR_Entity(kMLeader) {}

  std::uint32_t styleHandle = 0;
  std::int32_t overrideFlags = 0;
  std::int32_t leaderType = 0;
  std::int32_t leaderColor = 0;
  std::uint32_t lineTypeHandle = 0;
  std::int32_t leaderLineWeight = 0;
  bool landing = false;
  bool dogleg = false;
  double doglegLength = 0.0;
  std::uint32_t arrowheadHandle = 0;
  double arrowheadSize = 0.0;
  std::int32_t contentType = 0;
  std::uint32_t textStyleHandle = 0;
  std::int32_t leftAttachment = 0;
  std::int32_t rightAttachment = 0;
  std::int32_t textAngleType = 0;
  std::int32_t textAlignment = 0;
  std::int32_t textColor = 0;
  bool textFrame = false;
  std::uint32_t blockHandle = 0;
  std::int32_t blockColor = 0;
  Point3 blockScale = {1.0, 1.0, 1.0};
  double blockRotation = 0.0;
  std::int32_t blockConnection = 0;
  bool annotationScale = false;
  std::int32_t arrowheadIndex = 0;
  std::uint32_t arrowheadListHandle = 0;
  std::int32_t attributeIndex = 0;
  double attributeWidth = 0.0;
  std::string attributeText;
  bool textDirectionNegative = false;
  std::int32_t textAlignInIpe = 0;
  std::int32_t textAttachmentPoint = 0;
  std::int32_t version = 0;
  std::int32_t attachmentDirection = 0;
  std::int32_t bottomAttachment = 0;
  std::int32_t topAttachment = 0;
  std::shared_ptr<const MLeaderContext> context;  ///< null where the file has none
};

}  // namespace Entity_ZR

#endif
