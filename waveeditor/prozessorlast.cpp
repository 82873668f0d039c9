#include "waveeditor/prozessorlast.h"

#include "app/werte/zahlen.h"

namespace vantora {

namespace {

constexpr const wchar_t* kStart = L"PerfStats\\StartStat";
constexpr const wchar_t* kDaten = L"PerfStats\\StatData";
constexpr const wchar_t* kStop = L"PerfStats\\StopStat";
constexpr const wchar_t* kWert = L"KERNEL\\CPUUsage";

}  // namespace

bool Prozessorlast::Beginnen() {
  if (!zaehler_.RegOpenKey(kStart)) return false;
  zaehler_.RegQueryValue(kStart, kWert);
  zaehler_.RegCloseKey(kStart);
  return true;
}

std::optional<int> Prozessorlast::Messen() {
  if (!zaehler_.RegOpenKey(kDaten)) return {};
  const std::optional<int> wert = zaehler_.RegQueryValue(kDaten, kWert);
  zaehler_.RegCloseKey(kDaten);
  if (wert) CPULast_ = Ganz16((*wert + CPULast_) / 2.0);
  return wert;
}

void Prozessorlast::Beenden() {
  if (zaehler_.RegOpenKey(kStop)) zaehler_.RegCloseKey(kStop);
}

}  // namespace vantora
