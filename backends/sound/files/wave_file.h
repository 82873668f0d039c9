// One wave file, for reading, or for writing while it grows. During writing the header on the disk
// keeps its old sizes until Save, SaveHeader or Close update them. Finished sound is changed only
// by edits (platform/edits.h). A file with chunks after its sound cannot grow here, so these chunks
// are never moved.
#pragma once

#include "backends/sound/files/wave_layout.h"

#include "platform/files.h"
#include "platform/mmtools.h"

#include <memory>

namespace vantora {

class WaveFile final : public MMWave {
 public:
  explicit WaveFile(Dateien& dateien) : dateien_(dateien) {}
  ~WaveFile() override;  // closes; errors are not reported
  WaveFile(const WaveFile&) = delete;
  WaveFile& operator=(const WaveFile&) = delete;

  void Open(const Text& file) override;
  void Close() override;  // without effect when nothing is open
  int BitsPerSample() const override { return layout_.BitsPerSample; }
  int SampleRate() const override { return layout_.SampleRate; }
  int StereoMode() const override { return layout_.Channels - 1; }  // 2 or more for surround
  std::int64_t Samples() const override;
  std::int64_t DataOffset() const { return layout_.DataOffset; }
  std::int64_t DataBytes() const override { return layout_.DataBytes; }
  int FrameBytes() const { return layout_.FrameBytes; }
  void SetPosition(std::int64_t bytes) override;  // beyond the end: fills up with silence
  std::size_t Read(void* target, std::size_t bytes) override;
  void Write(const void* source, std::size_t bytes) override;
  // Copies from the position; fewer bytes only at the end.
  std::size_t CopyTo(Datei& target, std::size_t bytes);
  void Save() override;
  void SaveHeader();  // writes the sizes without syncing the file

 private:
  Datei& File();                        // raises 52 when nothing is open
  std::size_t Seek(std::size_t bytes);  // returns how many bytes can be read
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
