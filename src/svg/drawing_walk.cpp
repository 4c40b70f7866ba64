// The walk over the records of a document: what is drawn, what is skipped, how groups and references nest.

#include <functional>

#include "support/account.h"
#include "support/text_to_number.h"
#include "svg/svg_rw.h"
#include "svg/transform_list.h"

using Svg::ElementType;
using Svg::SVG_Element;

namespace {

/// Work of looking a record up and passing over it.
constexpr std::size_t kReferencedRecordWork = 16;

}  // namespace

void SVG_RW::DrawElements(const Svg::RecordList& records, PARSE::Context context) {
  WalkState state;
  for (const SVG_Element* const record : records) {
    if (record->active) support::RunItem([&] { DrawElement(*record, state, context); });
  }
}

void SVG_RW::DrawElement(const SVG_Element& record, WalkState& state, PARSE::Context context) {
  switch (record.elementType) {
    case ElementType::Svg:
      SetupPage(record);
      sink->SetPage(&page, context);
      break;
    case ElementType::G:
      if (!state.inDefs) OpenGroup(record, state, context);
      break;
    case ElementType::Defs: state.inDefs = true; break;
    case ElementType::ClipPath:
    case ElementType::Switch: state.inClip = true; break;
    case ElementType::Param: EmitMachineInfo(record, context); break;
    case ElementType::Tail: DrawTail(record, state, context); break;
    case ElementType::Line:
    case ElementType::Rect:
    case ElementType::Circle:
    case ElementType::Ellipse:
    case ElementType::Polyline:
    case ElementType::Polygon:
    case ElementType::Path:
    case ElementType::Image:
      if (state.IsDrawn()) DrawShape(record, context);
      break;
    case ElementType::Use:
      if (state.IsDrawn()) DrawUse(record, context);
      break;
    case ElementType::Text:
    case ElementType::Tspan:
      if (!state.IsHidden()) DrawText(record, state, context);
      break;
    default: break;
  }
}

void SVG_RW::DrawShape(const SVG_Element& record, PARSE::Context context) {
  groupAttributes->Load(record);
  const bool hasStroke = groupAttributes->Field(Svg::kStroke) != "none";
  const bool isPainted = hasStroke || groupAttributes->Field(Svg::kFill) != "none";
  switch (record.elementType) {
    case ElementType::Image: return Draw(record, &SVG_RW::EmitImage, &DrawLoader::AddImage, context);
    case ElementType::Line:
      if (hasStroke) Draw(record, &SVG_RW::EmitLine, &DrawLoader::AddLine, context);
      return;
    default: break;
  }
  if (!isPainted) return;
  switch (record.elementType) {
    case ElementType::Circle: return Draw(record, &SVG_RW::EmitCircle, &DrawLoader::AddCircle, context);
    case ElementType::Ellipse: return Draw(record, &SVG_RW::EmitEllipse, &DrawLoader::AddEllipse, context);
    case ElementType::Rect: return DrawOutline(record, &SVG_RW::EmitRect, context);
    case ElementType::Path: return DrawOutline(record, &SVG_RW::EmitPath, context);
    default: return DrawOutline(record, &SVG_RW::EmitPolyline, context);
  }
}

template <typename Entity>
void SVG_RW::Draw(const SVG_Element& record, Emitter<Entity> emit, Operation<Entity> operation,
                  PARSE::Context context) {
  Entity entity;
  (this->*emit)(record, entity);
  std::invoke(operation, *sink, &entity, context);
}

/// Kept: texts inside texts are counted and not drawn; a text that is hidden by a clip path is not counted
/// while its end is, so that the depth may go below zero.
void SVG_RW::DrawText(const SVG_Element& record, WalkState& state, PARSE::Context context) {
  const bool isText = record.elementType == ElementType::Text;
  if (isText ? ++state.textDepth > 1 : state.textDepth != 1) return;
  if (!state.IsDrawn()) return;
  groupAttributes->Load(record);
  Entity_ZR::ZR_Text text;
  EmitText(record, text);
  if (isText) {
    state.textMatrix = text.matrix;
  } else {
    text.matrix = state.textMatrix;
  }
  sink->AddText(&text, context);
}

