// The font of a device's text as the toolkit's, without the adjustments that letters on a screen
// get: they would change the widths of texts from size to size.
#pragma once

#include "platform/device_text.h"

#include <QFont>

namespace vantora {

// In pixels of the device, of which letters have whole ones.
QFont PrintFont(const LogicalFont& font);

}  // namespace vantora
