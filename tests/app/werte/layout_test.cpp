#include "app/werte/layout.h"

#include <gtest/gtest.h>

#include "tests/support/buehne.h"

#include "platform/form.h"

namespace vantora {
namespace {

TEST(Layout, NoTwoControlsLieInEachOther) {
  Buehne b;
  struct Fenster final : Form {
    using Form::Form;
    Shape aussen{*this, L"aussen"}, mitte{*this, L"mitte"}, innen{*this, L"innen"};
  } fenster(b.platform.loop, L"frmPrueba");
  LayoutLesen(
      L"aussen 0 0 9 9 in=innen\nmitte 0 0 9 9 in=aussen\ninnen 0 0 9 9 in=mitte\n"
      L"innen 0 0 9 9 in=innen\n",
      fenster);
  ASSERT_EQ(fenster.aussen.Container, nullptr);
  EXPECT_EQ(fenster.mitte.Container, &fenster.aussen);
  EXPECT_EQ(fenster.innen.Container, &fenster.mitte);
  EXPECT_TRUE(fenster.innen.InSight());
}

}  // namespace
}  // namespace vantora
