#include "tests/support/buehne.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace vantora {

namespace {

std::string LittleEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i, value >>= 8U) text += static_cast<char>(value & 0xFFU);
  return text;
}

std::string WaveBytes(std::int64_t frames) {
  const auto data = static_cast<std::uint32_t>(frames * 4);
  std::string bytes = "RIFF" + LittleEndian(data + 36, 4) + "WAVEfmt " + LittleEndian(16, 4) +
                      LittleEndian(1, 2) + LittleEndian(2, 2) + LittleEndian(44100, 4) +
                      LittleEndian(176400, 4) + LittleEndian(4, 2) + LittleEndian(16, 2) + "data" +
                      LittleEndian(data, 4);
  bytes.reserve(bytes.size() + data);
  for (std::int64_t i = 0; i < frames; ++i) {
    bytes += LittleEndian(static_cast<std::uint32_t>(i * 2654435761LL), 4);
  }
  return bytes;
}

std::filesystem::path ResourceSources() {
  return std::filesystem::path(VANTORA_SOURCE_DIR) / "resources";
}

}  // namespace

TemporaryHome::TemporaryHome() {
  std::string pattern = (std::filesystem::temp_directory_path() / "vantora-test-XXXXXX").string();
  path_ = mkdtemp(pattern.data());
}

TemporaryHome::~TemporaryHome() {
  std::error_code none;
  std::filesystem::remove_all(path_, none);
}

bool ScriptedUser::Act(Form* front) {
  if (front == nullptr || next_ >= actions_.size()) return false;
  const Action action = actions_[next_++];
  if (auto* box = dynamic_cast<Label*>(front->Find(L"lblMbMeldung"))) Said.push_back(box->Caption);
  action(*front);
  return true;
}

Buehne::Buehne(const Umbau& umbau)
    : platform(home.Path(), ResourceSources()), bundle(umbau(platform)), prog(bundle) {
  platform.loop.TheUser = &user;
  SaveSetting(platform.bundle, L"Show_Start_Assistant", L"0");
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
  Datei(datei, WaveBytes(frames));
}

void Buehne::Datei(const Text& pfad, const std::string& bytes) {
  const std::filesystem::path ort = platform.machine.files.SystemPath(pfad);
  std::filesystem::create_directories(ort.parent_path());
  std::ofstream(ort, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string Buehne::Lies(const Text& pfad) {
  std::ifstream datei(platform.machine.files.SystemPath(pfad), std::ios::binary);
  return {std::istreambuf_iterator<char>(datei), std::istreambuf_iterator<char>()};
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
    if (auto* box = dynamic_cast<frmMBox*>(&front)) {
      const bool einzeln = box->picMboxButton(2).Visible;
      platform.hands.Press(box->picMboxButton(code == kJa ? 0 : einzeln ? 2 : 1));
      return;
    }
    for (int i = 2; i >= 0; --i) {  // the desktop's own box: its last button
      Control* knopf = front.Find(L"picMboxButton", i);
      if (knopf == nullptr || !knopf->Visible) continue;
      platform.hands.Press(*knopf);
      return;
    }
    throw std::logic_error("no message box stands in front");
  });
}

Buehne& Buehne::WaehltDatei(const std::vector<Text>& dateien) {
  return Macht([this, dateien](Form& front) {
    auto& dialog = dynamic_cast<frmLoadSave&>(front);
    if (dateien.empty()) {
      platform.hands.Press(dialog.pbButton(2));
    } else if (dateien.size() == 1) {
      platform.hands.Type(dialog.txtDateiName, dateien.front());
      platform.hands.Press(dialog.pbButton(1));
    } else {
      const Text name = DateiNameOhnePfad(dateien.front());
      platform.hands.Type(dialog.txtDateiName,
                          dateien.front().substr(0, dateien.front().size() - name.size() - 1));
      platform.hands.Press(dialog.pbButton(1));
      std::vector<int> zeilen;
      for (int i = 0; i < dialog.lstDatei.ListCount(); ++i) {
        for (const Text& datei : dateien) {
          if (DateiNameOhnePfad(datei) == dialog.lstDatei.List(i)) zeilen.push_back(i + 1);
        }
      }
      platform.hands.Select(dialog.lstDatei, zeilen);
      platform.hands.Press(dialog.pbButton(1));
    }
  });
}

}  // namespace vantora
