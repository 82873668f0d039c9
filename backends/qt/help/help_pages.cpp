#include "backends/qt/help/help_pages.h"

#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

namespace vantora {

namespace {

constexpr int kTitleCounts = 1000;  // more than a page repeats a word

QString Between(const QString& text, const QString& from, const QString& to) {
  const qsizetype start = text.indexOf(from);
  const qsizetype end = text.indexOf(to, start);
  if (start < 0 || end < 0) return {};
  return text.mid(start + from.size(), end - start - from.size());
}

void Swap(QString& html, const char* pattern, const char* with) {
  html.replace(QRegularExpression(QString::fromLatin1(pattern)), QString::fromLatin1(with));
}

// A section becomes a table of one cell, which is the toolkit's only box with a ground. An anchor
// must stand in front of a word.
void Rewrite(QString& html) {
  Swap(html, "<table>", "<table class=\"datos\" width=\"100%\" cellspacing=\"0\">");
  Swap(html, "<section id=\"(\\w+)\">\\s*<h2>", "<section><h2><a name=\"\\1\"></a>");
  Swap(html, "<section>",
       "<table class=\"panel\" width=\"100%\" cellpadding=\"14\" cellspacing=\"0\"><tr><td>");
  Swap(html, "</section>", "</td></tr></table><p class=\"hueco\">&nbsp;</p>");
  Swap(html, "<(thead|tbody)>|</(thead|tbody)>", "");
  Swap(html, "<th scope=\"row\">", "<th class=\"fila\" width=\"28%\">");
  Swap(html, "<span class=\"boton\">([^<]*)</span>",
       "<span class=\"boton\">&nbsp;\\1&nbsp;</span>");
  Swap(html, "<kbd>([^<]*)</kbd>", "<span class=\"tecla\">&nbsp;\\1&nbsp;</span>");
  Swap(html, "<pre><code>", "<pre>");
  Swap(html, "</code></pre>", "</pre>");
}

}  // namespace

HelpPages::HelpPages(const std::filesystem::path& folder)
    : folder_(QString::fromStdString(folder.string()) + u'/') {
  static const QRegularExpression kEntry(
      QStringLiteral("<li><a href=\"(\\w+)\\.html\"[^>]*>([^<]*)</a></li>"));
  const QString navigation =
      Between(Source(QStringLiteral("index")), QStringLiteral("<nav"), QStringLiteral("</nav>"));
  for (auto entries = kEntry.globalMatch(navigation); entries.hasNext();) {
    const QRegularExpressionMatch entry = entries.next();
    const QString html = Source(entry.captured(1));
    if (html.isEmpty()) continue;
    const QString main = Between(html, QStringLiteral("<main>"), QStringLiteral("</main>"));
    pages_.push_back({entry.captured(1), entry.captured(2),
                      Fold(QTextDocumentFragment::fromHtml(main).toPlainText())});
  }
}

bool HelpPages::Has(const QString& name) const {
  return std::any_of(pages_.begin(), pages_.end(),
                     [&](const HelpPage& page) { return page.Name == name; });
}

QString HelpPages::Source(const QString& name) const {
  QFile file(folder_ + name + QStringLiteral(".html"));
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QVector<HelpPage> HelpPages::Find(const QString& words) const {
  const QStringList wanted = WordsOf(words);
  QVector<std::pair<qsizetype, HelpPage>> found;
  for (const HelpPage& page : pages_) {
    qsizetype weight = 0;
    const QString title = Fold(page.Title);
    const bool all = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
      const qsizetype counted = title.count(word) * kTitleCounts + page.Words.count(word);
      weight += counted;
      return counted > 0;
    });
    if (all) found.push_back({weight, page});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  QVector<HelpPage> pages;
  for (const auto& [weight, page] : found) pages.push_back(page);
  return pages;
}

QString HelpPages::RichText(const QString& name, int width) const {
  QString main = Between(Source(name), QStringLiteral("<main>"), QStringLiteral("</main>"));
  Rewrite(main);
  return QStringLiteral("<html><body>") + WithPictures(main, width) +
         QStringLiteral("</body></html>");
}

// The toolkit cannot limit a picture to the width of the page, and it has no words for people who
// do not see the picture. Both are added here.
QString HelpPages::WithPictures(const QString& html, int width) const {
  static const QRegularExpression kPicture(
      QStringLiteral("<p><img class=\"ventana\" src=\"([^\"]*)\"\\s+alt=\"([^\"]*)\"></p>"));
  QString all;
  qsizetype done = 0;
  for (auto pictures = kPicture.globalMatch(html); pictures.hasNext();) {
    const QRegularExpressionMatch picture = pictures.next();
    const int full = QImageReader(folder_ + picture.captured(1)).size().width();
    all += html.mid(done, picture.capturedStart() - done);
    all += QStringLiteral("<p><img src=\"%1\" width=\"%2\"></p><p class=\"pie\">%3</p>")
               .arg(picture.captured(1))
               .arg(std::min(full, width))
               .arg(picture.captured(2));
    done = picture.capturedEnd();
  }
  return all + html.mid(done);
}

QString HelpPages::Fold(const QString& text) {
  QString folded = text;
  for (QChar& letter : folded) {
    const QString parts = letter.decomposition();
    if (letter.decompositionTag() == QChar::Canonical) letter = parts.front();
    letter = letter.toLower();
  }
  return folded;
}

QStringList HelpPages::WordsOf(const QString& text) {
  return Fold(text).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

}  // namespace vantora
