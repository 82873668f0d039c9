// The part of the help viewer that shows a page.
#pragma once

#include "backends/qt/help/help_pages.h"

#include <QTextBrowser>
#include <QTimer>

#include <functional>

namespace vantora {

class HelpBrowser final : public QTextBrowser {
 public:
  HelpBrowser(const HelpPages& pages, const std::filesystem::path& folder, QWidget* parent);

  std::function<void(const QString& address)> OpenLink;  // an address of the web or of mail

  void ShowPage(const QString& name);
  QString PageName() const;  // of the page that is shown

  // Marks all places of the words in the page that is shown, and goes to the first one.
  void Mark(const QStringList& words);
  void NextMark(int step);  // 1: forward, -1: backward; begins again at the end

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int PictureWidth() const;
  QImage Picture(const QString& file) const;
  void Refit();  // loads the page again with pictures that fit the new width
  void GoTo(qsizetype mark);

  const HelpPages& pages_;
  QString folder_;
  QTimer refit_;
  QList<QTextEdit::ExtraSelection> marks_;
  qsizetype mark_ = 0;
};

}  // namespace vantora
