// The words of a popup menu: captions with the letters that choose them, and the keys that do the
// same.
#pragma once

#include "platform/controls/menu.h"

#include <QStringList>

#include <vector>

namespace vantora {

// The texts for the toolkit, one for each item. "&" stands before the letter of an item. A caption
// without a letter of its own gets one that no other item has, if there is one.
QStringList MenuWords(const std::vector<MenuItem>& items);

}  // namespace vantora
