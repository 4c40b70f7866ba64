#ifndef DRAWLOAD_DXF_DXF_RW_H
#define DRAWLOAD_DXF_DXF_RW_H

#include <memory>
#include <span>
#include <stack>
#include <string>
#include <vector>

#include "dxf/dxf_blocks.h"
#include "dxf/dxf_interface.h"
#include "entity/matrix2d.h"
#include "sink/reader_interface.h"

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
  using Records = std::span<const std::unique_ptr<DXF_Entity>>;

  /// Converts the records in order and hands the entities to the sink.
  void convertList(Records records, PARSE::Context context);

  DXF_EntityList ownedEntities;  ///< always empty in reading
  std::string sourcePath;
  std::string acadVersion;
  Records modelEntities;                                    ///< the model space in the store
  std::unique_ptr<DXF_Interface> iface;                     ///< null between reads
  std::stack<Matrix2D, std::vector<Matrix2D>> insertStack;  ///< nesting of INSERT
};

#endif
