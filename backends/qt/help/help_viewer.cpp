#include "backends/qt/help/help_viewer.h"

#include "backends/qt/help/help_browser.h"
#include "backends/qt/look/look.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

namespace vantora {

namespace {

constexpr int kWidth = 1000, kHeight = 720;  // where the screen has room
constexpr int kSideWidth = 230;
constexpr int kGap = 8, kRowGap = 2;
constexpr int kPoints = 10;

}  // namespace

class HelpViewer::Frame final : public QWidget {
 public:
  Frame(const std::filesystem::path& folder, const HelpWords& words,
        const std::function<void(const Text&)>& openLink);

  void Open(const QString& page);
  void ForgetSearch() { search_->clear(); }
  QString VisiblePage() const { return isVisible() ? browser_->PageName() : QString(); }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QPushButton* Button(QBoxLayout& row, const Text& words, const std::function<void()>& action);
  void Key(const QKeySequence& keys, const std::function<void()>& action);
  void Build(const HelpWords& words);
  void BuildKeys();
  void List(const QVector<HelpPage>& pages);
  void Search(const QString& words);
  void ShowListed(const QListWidgetItem* item);
  void PageChanged();

  HelpPages pages_;
  HelpBrowser* browser_;
  QLineEdit* search_;
  QListWidget* list_;
  QLabel* nothing_;
  QPushButton *back_ = nullptr, *forward_ = nullptr;
};

HelpViewer::Frame::Frame(const std::filesystem::path& folder, const HelpWords& words,
                         const std::function<void(const Text&)>& openLink)
    : pages_(folder),
      browser_(new HelpBrowser(pages_, folder, this)),
      search_(new QLineEdit(this)),
      list_(new QListWidget(this)),
      nothing_(new QLabel(look::FromText(words.Nothing), this)) {
  setObjectName(QStringLiteral("HelpViewer"));
  setWindowTitle(look::FromText(words.Title));
  setFont(look::FontOf(kPoints, false));
  browser_->OpenLink = [openLink](const QString& address) { openLink(look::ToText(address)); };
  Build(words);
  BuildKeys();
  List(pages_.All());
  const QSize room = screen()->availableSize() - QSize(2 * kGap, 5 * kGap);
  resize(QSize(kWidth, kHeight).boundedTo(room));
}

QPushButton* HelpViewer::Frame::Button(QBoxLayout& row, const Text& words,
                                       const std::function<void()>& action) {
  auto* button = new QPushButton(look::FromText(words), this);
  button->setAutoDefault(true);  // Return presses it, as in the other windows
  connect(button, &QPushButton::clicked, this, action);
  row.addWidget(button);
  return button;
}

void HelpViewer::Frame::Build(const HelpWords& words) {
  auto* all = new QHBoxLayout(this);
  all->setContentsMargins(kGap, kGap, kGap, kGap);
  all->setSpacing(kGap);
  auto *side = new QVBoxLayout, *main = new QVBoxLayout;
  auto* buttons = new QHBoxLayout;
  side->setSpacing(kGap);
  side->addWidget(search_);
  side->addWidget(nothing_);
  side->addWidget(list_);
  all->addLayout(side);
  main->setSpacing(kGap);
  main->addLayout(buttons);
  main->addWidget(browser_);
  all->addLayout(main, 1);
  for (QWidget* narrow : {static_cast<QWidget*>(search_), static_cast<QWidget*>(list_)}) {
    narrow->setFixedWidth(kSideWidth);
  }
  back_ = Button(*buttons, words.Back, [this] { browser_->backward(); });
  forward_ = Button(*buttons, words.Forward, [this] { browser_->forward(); });
  Button(*buttons, words.Home, [this] { Open(QStringLiteral("index")); });
  buttons->addStretch();
  Button(*buttons, words.Close, [this] { hide(); });

  search_->setAccessibleName(look::FromText(words.Search));
  search_->setPlaceholderText(look::FromText(words.SearchTip));
  search_->setToolTip(look::FromText(words.SearchTip));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  list_->setAccessibleName(look::FromText(words.Pages));
  browser_->setAccessibleName(look::FromText(words.Page));
  list_->setSpacing(kRowGap);
  nothing_->setWordWrap(true);
  nothing_->hide();
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { Search(text); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { ShowListed(list_->item(0)); });
  connect(list_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { ShowListed(item); });
  connect(list_, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { ShowListed(item); });
  connect(browser_, &QTextBrowser::historyChanged, this, [this] { PageChanged(); });
}

void HelpViewer::Frame::Key(const QKeySequence& keys, const std::function<void()>& action) {
  connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
}

void HelpViewer::Frame::BuildKeys() {
  Key(Qt::Key_Escape, [this] { hide(); });
  Key(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { browser_->backward(); });
  Key(QKeySequence(Qt::ALT | Qt::Key_Right), [this] { browser_->forward(); });
  Key(QKeySequence(Qt::ALT | Qt::Key_Home), [this] { Open(QStringLiteral("index")); });
  Key(QKeySequence(Qt::CTRL | Qt::Key_F), [this] {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
  });
  Key(Qt::Key_F3, [this] { browser_->NextMark(1); });
  Key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { browser_->NextMark(-1); });
}

