// The properties of controls, and the types of colours and alignments.
#pragma once

#include <cstdint>
#include <utility>

namespace vantora {

class Control;

using Color = std::uint32_t;  // 0xRRGGBB
constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) {
  return (red << 16U) | (green << 8U) | blue;
}
constexpr Color kTransparent = 0xFF000000U;

enum class Alignment { Left, Right, Center };

// Marks a control and its window as changed, so that the renderer looks at them.
void MarkDirty(Control& control);

// A value of a control. Assigning a different value marks the control as changed.
template <typename T>
class Property {
 public:
  Property(Control& owner, T value) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property& other) { return *this = other.value_; }
  Property& operator=(const T& value) {
    if (!(value_ == value)) {
      value_ = value;
      MarkDirty(owner_);
    }
    return *this;
  }

  const T& operator()() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT: a property is used like its value

 private:
  Control& owner_;
  T value_;
};

}  // namespace vantora
