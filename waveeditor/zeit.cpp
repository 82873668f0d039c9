#include "waveeditor/zeit.h"

#include "app/werte/zahlen.h"
#include "klang/klang_frame.h"

#include <cstdint>

namespace vantora {

Text SmpToTime(double frames) {
  if (frames == 0) return L"0:00.0";
  const std::int64_t ms = Ganz64(frames / kFramesJeMs);
  const std::int64_t gesamt = Ganz64(static_cast<double>(ms) / 1000);
  const auto zahl = [](std::int64_t wert) { return static_cast<double>(wert); };
  // The minutes are counted from the rounded seconds, so the last half second of a minute shows
  // the next minute.
  return ZahlText(gesamt / 60) + L":" + Format(zahl(ms % 60000 / 1000), L"##00") + L":" +
         Format(zahl(ms % 1000 / 100), L"#0");
}

}  // namespace vantora