void HelpViewer::Frame::List(const QVector<HelpPage>& pages) {
  list_->clear();
  for (const HelpPage& page : pages) {
    auto* item = new QListWidgetItem(page.Title, list_);
    item->setData(Qt::UserRole, page.Name);
  }
  nothing_->setVisible(pages.isEmpty());
  PageChanged();
}

void HelpViewer::Frame::Search(const QString& words) {
  List(pages_.Find(words));
  if (HelpPages::WordsOf(words).isEmpty()) browser_->Mark({});
}

void HelpViewer::Frame::ShowListed(const QListWidgetItem* item) {
  if (item == nullptr) return;
  Open(item->data(Qt::UserRole).toString());
  browser_->Mark(HelpPages::WordsOf(search_->text()));
}

void HelpViewer::Frame::Open(const QString& page) {
  browser_->ShowPage(pages_.Has(page) ? page : QStringLiteral("index"));
}

void HelpViewer::Frame::PageChanged() {
  if (back_ == nullptr) return;
  back_->setEnabled(browser_->isBackwardAvailable());
  forward_->setEnabled(browser_->isForwardAvailable());
  const QString page = browser_->PageName();
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->data(Qt::UserRole).toString() == page) list_->setCurrentRow(row);
  }
}

// A dialog that opens blocks all windows but those that belong to it. The help then belongs to the
// dialog, so that one can read what to answer.
bool HelpViewer::Frame::event(QEvent* event) {
  // The dialog is known only after this event.
  if (event->type() == QEvent::WindowBlocked) {
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  } else if (event->type() == QEvent::User) {
    QWindow* modal = QGuiApplication::modalWindow();
    if (modal != nullptr) windowHandle()->setTransientParent(modal);
    return true;
  }
  return QWidget::event(event);
}

// From the box of words the arrow keys go on to the list, and the keys for pages scroll the page.
bool HelpViewer::Frame::eventFilter(QObject* object, QEvent* event) {
  if (object != search_ || event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
    return QCoreApplication::sendEvent(browser_, event);
  }
  if (key != Qt::Key_Down || list_->count() == 0) return false;
  list_->setFocus(Qt::OtherFocusReason);
  if (list_->currentRow() < 0) list_->setCurrentRow(0);
  return true;
}

HelpViewer::HelpViewer(std::filesystem::path folder, std::function<HelpWords()> words,
                       std::function<void(const Text&)> openLink)
    : folder_(std::move(folder)), words_(std::move(words)), openLink_(std::move(openLink)) {}

HelpViewer::~HelpViewer() = default;

void HelpViewer::Show(const std::filesystem::path& page) {
  if (!frame_) frame_ = std::make_unique<Frame>(folder_, words_(), openLink_);
  // The list of an earlier search would hide most pages.
  if (!frame_->isVisible()) frame_->ForgetSearch();
  frame_->winId();  // creates the native window, which setTransientParent needs
  QWindow* modal = QGuiApplication::modalWindow();
  frame_->windowHandle()->setTransientParent(modal);
  if (frame_->isMinimized()) {
    frame_->showNormal();
  } else {
    frame_->show();
  }
  frame_->Open(QString::fromStdString(page.stem().string()));
  frame_->raise();
  frame_->activateWindow();
}

Text HelpViewer::VisiblePage() const {
  return frame_ ? look::ToText(frame_->VisiblePage()) : Text();
}

QWidget* HelpViewer::Window() const {
  return frame_.get();
}

}  // namespace vantora
