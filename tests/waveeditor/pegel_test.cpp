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
  for (int ms = 0, vorher = pegel.PeakLeft; ms < 5000; ms += 50) {
    EXPECT_EQ(pegel.Active(), pegel.PeakLeft + pegel.PeakRight > 0);
    schleife.Pass(50);
    EXPECT_LE(pegel.PeakLeft, std::exchange(vorher, pegel.PeakLeft));
  }
  EXPECT_FALSE(pegel.Active);
  pegel.Zeigen(5, 0);  // shown again, but too soft to stay
  schleife.Pass(50);
  EXPECT_EQ(pegel.PeakLeft, 0);
}

}  // namespace vantora
