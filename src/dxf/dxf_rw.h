#ifndef DRAWLOAD_DXF_DXF_RW_H
#define DRAWLOAD_DXF_DXF_RW_H

#include <memory>
#include <span>
#include <stack>
#include <string>
#include <vector>

#include "dxf/dxf_blocks.h"
#include "dxf/dxf_interface.h"
#include "entity/entity.h"
#include "entity/matrix2d.h"
#include "sink/reader_interface.h"

class DXF_Conversion;

/// Reads a text DXF file: one pass into a record store, then the conversion of the model space to neutral
/// entities. `Read` is true for every file that can be opened, whatever it holds.
class DXF_RW : public PARSE::DrawLoader {
 public:
  DXF_RW();
  ~DXF_RW() override;

  bool Read(const std::string& filePath, PARSE::Context context) override;

  /// Frees what the reader built from the document.
  virtual void ResetReader();
  /// Draws the entities of the block of that name; nothing where there is none.
  virtual void DrawBlock(const std::string& name, PARSE::Context context);

 private:
  using Records = std::span<const DXF_EntityList::value_type>;
  using NeutralEntities = std::vector<std::shared_ptr<Entity_ZR::ZR_Entity>>;
  class Sender;
  class Collector;

  /// Converts the model space in order and hands the entities to the sink. Each record is gone behind its
  /// conversion, so that its memory can be had for what the sink keeps.
  void convertModel(PARSE::Context context);
  /// Appends the entities of the block of that name to a list of a neutral entity, instead of calling the
  /// sink.
  void convertBlockInto(const std::string& name, NeutralEntities& target);

  /// Runs `convert` as a conversion, or within the one that runs.
  template <typename Convert>
  void runConversion(Convert convert);
  void convertRecords(Records records, PARSE::Context context);
  void convertEntity(const DXF_Entity& record, PARSE::Context context);
  void convertInsert(const DXF_Insert& record, PARSE::Context context);
  template <typename Record, typename Entity>
  void convertRecord(const Record& record, Entity& entity);

  DXF_EntityList ownedEntities;  ///< always empty in reading
  std::string sourcePath;
  std::string acadVersion;
  std::unique_ptr<DXF_Interface> iface;                     ///< null between reads
  std::stack<Matrix2D, std::vector<Matrix2D>> insertStack;  ///< nesting of INSERT
  DXF_Conversion* conversion = nullptr;                     ///< the one that runs; null between conversions
};

#endif
