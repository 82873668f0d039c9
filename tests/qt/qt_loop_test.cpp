#include "backends/forms/focus.h"
#include "backends/qt/look/look.h"
#include "tests/qt/stage.h"

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QHelpEvent>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>
#include <QTreeView>

#include <chrono>
#include <thread>

namespace vantora {
namespace {

QWidget* Find(const char* name) {
  const QWidgetList all = QApplication::allWidgets();
  const auto found = std::find_if(all.begin(), all.end(), [&](const QWidget* widget) {
    return widget->objectName() == QLatin1String(name);
  });
  return found == all.end() ? nullptr : *found;
}

TEST_F(Stage, AClickOnADisabledWindowReachesNoHandlerNotEvenThatOfALabel) {
  FullForm form(loop);
  int clicks = 0;
  form.lblTitle.Click = [&clicks] { ++clicks; };
  for (const bool enabled : {false, true}) {
    person.Then([&, enabled] {
      form.Window.Enabled = enabled;
      loop.DoEvents();
      for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        Mouse(*loop.WidgetOf(form.lblTitle), type, {2, 2}, Qt::LeftButton);
      }
    });
    person.Then([&, enabled] { EXPECT_EQ(clicks, enabled ? 1 : 0); });
  }
  Play(form);
}

TEST_F(Stage, ALongListIsFollowedLineByLineAndNeverScrollsSideways) {
  FullForm form(loop);
  while (form.lstMany.ListCount() < 40) form.lstMany.AddItem(Text(200, L'm'));
  int scrolled = 0;
  form.lstMany.Scroll = [&] { ++scrolled; };
  QListWidget* list = nullptr;
  person.Then([&] {
    list = qobject_cast<QListWidget*>(Find("lstMany"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(list->visualItemRect(list->item(0)).height(), kListLine / 15);
    form.lstMany.ListIndex = 30;
  });
  person.Then([&] {
    EXPECT_EQ(list->row(list->itemAt(3, 3)), form.lstMany.TopIndex());
    EXPECT_GT(form.lstMany.TopIndex(), 20);
    EXPECT_EQ(scrolled, 0) << "the program has moved it, and not the user";
    list->verticalScrollBar()->setValue(5);
    EXPECT_EQ(form.lstMany.TopIndex(), 5);
    EXPECT_EQ(scrolled, 1);
    form.lstMany.TopIndex = 12;
  });
  person.Then([&] { EXPECT_EQ(list->row(list->itemAt(3, 3)), 12); });
  Play(form);
}

// The control's pixels in the colour of the focus.
int AmberOf(const QtEventLoop& loop, const Control& control) {
  QWidget* widget = loop.WidgetOf(control);
  const QImage seen = loop.WindowOf(control.Owner())->grab().toImage();
  const QRect place(widget->mapTo(widget->window(), QPoint()), widget->size());
  int amber = 0;
  for (int y = std::max(0, place.top()); y <= std::min(place.bottom(), seen.height() - 1); ++y) {
    for (int x = std::max(0, place.left()); x <= std::min(place.right(), seen.width() - 1); ++x) {
      const QColor c = seen.pixelColor(x, y);
      amber += c.red() > 200 && c.green() > 130 && c.blue() < 110 ? 1 : 0;
    }
  }
  return amber;
}

TEST_F(Stage, EveryControlThatHasTheFocusHasARing) {
  FullForm form(loop);
  form.lblTitle.TabStop = true;
  form.shpMark.Visible = false;  // covers a picture
  form.picWave.KeyDown = form.picWide.KeyDown = [](int) {};
  for (Control* control : form.Controls) {
    if (!TakesFocus(*control)) continue;
    person.Then([&, control] {
      loop.SetFocus(control == &form.txtName ? form.txtNumber : form.txtName);
      loop.DoEvents();
      const int without = AmberOf(loop, *control);
      loop.SetFocus(*control);
      loop.DoEvents();
      EXPECT_EQ(loop.Focus(form), control);
      const QSize seen = loop.WidgetOf(*control)->visibleRegion().boundingRect().size();
      EXPECT_GT(AmberOf(loop, *control) - without, std::min(seen.width(), seen.height()))
          << look::FromText(control->Name).toStdString();
    });
  }
  Play(form);
}

TEST_F(Stage, ATextThatDoesNotFitIsAHintAndTheWidestColumnHasTheRest) {
  FullForm form(loop);
  const Text path = L"C:\\Música\\Una carpeta de nombre largo\\Otra carpeta más\\Azul oscuro.wav";
  form.lvwTracks.ListItems(1).SetSubItems(1, path);
  person.Then([&] {
    auto* table = qobject_cast<QTreeView*>(loop.WidgetOf(form.lvwTracks));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columnWidth(0) + table->columnWidth(1), table->viewport()->width());
    EXPECT_EQ(table->columnWidth(0), 40);
    for (const auto& [row, hint] : {std::pair(1, QString()), std::pair(0, look::FromText(path))}) {
      const QPoint place = table->visualRect(table->model()->index(row, 1)).center();
      QHelpEvent asked(QEvent::ToolTip, place, table->viewport()->mapToGlobal(place));
      QApplication::sendEvent(table->viewport(), &asked);
      EXPECT_EQ(QToolTip::text(), hint);
    }
  });
  Play(form);
}

TEST_F(Stage, AMenuNamesItsKeysAndAnUnderlinedLetterChooses) {
  FullForm form(loop);
  form.Menus = {{L"mnuList",
                 {{L"mnuPlay", L"Reproducir", form.Note("play"), true, L"Espacio"},
                  {L"-", L"-", nullptr},
                  {L"mnuRock", L"R&ock & Jazz", form.Note("rock")},
                  {L"mnuRaise", L"Subir", form.Note("raise")},
                  {L"mnuDrop", L"Suprimir", form.Note("drop")}}}};
  person.Then([&] { loop.PopupMenu(form, form.Menus[0]); })
      .Then([&] {
        QStringList words;
        for (const QAction* action : loop.OpenMenu()->actions()) words << action->text();
        EXPECT_EQ(words, (QStringList{"&Reproducir\tEspacio", "", "R&ock && Jazz", "&Subir",
                                      "S&uprimir"}));
        hands.Key(form, L"u");
      })
      .Then([&] { EXPECT_EQ(form.Count("drop"), 1); });
  Play(form);
}

TEST_F(Stage, AModalWindowKeepsAChoiceInAMenuOutAndWindowsMayStandInACircle) {
  FullForm form(loop), box(loop), dialog(loop);
  form.Menus = {{L"mnuList", {{L"mnuPlay", L"Reproducir", form.Note("play")}}}};
  const auto show = [this](Form& modal) {
    return [this, &modal] { loop.Post([this, &modal] { loop.ShowModal(modal); }); };
  };
  person.Then([&] { loop.PopupMenu(form, form.Menus[0]); })
      .Then([&] {
        show(dialog)();
        loop.OpenMenu()->actions().front()->trigger();
      })
      .Then([&] { EXPECT_EQ(loop.OpenMenu(), nullptr); })
      .Then(show(box))
      .Then(show(dialog))
      .Then(show(dialog))
      .Then([&] { loop.Hide(dialog); })
      .Then([&] { loop.Hide(box); });
  Play(form);
  EXPECT_EQ(form.Count("play"), 0);
}

TEST_F(Stage, ACaptionGoesDimWithItsButton) {
  FullForm form(loop);
  form.lblTitle.Of = &form.imgButton;
  for (const bool enabled : {true, false, true}) {
    person.Then([&, enabled] { form.imgButton.Enabled = enabled; }).Then([&, enabled] {
      EXPECT_EQ(Find("lblTitle")->isEnabled(), enabled);
    });
  }
  Play(form);
}

TEST_F(Stage, WorkFromThreadsRunsInOrderOnTheInterfaceThread) {
  constexpr int kWorks = 500;
  TestForm form(loop);
  const auto self = std::this_thread::get_id();
  std::vector<int> seen;
  bool elsewhere = false;
  std::thread thread([&] {
    for (int i = 0; i < kWorks; ++i) {
      loop.Post([&, i] {
        elsewhere = elsewhere || std::this_thread::get_id() != self;
        seen.push_back(i);
        if (seen.size() == kWorks) loop.Quit();
      });
      if (i % 100 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  });
  loop.TheUser = nullptr;  // without a user, the loop sleeps between two posts
  loop.Show(form);
  loop.Run();
  thread.join();
  EXPECT_FALSE(elsewhere);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST_F(Stage, AWindowThatAlwaysChangesIsPaintedAsAScreenShowsAndItsWordsAsTheyCanBeRead) {
  using Clock = std::chrono::steady_clock;
  FullForm form(loop);
  loop.Show(form);
  loop.DoEvents();
  for (const bool words : {false, true}) {
    const auto before = loop.Paints();
    const auto start = Clock::now();
    double ms = 0;
    for (int i = 0; ms < (words ? 600 : 80); ++i) {
      if (words) form.lblTitle.Caption = std::to_wstring(i);
      if (!words) form.sldPan.Value = i % 100;
      loop.DoEvents();
      ms = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }
    EXPECT_GE(loop.Paints() - before, words ? 2 : 3);
    EXPECT_LE(static_cast<double>(loop.Paints() - before), words ? ms / 250 + 3 : ms / 10 + 2);
  }
  const auto before = loop.Paints();
  form.lblTitle.Caption = L"last";
  const auto end = Clock::now() + std::chrono::seconds(5);
  while (loop.Paints() == before && Clock::now() < end) loop.DoEvents();
  EXPECT_GT(loop.Paints(), before);
  EXPECT_EQ(Find("lblTitle")->accessibleName(), "last");
}

TEST_F(Stage, WordsThatAreHiddenBeforeTheirPaintKeepNoTimer) {
  FullForm form(loop);
  loop.Show(form);
  const auto timers = [] {
    return QAbstractEventDispatcher::instance()->registeredTimers(Find("lblTitle")).size();
  };
  for (const wchar_t* words : {L"one", L"two"}) {
    form.lblTitle.Caption = words;
    loop.DoEvents();
  }
  ASSERT_EQ(timers(), 1) << "the second words wait";
  form.lblTitle.Visible = false;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (timers() > 0 && std::chrono::steady_clock::now() < end) loop.DoEvents();
  EXPECT_EQ(timers(), 0);
}

TEST_F(Stage, OnlyWhatLooksDifferentIsPaintedAndADrawingAtOnce) {
  FullForm form(loop);
  loop.Show(form);
  const auto paint = [&] {
    const auto before = loop.Paints();
    loop.DoEvents();
    return loop.Paints() - before;
  };
  while (paint() > 0) continue;
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  form.Window.Enabled = false;
  EXPECT_EQ(paint(), 0) << "nothing looks different";
  form.Window.Enabled = true;
  EXPECT_EQ(paint(), 0);
  form.lblTitle.Caption = L"one";
  EXPECT_EQ(paint(), 1);
  form.lblTitle.Caption = L"two";
  EXPECT_EQ(paint(), 0) << "words can wait";
  DrawItem line;
  line.Points = {0, 0, 300, 300};
  form.picWave.Draw(line);
  EXPECT_EQ(paint(), 1);
}

TEST_F(Stage, AWindowThatFillsTheScreenStillDoesWhenItComesBack) {
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  TestForm form(loop);
  Place(form.Window, 0, 0, screen.width() * 15, screen.height() * 15);
  form.HasBorder = false;
  form.FillsScreen = true;
  const auto look = [&] {
    const QWidget* window = Find("frmTest");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isFullScreen());
    EXPECT_EQ(window->geometry(), screen);
  };
  person.Then(look)
      .Then([&] { loop.Minimize(form); })
      .Then([&] { loop.Show(form); })
      .Then(look)
      .Then([&] { form.Window.Width = 6000; })
      .Then([&] { EXPECT_FALSE(Find("frmTest")->isFullScreen()); });
  Play(form);
}

// First no mouse button is pressed. Then a button is pressed while the window takes no input.
TEST_F(Stage, APictureHearsOfTheMouseAboveItAndOfNoButtonThatWasNotPressedOnIt) {
  FullForm form(loop);
  std::string said;
  form.picWave.MouseMove = [&](int button) {
    said += std::to_string(button) + "@" + std::to_string(form.picWave.MouseX) + "," +
            std::to_string(form.picWave.MouseY) + " ";
  };
  const auto send = [](QEvent::Type type, QPointF place, Qt::MouseButtons held) {
    QWidget* picture = Find("picWave");
    ASSERT_NE(picture, nullptr);
    EXPECT_TRUE(picture->hasMouseTracking());
    Mouse(*picture, type, place, held);
  };
  person.Then([&] {
    send(QEvent::MouseMove, {10, 4}, Qt::NoButton);
    form.Window.Enabled = false;
    send(QEvent::MouseButtonPress, {10, 4}, Qt::LeftButton);
    form.Window.Enabled = true;
    send(QEvent::MouseMove, {11, 4}, Qt::LeftButton);
    send(QEvent::MouseButtonPress, {11, 4}, Qt::LeftButton);
    send(QEvent::MouseMove, {-2, 300}, Qt::LeftButton);
    EXPECT_EQ(said, "0@150,60 0@165,60 1@-30,4500 ");
  });
  Play(form);
}

TEST_F(Stage, AScreenReaderMovesAFaderAndReadsALevelAsAShareOfItsBar) {
  FullForm form(loop);
  form.Level.Active = true;
  form.Level.PeakLeft = 1037;  // 30 of the 60 decibels
  form.Level.Shown = Ears::Left;
  person.Then([&] {
    const auto read = [&](const Control& control) {
      return QAccessible::queryAccessibleInterface(loop.WidgetOf(control));
    };
    read(form.knob)->valueInterface()->setCurrentValue(60);
    EXPECT_EQ(form.knob.Value, 60);
    EXPECT_EQ(read(form.Level)->text(QAccessible::Value), "50 %");
  });
  Play(form);
}

}  // namespace
}  // namespace vantora
