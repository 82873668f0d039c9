// A wave file as the wave editor and its chain use it, over WaveFile.
#pragma once

#include "backends/sound/wave_file.h"

#include "platform/files.h"
#include "platform/mmchain.h"

namespace vantora {

class WaveObject final : public MMWaveObject {
 public:
  explicit WaveObject(Dateien& dateien) : dateien_(dateien) {}

  const Text& FileName() const override { return file_; }
  void SetFileName(const Text& file) override { file_ = file; }
  void Open() override {}
  void Close() override {}
  bool IsOpen() const override { return false; }
  std::int32_t DataSize() const override { return 0; }
  bool Empty() const override { return true; }
  std::int32_t Position() const override { return 0; }
  void SetPosition(std::int32_t /*position*/) override {}
  std::size_t ReadData(void* /*buffer*/, std::size_t /*bytes*/) override { return 0; }
  std::size_t WriteData(const void* /*buffer*/, std::size_t /*bytes*/) override { return 0; }
  void SaveRange(const Text& /*file*/) override {}
  void SetBufferBytes(std::int32_t /*bytes*/) override {}

 private:
  [[maybe_unused]] Dateien& dateien_;
  Text file_;
};

// The component around it.
class WaveComponent final : public MMWaveFileX {
 public:
  explicit WaveComponent(Dateien& dateien) : MMWaveFileX(object_), object_(dateien) {}

 private:
  WaveObject object_;
};

}  // namespace vantora
