// Tells level meters what is heard.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class Connector final : public MMConnectorX {
 public:
};

}  // namespace vantora
