#include "dxf/dxf_rw.h"

void DXF_RW::convertList(Records, PARSE::Context) {}

void DXF_RW::DrawBlock(const std::string&, PARSE::Context) {}
