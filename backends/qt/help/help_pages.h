// The help pages of a folder, as the toolkit's rich text. The pages are written for browsers. The
// toolkit knows neither sections nor frames around words, so a page is rewritten when it is shown.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <filesystem>

namespace vantora {

struct HelpPage {
  QString Name;   // of the file, without .html
  QString Title;  // as the navigation calls it
  QString Words;  // all words of the page, folded
};

class HelpPages {
 public:
  // Reads the pages that the navigation of index.html names, in its order. None without an index.
  explicit HelpPages(const std::filesystem::path& folder);

  const QVector<HelpPage>& All() const { return pages_; }
  bool Has(const QString& name) const;

  // The pages that hold all the words, best first: words in the title count more than others.
  QVector<HelpPage> Find(const QString& words) const;

  // The page as rich text, with pictures at most `width` pixels wide.
  QString RichText(const QString& name, int width) const;

  // Lower case without accents. Every character keeps its place.
  static QString Fold(const QString& text);
  static QStringList WordsOf(const QString& text);  // folded

 private:
  QString Source(const QString& name) const;
  QString WithPictures(const QString& html, int width) const;

  QString folder_;
  QVector<HelpPage> pages_;
};

}  // namespace vantora
