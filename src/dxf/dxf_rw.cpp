#include "dxf/dxf_rw.h"

#include "dxf/dxf_open_file.h"

DXF_RW::DXF_RW() = default;

DXF_RW::~DXF_RW() { DXF_RW::ResetReader(); }

bool DXF_RW::Read(const std::string& filePath, PARSE::Context context) {
  ResetReader();
  sink->BeginRead(0);
  sink->BeginFile(context);
  iface = std::make_unique<DXF_Interface>();
  iface->path = filePath;
  iface->readOk = DXF_OpenFile(filePath).run(iface.get());
  if (!iface->readOk) {
    sink->EndFile(context);
    return false;
  }
  sourcePath = filePath;
  const DXF_Header* header = iface->document->header.get();
  if (header != nullptr) header->textVariable("$ACADVER", acadVersion);
  convertModel(context);
  sink->EndFile(context);
  std::int32_t units = 0;
  if (header != nullptr) header->intVariable("$INSUNITS", units);
  sink->EndRead(reinterpret_cast<PARSE::Context>(&units));
  iface.reset();
  return true;
}

void DXF_RW::ResetReader() {
  iface.reset();
  sourcePath.clear();
  acadVersion.clear();
  ownedEntities.clear();
}
