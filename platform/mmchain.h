// The sound chain of the audio component set, all of it.
//
// The owner of the components keeps them all for as long as one of them works.
#pragma once

#include "platform/chain/component.h"
#include "platform/chain/effects.h"
#include "platform/chain/ends.h"
#include "platform/chain/helpers.h"
#include "platform/chain/waves.h"
