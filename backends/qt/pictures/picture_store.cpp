#include "backends/qt/pictures/picture_store.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cstring>
#include <vector>

namespace vantora {

namespace {

constexpr std::uint64_t kMagic = 0x31534349'50525456;  // "VTRPICS1"
constexpr qint64 kHeadBytes = 16;
constexpr qint64 kMostBytes = 48LL * 1024 * 1024;  // several times both layouts of every window
constexpr int kMostPixels = 16384;                 // per side

QImage::Format FormatOf(bool opaque) {
  return opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
}

}  // namespace

PictureStore::PictureStore(const QString& file) : file_(file) {
  if (!file.isEmpty()) Map();
}

PictureStore::~PictureStore() {
  if (changed_ && !file_.fileName().isEmpty()) Write();
}

void PictureStore::Map() {
  if (!file_.open(QIODevice::ReadOnly)) return;
  const qint64 length = file_.size();
  if (length < kHeadBytes) return;
  mapped_ = file_.map(0, length);
  if (mapped_ == nullptr) return;
  std::uint64_t head[2] = {};
  std::memcpy(head, mapped_, kHeadBytes);
  const bool whole =
      head[0] == kMagic && head[1] <= static_cast<std::uint64_t>(length - kHeadBytes);
  if (!whole) return;
  const QByteArray list = QByteArray::fromRawData(
      reinterpret_cast<const char*>(mapped_) + kHeadBytes, static_cast<qsizetype>(head[1]));
  if (!Read(list, length)) entries_.clear();
}

bool PictureStore::Read(const QByteArray& list, qint64 length) {
  QDataStream stream(list);
  qint32 count = 0;
  stream >> count;
  for (qint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
    QString key;
    Entry entry;
    stream >> key >> entry.stamp >> entry.size >> entry.offset >> entry.opaque;
    const bool possible = entry.size.width() > 0 && entry.size.height() > 0 &&
                          entry.size.width() <= kMostPixels && entry.size.height() <= kMostPixels &&
                          entry.offset <= length && entry.Bytes() <= length - entry.offset;
    if (!possible) return false;
    entries_.insert(key, entry);
  }
  return stream.status() == QDataStream::Ok;
}

PictureStore::Entry* PictureStore::Fresh(const QString& key, qint64 stamp) {
  const auto found = entries_.find(key);
  if (found == entries_.end() || found->stamp != stamp) return nullptr;
  found->used = true;
  return &*found;
}

const uchar* PictureStore::Pixels(const Entry& entry) const {
  return entry.drawn.isNull() ? mapped_ + entry.offset : entry.drawn.constBits();
}

QImage PictureStore::Find(const QString& key, qint64 stamp) {
  const Entry* entry = Fresh(key, stamp);
  if (entry == nullptr || !entry->Picture()) return {};
  if (!entry->drawn.isNull()) return entry->drawn;
  return {mapped_ + entry->offset, entry->size.width(), entry->size.height(),
          4LL * entry->size.width(), FormatOf(entry->opaque)};
}

void PictureStore::Keep(const QString& key, qint64 stamp, const QImage& image) {
  const bool opaque = !image.hasAlphaChannel();
  if (file_.fileName().isEmpty() || image.format() != FormatOf(opaque)) return;
  entries_.insert(key, {stamp, image.size(), -1, image, true, opaque});
  changed_ = true;
}

QSize PictureStore::FindSize(const QString& key, qint64 stamp) {
  const Entry* entry = Fresh(key, stamp);
  return entry == nullptr ? QSize() : entry->size;
}

void PictureStore::KeepSize(const QString& key, qint64 stamp, QSize size) {
  if (size.isEmpty()) return;
  entries_.insert(key, {stamp, size, -1, {}, true, false});
  changed_ = true;
}

// Writes the pictures used in this run first, then others as long as there is room.
void PictureStore::Write() {
  std::vector<std::pair<QString, Entry*>> order;
  for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
    order.emplace_back(entry.key(), &*entry);
  }
  std::stable_sort(order.begin(), order.end(),
                   [](const auto& a, const auto& b) { return a.second->used && !b.second->used; });
  qint64 bytes = 0;
  const auto full = std::find_if(order.begin(), order.end(), [&bytes](const auto& one) {
    return (bytes += one.second->Bytes()) > kMostBytes;
  });
  order.erase(full, order.end());

  const auto listed = [&order](qint64 start) {
    QByteArray list;
    QDataStream stream(&list, QIODevice::WriteOnly);
    stream << static_cast<qint32>(order.size());
    for (const auto& [key, entry] : order) {
      stream << key << entry->stamp << entry->size << (entry->Picture() ? start : qint64{-1})
             << entry->opaque;
      start += entry->Bytes();
    }
    return list;
  };
  const qint64 start = kHeadBytes + listed(0).size();
  const QByteArray list = listed(start);
  const std::uint64_t head[2] = {kMagic, static_cast<std::uint64_t>(list.size())};
  QDir().mkpath(QFileInfo(file_).absolutePath());
  QSaveFile file(file_.fileName());
  if (!file.open(QIODevice::WriteOnly)) return;  // the next start draws the pictures again
  file.write(reinterpret_cast<const char*>(head), kHeadBytes);
  file.write(list);
  for (const auto& [key, entry] : order) {
    if (entry->Picture()) {
      file.write(reinterpret_cast<const char*>(Pixels(*entry)), entry->Bytes());
    }
  }
  file.commit();
}

}  // namespace vantora
