// The words of the help viewer and of the toolkit's menus, from the program's texts.
#pragma once

#include "backends/qt/desktop/toolkit_words.h"
#include "backends/qt/help/help_words.h"

#include "platform/resources.h"

namespace vantora {

inline HelpWords WordsOfHelp(Resources& texts) {
  return {
      .Title = texts.LoadResString(30073),
      .Back = texts.LoadResString(30074),
      .Forward = texts.LoadResString(30075),
      .Home = texts.LoadResString(30076),
      .Close = texts.LoadResString(30077),
      .Search = texts.LoadResString(30078),
      .SearchTip = texts.LoadResString(30079),
      .Pages = texts.LoadResString(30080),
      .Page = texts.LoadResString(30081),
      .Nothing = texts.LoadResString(30082),
  };
}

inline EditWords WordsOfMenus(Resources& texts) {
  return {
      .Undo = texts.LoadResString(30183),
      .Redo = texts.LoadResString(30184),
      .Cut = texts.LoadResString(30185),
      .Copy = texts.LoadResString(30186),
      .Paste = texts.LoadResString(30187),
      .Delete = texts.LoadResString(30188),
      .SelectAll = texts.LoadResString(30189),
      .CopyLink = texts.LoadResString(30190),
      .Shift = texts.LoadResString(30191),
  };
}

}  // namespace vantora
