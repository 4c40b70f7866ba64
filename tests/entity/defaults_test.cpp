#include <gtest/gtest.h>

#include "entity/hatch.h"
#include "entity/image.h"
#include "entity/insert.h"
#include "entity/path.h"
#include "entity/polylines.h"
#include "entity/shapes.h"
#include "entity/spline.h"
#include "entity/text.h"

namespace {

using namespace Entity_ZR;  // NOLINT: every class of it stands below

void ExpectOrigin(const Point3& point) { EXPECT_EQ(point, (Point3{0, 0, 0})); }

}  // namespace

TEST(Entities, CarryTheCodeOfTheirKind) {
  EXPECT_EQ(ZR_Point().type, 0u);
  EXPECT_EQ(ZR_Line().type, 1u);
  EXPECT_EQ(ZR_Polyline().type, 2u);
  EXPECT_EQ(ZR_LWPolyline().type, 3u);
  EXPECT_EQ(ZR_Spline().type, 4u);
  EXPECT_EQ(ZR_Circle().type, 5u);
  EXPECT_EQ(ZR_Ellipse().type, 6u);
  EXPECT_EQ(ZR_Arc().type, 7u);
  EXPECT_EQ(ZR_Text().type, 8u);
  EXPECT_EQ(ZR_Insert().type, 10u);
  EXPECT_EQ(ZR_Hatch().type, 11u);
  EXPECT_EQ(ZR_Helix().type, 12u);
  EXPECT_EQ(ZR_Solid().type, 14u);
  EXPECT_EQ(ZR_Image().type, 18u);
  EXPECT_EQ(ZR_Entity().type, 21u);
  EXPECT_EQ(ZR_Path().type, 22u);
}

TEST(ZR_Entity, IsVisibleOpaqueBlackOnLayerZero) {
  const ZR_Entity entity;
  EXPECT_EQ(entity.layer, "0");
  EXPECT_EQ(entity.color, 0xFF000000u);
  EXPECT_EQ(entity.lineWidth, 0.0);
  EXPECT_EQ(entity.lineScale, 1.0);
  EXPECT_TRUE(entity.dashes.empty());
  EXPECT_EQ(entity.units, 0);
  EXPECT_EQ(entity.lineCap, 0);
  EXPECT_EQ(entity.lineJoin, 0);
  EXPECT_EQ(entity.miterLimit, 0.0);
  EXPECT_EQ(entity.space, 0);
  EXPECT_EQ(entity.visible, 1);
  EXPECT_EQ(entity.layerOn, 1);
  ExpectOrigin(entity.origin);
  EXPECT_EQ(entity.matrix, Matrix2D{});
  EXPECT_EQ(entity.lineType, "");
  EXPECT_EQ(entity.fillMode, 0u);
  EXPECT_EQ(entity.fillColor, 0xFF000000u);
  EXPECT_EQ(entity.pattern, nullptr);
  EXPECT_TRUE(entity.attributes.empty());
}

TEST(ZR_Entity, IsShownWhenItAndItsLayerAre) {
  ZR_Entity entity;
  EXPECT_TRUE(entity.IsShown());
  entity.visible = 0;
  EXPECT_FALSE(entity.IsShown());
  entity.visible = 1;
  entity.layerOn = 0;
  EXPECT_FALSE(entity.IsShown());
}

TEST(ZR_Entity, DestroysItsPatternWithIt) {
  struct Watched : Pattern {
    explicit Watched(bool& flag) : gone(flag) {}
    ~Watched() override { gone = true; }
    bool& gone;
  };
  bool gone = false;
  {
    ZR_Entity entity;
    entity.pattern = std::make_shared<Watched>(gone);
  }
  EXPECT_TRUE(gone);
}

TEST(Shapes, LieAtTheOriginWithoutExtent) {
  ExpectOrigin(ZR_Point().position);
  ExpectOrigin(ZR_Line().start);
  ExpectOrigin(ZR_Line().end);
  ExpectOrigin(ZR_Circle().center);
  EXPECT_EQ(ZR_Circle().radius, 0.0);
  const ZR_Arc arc;
  ExpectOrigin(arc.center);
  EXPECT_EQ(arc.radius, 0.0);
  EXPECT_EQ(arc.startAngle, 0.0);
  EXPECT_EQ(arc.endAngle, 0.0);
  EXPECT_EQ(arc.reversed, 0);
  const ZR_Ellipse ellipse;
  ExpectOrigin(ellipse.center);
  EXPECT_EQ(ellipse.radiusX, 0.0);
  EXPECT_EQ(ellipse.radiusY, 0.0);
  EXPECT_EQ(ellipse.startAngle, 0.0);
  EXPECT_EQ(ellipse.endAngle, 0.0);
  EXPECT_EQ(ellipse.rotation, 0.0);
  EXPECT_EQ(ellipse.reversed, 0);
}

TEST(Polylines, AreOpenAndEmpty) {
  const ZR_LWPolyline light;
  EXPECT_TRUE(light.vertices.empty());
  EXPECT_EQ(light.vertexCount, 0);
  EXPECT_EQ(light.closed, 0);
  EXPECT_EQ(light.elevation, 0.0);
  EXPECT_EQ(light.thickness, 0.0);
  const ZR_Polyline heavy;
  EXPECT_TRUE(heavy.vertices.empty());
  EXPECT_EQ(heavy.polylineFlags, 0);
}

TEST(ZR_Text, HasNoTextAndAlignmentTen) {
  const ZR_Text text;
  EXPECT_EQ(text.text, "");
  EXPECT_EQ(text.fontName, "");
  EXPECT_EQ(text.height, 0.0);
  EXPECT_EQ(text.widthScale, 1.0);
  EXPECT_EQ(text.spare, 1.0);
  EXPECT_EQ(text.flipY, 0);
  EXPECT_EQ(text.alignment, 10);
  ExpectOrigin(text.position);
}

TEST(ZR_Insert, HasItsOwnScale) {
  const ZR_Insert insert;
  ExpectOrigin(insert.position);
  EXPECT_EQ(insert.blockName, "");
  EXPECT_EQ(insert.scaleX, 1.0);
  EXPECT_EQ(insert.scaleY, 1.0);
  EXPECT_EQ(insert.scaleZ, 1.0);
  EXPECT_EQ(insert.rotation, 0.0);
}

TEST(ZR_Image, HasNoPixels) {
  const ZR_Image image;
  ExpectOrigin(image.position);
  EXPECT_EQ(image.pixels, nullptr);
  EXPECT_EQ(image.width, 0);
  EXPECT_EQ(image.height, 0);
  EXPECT_EQ(image.displayWidth, 0.0);
  EXPECT_EQ(image.displayHeight, 0.0);
}

TEST(ZR_Hatch, HasNoEdges) { EXPECT_TRUE(ZR_Hatch().edges.empty()); }
