#include "dxf/dxf_open_file.h"

#include <optional>

#include "support/account.h"
#include "support/file_bytes.h"

DXF_OpenFile::DXF_OpenFile(std::string filePath) : path(std::move(filePath)) {}

DXF_OpenFile::~DXF_OpenFile() = default;

bool DXF_OpenFile::run(DXF_Interface* target) {
  applyExtrusion = true;
  receiver = target;
  if (receiver == nullptr) return false;
  const std::optional<support::FileBytes> bytes = support::FileBytes::ReadDrawing(path);
  if (!bytes) return false;
  LineStream lines(bytes->View());
  reader = std::make_unique<dxfReader>(lines, receiver->document->names);
  try {
    walkFile();
  } catch (const support::BeyondAllowance&) {
    support::AccountItem(support::Account::Current()).CountCut();  // what was read stands
  }
  reader.reset();
  return true;
}

void DXF_OpenFile::walkFile() {
  reader->skipComments = false;
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) continue;
    reader->skipComments = true;
    const std::string name = reader->text();
    if (name == "EOF") return;
    if (name != "SECTION") continue;
    if (!reader->nextGroup(code)) return;
    if (code == 2 && !walkSection(reader->text())) return;
  }
}

/// A section of any other name is passed over: the file loop reads its tags.
bool DXF_OpenFile::walkSection(const std::string& name) {
  if (name == "HEADER") return readItem([&] { return walkHeader(); }, [] { return true; });
  if (name == "TABLES") return walkTables();
  if (name == "BLOCKS") return walkBlocks();
  if (name == "ENTITIES") return walkEntities(false);
  if (name == "OBJECTS") return walkObjects();
  return true;
}

bool DXF_OpenFile::walkHeader() {
  DXF_Header header;
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) {
      header.parseGroup(code, *reader);
      continue;
    }
    if (reader->text() != "ENDSEC") return false;
    receiver->addHeader(std::move(header));
    return true;
  }
  return true;
}

bool DXF_OpenFile::walkBlocks() {
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) continue;
    const std::string name = reader->text();
    if (name == "ENDSEC") return true;
    if (name == "BLOCK") readBlock();
  }
  return true;
}

void DXF_OpenFile::readBlock() {
  DXF_Block block;
  bool isAdded = false;
  support::RunItem([&] {
    if (!readGroups(block, entityName)) return;
    receiver->addBlock(block);
    isAdded = true;
  });
  if (!isAdded) return;
  if (entityName != "ENDBLK") walkEntities(true);
  receiver->endBlock();
}

bool DXF_OpenFile::walkObjects() {
  std::int32_t code = 0;
  if (!reader->nextGroup(code) || code != 0) return false;
  std::string name = reader->text();
  while (name != "ENDSEC") {
    if (!readItem([&] { return readObject(name); }, [&] { return skipObject(name); })) return false;
  }
  return true;
}

bool DXF_OpenFile::readObject(std::string& name) {
  if (name == "IMAGEDEF") return readObjectAs<DXF_ImageDef>(name, &DXF_Interface::addImageDef);
  if (name == "PLOTSETTINGS") return readObjectAs<DXF_PlotSettings>(name, &DXF_Interface::addPlotSettings);
  if (name == "MLINESTYLE") return readObjectAs<DXF_MlineStyle>(name, &DXF_Interface::addMlineStyle);
  return skipObject(name);
}

bool DXF_OpenFile::skipObject(std::string& name) {
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) continue;
    name = reader->text();
    return true;
  }
  return false;
}

template <typename Record, typename Add>
bool DXF_OpenFile::readObjectAs(std::string& name, Add add) {
  Record record;
  if (!readGroups(record, name)) return false;
  (receiver->*add)(std::move(record));
  return true;
}