void SVG_RW::DrawTail(const SVG_Element& record, WalkState& state, PARSE::Context context) {
  if (record.elementName() == "defstail") {
    state.inDefs = false;
  } else if (record.elementName() == "clipPathtail" || record.elementName() == "switchtail") {
    state.inClip = false;
  } else if (record.elementName() == "texttail") {
    if (!state.inDefs) --state.textDepth;
  } else if (record.elementName() == "gtail") {
    if (state.inDefs) return;
    if (state.refusedGroups > 0) {
      --state.refusedGroups;
    } else {
      CloseGroup(context);
    }
  }
}

/// A group that the account refuses has no frame to end.
void SVG_RW::OpenGroup(const SVG_Element& record, WalkState& state, PARSE::Context context) {
  ++state.refusedGroups;
  if (state.refusedGroups > 1) return;
  OpenRecordGroup(record, context);
  state.refusedGroups = 0;
}

void SVG_RW::OpenRecordGroup(const SVG_Element& record, PARSE::Context context) {
  Entity_ZR::ZR_Insert insert;
  groupAttributes->Load(record);
  insert.matrix = Svg::ParseTransform(LongField(Svg::kTransform));
  PlaceInDocument(insert.matrix);
  AttachRemaining(insert);
  OpenFrame(insert, context);
}

void SVG_RW::OpenFrame(Entity_ZR::ZR_Insert& insert, PARSE::Context context) {
  PushGroupMatrix(insert);
  try {
    sink->BeginGroup(context);
    sink->AddInsert(&insert, context);
  } catch (...) {
    PopGroupMatrix();
    throw;
  }
  ++openGroups;
}

/// The frame gets the whole product from the root to this group.
void SVG_RW::PushGroupMatrix(Entity_ZR::ZR_Entity& entity) {
  if (!matrixStack.empty()) Concat(entity.matrix, matrixStack.back());
  matrixStack.push_back(entity.matrix);
  documentMatrixAbsorbed = true;
}

void SVG_RW::PopGroupMatrix() {
  if (!matrixStack.empty()) matrixStack.pop_back();
  if (matrixStack.empty()) documentMatrixAbsorbed = false;
}

void SVG_RW::CloseGroup(PARSE::Context context) {
  PopGroupMatrix();
  if (openGroups > 0) --openGroups;
  sink->EndGroup(context);
}

void SVG_RW::CloseGroupsDownTo(std::size_t count, PARSE::Context context) {
  while (openGroups > count) CloseGroup(context);
}

/// A `use` draws the records of the element that it refers to, in a group of its own if it places them. Kept:
/// what is inactive where it stands is inactive here too, and a `use` inside a `use` is not followed.
void SVG_RW::DrawUse(const SVG_Element& record, PARSE::Context context) {
  if (isClone) return;
  groupAttributes->Load(record);
  const std::string_view href = groupAttributes->Field(Svg::kXlinkHref);
  if (!href.starts_with('#')) return;
  const std::string_view id = href.substr(1);
  const Svg::RecordList& records = document->FindById(id);
  if (records.empty()) return;
  support::SpendWork(kReferencedRecordWork * records.size());
  const std::size_t groupsBefore = openGroups;
  const bool hasGroup = OpenUseGroup(context);
  try {
    DrawClones(records, context);
  } catch (...) {
    CloseGroupsDownTo(groupsBefore, context);
    throw;
  }
  if (hasGroup) CloseGroup(context);
}

void SVG_RW::DrawClones(const Svg::RecordList& records, PARSE::Context context) {
  isClone = true;
  try {
    DrawElements(records, context);
  } catch (...) {
    isClone = false;
    throw;
  }
  isClone = false;
}

/// False where the `use` in hand does not place what it draws.
bool SVG_RW::OpenUseGroup(PARSE::Context context) {
  const std::string_view transform = LongField(Svg::kTransform);
  const std::string_view x = groupAttributes->Field(Svg::kX);
  const std::string_view y = groupAttributes->Field(Svg::kY);
  if (transform.empty() && x.empty() && y.empty()) return false;
  Matrix2D placement = Svg::ParseTransform(transform);
  PlaceInDocument(placement);
  Entity_ZR::ZR_Insert insert;
  insert.matrix = {1.0, 0.0, 0.0, 1.0, support::AtoF(x), support::AtoF(y)};
  Concat(insert.matrix, placement);
  OpenFrame(insert, context);
  return true;
}
