// A wave file for the wave editor and its chain, based on WaveFile. Whatever the header says, a
// frame is taken as 4 bytes. Lengths of other formats are therefore wrong, but reading never passes
// the end.
#pragma once

#include "backends/sound/files/wave_file.h"

#include "platform/files.h"
#include "platform/mmchain.h"

#include <vector>

namespace vantora {

class WaveObject final : public MMWaveObject {
 public:
  explicit WaveObject(Dateien& dateien) : dateien_(dateien), wave_(dateien) {}
  ~WaveObject() override;  // closes; errors are not reported
  WaveObject(const WaveObject&) = delete;
  WaveObject& operator=(const WaveObject&) = delete;

  const Text& FileName() const override { return file_; }
  void SetFileName(const Text& file) override;
  // An empty file counts as missing. The playing range stays as set.
  void Open() override;
  void Close() override;
  bool IsOpen() const override { return state_ != State::Closed; }
  std::int32_t DataSize() const override;
  bool Empty() const override { return DataBytes() == 0; }
  std::int32_t Position() const override;
  void SetPosition(std::int32_t position) override;                // raises 5 for a negative one
  std::size_t ReadData(void* buffer, std::size_t bytes) override;  // reads nothing when closed
  std::size_t WriteData(const void* buffer, std::size_t bytes) override;
  void SaveRange(const Text& file) override;
  void SetBufferBytes(std::int32_t bytes) override;

  // Used by the component.
  void ReadRange(MMData& data);  // whole frames of the playing range from the position
  void PeekRange(MMData& data);  // the same, but the position stays; empty when reading fails
  void MakeAnew();               // creates an empty file and its folder, and opens it
  void Append(const MMData& data);

 private:
  enum class State { Closed, Missing, Open };
  std::int64_t UnitBytes() const { return TimeFormat == vantora::TimeFormat::tfSample ? 4 : 1; }
  std::int32_t InUnits(std::int64_t bytes) const;  // raises 6
  std::int64_t DataBytes() const;
  bool IsMissing();
  std::size_t ReadAt(std::int64_t place, char* target, std::size_t bytes);
  void BeginWriting(std::size_t bytes);
  void CopyRange(Datei& copy, std::int64_t from, std::int64_t to);
  void WriteCollected();  // what cannot be written is dropped

  Dateien& dateien_;
  Text file_;
  WaveFile wave_;
  State state_ = State::Closed;
  std::int64_t position_ = 0;    // in bytes; as reported
  std::int64_t cursor_ = 0;      // in bytes; position of the file
  std::vector<char> collected_;  // appended, and not written yet
  std::vector<char> ahead_;      // bytes read ahead; their maximum number
  std::int64_t aheadStart_ = 0;
  std::size_t aheadBytes_ = 0;
  std::size_t aheadLimit_ = 1U << 16U;
};

// The component with the object.
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
