// Reads and writes the options of the program in the settings store, each under its key.
#pragma once

#include "app/zustand/einstellungen.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace vantora {

struct Plattform;

inline constexpr const wchar_t* kAnwendung = L"Quillmark";
inline constexpr const wchar_t* kAbschnitt = L"VTR";

// One value of the store, for windows that keep keys of their own.
Text GetSetting(Plattform& plattform, const Text& schluessel, const Text& sonst);
void SaveSetting(Plattform& plattform, const Text& schluessel, const Text& wert);
// Several at once, which writes the store only once.
void SaveSettings(Plattform& plattform, const std::vector<std::pair<Text, Text>>& werte);
void SettingLoeschen(Plattform& plattform, const Text& anwendung, const Text& abschnitt,
                     const Text& schluessel);
// A number; one that its width cannot hold counts as not there.
std::int32_t GetZahl(Plattform& plattform, const Text& schluessel, const Text& sonst);
std::int16_t GetZahl16(Plattform& plattform, const Text& schluessel, const Text& sonst);

void LoadExtrasSet(Plattform& plattform, Einstellungen& werte);
void SaveExtrasSet(Plattform& plattform, const Einstellungen& werte);

}  // namespace vantora
