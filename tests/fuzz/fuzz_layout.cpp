// Random bytes as the layout of a window with every kind of control: it must be carried out or
// overflow, and no two controls may contain each other.
#include "app/werte/layout.h"
#include "backends/headless/headless_loop.h"
#include "tests/backends/full_form.h"
#include "tests/fuzz/fuzz_body.h"

#include "platform/laufzeitfehler.h"

namespace vantora::test {

std::vector<std::string> FuzzSeeds() {
  return {
      "form 9000 7500 picture=ground back=101820 border=0\n"
      "shpPanel 0 0 9000 600 fill=353763 line=none # panel\n"
      "lblTitle 150 150 3000 300 font=12 bold=1 align=right fore=EBEEF5 wrap=1 tab=3\n"
      "imgButton 150 750 1200 450 picture=a pressed=b icon=c in=shpPanel\n"
      "columns lvwTracks 600 2400\n",
      "picView 0 0 9 9 in=picWave\npicWave 0 0 9 9 in=picView\nshpBox 0 0 9 9 in=picWide\n"
      "chkInside 1 2 3 4 in=shpBox\nshpPanel 0 0 9 9 in=shpBox\noptPaper(1) 1 1 1 1\n",
      "form 1e999\ncolumns\ncolumns x 1\noptPaper( 1\noptPaper(99999999999) 1\n-1 = ==\n", ""};
}

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
