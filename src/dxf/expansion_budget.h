#ifndef DRAWLOAD_DXF_EXPANSION_BUDGET_H
#define DRAWLOAD_DXF_EXPANSION_BUDGET_H

#include <cstddef>
#include <optional>

#include "dxf/dxf_document.h"

/// What the conversion of a record costs: 4, and 1 for each of its points or an arc's quarter turns.
std::size_t ConversionUnits(const DXF_Entity& record);

/// How much the expansion of blocks may still make of one drawing. Blocks that insert blocks that insert
/// blocks ask for numbers of entities that grow with the power of their nesting.
class DXF_ExpansionBudget {
 public:
  /// Opens the account of one outermost reference: half of what is left, so that one that wants everything
  /// leaves room for those behind it.
  void Open(const DXF_Document& document);
  /// What the account still holds goes back.
  void Close();
  /// Pays for one entity of a block that `depth` blocks are open around; deep ones cost more. False where the
  /// account does not suffice, and then for the rest of it.
  bool Pay(const DXF_Entity& record, int depth);

 private:
  std::optional<std::size_t> left;  ///< set when the first account opens
  std::size_t account = 0;
};

#endif
