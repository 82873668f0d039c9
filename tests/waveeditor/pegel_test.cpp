#include "waveeditor/pegel.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_loop.h"

namespace vantora {

TEST(Pegel, APeakIsShownAtOnceAndSinksByItselfToNothing) {
  HeadlessClock uhr;
  HeadlessLoop schleife(uhr);
  Form fenster(schleife, L"frmPegel");
  MMLevelX pegel(fenster, L"Level1", Ears::Left);
  schleife.Show(fenster);
  pegel.Zeigen(20000, 100);
  EXPECT_EQ(pegel.PeakLeft, 20000);
  schleife.Pass(100);  // two steps
  EXPECT_EQ(pegel.PeakLeft, 16562);
  pegel.Zeigen(300, 30000);  // softer on the left, louder on the right
  EXPECT_EQ(pegel.PeakLeft, 16562);
  EXPECT_EQ(pegel.PeakRight, 30000);
  EXPECT_TRUE(pegel.Active);
  schleife.Pass(5000);
  EXPECT_FALSE(pegel.Active);
  EXPECT_EQ(pegel.PeakLeft + pegel.PeakRight, 0);
}

}  // namespace vantora
