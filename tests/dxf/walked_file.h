#ifndef DRAWLOAD_TESTS_DXF_WALKED_FILE_H
#define DRAWLOAD_TESTS_DXF_WALKED_FILE_H

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "dxf/dxf_open_file.h"
#include "dxf/tag_text.h"

/// A DXF file with the given bytes, gone with the object.
class WrittenDxf {
 public:
  explicit WrittenDxf(const std::string& bytes) : path(testing::TempDir() + "drawload_walk_XXXXXX") {
    close(mkstemp(path.data()));
    std::ofstream(path, std::ios::binary) << bytes;
  }
  WrittenDxf(const WrittenDxf&) = delete;
  WrittenDxf& operator=(const WrittenDxf&) = delete;
  ~WrittenDxf() { std::remove(path.c_str()); }

  std::string path;
};

/// The store after the walk over a file of these tags, each without a line feed of its own ("0|EOF").
class WalkedFile {
 public:
  explicit WalkedFile(std::string_view tags) {
    const WrittenDxf file(TagText(tags));
    DXF_OpenFile openFile(file.path);
    opened = openFile.run(&iface);
    lastEntityName = openFile.entityName;
  }

  const DXF_Document& Document() const { return *iface.document; }
  const DXF_EntityList& Model() const { return iface.document->modelBlock->entities; }
  std::vector<std::int32_t> Kinds() const {
    std::vector<std::int32_t> kinds;
    for (const auto& entity : Model()) kinds.push_back(entity->kind);
    return kinds;
  }
  /// The record at `i` of the model space, which has to be of this class.
  template <typename Record>
  const Record& At(std::size_t i) const {
    return dynamic_cast<const Record&>(*Model().at(i));
  }

  DXF_Interface iface;
  bool opened = false;
  std::string lastEntityName;
};

#endif
