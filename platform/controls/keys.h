// Key codes, as handlers get them. The code of a letter or digit is its upper-case character.
#pragma once

namespace vantora {

enum Key : int {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyReturn = 13,
  kKeyEscape = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyDelete = 46,
  kKeyF1 = 112,
  kKeyF2 = 113,
  kKeyF12 = 123,
};

}  // namespace vantora
