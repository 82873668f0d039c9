// Converts the font of a printer's text to the toolkit's, without hinting, which would change the
// widths of texts between sizes.
#pragma once

#include "platform/device_text.h"

#include <QFont>

namespace vantora {

// Sizes are in whole pixels of the device.
QFont PrintFont(const LogicalFont& font);

}  // namespace vantora
