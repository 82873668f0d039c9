#include "backends/qt/windows/fit.h"

#include "backends/qt/desktop/qt_display.h"
#include "tests/qt/stage.h"

#include <QScreen>
#include <QTreeView>

namespace vantora {
namespace {

QPoint MiddleOfFrame(const QWidget& window) {
  return MiddleOf(window.frameGeometry());
}

TEST(Screen, HasItsOwnPixelsWhateverItsScale) {
  const struct {
    int Divided;
    double Scale;
    int Pixels;
  } cases[] = {{1920, 1, 1920},    {683, 1.5, 1024},   {400, 1.5, 600},
               {853, 1.5, 1280},   {911, 1.5, 1366},   {683, 2, 1366},
               {1097, 1.75, 1920}, {1536, 1.25, 1920}, {1280, 3, 3840}};
  for (const auto& each : cases) {
    EXPECT_EQ(ScreenPixels(each.Divided, each.Scale), each.Pixels) << each.Divided;
  }
  // The test screen has 800 pixels per side, also when the tests run at another scale.
  QtDisplay display;
  EXPECT_EQ(display.Width(), 800 * 15);
  EXPECT_EQ(display.Height(), 800 * 15);
  EXPECT_EQ(display.Scale(), QGuiApplication::primaryScreen()->devicePixelRatio());
}

TEST_F(Stage, AWindowLargerThanTheScreenIsScaledIntoItAndWorksThere) {
  QtDisplay small(480, 320);
  loop.Stage = &small;
  FullForm form(loop);  // 600 by 500 pixels
  form.shpMark.Width = 15;
  int x = -1;
  form.picWave.MouseUp = [&](int) { x = form.picWave.MouseX; };
  const QWidget* window = nullptr;
  person
      .Then([&] {
        window = loop.WindowOf(form);
        EXPECT_TRUE(QRect(0, 0, 480, 320).contains(window->frameGeometry()));
        EXPECT_GT(window->height(), 290) << "no smaller than it has to be";
        EXPECT_GE(loop.WidgetOf(form.shpMark)->width(), 1) << "a line does not vanish";
        hands.Press(form.imgButton);
      })
      .Then([&] { hands.PressAt(form.picWave, 1000); })
      .Then([&] {
        EXPECT_EQ(form.Count("button 1"), 1);
        EXPECT_NEAR(x, form.picWave.Width, 45) << "twips of the form, not of the screen";
        small = QtDisplay(800, 600);
        form.Window.MarkDirty();
      })
      .Then([&] { EXPECT_EQ(window->size(), QSize(600, 500)) << "the screen has grown"; });
  Play(form);
}

TEST_F(Stage, ADialogStandsOverTheMiddleOfItsOwnerAndItsTitleIsOnTheScreen) {
  QtDisplay screen(1000, 800);
  loop.Stage = &screen;
  TestForm owner(loop, L"frmOwner"), dialog(loop, L"frmDialog"), huge(loop, L"frmHuge");
  Place(owner.Window, 4500, 1500, 6000, 4500);
  Place(dialog.Window, 0, 0, 3000, 1500);
  Place(huge.Window, 0, 0, 30'000, 30'000);
  person.Then([&] { loop.Post([&] { loop.ShowModal(dialog); }); })
      .Then([&] {
        const QPoint off =
            MiddleOfFrame(*loop.WindowOf(dialog)) - MiddleOfFrame(*loop.WindowOf(owner));
        EXPECT_LE(off.manhattanLength(), 2);
        EXPECT_GT(loop.WindowOf(owner)->x(), 200) << "it is where the form has put it";
        loop.Post([&] { loop.ShowModal(huge); });
      })
      .Then([&] {
        EXPECT_EQ(loop.WindowOf(huge)->width(), 1200) << "never below 0.6";
        EXPECT_EQ(loop.WindowOf(huge)->frameGeometry().topLeft(), QPoint(0, 0));
        loop.Hide(huge);
      })
      .Then([&] {
        loop.Hide(dialog);
        loop.WindowOf(owner)->move(-200, 700);  // as if the user had moved it
      })
      .Then([&] { owner.Caption = L"Otro"; })
      .Then(
          [&] { EXPECT_LT(loop.WindowOf(owner)->x(), -190) << "it stays where it was moved to"; });
  Play(owner);
}

TEST_F(Stage, ADialogLeavesTheRowFreeThatItIsAbout) {
  QtDisplay screen(800, 800);
  loop.Stage = &screen;
  FullForm form(loop);  // 600 by 500 pixels, in the middle of the screen
  Place(form.lvwTracks, 0, 0, 9000, 7500);
  while (form.lvwTracks.ListItems.Count() < 20) form.lvwTracks.ListItems.Add();
  TestForm dialog(loop, L"frmDialog");
  Place(dialog.Window, 0, 0, 4500, 4500);
  dialog.KeepClear = &form.lvwTracks;
  for (const int row : {4, 12, 20}) {
    person
        .Then([&, row] {
          for (int i = 1; i <= 20; ++i) form.lvwTracks.ListItems(i).SetSelected(i == row);
          loop.Post([&] { loop.ShowModal(dialog); });
        })
        .Then([&, row] {
          const auto* table = qobject_cast<const QTreeView*>(loop.WidgetOf(form.lvwTracks));
          QRect line = table->visualRect(table->model()->index(row - 1, 1));
          line.moveTopLeft(table->viewport()->mapToGlobal(line.topLeft()));
          const QRect frame = loop.WindowOf(dialog)->frameGeometry();
          EXPECT_FALSE(frame.intersects(line)) << row;
          EXPECT_TRUE(QRect(0, 0, 800, 800).contains(frame)) << row;
          loop.Hide(dialog);
        });
  }
  Play(form);
}

}  // namespace
}  // namespace vantora
