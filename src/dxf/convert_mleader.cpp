#include <memory>

#include "dxf/convert.h"

namespace {

Entity_ZR::MLeaderLine ConvertLine(const DXF_LeaderLine& record) {
  Entity_ZR::MLeaderLine line;
  line.points = record.points;
  line.index = record.index;
  line.type = record.type;
  line.color = record.color;
  line.lineWeight = record.lineWeight;
  line.arrowheadSize = record.arrowheadSize;
  line.lineTypeHandle = record.lineTypeHandle;
  line.arrowheadHandle = record.arrowheadHandle;
  return line;
}

Entity_ZR::MLeaderBranch ConvertBranch(const DXF_Leader& record) {
  Entity_ZR::MLeaderBranch branch;
  branch.lastPointSet = record.lastPointSet;
  branch.doglegSet = record.doglegSet;
  branch.lastPoint = record.lastPoint;
  branch.doglegVector = record.doglegVector;
  branch.index = record.index;
  branch.doglegLength = record.doglegLength;
  branch.attachmentDirection = record.attachmentDirection;
  for (const DXF_LeaderLine& line : record.lines) branch.lines.push_back(ConvertLine(line));
  return branch;
}

void FillContextText(const DXF_LeaderContext& record, Entity_ZR::MLeaderContext& context) {
  context.hasText = record.hasText;
  context.text = record.text;
  context.textNormal = record.textNormal;
  context.textStyleHandle = record.textStyleHandle;
  context.textLocation = record.textLocation;
  context.textDirection = record.textDirection;
  context.textRotation = record.textRotation;
  context.textWidth = record.textWidth;
  context.textBoxHeight = record.textBoxHeight;
  context.lineSpacingFactor = record.lineSpacingFactor;
  context.lineSpacingStyle = record.lineSpacingStyle;
  context.textColor = record.textColor;
  context.textAttachment = record.textAttachment;
  context.flowDirection = record.flowDirection;
}

void FillContextBlock(const DXF_LeaderContext& record, Entity_ZR::MLeaderContext& context) {
  context.hasBlock = record.hasBlock;
  context.blockHandle = record.blockHandle;
  context.blockNormal = record.blockNormal;
  context.blockLocation = record.blockLocation;
  context.blockScale = record.blockScale;
  context.blockRotation = record.blockRotation;
  context.blockColor = record.blockColor;
  context.planeOrigin = record.planeOrigin;
  context.planeX = record.planeX;
  context.planeY = record.planeY;
}

Entity_ZR::MLeaderContext ConvertContext(const DXF_LeaderContext& record) {
  Entity_ZR::MLeaderContext context;
  context.contentScale = record.contentScale;
  context.contentBase = record.contentBase;
  context.textHeight = record.textHeight;
  context.arrowheadSize = record.arrowheadSize;
  context.landingGap = record.landingGap;
  FillContextText(record, context);
  FillContextBlock(record, context);
  for (const DXF_Leader& leader : record.leaders) context.leaders.push_back(ConvertBranch(leader));
  return context;
}

void FillLeaders(const DXF_MLeader& record, Entity_ZR::ZR_MLeader& entity) {
  entity.styleHandle = record.styleHandle;
  entity.overrideFlags = record.overrideFlags;
  entity.leaderType = record.lineType;
  entity.leaderColor = record.lineColor;
  entity.lineTypeHandle = record.lineTypeHandle;
  entity.leaderLineWeight = record.leaderLineWeight;
  entity.landing = record.landing;
  entity.dogleg = record.dogleg;
  entity.doglegLength = record.doglegLength;
  entity.arrowheadHandle = record.arrowheadHandle;
  entity.arrowheadSize = record.arrowheadSize;
}

void FillText(const DXF_MLeader& record, Entity_ZR::ZR_MLeader& entity) {
  entity.contentType = record.contentType;
  entity.textStyleHandle = record.textStyleHandle;
  entity.leftAttachment = record.leftAttachment;
  entity.rightAttachment = record.rightAttachment;
  entity.textAngleType = record.textAngleType;
  entity.textAlignment = record.textAlignment;
  entity.textColor = record.textColor;
  entity.textFrame = record.textFrame;
}

void FillBlock(const DXF_MLeader& record, Entity_ZR::ZR_MLeader& entity) {
  entity.blockHandle = record.blockHandle;
  entity.blockColor = record.blockColor;
  entity.blockScale = record.blockScale;
  entity.blockRotation = record.blockRotation;
  entity.blockConnection = record.blockConnection;
}

void FillRest(const DXF_MLeader& record, Entity_ZR::ZR_MLeader& entity) {
  entity.annotationScale = record.annotationScale;
  entity.arrowheadIndex = record.arrowheadIndex;
  entity.arrowheadListHandle = record.arrowheadListHandle;
  entity.attributeIndex = record.attributeIndex;
  entity.attributeWidth = record.attributeWidth;
  entity.attributeText = record.attributeText;
  entity.textDirectionNegative = record.textDirectionNegative;
  entity.textAlignInIpe = record.textAlignInIpe;
  entity.textAttachmentPoint = record.textAttachmentPoint;
  entity.version = record.version;
  entity.attachmentDirection = record.attachmentDirection;
  entity.bottomAttachment = record.bottomAttachment;
  entity.topAttachment = record.topAttachment;
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_MLeader& record, Entity_ZR::ZR_MLeader& entity) {
  conversion.fillCommon(record, entity);
  FillLeaders(record, entity);
  FillText(record, entity);
  FillBlock(record, entity);
  FillRest(record, entity);
  if (record.context == nullptr) return;
  entity.context = std::make_shared<const Entity_ZR::MLeaderContext>(ConvertContext(*record.context));
}
