// The whole sound chain of the audio components.
//
// The owner of the components must keep all of them while one of them is working.
#pragma once

#include "platform/chain/component.h"
#include "platform/chain/effects.h"
#include "platform/chain/ends.h"
#include "platform/chain/helpers.h"
#include "platform/chain/waves.h"
