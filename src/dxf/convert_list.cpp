#include <memory>
#include <type_traits>

#include "dxf/convert.h"
#include "dxf/dxf_rw.h"
#include "support/account.h"
#include "support/limits.h"

namespace {

using PARSE::DrawLoader;

/// What the conversion of an entity costs beside the memory that it takes.
constexpr std::uint64_t kEntityWork = 256;

/// The placement of a block while it is expanded.
class PlacementScope {
 public:
  using Stack = std::stack<Matrix2D, std::vector<Matrix2D>>;
  PlacementScope(Stack& placements, const Matrix2D& placement) : stack(placements) { stack.push(placement); }
  PlacementScope(const PlacementScope&) = delete;
  PlacementScope& operator=(const PlacementScope&) = delete;
  ~PlacementScope() { stack.pop(); }

 private:
  Stack& stack;
};

/// Ends the group of a block reference however its content ends. Not by a destructor, as that must not throw.
template <typename Draw, typename End>
void DrawThenEnd(Draw draw, End end) {
  try {
    draw();
  } catch (...) {
    end();
    throw;
  }
  end();
}

/// Charges what `convert` does for an entity of a block. It takes as long again as it takes memory, and so
/// does its result: an expansion runs out of work before its results leave no memory for what follows.
template <typename Convert>
void ChargeEntity(Convert convert) {
  const support::Account* account = support::Account::Current();
  if (account == nullptr) return convert();
  const std::uint64_t before = account->Spent();
  convert();
  support::SpendWork(kEntityWork + (account->Spent() - before));
}

/// Has `take` take the record as what its kind says it is, with its neutral class and the operation that
/// receives that. Block references and kinds without a neutral class are passed over.
template <typename Take>
void VisitRecord(const DXF_Entity& record, Take& take) {
  using namespace Entity_ZR;
  switch (record.kind) {
    case kDxfPoint: return take.template With<DXF_Point, ZR_Point, &DrawLoader::AddPoint>(record);
    case kDxfLine: return take.template With<DXF_Line, ZR_Line, &DrawLoader::AddLine>(record);
    case kDxfPolyline: return take.template With<DXF_Polyline, ZR_Polyline, &DrawLoader::AddPolyline>(record);
    case kDxfLWPolyline:
      return take.template With<DXF_LWPolyline, ZR_LWPolyline, &DrawLoader::AddLWPolyline>(record);
    case kDxfSpline: return take.template With<DXF_Spline, ZR_Spline, &DrawLoader::AddSpline>(record);
    case kDxfCircle: return take.template With<DXF_Circle, ZR_Circle, &DrawLoader::AddCircle>(record);
    case kDxfEllipse: return take.template With<DXF_Ellipse, ZR_Ellipse, &DrawLoader::AddEllipse>(record);
    case kDxfArc: return take.template With<DXF_Arc, ZR_Arc, &DrawLoader::AddArc>(record);
    case kDxfText: return take.template With<DXF_Text, ZR_Text, &DrawLoader::AddText>(record);
    case kDxfMText: return take.template With<DXF_MText, ZR_MText, &DrawLoader::AddMText>(record);
    case kDxfHatch: return take.template With<DXF_Hatch, ZR_Hatch, &DrawLoader::AddHatch>(record);
    case kDxfHelix: return take.template With<DXF_Helix, ZR_Helix, &DrawLoader::AddHelix>(record);
    case kDxfMline: return take.template With<DXF_Mline, ZR_MLine, &DrawLoader::AddMLine>(record);
    case kDxfSolid: return take.template With<DXF_Solid, ZR_Solid, &DrawLoader::AddSolid>(record);
    case kDxfTable: return take.template With<DXF_Table, ZR_Table, &DrawLoader::AddTable>(record);
    case kDxfTolerance:
      return take.template With<DXF_Entity, ZR_Tolerance, &DrawLoader::AddTolerance>(record);
    case kDxfDimension:
      return take.template With<DXF_Dimension, ZR_Dimension, &DrawLoader::AddDimension>(record);
    case kDxfImage: return take.template With<DXF_Image, ZR_Image, &DrawLoader::AddImage>(record);
    case kDxfViewport: return take.template With<DXF_Viewport, ZR_Viewport, &DrawLoader::AddViewport>(record);
    case kDxfMLeader: return take.template With<DXF_MLeader, ZR_MLeader, &DrawLoader::AddMLeader>(record);
    default: return;
  }
}

}  // namespace

/// Hands each entity to the sink. Entities live no longer than the call, whatever it answers.
class DXF_RW::Sender {
 public:
  Sender(DXF_RW& owner, PARSE::Context callContext) : reader(owner), context(callContext) {}

