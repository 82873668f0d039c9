// Named sets of effect settings. Those of equalizer, volume, restoration and flanger lie in the
// settings store, a line of text each: the name and then the values, between semicolons. The rooms
// of the hall lie in a file beside the program.

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>

namespace vantora {

namespace {

enum : int { kEqualizer = 0, kLautstaerke = 1, kHall = 2, kRestauration = 3, kFlanger = 4 };

constexpr const wchar_t* kPraefixe[] = {L"ZFXEQU", L"ZFXVOL", L"ZFXREV", L"ZFXRES", L"ZFXFLA"};
constexpr const wchar_t* kTrenner = L";";
constexpr const wchar_t* kReverbDatei = L"Reverb.ini";
constexpr int kMitgeliefert = 3;  // presets of equalizer and flanger that the program brings

Text Schluessel(const Text& praefix, int platz) {
  return praefix + ZahlText(platz);
}

}  // namespace

// ---- making ----

void frmWaveEditor::PresetsEinrichten() {
  Knopf(imgEQPresets, [this] { imgEQPresets_MouseUp(); });
  Knopf(imgVolumePresets, [this] { imgVolumePresets_MouseUp(); });
  Knopf(imgRestPresets, [this] { imgRestPresets_MouseUp(); });
  Knopf(imgFlangerPresets, [this] { imgFlangerPresets_MouseUp(); });
  for (int i = 0; i < imgEddPres.Count(); ++i) {
    Knopf(imgEddPres(i), [this, i] { imgEddPres_MouseUp(i); });
  }
  Knopf(imgOK, [this] { imgOK_MouseUp(); });
  lstPresets.Click = [this] { lstPresets_Click(); };
  txtPresName.KeyPress = [this](int taste) { return txtPresName_KeyPress(taste); };
  comboPreset.Click = [this] { comboPreset_Click(); };
  picPresets.Visible = false;
}

void frmWaveEditor::TextePresets() {
  lblPresets.Caption = LoadResString(21221);
  Hinweis(lstPresets, 21456);
  Hinweis(txtPresName, 21483);
  Hinweis(imgEddPres(0), 21409);
  Hinweis(imgEddPres(1), 21410);
  Hinweis(imgOK, 21429);
}

void frmWaveEditor::PresetsVorbelegen() {
  constexpr int kErsterEqualizer = 31000, kErsterFlanger = 31100;
  const auto belegen = [this](int panel, PresetFeld& feld, int platz, int text) {
    const Text schluessel = Schluessel(kPraefixe[panel], platz);
    Text& preset = Element(feld, platz);
    preset = GetSetting(prog.plattform, schluessel, L"");
    if (!preset.empty()) return;
    preset = LoadResString(text + platz);
    SaveSetting(prog.plattform, schluessel, preset);
  };
  for (int i = 0; i < kMitgeliefert; ++i) {
    belegen(kEqualizer, PresetsEqu, i, kErsterEqualizer);
    belegen(kFlanger, PresetsFla, i, kErsterFlanger);
  }
}

// ---- the kinds ----

frmWaveEditor::PresetFeld* frmWaveEditor::PresetsDesPanels() {
  switch (AktivesPanel) {
    case kEqualizer:
      return &PresetsEqu;
    case kLautstaerke:
      return &PresetsVol;
    case kRestauration:
      return &PresetsRes;
    case kFlanger:
      return &PresetsFla;
    default:
      return nullptr;
  }
}

std::vector<frmWaveEditor::PresetWert> frmWaveEditor::PresetWerte() {
  std::vector<PresetWert> werte;
  switch (AktivesPanel) {
    case kEqualizer:
      for (int i = 0; i < MMSliderX1.Count(); ++i) werte.emplace_back(&MMSliderX1(i));
      werte.emplace_back(&chkLoudness);
      return werte;
    case kLautstaerke:
      return {&slVolume, &chkVolume, &slGaterAttack, &slGaterThreshold, &chkGateraktiv};
    case kRestauration:
      return {&slDeclick,        &chkDeclickAktiv, &slDenoiser,
              &chkDenoiserAktiv, &slDecrackle,     &chkDecrackleAktiv};
    case kFlanger:
      return {&slFlangerMix, &slFlangerFeedback, &slFlangerDepth, &slFlangerRate};
    default:
      return werte;
  }
}

// ---- the list ----

void frmWaveEditor::InitPresets() {
  lstPresets.Clear();
  txtPresName.Text = L"";
  PresetPrefix = kPraefixe[AktivesPanel];
  if (PresetFeld* presets = PresetsDesPanels()) {
    std::vector<Text> teile;
    for (int i = 0; i < kPresets; ++i) {
      Text& preset = Element(*presets, i);
      preset = GetSetting(prog.plattform, Schluessel(PresetPrefix, i), L"");
      if (preset.empty()) continue;
      Split(preset, kTrenner, teile);
      lstPresets.AddItem(teile.front());
    }
    // One pass, so that of a gap of several places one closes. The store keeps its places.
    for (std::size_t i = 0; i + 1 < presets->size(); ++i) {
      if ((*presets)[i].empty()) std::swap((*presets)[i], (*presets)[i + 1]);
    }
  }
  picPresets.Visible = true;
}

void frmWaveEditor::imgOK_MouseUp() {
  picPresets.Visible = false;
}

void frmWaveEditor::lstPresets_Click() {
  const PresetFeld* presets = PresetsDesPanels();
  if (lstPresets.ListIndex < 0 || presets == nullptr) return;
  txtPresName.Text = lstPresets.List(lstPresets.ListIndex);
  std::vector<Text> teile;
  Split(Element(*presets, lstPresets.ListIndex), kTrenner, teile);
  int teil = 0;
  for (const PresetWert& wert : PresetWerte()) {
    const double zahl = Val(Element(teile, ++teil));
    if (Slider* const* schieber = std::get_if<Slider*>(&wert)) {
      Setzen(**schieber, zahl);
    } else {
      Setzen(*std::get<CheckBox*>(wert), Runden(zahl) == 1 ? 1 : 0);
    }
  }
  PresetKnoepfeZeigen();
  CheckRestEffekte();
  CheckAllEffekte();
}

void frmWaveEditor::PresetKnoepfeZeigen() {
  if (AktivesPanel == kEqualizer) KnopfZeigen(imgLoudness, chkLoudness, L"WAVE_EQBUTT");
  if (AktivesPanel == kLautstaerke) {
    KnopfZeigen(imgVolumeByPass, chkVolume, L"WAVE_VOLUMEBYPASS");
    KnopfZeigen(imgGaterBypass, chkGateraktiv, L"WAVE_VOLUMEBYPASS");
  }
  if (AktivesPanel != kRestauration) return;
  KnopfZeigen(imgDeclickByPass, chkDeclickAktiv, L"WAVE_RESTAURATIONBYPASS");
  KnopfZeigen(imgDenoiserByPass, chkDenoiserAktiv, L"WAVE_RESTAURATIONBYPASS");
  KnopfZeigen(imgDecrackleByPass, chkDecrackleAktiv, L"WAVE_RESTAURATIONBYPASS");
}

// ---- adding and deleting ----

bool frmWaveEditor::txtPresName_KeyPress(int taste) {
  if (taste != kKeyReturn) return true;
  const Text name = txtPresName.Text;
  const std::vector<Text>& namen = lstPresets.Items();
  if (std::find(namen.begin(), namen.end(), name) != namen.end()) {
    prog.MsgBoxen(LoadResString(21006), kHinweis, LoadResString(21007));
    return true;
  }
  PresetFeld* presets = PresetsDesPanels();
  if (name.empty() || presets == nullptr) return true;
  lstPresets.AddItem(name);
  Text preset = name;
  for (const PresetWert& wert : PresetWerte()) {
    const int zahl = std::visit([](const auto* control) -> int { return control->Value; }, wert);
    preset += kTrenner + ZahlText(zahl);
  }
  // The list takes one name more than there are places; the place is what fails then.
  const int platz = lstPresets.ListCount() - 1;
  Element(*presets, platz) = preset;
  SaveSetting(prog.plattform, Schluessel(PresetPrefix, platz), preset);
  return true;
}

void frmWaveEditor::imgEddPres_MouseUp(int index) {
  if (index == 0) {
    txtPresName_KeyPress(kKeyReturn);
    return;
  }
  SettingLoeschen(prog.plattform, kAnwendung, kAbschnitt,
                  Schluessel(PresetPrefix, lstPresets.ListIndex));
  InitPresets();
}

// ---- the rooms of the hall ----

Text frmWaveEditor::ReverbDatei() const {
  return AddBackslash(prog.AppPfad) + kReverbDatei;
}

// The rooms are the user's to change, so they lie in a file of the application directory, and come
// back when that has gone. An editor without rooms is one all the same.
void frmWaveEditor::ReverbDateiAnlegen() {
  const Text datei = ReverbDatei();
  if (prog.DateiExistiert(datei)) return;
  std::string bytes;
  for (const wchar_t zeichen : prog.plattform.ressourcen.Supplement(kReverbDatei)) {
    bytes += static_cast<char>(ByteIn1252(zeichen));
  }
  if (bytes.empty()) return;
  const bool ganz = Weiter(
      [&] { prog.plattform.dateien.Open(datei, Zugriff::Neu)->Write(bytes.data(), bytes.size()); });
  if (!ganz)
    Weiter([&] { prog.plattform.dateien.Kill(datei); });  // half a file would stay for good
}

void frmWaveEditor::ReverbPresetsLaden() {
  ReverbDateiAnlegen();
  MMHelperX& helfer = prog.plattform.mmtools.Helper();
  for (int i = 0;; ++i) {
    const Text name = helfer.IniSection(i, ReverbDatei());
    if (helfer.Len(name) == 0) return;
    comboPreset.AddItem(helfer.Mid(name, helfer.InStr(name, L".") + 1));
  }
}

void frmWaveEditor::comboPreset_Click() {
  if (comboPreset.ListIndex < 0) return;
  Reverb->LoadFromIni(ReverbDatei(), comboPreset.List(comboPreset.ListIndex));
}

}  // namespace vantora
