// The notation TOC of cdrdao. Sound in files without a header is big-endian in it.

#include "backends/cdio/image_layout.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace vantora {

namespace {

constexpr int kFrameBytes = 4;

struct Word {
  std::string Text;
  bool Quoted = false;
};

std::vector<Word> Words(const std::string& text) {
  std::vector<Word> words;
  for (std::size_t at = 0; at < text.size();) {
    if (std::isspace(static_cast<unsigned char>(text[at])) != 0) {
      ++at;
    } else if (text.compare(at, 2, "//") == 0) {
      at = std::min(text.find('\n', at), text.size());
    } else if (text[at] == '"') {
      Word word{{}, true};
      for (++at; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
        word.Text += text[at];
      }
      ++at;
      words.push_back(word);
    } else if (text[at] == '{' || text[at] == '}') {
      words.push_back({std::string(1, text[at++]), false});
    } else {
      const std::size_t end = std::min(text.find_first_of(" \t\r\n{}\"", at), text.size());
      words.push_back({text.substr(at, end - at), false});
      at = end;
    }
  }
  return words;
}

class TocReader {
 public:
  TocReader(Dateien& files, const Text& sheet, const std::string& text)
      : files_(files), sheet_(sheet), words_(Words(text)) {}

  ImageLayout Layout() {
    while (at_ < words_.size()) Statement(Take());
    EndTrack();
    layout_.Toc.LeadOut = Sectors(position_);
    return std::move(layout_);
  }

 private:
  static int Sectors(std::int64_t bytes) {
    return static_cast<int>(std::min<std::int64_t>(bytes / kCdSectorBytes, 1 << 20));
  }

  void Statement(const Word& word) {
    if (word.Quoted) return;
    const std::string& what = word.Text;
    if (what == "{") return SkipBlock();
    if (what == "TRACK") return BeginTrack();
    if (!inTrack_) return;
    if (what == "FILE" || what == "AUDIOFILE") return AddSound();
    if (what == "DATAFILE") return AddData();
    if (what == "SILENCE" || what == "ZERO") position_ += Length(Take());
    if (what == "PREGAP") {
      position_ += Length(Take());
      start_ = position_;
    }
    if (what == "START") start_ = NextIsLength() ? begin_ + Length(Take()) : position_;
  }

  Word Take() {
    if (at_ == words_.size()) SheetMakesNoSense();
    return words_[at_++];
  }
  bool NextIs(std::string_view text) const {
    return at_ < words_.size() && !words_[at_].Quoted && words_[at_].Text == text;
  }
  bool NextIsLength() const {
    return at_ < words_.size() && !words_[at_].Quoted &&
           std::isdigit(static_cast<unsigned char>(words_[at_].Text[0])) != 0;
  }

  void SkipBlock() {
    for (int depth = 1; depth > 0;) {
      const Word word = Take();
      if (!word.Quoted && word.Text == "{") ++depth;
      if (!word.Quoted && word.Text == "}") --depth;
    }
  }

  // Bytes of sound: a time, or a number of frames (of bytes in a data track).
  std::int64_t Length(const Word& word) const {
    if (word.Text.find(':') != std::string::npos) {
      const int sectors = SheetTime(word.Text);
      if (sectors < 0) SheetMakesNoSense();
      return std::int64_t{sectors} * kCdSectorBytes;
    }
    const bool number = !word.Text.empty() && word.Text.size() < 12 &&
                        word.Text.find_first_not_of("0123456789") == std::string::npos;
    if (!number) SheetMakesNoSense();
    const std::int64_t value = std::stoll(word.Text);
    return audio_ ? value * kFrameBytes : value / dataSectorBytes_ * kCdSectorBytes;
  }

  void BeginTrack() {
    EndTrack();
    const std::string mode = Take().Text;
    audio_ = mode == "AUDIO";
    dataSectorBytes_ = mode == "MODE1" || mode == "MODE2_FORM1" ? 2048
                       : mode.ends_with("_RAW")                 ? 2352
                                                                : 2336;
    inTrack_ = true;
    begin_ = start_ = position_;
  }

  // A track ends with its sector.
  void EndTrack() {
    if (!inTrack_) return;
    position_ = (position_ + kCdSectorBytes - 1) / kCdSectorBytes * kCdSectorBytes;
    layout_.Toc.Tracks.push_back({Sectors(start_), 0, audio_});
    inTrack_ = false;
  }

  void AddSound() {
    const Text file = FileOfSheet(files_, sheet_, Take().Text);
    const bool wave = file.size() > 4 && (file.ends_with(L".wav") || file.ends_with(L".WAV"));
    const SoundPlace place = wave ? PlaceOfWave(files_, file) : SoundPlace{0, files_.FileLen(file)};
    ImagePiece piece;
    piece.BigEndian = !wave;
    if (NextIs("SWAP")) {
      piece.BigEndian = !piece.BigEndian;
      Take();
    }
    std::int64_t skipped = 0;
    if (at_ < words_.size() && words_[at_].Text.starts_with("#")) {
      Word bytes = Take();
      bytes.Text.erase(0, 1);
      skipped = Length(bytes) / kFrameBytes;
    }
    const std::int64_t from = skipped + Length(Take());
    piece.Bytes = NextIsLength() ? Length(Take()) : 0;
    if (piece.Bytes == 0) piece.Bytes = std::max<std::int64_t>(place.Bytes - from, 0);
    piece.Bytes = piece.Bytes / kFrameBytes * kFrameBytes;
    piece.Start = position_;
    piece.File = file;
    piece.Offset = place.Offset + from;
    position_ += piece.Bytes;
    if (audio_) layout_.Pieces.push_back(piece);
  }

  void AddData() {
    const Text file = FileOfSheet(files_, sheet_, Take().Text);
    if (at_ < words_.size() && words_[at_].Text.starts_with("#")) Take();
    if (NextIsLength()) {
      position_ += Length(Take());
    } else {
      const std::int64_t unit = audio_ ? kCdSectorBytes : dataSectorBytes_;
      position_ += files_.FileLen(file) / unit * kCdSectorBytes;
    }
  }

  Dateien& files_;
  const Text& sheet_;
  std::vector<Word> words_;
  std::size_t at_ = 0;
  ImageLayout layout_;
  bool inTrack_ = false, audio_ = true;
  int dataSectorBytes_ = 2048;
  std::int64_t position_ = 0;           // bytes from sector 0
  std::int64_t begin_ = 0, start_ = 0;  // of the track: where it is laid down, where it begins
};

}  // namespace

ImageLayout LayoutOfToc(Dateien& files, const Text& sheet, const std::string& text) {
  return TocReader(files, sheet, text).Layout();
}

}  // namespace vantora
