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
// The folder of temporary files, until the user chooses another one.
inline constexpr const wchar_t* kTempOrdner = L"c:\\windows\\temp";

// Reads and writes one value of the store, for windows that have keys of their own.
Text GetSetting(Plattform& plattform, const Text& schluessel, const Text& sonst);
void SaveSetting(Plattform& plattform, const Text& schluessel, const Text& wert);
// Writes several values with one write of the store.
void SaveSettings(Plattform& plattform, const std::vector<std::pair<Text, Text>>& werte);
void SettingLoeschen(Plattform& plattform, const Text& anwendung, const Text& abschnitt,
                     const Text& schluessel);
// Reads a number. A number that does not fit into the type counts as missing.
std::int32_t GetZahl(Plattform& plattform, const Text& schluessel, const Text& sonst);
std::int16_t GetZahl16(Plattform& plattform, const Text& schluessel, const Text& sonst);

void LoadExtrasSet(Plattform& plattform, Einstellungen& werte);
void SaveExtrasSet(Plattform& plattform, const Einstellungen& werte);

}  // namespace vantora
