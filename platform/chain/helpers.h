// The small helpers of the audio component set.
#pragma once

#include "platform/text.h"

namespace vantora {

class MMHelperX {
 public:
  virtual ~MMHelperX() = default;
  virtual double Db(double value, double fullScale) = 0;        // level in dB; -100 for 0 and below
  virtual Text IniSection(int index, const Text& iniFile) = 0;  // from 0; blank after the last
  int InStr(const Text& text, const Text& part) const {         // position from 1, 0 when not found
    const std::size_t place = text.find(part);
    return place == Text::npos ? 0 : static_cast<int>(place) + 1;
  }
  int Len(const Text& text) const { return static_cast<int>(text.size()); }
  Text Mid(const Text& text, int from) const {  // from a position, counted from 1, to the end
    const auto start = static_cast<std::size_t>(from < 1 ? 0 : from - 1);
    return start < text.size() ? text.substr(start) : Text();
  }
};

struct MMWaveFormat {
  int BitsPerSample = 0, Channels = 0, SampleRate = 0;
};

class MMWaveHelperX {
 public:
  MMWaveFormat* WaveFormatPtr() { return &format_; }
  void PcmFormat(MMWaveFormat* format, int bits, int channels, int sampleRate) {
    *format = {bits, channels, sampleRate};
  }

 private:
  MMWaveFormat format_;
};

}  // namespace vantora
