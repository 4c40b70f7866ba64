#include "dxf/dxf_mleader.h"

#include <utility>

#include "dxf/take_value.h"

void DXF_LeaderLine::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeListedCoord(code, 10, reader, points)) return;
  switch (code) {
    case 40: arrowheadSize = reader.realValue; break;
    case 91: index = reader.intValue; break;
    case 92: color = reader.intValue; break;
    case 170: type = reader.intValue; break;
    case 171: lineWeight = reader.intValue; break;
    case 340: lineTypeHandle = reader.handleFromText(); break;
    case 341: arrowheadHandle = reader.handleFromText(); break;
    default: break;
  }
}

void DXF_Leader::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 10, reader, lastPoint) || TakeCoord(code, 11, reader, doglegVector)) return;
  switch (code) {
    case 40: doglegLength = reader.realValue; break;
    case 90: index = reader.intValue; break;
    case 271: attachmentDirection = reader.intValue; break;
    case 290: lastPointSet = reader.intValue != 0; break;
    case 291: doglegSet = reader.intValue != 0; break;
    default: break;
  }
}

void DXF_LeaderContext::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (parsePointGroup(code, reader) || parseTextGroup(code, reader)) return;
  switch (code) {
    case 40: contentScale = reader.realValue; break;
    case 46: blockRotation = reader.realValue; break;
    case 93: blockColor = reader.intValue; break;
    case 140: arrowheadSize = reader.realValue; break;
    case 145: landingGap = reader.realValue; break;
    case 296: hasBlock = reader.intValue != 0; break;
    case 341: blockHandle = reader.handleFromText(); break;
    default: break;
  }
}

bool DXF_LeaderContext::parsePointGroup(std::int32_t code, const dxfReader& reader) {
  return TakeCoord(code, 10, reader, contentBase) || TakeCoord(code, 11, reader, textNormal) ||
         TakeCoord(code, 12, reader, textLocation) || TakeCoord(code, 13, reader, textDirection) ||
         TakeCoord(code, 14, reader, blockNormal) || TakeCoord(code, 15, reader, blockLocation) ||
         TakeCoord(code, 16, reader, blockScale) || TakeCoord(code, 110, reader, planeOrigin) ||
         TakeCoord(code, 111, reader, planeX) || TakeCoord(code, 112, reader, planeY);
}

bool DXF_LeaderContext::parseTextGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 41: textHeight = reader.realValue; break;
    case 42: textRotation = reader.realValue; break;
    case 43: textWidth = reader.realValue; break;
    case 44: textBoxHeight = reader.realValue; break;
    case 45: lineSpacingFactor = reader.realValue; break;
    case 90: textColor = reader.intValue; break;
    case 170: lineSpacingStyle = reader.intValue; break;
    case 171: textAttachment = reader.intValue; break;
    case 172: flowDirection = reader.intValue; break;
    case 290: hasText = reader.intValue != 0; break;
    case 304: text = reader.text(); break;
    case 340: textStyleHandle = reader.handleFromText(); break;
    default: return false;
  }
  return true;
}

void DXF_MLeader::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (openBlock(code) || closeBlock(code, reader)) return;
  switch (level) {
    case Level::kContext: open().context.parseGroup(code, reader); break;
    case Level::kLeader: open().leader.parseGroup(code, reader); break;
    case Level::kLine: open().line.parseGroup(code, reader); break;
    case Level::kOwn: parseOwnGroup(code, reader); break;
  }
}

bool DXF_MLeader::openBlock(std::int32_t code) {
  if (level == Level::kOwn && code == 300) {
    open().context = {};
    level = Level::kContext;
  } else if (level == Level::kContext && code == 302) {
    open().leader = {};
    level = Level::kLeader;
  } else if (level == Level::kLeader && code == 304) {
    open().line = {};
    level = Level::kLine;
  } else {
    return false;
  }
  return true;
}

bool DXF_MLeader::closeBlock(std::int32_t code, const dxfReader& reader) {
  const bool closing = (level == Level::kContext && code == 301) ||
                       (level == Level::kLeader && code == 303) || (level == Level::kLine && code == 305);
  if (!closing || reader.text() != "}") return false;
  switch (level) {
    case Level::kContext:
      context = std::make_shared<const DXF_LeaderContext>(std::move(open().context));
      level = Level::kOwn;
      break;
    case Level::kLeader:
      open().context.leaders.push_back(std::move(open().leader));
      level = Level::kContext;
      break;
    default:
      open().leader.lines.push_back(std::move(open().line));
      level = Level::kLeader;
      break;
  }
  return true;
}

void DXF_MLeader::parseOwnGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 10, reader, blockScale) || parseHandleGroup(code, reader) ||
      parseFlagGroup(code, reader)) {
    return;
  }
  switch (code) {
    case 41: doglegLength = reader.realValue; break;
    case 42: arrowheadSize = reader.realValue; break;
    case 43: blockRotation = reader.realValue; break;
    case 44: attributeWidth = reader.realValue; break;
    case 90: overrideFlags = reader.intValue; break;
    case 91: lineColor = reader.intValue; break;
    case 92: textColor = reader.intValue; break;
    case 93: blockColor = reader.intValue; break;
    case 94: arrowheadIndex = reader.intValue; break;
    case 95: rightAttachment = reader.intValue; break;
    case 302: attributeText = reader.text(); break;
    default: DXF_Entity::parseGroup(code, reader); break;
  }
}

bool DXF_MLeader::parseHandleGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 340: styleHandle = reader.handleFromText(); break;
    case 341: lineTypeHandle = reader.handleFromText(); break;
    case 342: arrowheadHandle = reader.handleFromText(); break;
    case 343: textStyleHandle = reader.handleFromText(); break;
    case 344: blockHandle = reader.handleFromText(); break;
    case 345: arrowheadListHandle = reader.handleFromText(); break;
    default: return false;
  }
  return true;
}

bool DXF_MLeader::parseFlagGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 170: lineType = reader.intValue; break;
    case 171: leaderLineWeight = reader.intValue; break;
    case 172: contentType = reader.intValue; break;
    case 173: leftAttachment = reader.intValue; break;
    case 174: textAngleType = reader.intValue; break;
    case 175: textAlignment = reader.intValue; break;
    case 176: blockConnection = reader.intValue; break;
    case 177: attributeIndex = reader.intValue; break;
    case 178: textAlignInIpe = reader.intValue; break;
    case 179: textAttachmentPoint = reader.intValue; break;
    case 270: version = reader.intValue; break;
    case 271: attachmentDirection = reader.intValue; break;
    case 272: bottomAttachment = reader.intValue; break;
    case 273: topAttachment = reader.intValue; break;
    case 290: landing = reader.intValue != 0; break;
    case 291: dogleg = reader.intValue != 0; break;
    case 292: textFrame = reader.intValue != 0; break;
    case 293: annotationScale = reader.intValue != 0; break;
    case 294: textDirectionNegative = reader.intValue != 0; break;
    default: return false;
  }
  return true;
}

DXF_MLeader::OpenBlocks& DXF_MLeader::open() {
  if (openBlocks == nullptr) openBlocks = std::make_shared<OpenBlocks>();
  return *openBlocks;
}
