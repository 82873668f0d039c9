// The controls of a window, all kinds.
#pragma once

#include "platform/controls/buttons.h"
#include "platform/controls/drawings.h"
#include "platform/controls/lists.h"
#include "platform/controls/menu.h"
#include "platform/controls/slider.h"
#include "platform/controls/text_controls.h"
#include "platform/controls/timer.h"
