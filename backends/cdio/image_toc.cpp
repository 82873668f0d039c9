// The TOC format of cdrdao. It defines sound in files without a header as big-endian.

#include "backends/cdio/image_layout.h"
#include "backends/cdio/sheet_text.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace vantora {

namespace {

constexpr std::int64_t kMostBytes = std::int64_t{kMostDiscSectors} * kSectorBytes;

struct Word {
  std::string Text;
  int Line = 0;
  bool Quoted = false;
};

class Splitter {
 public:
  explicit Splitter(const std::string& text) : text_(text) {}

  std::vector<Word> Words() {
    while (at_ < text_.size()) {
      if (std::isspace(static_cast<unsigned char>(text_[at_])) != 0) {
        line_ += text_[at_++] == '\n' ? 1 : 0;
      } else if (text_.compare(at_, 2, "//") == 0) {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (text_[at_] == '"') {
        Quoted();
      } else if (text_[at_] == '{' || text_[at_] == '}') {
        words_.push_back({std::string(1, text_[at_++]), line_, false});
      } else {
        const std::size_t end = std::min(text_.find_first_of(" \t\v\f\n{}\"", at_), text_.size());
        words_.push_back({text_.substr(at_, end - at_), line_, false});
        at_ = end;
      }
    }
    return std::move(words_);
  }

 private:
  bool IsOctal(std::size_t place) const {
    return place < text_.size() && text_[place] >= '0' && text_[place] <= '7';
  }

  // Within quotes, "\" escapes a quote or itself, or begins three octal digits of a character.
  void Quoted() {
    Word word{{}, line_, true};
    for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      line_ += text_[at_] == '\n' ? 1 : 0;
      if (text_[at_] == '\\' && IsOctal(at_ + 1) && IsOctal(at_ + 2) && IsOctal(at_ + 3)) {
        word.Text += static_cast<char>(std::stoi(text_.substr(at_ + 1, 3), nullptr, 8));
        at_ += 3;
        continue;
      }
      if (text_[at_] == '\\' && at_ + 1 < text_.size()) ++at_;
      word.Text += text_[at_];
    }
    ++at_;
    words_.push_back(word);
  }

  const std::string& text_;
  std::size_t at_ = 0;
  int line_ = 1;
  std::vector<Word> words_;
};

class TocReader {
 public:
  TocReader(Dateien& files, const Text& sheet, const std::string& text, SheetFault& where)
      : files_(files), sheet_(sheet), where_(where), words_(Splitter(text).Words()) {}

  ImageLayout Layout() {
    while (at_ < words_.size()) Statement(Take());
    EndTrack();
    layout_.Toc.LeadOut = Sectors(position_);
    return std::move(layout_);
  }

 private:
  static int Sectors(std::int64_t bytes) {
    return static_cast<int>((bytes + kSectorBytes - 1) / kSectorBytes);
  }

  void Statement(const Word& word) {
    if (word.Quoted) return;
    const std::string what = InCapitals(word.Text);
    if (what == "{") return SkipBlock();
    if (what == "TRACK") return BeginTrack();
    if (!inTrack_) return;
    if (what == "FILE" || what == "AUDIOFILE") return AddSound();
    if (what == "DATAFILE") return AddData();
    if (what == "FIFO") SheetMakesNoSense();
    if (what == "NO") Take();
    if (what == "PRE_EMPHASIS") preemphasis_ = audio_;
    if (what == "SILENCE" || what == "ZERO") {
      while (NextIsWord() && !NextIsLength()) Take();  // skips the mode of the sectors
      Advance(Length(Take()));
    }
    if (what == "PREGAP") {
      Advance(Length(Take()));
      start_ = position_;
    }
    if (what == "START") start_ = NextIsLength() ? begin_ + Length(Take()) : position_;
  }

  Word Take() {
    if (at_ == words_.size()) SheetMakesNoSense();
    where_.Line = words_[at_].Line;
    return words_[at_++];
  }
  bool NextIsWord() const { return at_ < words_.size() && !words_[at_].Quoted; }
  bool NextIs(std::string_view text) const {
    return NextIsWord() && InCapitals(words_[at_].Text) == text;
  }
  bool NextIsLength() const {
    return NextIsWord() && std::isdigit(static_cast<unsigned char>(words_[at_].Text[0])) != 0;
  }
  bool NextIsOffset() const { return NextIsWord() && words_[at_].Text[0] == '#'; }

  void SkipBlock() {
    for (int depth = 1; depth > 0;) {
      const Word word = Take();
      if (!word.Quoted && word.Text == "{") ++depth;
      if (!word.Quoted && word.Text == "}") --depth;
    }
  }

