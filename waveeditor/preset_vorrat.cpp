#include "waveeditor/preset_vorrat.h"

#include "app/dienste.h"
#include "app/einstellungen.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include <cstddef>
#include <utility>

namespace vantora {

namespace {

constexpr const wchar_t* kPraefixe[] = {L"ZFXEQU", L"ZFXVOL", L"ZFXREV", L"ZFXRES", L"ZFXFLA"};
constexpr const wchar_t* kTrenner = L";";
constexpr int kMitgeliefert = 3;  // presets of equalizer and flanger that the program brings
constexpr int kErsterEqualizer = 31000, kErsterFlanger = 31100;  // numbers of their texts

Text Schluessel(const Text& praefix, int platz) {
  return praefix + ZahlText(platz);
}

}  // namespace

void PresetVorrat::Vorbelegen(const std::function<Text(int nummer)>& text) {
  const auto belegen = [&](Art art, Feld& feld, int platz, int ersterText) {
    const Text schluessel = Schluessel(kPraefixe[art], platz);
    Text& preset = Element(feld, platz);
    preset = GetSetting(plattform_, schluessel, L"");
    if (!preset.empty()) return;
    preset = text(ersterText + platz);
    SaveSetting(plattform_, schluessel, preset);
  };
  for (int i = 0; i < kMitgeliefert; ++i) {
    belegen(kEqualizer, PresetsEqu, i, kErsterEqualizer);
    belegen(kFlanger, PresetsFla, i, kErsterFlanger);
  }
}

PresetVorrat::Feld* PresetVorrat::Vorrat() {
  switch (art_) {
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

std::vector<Text> PresetVorrat::Lesen(int art) {
  art_ = art;
  PresetPrefix = kPraefixe[art];
  std::vector<Text> namen, teile;
  Feld* const vorrat = Vorrat();
  if (vorrat == nullptr) return namen;
  for (int i = 0; i < kPlaetze; ++i) {
    Text& preset = Element(*vorrat, i);
    preset = GetSetting(plattform_, Schluessel(PresetPrefix, i), L"");
    if (preset.empty()) continue;
    Split(preset, kTrenner, teile);
    namen.push_back(teile.front());
  }
  // One pass, so a gap of several places becomes shorter by one place only.
  for (std::size_t i = 0; i + 1 < vorrat->size(); ++i) {
    if ((*vorrat)[i].empty()) std::swap((*vorrat)[i], (*vorrat)[i + 1]);
  }
  return namen;
}

std::vector<Text> PresetVorrat::Teile(int platz) {
  std::vector<Text> teile;
  Split(Element(*Vorrat(), platz), kTrenner, teile);
  return teile;
}

void PresetVorrat::Merken(int platz, const Text& name, const std::vector<int>& werte) {
  Text preset = name;
  for (const int wert : werte) preset += kTrenner + ZahlText(wert);
  Element(*Vorrat(), platz) = preset;
  SaveSetting(plattform_, Schluessel(PresetPrefix, platz), preset);
}

void PresetVorrat::Loeschen(int platz) {
  SettingLoeschen(plattform_, kAnwendung, kAbschnitt, Schluessel(PresetPrefix, platz));
}

}  // namespace vantora
