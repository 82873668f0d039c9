#include "cdwriting/pausen.h"

#include "app/programm.h"

#include "platform/cd_sound.h"

#include <vector>

namespace vantora {

void PausenAnhaengen(Programm& prog) {
  std::vector<Edits::Silence> pausen;
  for (std::size_t i = 1; i + 1 < prog.Katalog.size(); ++i) {
    const KatalogEintrag& e = prog.Katalog[i];
    if (e.Pause > 0)
      pausen.push_back({e.Datei.Getrimmt(), std::int64_t{e.Pause} * kBytesPerSecond});
  }
  prog.plattform.edits.Lend(pausen);
}

void PausenEntfernen(Programm& prog) {
  const std::vector<Text> geblieben = prog.plattform.edits.TakeBack();
  if (geblieben.empty()) return;
  prog.MsgBoxen(prog.Text(30091) + ZeilenListe(geblieben), kWarnung);
}

void PausenBehalten(Programm& prog) {
  prog.plattform.edits.Forget();
}

}  // namespace vantora