  void Advance(std::int64_t bytes) {
    position_ += bytes;
    if (position_ > kMostBytes) SheetMakesNoSense();
  }

  static std::int64_t Number(const std::string& text) {
    const bool number = !text.empty() && text.size() < 12 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    if (!number) SheetMakesNoSense();
    return std::stoll(text);
  }

  // Bytes of sound: the word is a time or a number of frames (of bytes in a data track).
  std::int64_t Length(const Word& word) const {
    if (word.Text.find(':') != std::string::npos) {
      const int sectors = SheetTime(word.Text);
      if (sectors < 0) SheetMakesNoSense();
      return std::int64_t{sectors} * kSectorBytes;
    }
    const std::int64_t value = Number(word.Text);
    return audio_ ? value * kFrameBytes : value / blockBytes_ * kSectorBytes;
  }

  void BeginTrack() {
    EndTrack();
    const std::string mode = InCapitals(Take().Text);
    trackLine_ = where_.Line;
    audio_ = mode == "AUDIO";
    blockBytes_ = mode == "MODE1" || mode == "MODE2_FORM1" ? 2048
                  : mode == "MODE2_FORM2"                  ? 2324
                  : audio_ || mode.ends_with("_RAW")       ? kSectorBytes
                                                           : 2336;
    if (NextIs("RW") || NextIs("RW_RAW")) blockBytes_ += kCdSubchannelBytes;
    inTrack_ = true;
    preemphasis_ = false;
    begin_ = start_ = position_;
  }

  // A track ends at a sector's end.
  void EndTrack() {
    if (!inTrack_) return;
    position_ = std::int64_t{Sectors(position_)} * kSectorBytes;
    const int start = Sectors(start_);
    if (start >= Sectors(position_) || layout_.Toc.Tracks.size() == kMostDiscTracks) {
      where_.Line = trackLine_;
      SheetMakesNoSense();
    }
    layout_.Toc.Tracks.push_back({start, 0, audio_, preemphasis_});
    inTrack_ = false;
  }

  Text TakeFile() {
    where_.File = SheetName(Take().Text);
    return FileOfSheet(files_, sheet_, where_.File);
  }

  void AddSound() {
    const Text file = TakeFile();
    const bool wave = NamedAsWave(file);
    const SoundPlace place = wave ? PlaceOfWave(files_, file) : SoundPlace{0, files_.FileLen(file)};
    where_.File.clear();
    ImagePiece piece;
    piece.BigEndian = !wave;
    if (NextIs("SWAP")) {
      piece.BigEndian = !piece.BigEndian;
      Take();
    }
    const std::int64_t skipped = NextIsOffset() ? Number(Take().Text.substr(1)) : 0;
    const std::int64_t from = skipped + Length(Take());
    piece.Bytes = NextIsLength() ? Length(Take()) : 0;
    if (piece.Bytes == 0) piece.Bytes = std::max<std::int64_t>(place.Bytes - from, 0);
    piece.Bytes = piece.Bytes / kFrameBytes * kFrameBytes;
    piece.File = file;
    piece.Offset = place.Offset + from;
    Lay(piece);
  }

  // Whole blocks of a file. In an audio track they count as sound.
  void AddData() {
    const Text file = TakeFile();
    const std::int64_t length = files_.FileLen(file);
    where_.File.clear();
    ImagePiece piece;
    piece.BigEndian = true;
    piece.File = file;
    piece.SectorBytes = blockBytes_;
    piece.Offset = NextIsOffset() ? Number(Take().Text.substr(1)) : 0;
    if (NextIsLength()) {
      piece.Bytes = Length(Take());
    } else {
      piece.Bytes = std::max<std::int64_t>(length - piece.Offset, 0) / blockBytes_ * kSectorBytes;
    }
    Lay(piece);
  }

  void Lay(ImagePiece& piece) {
    piece.Start = position_;
    Advance(piece.Bytes);
    if (audio_) layout_.Pieces.push_back(piece);
  }

  Dateien& files_;
  const Text& sheet_;
  SheetFault& where_;
  std::vector<Word> words_;
  std::size_t at_ = 0;
  ImageLayout layout_;
  bool inTrack_ = false, audio_ = true, preemphasis_ = false;
  int trackLine_ = 0;
  int blockBytes_ = kSectorBytes;       // bytes of a sector in the file of the track
  std::int64_t position_ = 0;           // bytes from sector 0
  std::int64_t begin_ = 0, start_ = 0;  // of the track: the first byte placed; where index 1 is
};

}  // namespace

ImageLayout LayoutOfToc(Dateien& files, const Text& sheet, const std::string& text,
                        SheetFault& where) {
  return TocReader(files, sheet, text, where).Layout();
}

}  // namespace vantora
