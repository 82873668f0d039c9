// Pictures that were drawn once, kept in one file from run to run: to draw the pictures of a window
// takes longer than all the rest of showing it. The file is mapped, not read, so that only what is
// shown comes into memory. It may be deleted at any time, and is written whole or not at all.
//
// The file holds, in the byte order of the machine, kMagic, the length of the list of pictures, the
// list as the toolkit streams it, and the pixels, premultiplied ARGB or RGB, four bytes each, line
// by line.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QString>

namespace vantora {

class PictureStore {
 public:
  // What becomes of pictures that a run has not shown.
  enum class Rest { Kept, Dropped };

  // Blank: nothing is kept.
  PictureStore(const QString& file, Rest rest);
  // Writes the file when this run has drawn what was not in it.
  ~PictureStore();
  PictureStore(const PictureStore&) = delete;
  PictureStore& operator=(const PictureStore&) = delete;

  // What was kept under the key, as long as it was drawn from a source of the same stamp; a null
  // image when there is no such picture. Its pixels live as long as the store.
  QImage Find(const QString& key, qint64 stamp);
  // An image in either of the two formats.
  void Keep(const QString& key, qint64 stamp, const QImage& image);
  // Sizes are kept like pictures; an invalid one when there is none.
  QSize FindSize(const QString& key, qint64 stamp);
  void KeepSize(const QString& key, qint64 stamp, QSize size);

 private:
  struct Entry {
    qint64 stamp = 0;
    QSize size;          // pixels of the picture, or the size itself
    qint64 offset = -1;  // of the pixels in the file; below 0: none there
    QImage drawn;        // in this run
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
  Rest rest_;
  const uchar* mapped_ = nullptr;
  QHash<QString, Entry> entries_;
  bool changed_ = false;
};

}  // namespace vantora
