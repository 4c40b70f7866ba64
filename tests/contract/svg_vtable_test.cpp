#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include "contract/table_length.h"
#include "contract/vtable_slot.h"
#include "svg/path_data.h"
#include "svg/svg_interface.h"
#include "svg/svg_rw.h"

TEST(VtableOfSvgElement, HoldsADestructorAndFourOperationsInOrder) {
  using Svg::SVG_Element;
  ExpectInOrderBehindTheDestructor(
      {VtableSlot(&SVG_Element::ReadAttributes), VtableSlot(&SVG_Element::AppendText),
       VtableSlot(&SVG_Element::AppendTail), VtableSlot(&SVG_Element::ParseStyleSheet)});
  EXPECT_TRUE(std::has_virtual_destructor_v<SVG_Element>);
  EXPECT_EQ(TableLength<SVG_Element>(), kBehindDestructor + 4);
}

TEST(VtableOfSvgInterface, HoldsADestructorAndTwoOperationsInOrder) {
  using Svg::SVG_Interface;
  ExpectInOrderBehindTheDestructor(
      {VtableSlot(&SVG_Interface::AddElement), VtableSlot(&SVG_Interface::AddStyleRule)});
  EXPECT_TRUE(std::has_virtual_destructor_v<SVG_Interface>);
  struct Probe : SVG_Interface {
    using SVG_Interface::SVG_Interface;
    virtual void Behind() {}
  };
  EXPECT_EQ(VtableSlot(&Probe::Behind), kBehindDestructor + 2);
}

TEST(VtableOfSvgPath, HoldsADestructorAlone) {
  EXPECT_TRUE(std::has_virtual_destructor_v<Svg::Path>);
  EXPECT_EQ(TableLength<Svg::Path>(), kBehindDestructor);
}

TEST(VtableOfTheSvgReader, HoldsItsOneOperationBehindTheSharedTable) {
  EXPECT_EQ(VtableSlot(&SVG_RW::ResetReader), TableLength<PARSE::DrawLoader>());
  EXPECT_EQ(TableLength<SVG_RW>(), TableLength<PARSE::DrawLoader>() + 1);
}
