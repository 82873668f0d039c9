// Random bytes as the layout of a window with every kind of control: it must be carried out or
// overflow, and no two controls may contain each other.
#include "app/werte/layout.h"
#include "backends/headless/headless_loop.h"
#include "tests/backends/full_form.h"
#include "tests/fuzz/fuzz_body.h"

#include "platform/laufzeitfehler.h"

namespace vantora::test {

void FuzzOne(const std::string& bytes) {
  HeadlessClock clock;
  HeadlessLoop loop(clock);
  FullForm form(loop);
  Text layout;
  for (const char byte : bytes) layout += static_cast<unsigned char>(byte);
  try {
    LayoutLesen(layout, form);
  } catch (const Laufzeitfehler& fehler) {
    Require(fehler.Nummer == kFehlerUeberlauf, "a number that is too large overflows");
  }
  for (const Control* control : form.Controls) {
    std::size_t depth = 0;
    for (const Control* in = control; in != nullptr; in = in->Container) {
      Require(++depth <= form.Controls.size(), "no two controls lie in each other");
    }
  }
}

}  // namespace vantora::test
