#include "drawload/file_draw.h"

CFileDraw::CFileDraw()
    : rect{0.0, 0.0, 100.0, 100.0},
      kind(kFileCurve),
      paddingAfterKind(0),
      color(0),
      flag0(0),
      paddingAfterFlag0(0),
      cutMode(1),
      cutSpeed(100.0),
      cutPower(30.0),
      highFocus(0.0),
      reservedInt1(1),
      paddingAfterReservedInt1(0),
      reservedFloat1(30.0),
      frequency(0.0),
      reservedFloat2(0.0),
      reservedFloat3(0.0),
      reservedInt2(0),
      paddingAfterReservedInt2(0),
      reservedFloat4(50.0),
      reservedShort1(0),
      paddingAfterReservedShort1(0),
      processType(0),
      engraveSpeed(300.0),
      EngMaxP(30.0),
      engStep(0.08),
      reservedFloat5(0.0),
      highFocus2(0.0),
      imageType(0),
      paddingAfterImageType{},
      EngMinP(10.0),
      reservedInt3(0),
      Reverse(0),
      reservedShort2(0),
      machineType(0),
      paddingAfterMachineType(0),
      diameter(50.0) {}

CFileDraw::CFileDraw(const CFileDraw& other) = default;
CFileDraw& CFileDraw::operator=(const CFileDraw& other) = default;

void CFileDraw::TransMove(double, double) {}
void CFileDraw::TransRotate(double, double, double) {}
void CFileDraw::TransMirrorX(double) {}
void CFileDraw::TransMirrorY(double) {}
void CFileDraw::TransDrag(double, double, double, double) {}
