// A text field of fixed width, as the catalog's records hold it: N wide characters, all NUL at
// first. Assignment pads with blanks, and cuts a longer text at N without an error.
#pragma once

#include "app/werte/zeichen.h"

#include <algorithm>
#include <array>

namespace vantora {

template <std::size_t N>
class FixedText {
 public:
  FixedText() { zeichen_.fill(L'\0'); }

  FixedText& operator=(const Text& text) {
    zeichen_.fill(L' ');
    std::copy_n(text.begin(), std::min(text.size(), N), zeichen_.begin());
    return *this;
  }

  Text Ganz() const { return {zeichen_.begin(), zeichen_.end()}; }  // with the padding
  Text Getrimmt() const { return Trim(Ganz()); }
  bool operator==(const FixedText&) const = default;

  static constexpr std::size_t kBreite = N;
  std::array<wchar_t, N>& Zeichen() { return zeichen_; }
  const std::array<wchar_t, N>& Zeichen() const { return zeichen_; }

 private:
  std::array<wchar_t, N> zeichen_;
};

}  // namespace vantora
