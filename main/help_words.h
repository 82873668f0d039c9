// The words of the help viewer, from the program's texts.
#pragma once

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

}  // namespace vantora
