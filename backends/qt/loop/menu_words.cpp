#include "backends/qt/loop/menu_words.h"

#include "backends/qt/look/look.h"

namespace vantora {

namespace {

bool IsLetter(QChar c) {
  return c.unicode() < 128 && c.isLetter();  // a letter that is on every keyboard
}

// The place of the marked letter in the caption without marks; -1 for none.
qsizetype MarkedPlace(const QString& caption) {
  const QString before = caption.section(u'&', 0, 0);
  const bool marked = look::Plain(look::ToText(caption)) != caption;
  return marked ? before.size() : -1;
}

// The place of a free letter; -1 for none. First letters of words are tried first.
qsizetype FreePlace(const QString& words, const QString& taken) {
  for (const bool initial : {true, false}) {
    for (qsizetype i = 0; i < words.size(); ++i) {
      if (initial && i > 0 && words[i - 1] != u' ') continue;
      if (IsLetter(words[i]) && !taken.contains(words[i].toLower())) return i;
    }
  }
  return -1;
}

}  // namespace

QStringList MenuWords(const std::vector<MenuItem>& items) {
  QStringList words;
  std::vector<qsizetype> places;
  QString taken;
  for (const MenuItem& item : items) {
    words << look::Plain(item.Caption);
    places.push_back(MarkedPlace(look::FromText(item.Caption)));
    if (places.back() >= 0) taken += words.back()[places.back()].toLower();
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    QString& line = words[static_cast<qsizetype>(i)];
    qsizetype& place = places[i];
    if (place < 0) {
      place = FreePlace(line, taken);
      if (place >= 0) taken += line[place].toLower();
    }
    const QString before = place < 0 ? line : line.left(place);
    const QString behind = place < 0 ? QString() : u'&' + line.mid(place);
    line = QString(before).replace(u'&', QLatin1String("&&")) +
           (behind.isEmpty() ? behind
                             : behind.left(2) + behind.mid(2).replace(u'&', QLatin1String("&&")));
    if (!items[i].Key.empty()) line += u'\t' + look::FromText(items[i].Key);
  }
  return words;
}

}  // namespace vantora
