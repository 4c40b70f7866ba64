#ifndef DRAWLOAD_DXF_DXF_DOCUMENT_H
#define DRAWLOAD_DXF_DXF_DOCUMENT_H

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf/dxf_blocks.h"
#include "dxf/dxf_header.h"
#include "dxf/dxf_names.h"
#include "dxf/dxf_objects.h"
#include "dxf/dxf_tables.h"
#include "support/arena.h"

/// Positions of a list's records by a key; of several records with one key the first stands. It takes in
/// what was appended to the list since the last look-up, so that nothing is scanned twice.
template <typename Key>
class DXF_FirstWinsIndex {
 public:
  /// `keyOf(record)` gives a key that stays as it is as long as the record lives.
  template <typename Record, typename KeyOf>
  const Record* find(const std::vector<std::unique_ptr<Record>>& list, const Key& key, KeyOf keyOf) const {
    for (; taken < list.size(); ++taken) positions.try_emplace(keyOf(*list[taken]), taken);
    const auto found = positions.find(key);
    return found == positions.end() ? nullptr : list[found->second].get();
  }

 private:
  mutable std::unordered_map<Key, std::size_t> positions;
  mutable std::size_t taken = 0;
};

/// All that a file says, in the order in which it says it. Look-ups give the first record of the name,
/// compared bytewise, or null.
class DXF_Document {
 public:
  DXF_Document();

  const DXF_Layer* findLayer(std::string_view name) const;
  const DXF_LType* findLineType(std::string_view name) const;
  /// Names compare after both were turned to capitals.
  const DXF_TextStyle* findTextStyle(std::string_view name) const;
  const DXF_ifaceBlock* findBlock(std::string_view name) const;
  const DXF_ImageDef* findImageDef(std::uint32_t handle) const;

  support::Arena blockMemory;          ///< of what the blocks hold
  support::Arena modelMemory;          ///< of what the model block holds, in its order
  DXF_Names names;                     ///< that entities and table entries point at
  std::unique_ptr<DXF_Header> header;  ///< null until the section closes
  std::vector<std::unique_ptr<DXF_Dimstyle>> dimStyles;
  std::vector<std::unique_ptr<DXF_Layer>> layers;
  std::vector<std::unique_ptr<DXF_LType>> lineTypes;
  std::vector<std::unique_ptr<DXF_TextStyle>> textStyles;
  std::vector<std::unique_ptr<DXF_ifaceBlock>> blocks;
  std::unique_ptr<DXF_ifaceBlock> modelBlock;  ///< holds the ENTITIES section; never null
  std::vector<std::unique_ptr<DXF_MlineStyle>> mlineStyles;
  std::vector<std::unique_ptr<DXF_ImageDef>> imageDefs;

 private:
  DXF_FirstWinsIndex<std::string_view> layerIndex;
  DXF_FirstWinsIndex<std::string_view> lineTypeIndex;
  DXF_FirstWinsIndex<std::string> textStyleIndex;
  DXF_FirstWinsIndex<std::string_view> blockIndex;
  DXF_FirstWinsIndex<std::uint32_t> imageDefIndex;
};

#endif
