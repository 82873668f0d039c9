// Restoration filters and spectrum under the numbers of the library's functions.
#pragma once

#include "platform/audiolib.h"

#include <algorithm>
#include <cstddef>

namespace vantora {

class AudioLibrary final : public Audiolib {
 public:
  void func_01(int /*size*/) override {}
  void func_02() override {}
  void func_05(const float& /*level*/) override {}
  void func_11() override {}
  void func_03(const float& /*level*/) override {}
  void func_09() override {}
  void func_04(const float& /*level*/) override {}
  void func_10() override {}
  void func_08(const float& /*level*/, const std::int16_t& channels, const std::int16_t* source,
               std::int16_t* target, int frames) override {
    Copy(channels, source, target, frames);
  }
  void func_06(const float& /*level*/, const std::int16_t& channels, const std::int16_t* source,
               std::int16_t* target, int frames) override {
    Copy(channels, source, target, frames);
  }
  void func_07(const float& /*level*/, const std::int16_t& channels, const std::int16_t* source,
               std::int16_t* target, int frames) override {
    Copy(channels, source, target, frames);
  }
  void func_15(int /*depth*/) override {}
  void func_17(const std::int16_t* /*samples*/, int /*blocks*/, int /*blockSize*/,
               int /*channels*/) override {}
  void func_18(PictureBox& /*picture*/, const int& /*height*/, int /*width*/, const Text& /*xText*/,
               const Text& /*yText*/) override {}
  void func_16() override {}

 private:
  static void Copy(int channels, const std::int16_t* source, std::int16_t* target, int frames) {
    std::copy_n(source, static_cast<std::size_t>(frames) * static_cast<std::size_t>(channels),
                target);
  }
};

}  // namespace vantora
