#include "dxf/dxf_open_file.h"
#include "support/account.h"

namespace {

template <typename Record>
void Finish(Record&) {}

void Finish(DXF_LType& record) { record.finish(); }

}  // namespace

bool DXF_OpenFile::walkTables() {
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) continue;
    const std::string name = reader->text();
    if (name == "ENDSEC") return true;
    if (name != "TABLE") continue;
    if (!reader->nextGroup(code)) return false;
    // Of a table that the account refuses, the entries so far stand.
    if (code == 2) support::RunItem([&] { walkTable(reader->text()); });
  }
  return true;
}

void DXF_OpenFile::walkTable(const std::string& name) {
  if (name == "LTYPE") readTable("LTYPE", &DXF_Interface::addLType);
  if (name == "LAYER") readTable("LAYER", &DXF_Interface::addLayer);
  if (name == "STYLE") readTable("STYLE", &DXF_Interface::addTextStyle);
  if (name == "VPORT") readTable("VPORT", &DXF_Interface::addVport);
  if (name == "APPID") readTable("APPID", &DXF_Interface::addAppId);
  if (name == "DIMSTYLE") readTable("DIMSTYLE", &DXF_Interface::addDimStyle);
}

template <typename Record>
void DXF_OpenFile::readTable(std::string_view entry, void (DXF_Interface::*add)(const Record&)) {
  Record record;
  bool open = false;
  bool isStored = false;
  std::string_view storedName;
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) {
      if (open) record.parseGroup(code, *reader);
      continue;
    }
    // A look-up finds the first of a name, so one that did not change needs no other copy.
    if (open && !(isStored && record.name == storedName)) {
      Finish(record);
      (receiver->*add)(record);
      isStored = true;
      storedName = record.name;
    }
    const std::string name = reader->text();
    if (name == "ENDTAB") return;
    if (name != entry) continue;  // Kept: an entry that is open stays open and is added once more.
    record = Record();
    open = true;
    isStored = false;
  }
}
