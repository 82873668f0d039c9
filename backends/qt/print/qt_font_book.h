// The fonts of the machine, as listed by the toolkit.
#pragma once

#include "platform/device_text.h"

namespace vantora {

class QtFontBook final : public FontBook {
 public:
  std::vector<Text> Families() override;
  Text Substitute(const Text& family) override;
  TextExtent Measure(const LogicalFont& font, const Text& text) override;
};

}  // namespace vantora
