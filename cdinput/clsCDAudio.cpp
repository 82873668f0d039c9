#include "cdinput/clsCDAudio.h"

#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

namespace vantora {

namespace {

constexpr std::size_t kPositionsText = 30;

}  // namespace

int clsCDAudio::Teil(std::size_t stelle) {
  const Text antwort = Links(mci_.mciSendString(L"status cd position"), kPositionsText);
  return antwort.size() > stelle ? Ganz32(Val(antwort.substr(stelle, 2))) : 0;
}

}  // namespace vantora
