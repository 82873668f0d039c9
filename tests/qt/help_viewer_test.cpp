// The help viewer with the program's own pages.
#include "backends/qt/help/help_viewer.h"

#include "backends/qt/help/help_pages.h"
#include "tests/qt/stage.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>

namespace vantora {

namespace {

namespace fs = std::filesystem;

const fs::path kHelp = fs::path(VANTORA_SOURCE_DIR) / "resources/help";

HelpWords Words() {
  return {L"Ayuda",  L"Atrás",  L"Adelante", L"Inicio", L"Cerrar",
          L"Buscar", L"Buscar", L"Páginas",  L"Página", L"Nada"};
}

struct Viewer : Stage {
  std::vector<Text> links;
  HelpViewer help{kHelp, Words, [this](const Text& address) { links.push_back(address); }};

  void Open(const char* page) {
    help.Show(page);
    QApplication::processEvents();
  }
  template <typename Part>
  Part& The() {
    return *help.Window()->findChild<Part*>();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QWidget* focus = help.Window()->focusWidget();
    QTest::keyClick(focus == nullptr ? help.Window() : focus, key, held);
  }
  QStringList Listed() {
    QStringList titles;
    for (int row = 0; row < The<QListWidget>().count(); ++row) {
      titles += The<QListWidget>().item(row)->text();
    }
    return titles;
  }
};

}  // namespace

TEST_F(Viewer, PagesAreReachedByNameByLinkAndByTheKeysOfTheHistory) {
  Open("frmCDBrennen.html");
  EXPECT_EQ(help.VisiblePage(), L"frmCDBrennen");
  The<QTextBrowser>().setSource(QUrl("frmMedley.html#x"));
  EXPECT_EQ(help.VisiblePage(), L"frmMedley");
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(help.VisiblePage(), L"frmCDBrennen");
  Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(help.VisiblePage(), L"frmMedley");
  The<QTextBrowser>().setSource(QUrl("https://example.org/"));
  EXPECT_EQ(links, (std::vector<Text>{L"https://example.org/"}));
  EXPECT_EQ(help.VisiblePage(), L"frmMedley");
  Open("frmUnknown.html");
  EXPECT_NE(The<QTextBrowser>().toPlainText().indexOf("Ayuda de Vantora"), -1);
  Key(Qt::Key_Escape);
  EXPECT_EQ(help.VisiblePage(), L"");
}

TEST_F(Viewer, WordsAreFoundOnAllPagesWithoutRegardToAccentsAndMarkedOnTheChosenOne) {
  Open("index.html");
  const qsizetype all = Listed().size();
  Key(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(&The<QLineEdit>(), "GRABAR simulacion");
  EXPECT_LT(Listed().size(), all);
  EXPECT_EQ(Listed().value(0), "Grabar el CD");
  Key(Qt::Key_Return);
  EXPECT_EQ(help.VisiblePage(), L"frmCDBrennen");
  const auto marks = The<QTextBrowser>().extraSelections();
  ASSERT_FALSE(marks.isEmpty());
  for (const auto& mark : marks) {
    const QString marked = HelpPages::Fold(mark.cursor.selectedText());
    EXPECT_TRUE(marked == "grabar" || marked == "simulacion") << marked.toStdString();
  }
  The<QLineEdit>().setText("xyzzy");
  EXPECT_EQ(Listed().size(), 0);
  The<QLineEdit>().clear();
  EXPECT_EQ(Listed().size(), all);
}

TEST_F(Viewer, EveryPageOfTheFolderIsInTheNavigationAndShowsItsPictures) {
  const HelpPages pages(kHelp);
  for (const auto& file : fs::directory_iterator(kHelp)) {
    if (file.path().extension() != ".html") continue;
    const QString name = QString::fromStdString(file.path().stem().string());
    EXPECT_TRUE(pages.Has(name)) << name.toStdString();
    const QString html = pages.RichText(name, 500);
    EXPECT_EQ(html.count("<section"), 0);
    EXPECT_EQ(html.count("width=\"-1\""), 0) << "a picture is missing on " << name.toStdString();
    EXPECT_EQ(html.count("<img"), html.count("class=\"pie\"")) << name.toStdString();
  }
}

// The help may be opened for a dialog, and a dialog may open while the help is read.
TEST_F(Viewer, TheHelpStaysUsableBesideDialogs) {
  TestForm main(loop, L"main"), dialog(loop, L"dialog");
  Open("index.html");
  person.Then([&] { loop.Post([&] { loop.ShowModal(dialog); }); });
  person.Then([&] {
    QApplication::processEvents();
    The<QLineEdit>().setFocus();
    for (const char letter : {'m', 'p', '3'}) {
      QTest::keyClick(help.Window()->windowHandle(), letter);  // as from the window system
    }
    EXPECT_EQ(The<QLineEdit>().text(), "mp3");
    loop.Hide(dialog);
  });
  Play(main);
  EXPECT_EQ(help.VisiblePage(), L"index");
}

}  // namespace vantora
