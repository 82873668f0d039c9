// One wave file, read, or written while it grows. While it is being written the header on the disk
// keeps its old sizes; Save, SaveHeader and Close make them true. Sound that has been finished is
// changed by edits alone (platform/edits.h), so chunks behind the sound never move here: such a
// file takes no more sound.
#pragma once

#include "backends/sound/files/wave_layout.h"

#include "platform/files.h"
#include "platform/mmtools.h"

#include <memory>

namespace vantora {

class WaveFile final : public MMWave {
 public:
  explicit WaveFile(Dateien& dateien) : dateien_(dateien) {}
  ~WaveFile() override;  // closes; a failure is not reported then
  WaveFile(const WaveFile&) = delete;
  WaveFile& operator=(const WaveFile&) = delete;

  void Open(const Text& file) override;
  void Close() override;  // no effect when nothing is open
  int BitsPerSample() const override { return layout_.BitsPerSample; }
  int SampleRate() const override { return layout_.SampleRate; }
  int StereoMode() const override { return layout_.Channels - 1; }  // more than 1 for surround
  std::int64_t Samples() const override;
  std::int64_t DataOffset() const { return layout_.DataOffset; }
  std::int64_t DataBytes() const override { return layout_.DataBytes; }
  int FrameBytes() const { return layout_.FrameBytes; }
  void SetPosition(
      std::int64_t bytes) override;  // beyond the end: a write leaves silence before it
  std::size_t Read(void* target, std::size_t bytes) override;
  void Write(const void* source, std::size_t bytes) override;
  // From the position; fewer only at the end.
  std::size_t CopyTo(Datei& target, std::size_t bytes);
  void Save() override;
  void SaveHeader();  // makes the sizes true, and leaves it to the system when that is written

 private:
  Datei& File();                        // error 52 when nothing is open
  std::size_t Seek(std::size_t bytes);  // in the file, for reading; how many of them are there
  void MakeWritable();
  void BringIntoLine(Datei& file);

  Dateien& dateien_;
  Text path_;
  std::unique_ptr<Datei> file_;
  WaveLayout layout_;
  std::int64_t position_ = 0;
  bool writable_ = false;
  bool changed_ = false;
};

}  // namespace vantora
