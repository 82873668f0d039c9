#include "backends/qt/desktop/toolkit_words.h"

#include "backends/qt/look/look.h"

#include <QCoreApplication>
#include <QTranslator>

#include <map>
#include <string_view>
#include <utility>

namespace vantora {

class ToolkitWords::Translator final : public QTranslator {
 public:
  explicit Translator(std::function<EditWords()> words) : words_(std::move(words)) {}

  QString translate(const char* context, const char* source, const char* note,
                    int count) const override;
  bool isEmpty() const override { return false; }

 private:
  std::function<EditWords()> words_;
  mutable std::map<QString, QString> known_;  // by the toolkit's word; filled at the first use
};

ToolkitWords::ToolkitWords(std::function<EditWords()> words)
    : translator_(std::make_unique<Translator>(std::move(words))) {
  QCoreApplication::installTranslator(translator_.get());
}

ToolkitWords::~ToolkitWords() = default;

// An empty answer leaves the toolkit's own word.
QString ToolkitWords::Translator::translate(const char* context, const char* source,
                                            const char* /*note*/, int /*count*/) const {
  const std::string_view asker = context == nullptr ? "" : context;
  if (asker != "QLineEdit" && asker != "QWidgetTextControl" && asker != "QShortcut") return {};
  if (known_.empty()) {
    const EditWords words = words_();
    const std::pair<const char*, const Text&> pairs[] = {
        {"Undo", words.Undo},     {"Redo", words.Redo},   {"Cut", words.Cut},
        {"Copy", words.Copy},     {"Paste", words.Paste}, {"Copy Link Location", words.CopyLink},
        {"Delete", words.Delete}, {"Shift", words.Shift}, {"Select All", words.SelectAll}};
    for (const auto& [word, ours] : pairs) known_[QLatin1String(word)] = look::FromText(ours);
  }
  const QString word = QString::fromUtf8(source).remove(u'&');
  const bool key = asker == "QShortcut";  // "Delete" is a key there
  const auto found = key != (word == QLatin1String("Shift")) ? known_.end() : known_.find(word);
  return found == known_.end() ? QString() : found->second;
}

}  // namespace vantora
