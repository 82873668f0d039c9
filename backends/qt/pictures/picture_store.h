// Keeps drawn pictures in a file between runs: drawing the pictures of a window takes longer than
// all other work of showing the window. The file is mapped into memory, so only the pictures shown
// are read. The file may be deleted at any time. It is written either completely or not at all.
//
// The file holds, in the byte order of the machine: kMagic, the length of the list of pictures, the
// list as a QDataStream, and the pixels, line by line, as premultiplied ARGB or RGB of four bytes
// each.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QString>

namespace vantora {

class PictureStore {
 public:
  // With a blank `file`, nothing is kept.
  explicit PictureStore(const QString& file);
  // Writes the file if this run has drawn new pictures.
  ~PictureStore();
  PictureStore(const PictureStore&) = delete;
  PictureStore& operator=(const PictureStore&) = delete;

  // Returns the picture that was kept under `key` with the same stamp of its source, or a null
  // image. The pixels are valid as long as the store.
  QImage Find(const QString& key, qint64 stamp);
  // `image` must have one of the two formats of the file.
  void Keep(const QString& key, qint64 stamp, const QImage& image);
  // Sizes are kept like pictures. FindSize returns an invalid size when there is none.
  QSize FindSize(const QString& key, qint64 stamp);
  void KeepSize(const QString& key, qint64 stamp, QSize size);

 private:
  struct Entry {
    qint64 stamp = 0;
    QSize size;          // of the picture, or the kept size
    qint64 offset = -1;  // of the pixels in the file; -1: not in the file
    QImage drawn;        // drawn in this run
    bool used = false;   // in this run
    bool opaque = false;
    bool Picture() const { return offset >= 0 || !drawn.isNull(); }
    qint64 Bytes() const { return Picture() ? 4LL * size.width() * size.height() : 0; }
  };

  void Map();
  bool Read(const QByteArray& list, qint64 length);
  void Write();
  const uchar* Pixels(const Entry& entry) const;
  Entry* Fresh(const QString& key, qint64 stamp);

  QFile file_;
  const uchar* mapped_ = nullptr;
  QHash<QString, Entry> entries_;
  bool changed_ = false;
};

}  // namespace vantora
