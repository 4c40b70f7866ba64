#ifndef DRAWLOAD_DXF_DXF_MLEADER_H
#define DRAWLOAD_DXF_DXF_MLEADER_H

#include <memory>
#include <string>
#include <vector>

#include "dxf/dxf_entity.h"

/// One line of a leader, from the arrow's point on.
struct DXF_LeaderLine {
  std::vector<DXF_Coord> points;      ///< 10 starts one
  std::int32_t index = 0;             ///< 91
  std::int32_t type = 0;              ///< 170
  std::int32_t color = 0;             ///< 92
  std::int32_t lineWeight = 0;        ///< 171
  double arrowheadSize = 0.0;         ///< 40
  std::uint32_t lineTypeHandle = 0;   ///< 340
  std::uint32_t arrowheadHandle = 0;  ///< 341

  void parseGroup(std::int32_t code, const dxfReader& reader);
  bool operator==(const DXF_LeaderLine&) const = default;
};

struct DXF_Leader {
  bool lastPointSet = false;             ///< 290
  bool doglegSet = false;                ///< 291
  DXF_Coord lastPoint;                   ///< 10
  DXF_Coord doglegVector;                ///< 11
  std::int32_t index = 0;                ///< 90
  double doglegLength = 0.0;             ///< 40
  std::int32_t attachmentDirection = 0;  ///< 271
  std::vector<DXF_LeaderLine> lines;

  void parseGroup(std::int32_t code, const dxfReader& reader);
  bool operator==(const DXF_Leader&) const = default;
};

/// What a multileader shows: its text or block, and the leaders that point from it.
struct DXF_LeaderContext {
  double contentScale = 0.0;          ///< 40
  DXF_Coord contentBase;              ///< 10
  double textHeight = 0.0;            ///< 41
  double arrowheadSize = 0.0;         ///< 140
  double landingGap = 0.0;            ///< 145
  bool hasText = false;               ///< 290
  std::string text;                   ///< 304
  DXF_Coord textNormal;               ///< 11
  std::uint32_t textStyleHandle = 0;  ///< 340
  DXF_Coord textLocation;             ///< 12
  DXF_Coord textDirection;            ///< 13
  double textRotation = 0.0;          ///< 42
  double textWidth = 0.0;             ///< 43
  double textBoxHeight = 0.0;         ///< 44
  double lineSpacingFactor = 0.0;     ///< 45
  std::int32_t lineSpacingStyle = 0;  ///< 170
  std::int32_t textColor = 0;         ///< 90
  std::int32_t textAttachment = 0;    ///< 171
  std::int32_t flowDirection = 0;     ///< 172
  bool hasBlock = false;              ///< 296
  std::uint32_t blockHandle = 0;      ///< 341
  DXF_Coord blockNormal;              ///< 14
  DXF_Coord blockLocation;            ///< 15
  DXF_Coord blockScale;               ///< 16
  double blockRotation = 0.0;         ///< 46
  std::int32_t blockColor = 0;        ///< 93
  DXF_Coord planeOrigin;              ///< 110, 120, 130
  DXF_Coord planeX;                   ///< 111, 121, 131
  DXF_Coord planeY;                   ///< 112, 122, 132
  std::vector<DXF_Leader> leaders;

  void parseGroup(std::int32_t code, const dxfReader& reader);
  bool operator==(const DXF_LeaderContext&) const = default;

 private:
  bool parsePointGroup(std::int32_t code, const dxfReader& reader);
  bool parseTextGroup(std::int32_t code, const dxfReader& reader);
};

/// MULTILEADER. A block that a closing brace does not end is not stored.
class DXF_MLeader : public DXF_Entity {
 public:
  DXF_MLeader() : DXF_Entity(kDxfMLeader) {}

  void applyExtrusion() override {}
  void parseGroup(std::int32_t code, const dxfReader& reader);

  /// At the end of the entity: a block that is still open is dropped.
  void finish() { openBlocks.reset(); }

  std::uint32_t styleHandle = 0;           ///< 340
  std::int32_t overrideFlags = 0;          ///< 90
  std::int32_t lineType = 0;               ///< 170
  std::int32_t lineColor = 0;              ///< 91
  std::uint32_t lineTypeHandle = 0;        ///< 341
  std::int32_t leaderLineWeight = 0;       ///< 171
  bool landing = false;                    ///< 290
  bool dogleg = false;                     ///< 291
  double doglegLength = 0.0;               ///< 41
  std::uint32_t arrowheadHandle = 0;       ///< 342
  double arrowheadSize = 0.0;              ///< 42
  std::int32_t contentType = 0;            ///< 172
  std::uint32_t textStyleHandle = 0;       ///< 343
  std::int32_t leftAttachment = 0;         ///< 173
  std::int32_t rightAttachment = 0;        ///< 95
  std::int32_t textAngleType = 0;          ///< 174
  std::int32_t textAlignment = 0;          ///< 175
  std::int32_t textColor = 0;              ///< 92
  bool textFrame = false;                  ///< 292
  std::uint32_t blockHandle = 0;           ///< 344
  std::int32_t blockColor = 0;             ///< 93
  DXF_Coord blockScale = {1.0, 1.0, 1.0};  ///< 10
  double blockRotation = 0.0;              ///< 43
  std::int32_t blockConnection = 0;        ///< 176
  bool annotationScale = false;            ///< 293
  std::int32_t arrowheadIndex = 0;         ///< 94
  std::uint32_t arrowheadListHandle = 0;   ///< 345
  std::int32_t attributeIndex = 0;         ///< 177
  double attributeWidth = 0.0;             ///< 44
  std::string attributeText;               ///< 302
  bool textDirectionNegative = false;      ///< 294
  std::int32_t textAlignInIpe = 0;         ///< 178
  std::int32_t textAttachmentPoint = 0;    ///< 179
  std::int32_t version = 0;                ///< 270
  std::int32_t attachmentDirection = 0;    ///< 271
  std::int32_t bottomAttachment = 0;       ///< 272
  std::int32_t topAttachment = 0;          ///< 273
  /// Null until its block closes. Copies share it.
  std::shared_ptr<const DXF_LeaderContext> context;

 private:
  enum class Level { kOwn, kContext, kLeader, kLine };

  bool parseBlockEdge(std::int32_t code, const dxfReader& reader);
  bool openBlock(std::int32_t code);
  bool closeBlock(std::int32_t code, const dxfReader& reader);
  void parseOwnGroup(std::int32_t code, const dxfReader& reader);
  bool parseHandleGroup(std::int32_t code, const dxfReader& reader);
  bool parseFlagGroup(std::int32_t code, const dxfReader& reader);

  Level level = Level::kOwn;
  /// The blocks that are being read; on the heap, as they are large.
  struct OpenBlocks {
    DXF_LeaderContext context;
    DXF_Leader leader;
    DXF_LeaderLine line;
  };
  OpenBlocks& open();

  std::shared_ptr<OpenBlocks> openBlocks;
};

#endif
