#include "waveeditor/pegel.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_loop.h"

#include "platform/event_loop.h"

namespace vantora {

TEST(Pegel, APeakIsShownAtOnceAndSinksByItselfToNothing) {
  HeadlessClock uhr;
  HeadlessLoop schleife(uhr);
  class Fenster final : public Form {
   public:
    explicit Fenster(EventLoop& loop) : Form(loop, L"frmPegel") {}
    MMLevelX Level1{*this, L"Level1", Ears::Left};
  } fenster(schleife);
  MMLevelX& pegel = fenster.Level1;
  schleife.Show(fenster);
  pegel.Zeigen(20000, 100);
  EXPECT_EQ(pegel.PeakLeft, 20000);
  schleife.Pass(100);  // two steps
  EXPECT_EQ(pegel.PeakLeft, 16562);
  pegel.Zeigen(300, 30000);  // softer on the left, louder on the right
  EXPECT_EQ(pegel.PeakLeft, 16562);
  EXPECT_EQ(pegel.PeakRight, 30000);
  EXPECT_TRUE(pegel.Active);
  int vorher = pegel.PeakLeft;
  for (int ms = 0; pegel.Active && ms < 5000; ms += 50) {
    schleife.Pass(50);
    EXPECT_LE(pegel.PeakLeft, vorher);
    vorher = pegel.PeakLeft;
  }
  EXPECT_FALSE(pegel.Active);
  EXPECT_EQ(pegel.PeakLeft, 0);
  EXPECT_EQ(pegel.PeakRight, 0);
  schleife.Pass(500);
  pegel.Zeigen(5, 0);  // shown again, but too soft to stay
  schleife.Pass(50);
  EXPECT_EQ(pegel.PeakLeft, 0);
}

}  // namespace vantora
