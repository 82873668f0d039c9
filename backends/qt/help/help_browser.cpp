#include "backends/qt/help/help_browser.h"

#include "backends/qt/look/look.h"

#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kPoints = 11;
constexpr int kMargin = 14;        // around the page, pixels
constexpr int kPanelPadding = 14;  // inside the box of a section
constexpr int kLeastPicture = 100;
constexpr int kRefitMs = 120;  // after the last change of a width that is being dragged

constexpr const char* kSheet = R"(
body { color: #ebeef5; }
h1 { color: #f4f6fc; font-size: 25px; margin-top: 4px; margin-bottom: 8px; }
h2 { color: #ffb545; font-size: 17px; margin-top: 0px; margin-bottom: 8px; }
h3 { color: #f4f6fc; font-size: 15px; margin-top: 12px; margin-bottom: 4px; }
p { margin-top: 4px; margin-bottom: 8px; }
li { margin-bottom: 5px; }
a { color: #ffb545; text-decoration: underline; }
.entrada { color: #b9c0d8; font-size: 16px; margin-bottom: 16px; }
.panel { background-color: #353763; }
.hueco { font-size: 9px; margin-top: 0px; margin-bottom: 0px; }
.nota { color: #ffdfae; margin-left: 14px; }
.pie { color: #b9c0d8; font-size: 13px; margin-bottom: 14px; }
.boton { background-color: #10131f; color: #f4f6fc; font-weight: bold; }
.tecla { background-color: #ebeef5; color: #10131f; font-weight: bold; }
code, pre { background-color: #10131f; color: #e6eaf6; font-family: "Liberation Mono"; }
.datos td, .datos th { padding-top: 5px; padding-bottom: 5px; padding-right: 14px; }
th { color: #b9c0d8; font-weight: normal; text-align: left; }
th.fila { color: #f4f6fc; font-weight: bold; }
)";

}  // namespace

HelpBrowser::HelpBrowser(const HelpPages& pages, const std::filesystem::path& folder,
                         QWidget* parent)
    : QTextBrowser(parent), pages_(pages), folder_(QString::fromStdString(folder.string())) {
  setFont(look::FontOf(kPoints, false));
  document()->setDefaultStyleSheet(QString::fromLatin1(kSheet));
  document()->setDocumentMargin(kMargin);
  look::Ink(*this, QPalette::Base, look::Of(look::kGround));
  // By the keyboard too one can go through the links and select words.
  setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
  // Pictures are as wide as the page, so the width must not depend on the page's length.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  refit_.setSingleShot(true);
  refit_.setInterval(kRefitMs);
  connect(&refit_, &QTimer::timeout, this, [this] { Refit(); });
}

void HelpBrowser::ShowPage(const QString& name) {
  setSource(QUrl::fromLocalFile(folder_ + u'/' + name + QStringLiteral(".html")));
}

QString HelpBrowser::PageName() const {
  return QFileInfo(source().path()).baseName();
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  if (!name.scheme().isEmpty() && name.scheme() != QLatin1String("file")) {
    if (OpenLink) OpenLink(name.toString());
    return;
  }
  marks_.clear();
  setExtraSelections({});
  QTextBrowser::doSetSource(name, type);
}

int HelpBrowser::PictureWidth() const {
  return std::max(kLeastPicture, viewport()->width() - 2 * kMargin - 2 * kPanelPadding);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QFileInfo file(name.path());
  if (type == QTextDocument::ImageResource) {
    return Picture(folder_ + u'/' + file.fileName());
  }
  if (type != QTextDocument::HtmlResource) return {};
  const QString page = file.baseName();
  return pages_.RichText(pages_.Has(page) ? page : QStringLiteral("index"), PictureWidth());
}

// The picture has the pixels of the screen, because the toolkit shrinks pictures without smoothing.
QImage HelpBrowser::Picture(const QString& file) const {
  QImage picture(file);
  if (picture.isNull()) return picture;
  const int width = std::min(picture.width(), PictureWidth());
  const double ratio = devicePixelRatioF();
  picture =
      picture.scaledToWidth(static_cast<int>(std::lround(width * ratio)), Qt::SmoothTransformation);
  picture.setDevicePixelRatio(ratio);
  return picture;
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (!source().isEmpty()) refit_.start();
}

void HelpBrowser::Refit() {
  const QScrollBar& bar = *verticalScrollBar();
  const double place = bar.maximum() == 0 ? 0 : double{1} * bar.value() / bar.maximum();
  const QUrl url = source();
  const QList<QTextEdit::ExtraSelection> marks = marks_;
  document()->clear();
  setHtml(loadResource(QTextDocument::HtmlResource, url).toString());
  verticalScrollBar()->setValue(static_cast<int>(std::lround(place * bar.maximum())));
  marks_ = marks;
  setExtraSelections(marks_);
}

void HelpBrowser::Mark(const QStringList& words) {
  marks_.clear();
  const QString text = HelpPages::Fold(document()->toRawText());
  for (const QString& word : words) {
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + word.size())) {
      QTextEdit::ExtraSelection mark;
      mark.cursor = QTextCursor(document());
      mark.cursor.setPosition(static_cast<int>(at));
      mark.cursor.setPosition(static_cast<int>(at + word.size()), QTextCursor::KeepAnchor);
      mark.format.setBackground(look::Of(look::kAmber));
      mark.format.setForeground(look::Of(look::kField));
      marks_.push_back(mark);
    }
  }
  std::sort(marks_.begin(), marks_.end(), [](const auto& a, const auto& b) {
    return a.cursor.selectionStart() < b.cursor.selectionStart();
  });
  setExtraSelections(marks_);
  if (!marks_.isEmpty()) GoTo(0);
}

void HelpBrowser::NextMark(int step) {
  if (marks_.isEmpty()) return;
  GoTo((mark_ + step + marks_.size()) % marks_.size());
}

void HelpBrowser::GoTo(qsizetype mark) {
  mark_ = mark;
  QTextCursor place = marks_[mark].cursor;
  place.setPosition(place.selectionStart());
  setTextCursor(place);
  ensureCursorVisible();
  // Words after the mark shall be seen as well.
  QScrollBar& bar = *verticalScrollBar();
  bar.setValue(bar.value() + cursorRect().top() - viewport()->height() / 3);
}

}  // namespace vantora
