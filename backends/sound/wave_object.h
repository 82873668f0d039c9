// A wave file as the wave editor and its chain use it, over WaveFile. Whatever the header says, a
// frame has 4 bytes; so a file of another format is counted wrongly, but never read past its end.
#pragma once

#include "backends/sound/wave_file.h"

#include "platform/files.h"
#include "platform/mmchain.h"

#include <vector>

namespace vantora {

class WaveObject final : public MMWaveObject {
 public:
  explicit WaveObject(Dateien& dateien) : dateien_(dateien), wave_(dateien) {}

  const Text& FileName() const override { return file_; }
  void SetFileName(const Text& file) override;
  // A file without a single byte counts as missing. The range of playing stays as it was set.
  void Open() override;
  void Close() override;
  bool IsOpen() const override { return state_ != State::Closed; }
  std::int32_t DataSize() const override;
  bool Empty() const override { return DataBytes() == 0; }
  std::int32_t Position() const override;
  void SetPosition(std::int32_t position) override;                // error 5 for a negative one
  std::size_t ReadData(void* buffer, std::size_t bytes) override;  // none when closed
  std::size_t WriteData(const void* buffer, std::size_t bytes) override;
  void SaveRange(const Text& file) override;
  void SetBufferBytes(std::int32_t bytes) override;
  void SaveHeader() override;  // no effect on one that is closed

  // ---- for the component ----
  void ReadRange(MMData& data);  // whole frames of the range of playing, from the position
  void PeekRange(MMData& data);  // the same, and the position stays; a failure shows no sound
  void MakeAnew();               // empty and open, its folder too
  void Append(const MMData& data);

 private:
  enum class State { Closed, Missing, Open };
  std::int64_t UnitBytes() const { return TimeFormat == vantora::TimeFormat::tfSample ? 4 : 1; }
  std::int32_t InUnits(std::int64_t bytes) const;  // error 6
  std::int64_t DataBytes() const { return state_ == State::Open ? wave_.DataBytes() : 0; }
  bool IsMissing();
  std::size_t ReadAt(std::int64_t place, char* target, std::size_t bytes);
  void BeginWriting(std::size_t bytes);
  void CopyRange(Datei& copy, std::int64_t from, std::int64_t to);

  Dateien& dateien_;
  Text file_;
  WaveFile wave_;
  State state_ = State::Closed;
  std::int64_t position_ = 0;  // bytes; what is read back
  std::int64_t cursor_ = 0;    // bytes; where the file stands
  std::vector<char> ahead_;    // what was read ahead, and how much that may be
  std::int64_t aheadStart_ = 0;
  std::size_t aheadBytes_ = 0;
  std::size_t aheadLimit_ = 1U << 16U;
};

// The component around it.
class WaveComponent final : public MMWaveFileX {
 public:
  explicit WaveComponent(Dateien& dateien) : MMWaveFileX(object_), object_(dateien) {}

  void Pull(MMData& data) override { object_.ReadRange(data); }
  void Peek(MMData& data) override { object_.PeekRange(data); }
  void Rewind() override { object_.SetPosition(object_.PlayStart); }
  void Receive() override {
    if (!object_.FileName().empty()) object_.MakeAnew();
    MMWaveFileX::Receive();
  }
  void Push(const MMData& data) override {
    if (!object_.FileName().empty()) object_.Append(data);
    MMWaveFileX::Push(data);
  }

 private:
  WaveObject object_;
};

}  // namespace vantora
