#include "tests/support/buehne.h"

#include "main/windows.h"
#include "tests/backends/sound/wave_bytes.h"

namespace vantora {

bool ScriptedUser::Act(Form* front) {
  if (front == nullptr || next_ >= actions_.size()) return false;
  const Action action = actions_[next_++];
  if (auto* box = dynamic_cast<Label*>(front->Find(L"lblMbMeldung"))) Said.push_back(box->Caption);
  action(*front);
  return true;
}

Buehne::Buehne(const Umbau& umbau)
    : platform(home.Path(), VANTORA_SOURCE_DIR "/resources"),
      bundle(umbau(platform)),
      prog(bundle, AllWindows) {
  platform.loop.TheUser = &user;
  Setze(L"Show_Start_Assistant", L"0");
}

Buehne::~Buehne() {
  platform.loop.TheUser = nullptr;
}

void Buehne::Start() {
  Tu([this] { prog.frmStartUp(); });
}

void Buehne::Tu(const std::function<void()>& aktion) {
  platform.loop.Deliver(aktion);
  if (!platform.loop.Ended()) platform.loop.DoEvents();
}

void Buehne::Wave(const Text& datei, std::int64_t frames) {
  Datei(datei, test::Wave(test::Noise(static_cast<std::size_t>(frames) * 4)));
}

void Buehne::Datei(const Text& pfad, const std::string& bytes) {
  test::Put(platform.machine.files.SystemPath(pfad), bytes);
}

std::string Buehne::Lies(const Text& pfad) {
  return test::Get(platform.machine.files.SystemPath(pfad));
}

bool Buehne::NochNotizen() {
  const Text ordner = L"C:\\WINDOWS\\edits";
  LinuxFiles& dateien = platform.machine.files;
  return dateien.IsDirectory(ordner) && !dateien.List(ordner, L"*.*").empty();
}

void Buehne::Katalog(const std::vector<Text>& titel) {
  constexpr std::int64_t kDreiSekunden = 3 * 44100;
  for (Text name : titel) {
    const bool ueberblendet = name.ends_with(L"*");
    if (ueberblendet) name.pop_back();
    const Text datei = L"C:\\Vantora\\Wavs\\" + name + L".wav";
    Wave(datei, kDreiSekunden);
    KatalogEintrag eintrag;
    eintrag.Titel = name;
    eintrag.Interpret = L"Voz";
    eintrag.Datei = datei;
    eintrag.Laenge = L"3000";
    eintrag.Pause = 2;
    eintrag.KatalogTitel = L"Disco";
    eintrag.KatalogInterpret = L"Grupo";
    eintrag.Ueberblendet = ueberblendet ? std::int16_t{-1} : std::int16_t{0};
    prog.Katalog.push_back(eintrag);
  }
  Haupt().KatalogShow();
}

void Buehne::Setze(const Text& schluessel, const Text& wert) {
  SaveSetting(platform.bundle, schluessel, wert);
}

Text Buehne::Einstellung(const Text& schluessel) {
  return GetSetting(platform.bundle, schluessel, L"-");
}

void Buehne::Waehle(int zeile) {
  ListItems& zeilen = Haupt().lvwKatalog.ListItems;
  for (int i = 1; i <= zeilen.Count(); ++i) zeilen(i).SetSelected(i == zeile);
  Haupt().lvwKatalog_ItemClick(zeile);
}

std::vector<Text> Buehne::Titel() {
  std::vector<Text> titel;
  ListItems& zeilen = Haupt().lvwKatalog.ListItems;
  for (int i = 1; i <= zeilen.Count(); ++i) titel.push_back(zeilen(i).SubItems(2));
  return titel;
}

Buehne& Buehne::Macht(ScriptedUser::Action aktion) {
  user.Then(std::move(aktion));
  return *this;
}

Buehne& Buehne::Antwortet(int code) {
  return Macht([this, code](Form& front) {
    std::vector<Control*> knoepfe;  // of the program's message box, or of the desktop's
    for (int i = 0; i < 3; ++i) {
      Control* knopf = front.Find(L"picMboxButton", i);
      if (knopf != nullptr && knopf->Visible) knoepfe.push_back(knopf);
    }
    if (knoepfe.empty()) throw std::logic_error("no message box stands in front");
    platform.hands.Press(code == kJa ? *knoepfe.front() : *knoepfe.back());
  });
}

Buehne& Buehne::WaehltDatei(const Text& datei) {
  return Macht([this, datei](Form& front) {
    auto& dialog = dynamic_cast<frmLoadSave&>(front);
    if (!datei.empty()) platform.hands.Type(dialog.txtDateiName, datei);
    platform.hands.Press(dialog.pbButton(datei.empty() ? 2 : 1));
  });
}

}  // namespace vantora