  // Not inlined: the entities of all kinds together would make large stack frames, one for each nested block.
  template <typename Record, typename Entity, auto Add>
  [[gnu::noinline]] void With(const DXF_Entity& record) {
    Entity entity;
    reader.convertRecord(static_cast<const Record&>(record), entity);
    (reader.sink->*Add)(&entity, context);
    // Kept: each text ends a group, although it began none, and so may end that of its block.
    if constexpr (std::is_same_v<Entity, Entity_ZR::ZR_Text>) reader.sink->EndGroup(context);
  }

 private:
  DXF_RW& reader;
  PARSE::Context context;
};

/// Appends each entity to a list.
class DXF_RW::Collector {
 public:
  Collector(DXF_RW& owner, NeutralEntities& list) : reader(owner), target(list) {}

  template <typename Record, typename Entity, auto Add>
  [[gnu::noinline]] void With(const DXF_Entity& record) {
    auto entity = std::make_shared<Entity>();
    reader.convertRecord(static_cast<const Record&>(record), *entity);
    target.push_back(std::move(entity));
  }

 private:
  DXF_RW& reader;
  NeutralEntities& target;
};

template <typename Record, typename Entity>
void DXF_RW::convertRecord(const Record& record, Entity& entity) {
  fillEntity(*conversion, record, entity);
  if constexpr (std::is_same_v<Entity, Entity_ZR::ZR_Table>) {
    convertBlockInto(entity.blockName, entity.entities);
  }
  if constexpr (std::is_same_v<Entity, Entity_ZR::ZR_Insert>) {
    const Matrix2D* outer = insertStack.empty() ? nullptr : &insertStack.top();
    const DXF_Block* block = conversion->document.findBlock(record.blockName);
    entity.matrix = placeInsert(record, block, entity.matrix, outer);
  }
}

void DXF_RW::convertInsert(const DXF_Insert& record, PARSE::Context context) {
  Entity_ZR::ZR_Insert entity;
  convertRecord(record, entity);
  const PlacementScope placement(insertStack, entity.matrix);
  sink->BeginGroup(context);
  const bool isOpen = sink->AddInsert(&entity, context);
  const auto draw = [&] {
    if (!isOpen || conversion->blockDepth >= support::limits::kInsertDepth) return;
    const DXF_BlockScope scope(*conversion);
    DrawBlock(record.blockName, context);
  };
  DrawThenEnd(draw, [&] { sink->EndGroup(context); });
}

void DXF_RW::convertEntity(const DXF_Entity& record, PARSE::Context context) {
  if (record.kind == kDxfInsert) return convertInsert(static_cast<const DXF_Insert&>(record), context);
  Sender sender(*this, context);
  VisitRecord(record, sender);
}

void DXF_RW::convertRecords(Records records, PARSE::Context context) {
  for (const auto& record : records) {
    support::RunItem([&] {
      if (record->kind != kDxfInsert) return ChargeEntity([&] { convertEntity(*record, context); });
      // What the inner block holds is charged entity by entity.
      support::SpendWork(kEntityWork);
      convertEntity(*record, context);
    });
  }
}

template <typename Convert>
void DXF_RW::runConversion(Convert convert) {
  if (conversion != nullptr) return convert();
  DXF_Conversion running(*iface->document);
  insertStack = {};
  conversion = &running;
  const auto stop = [](DXF_Conversion** slot) { *slot = nullptr; };
  const std::unique_ptr<DXF_Conversion*, decltype(stop)> atEnd(&conversion, stop);
  convert();
}

void DXF_RW::convertModel(PARSE::Context context) {
  runConversion([&] {
    DXF_Document& document = *iface->document;
    for (auto& record : document.modelBlock->entities) {
      support::RunItem([&] { convertEntity(*record, context); });
      const void* place = record.get();
      record.reset();
      document.modelMemory.FreeBefore(place);
    }
  });
}

void DXF_RW::DrawBlock(const std::string& name, PARSE::Context context) {
  if (iface == nullptr || sink == nullptr) return;
  const DXF_ifaceBlock* block = iface->document->findBlock(name);
  if (block != nullptr) runConversion([&] { convertRecords(block->entities, context); });
}

void DXF_RW::convertBlockInto(const std::string& name, NeutralEntities& target) {
  const DXF_ifaceBlock* block = conversion->document.findBlock(name);
  if (block == nullptr || conversion->blockDepth >= support::limits::kInsertDepth) return;
  const DXF_BlockScope scope(*conversion);
  Collector collector(*this, target);
  for (const auto& record : block->entities) {
    support::SpendWork(kEntityWork);
    if (record->kind == kDxfInsert) {
      collector.With<DXF_Insert, Entity_ZR::ZR_Insert, &DrawLoader::AddInsert>(*record);
    } else {
      VisitRecord(*record, collector);
    }
  }
}
