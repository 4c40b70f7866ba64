#include "dxf/convert.h"

void fillEntity(DXF_Conversion& conversion, const DXF_Image& record, Entity_ZR::ZR_Image& entity) {
  conversion.fillCommon(record, entity);
  if (const DXF_ImageDef* definition = conversion.document.findImageDef(record.imageDefHandle)) {
    const support::Picture& picture = conversion.pictures.Load(*definition);
    entity.pixels = picture.pixels;
    entity.pixelBytes = picture.pixelBytes;
    entity.width = picture.width;
    entity.height = picture.height;
    entity.channels = picture.channels;
    entity.loaded = definition->loaded != 0 ? 1 : 0;
    entity.resolutionUnits = definition->units;
  }
  entity.position = record.point;
  entity.uVector = record.uVector();
  entity.vVector = record.vVector;
  entity.displayWidth = record.sizeU;
  entity.displayHeight = record.sizeV;
}
