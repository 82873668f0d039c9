// The first page of a PDF, read by independent programs: the tools of poppler.
#pragma once

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QTemporaryDir>

#include <algorithm>
#include <string>
#include <vector>

namespace vantora {

// Places are in twips from the paper's upper left corner.
class PdfPage {
 public:
  struct Ink {
    bool Found = false;
    double Left = 0, Top = 0, Right = 0, Bottom = 0;
  };

  explicit PdfPage(const std::string& file) : file_(QString::fromStdString(file)) {
    const QString boxes = Run("pdftotext", {"-bbox", file_, "-"});
    static const QRegularExpression page("<page width=\"([0-9.]+)\" height=\"([0-9.]+)\"");
    width_ = page.match(boxes).captured(1).toDouble() * kTwipsPerPoint;
    static const QRegularExpression word("<word xMin=\"([0-9.]+)\"");
    firstWord_ = word.match(boxes).captured(1).toDouble() * kTwipsPerPoint;
    // At 720 dots per inch, a pixel is two twips.
    Run("pdftoppm", {"-r", "720", "-gray", "-aa", "no", "-aaVector", "no", "-singlefile", file_,
                     folder_.filePath("page")});
    QFile grey(folder_.filePath("page.pgm"));
    if (!grey.open(QIODevice::ReadOnly) || grey.readLine() != "P5\n") return;
    const QList<QByteArray> sides = grey.readLine().simplified().split(' ');
    grey.readLine();  // the brightest value
    bytes_ = grey.readAll();
    points_ = QImage(reinterpret_cast<const uchar*>(bytes_.constData()), sides[0].toInt(),
                     sides[1].toInt(), sides[0].toInt(), QImage::Format_Grayscale8);
  }

  double Width() const { return width_; }
  double FirstWord() const { return firstWord_; }  // its left edge
  std::string Text() const {
    QString text = Run("pdftotext", {"-layout", file_, "-"});
    static const QRegularExpression blanks(" +");
    return text.replace(blanks, " ").remove(u'\f').toStdString();
  }

  // Returns the extent of everything in a rectangle that is not white.
  Ink InkIn(int left, int top, int right, int bottom) const {
    Ink ink;
    for (int y = top / 2; y < bottom / 2 && y < points_.height(); ++y) {
      const uchar* line = points_.constScanLine(y);
      for (int x = left / 2; x < right / 2 && x < points_.width(); ++x) {
        if (line[x] > 200) continue;
        const Ink here{true, 2.0 * x, 2.0 * y, 2.0 * x + 2, 2.0 * y + 2};
        ink = ink.Found ? Ink{true, std::min(ink.Left, here.Left), std::min(ink.Top, here.Top),
                              std::max(ink.Right, here.Right), std::max(ink.Bottom, here.Bottom)}
                        : here;
      }
    }
    return ink;
  }

  // Returns "WIDTHxHEIGHT CODING" for each picture.
  std::vector<std::string> Pictures() const {
    std::vector<std::string> pictures;
    const QStringList lines = Run("pdfimages", {"-list", file_}).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines.mid(2)) {  // the first two lines are the table's head
      const QStringList cells = line.simplified().split(u' ');
      pictures.push_back((cells[3] + "x" + cells[4] + " " + cells[8]).toStdString());
    }
    return pictures;
  }
  int FontsOutside() const {
    int outside = 0;
    static const QRegularExpression embedded("\\s(yes|no)\\s+(yes|no)\\s+(yes|no)");
    const QStringList lines = Run("pdffonts", {file_}).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines.mid(2)) {
      outside += embedded.match(line).captured(1) == u"yes" ? 0 : 1;
    }
    return lines.size() > 2 ? outside : -1;
  }

 private:
  static constexpr double kTwipsPerPoint = 20;

  static QString Run(const QString& program, const QStringList& words) {
    QProcess process;
    process.start(program, words);
    process.waitForFinished(60'000);
    return QString::fromUtf8(process.readAllStandardOutput());
  }

  QString file_;
  QTemporaryDir folder_;
  double width_ = 0, firstWord_ = 0;
  QByteArray bytes_;
  QImage points_;  // uses the memory of bytes_
};

}  // namespace vantora
