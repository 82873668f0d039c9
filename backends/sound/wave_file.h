// One wave file, read and changed in place. Chunks behind the data move behind longer data in
// blocks of at most 1 MiB. While the file is being written the header on the disk keeps its old
// sizes; Save and Close make them true.
#pragma once

#include "backends/sound/wave_layout.h"

#include "platform/files.h"
#include "platform/mmtools.h"

#include <memory>

namespace vantora {

class WaveFile final : public MMWave {
 public:
  explicit WaveFile(Dateien& dateien) : dateien_(dateien) {}
  ~WaveFile() override;  // closes; what fails then is lost
  WaveFile(const WaveFile&) = delete;
  WaveFile& operator=(const WaveFile&) = delete;

  void Open(const Text& file) override;
  void Close() override;  // no effect when nothing is open
  int BitsPerSample() const override { return layout_.BitsPerSample; }
  int SampleRate() const override { return layout_.SampleRate; }
  int StereoMode() const override { return layout_.Channels - 1; }  // more than 1 for surround
  std::int64_t Samples() const override;
  std::int64_t DataOffset() const override { return layout_.DataOffset; }
  std::int64_t DataBytes() const override { return layout_.DataBytes; }
  int FrameBytes() const { return layout_.FrameBytes; }
  void SetPosition(std::int64_t bytes) override;  // beyond the end: a write fills up with silence
  std::size_t Read(void* target, std::size_t bytes) override;
  void Write(const void* source, std::size_t bytes) override;
  std::size_t WriteFrom(WaveFile& source, std::size_t bytes);  // fewer only at the source's end
  std::size_t CopyTo(Datei& target, std::size_t bytes);        // from the position; as above
  void SetLength(std::int64_t frames) override;
  void Save() override;

 private:
  Datei& File();                        // error 52 when nothing is open
  std::size_t Seek(std::size_t bytes);  // in the file, for reading; how many of them are there
  void BeginWriting(std::int64_t end);  // at the position, with room up to there
  void MakeWritable();
  void MakeRoom(std::int64_t dataBytes);
  void MoveSmallTailUp(std::int64_t shift);
  void MoveLongTailUp(std::int64_t shift);
  void FillWithSilence(std::int64_t to);  // from the end of the data
  void BringIntoLine(Datei& file);
  [[noreturn]] static void RaiseTooLong();

  Dateien& dateien_;
  Text path_;
  std::unique_ptr<Datei> file_;
  WaveLayout layout_;
  std::int64_t position_ = 0;
  std::int64_t shift_ = 0;  // bytes by which a long tail moves next, if that is enough
  bool writable_ = false;
  bool changed_ = false;
};

}  // namespace vantora
