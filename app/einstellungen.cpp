#include "app/einstellungen.h"

#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"

#include "platform/plattform.h"

namespace vantora {

namespace {

// Reads one key after the other. `AlleOptionen` gives the list of keys to reader and writer, so the
// list stands only once. A number that does not fit into its type counts as missing.
class Leser {
 public:
  explicit Leser(Plattform& plattform) : plattform_(plattform) {}

  void Schalter(const wchar_t* schluessel, bool& wert, const wchar_t* sonst) {
    wert = GetZahl(plattform_, schluessel, sonst) == 1;
  }
  // The store may hold 0, 1 or 2 for this switch: 1 and 2 mean on. The program writes only 0 and 1.
  void UndoSchalter(const wchar_t* schluessel, bool& wert, const wchar_t* sonst) {
    const std::int32_t zahl = GetZahl(plattform_, schluessel, sonst);
    wert = zahl == 1 || zahl == 2;
  }
  void Zahl(const wchar_t* schluessel, std::int16_t& wert, const wchar_t* sonst) {
    wert = GetZahl16(plattform_, schluessel, sonst);
  }
  void Zahl(const wchar_t* schluessel, std::int32_t& wert, const wchar_t* sonst) {
    wert = GetZahl(plattform_, schluessel, sonst);
  }
  template <std::size_t N>
  void Feld(const wchar_t* schluessel, FixedText<N>& wert, const wchar_t* sonst) {
    wert = GetSetting(plattform_, schluessel, sonst);
  }

 private:
  Plattform& plattform_;
};

class Schreiber {
 public:
  std::vector<std::pair<Text, Text>> Werte;  // each with its key

  void Schalter(const wchar_t* schluessel, bool wert, const wchar_t* /*sonst*/) {
    Werte.emplace_back(schluessel, wert ? L"1" : L"0");
  }
  void UndoSchalter(const wchar_t* schluessel, bool wert, const wchar_t* sonst) {
    Schalter(schluessel, wert, sonst);
  }
  void Zahl(const wchar_t* schluessel, std::int32_t wert, const wchar_t* /*sonst*/) {
    Werte.emplace_back(schluessel, ZahlText(wert));
  }
  template <std::size_t N>
  void Feld(const wchar_t* schluessel, const FixedText<N>& wert, const wchar_t* /*sonst*/) {
    Werte.emplace_back(schluessel, wert.Getrimmt());
  }
};

template <typename Weg, typename Werte>
void AlleOptionen(Weg& weg, Werte& w) {
  weg.Schalter(L"Show3DAnalysis", w.Show3DAnalysis, L"0");
  weg.Schalter(L"BackgroundPic", w.BackgroundPic, L"1");
  weg.Schalter(L"Show_Start_Assistant", w.Show_Start_Assistant, L"1");
  weg.Schalter(L"CDDBactive", w.CDDBactive, L"0");
  weg.UndoSchalter(L"Undo", w.Undo, L"2");
  weg.Zahl(L"UndoMB", w.UndoMB, L"70");
  weg.Zahl(L"Write_Speed", w.BrennGeschwindigkeit, L"1");
  weg.Zahl(L"Read_Speed", w.Read_Speed, L"1");
  weg.Feld(L"Standard_Wave_Name", w.Standard_Wave_Name, L"*.wav");
  weg.Feld(L"Standard_Catalog_Name", w.Standard_Catalog_Name, L"*.vtr");
  weg.Feld(L"Temporary_Directory", w.Temporary_Directory, kTempOrdner);
  weg.Feld(L"Proxy_Server", w.Proxy_Server, L"");
  weg.Feld(L"Proxy_Port", w.Proxy_Port, L"");
  weg.Zahl(L"Auto_Database", w.Auto_Database, L"1");
  weg.Zahl(L"Auto_Save_Log", w.Auto_Save_Log, L"1");
  weg.Feld(L"Last_Catalogue_Name", w.Last_Catalogue_Name, L"");
  weg.Zahl(L"Last_Catalog_Load", w.Last_Catalog_Load, L"0");
  weg.Zahl(L"Ask_Track_Info", w.Ask_Track_Info, L"0");
  weg.Zahl(L"Number_Burned_CD", w.Number_Burned_CD, L"0");
  weg.Zahl(L"Catalog_Check", w.Catalog_Check, L"0");
}

}  // namespace

Text GetSetting(Plattform& plattform, const Text& schluessel, const Text& sonst) {
  return plattform.einstellungen.GetSetting(kAnwendung, kAbschnitt, schluessel, sonst);
}

std::int16_t GetZahl16(Plattform& plattform, const Text& schluessel, const Text& sonst) {
  std::int16_t wert = Ganz16(Val(sonst));
  Weiter([&] { wert = Ganz16(Val(GetSetting(plattform, schluessel, sonst))); });
  return wert;
}

std::int32_t GetZahl(Plattform& plattform, const Text& schluessel, const Text& sonst) {
  std::int32_t wert = Ganz32(Val(sonst));
  Weiter([&] { wert = Ganz32(Val(GetSetting(plattform, schluessel, sonst))); });
  return wert;
}

void SaveSetting(Plattform& plattform, const Text& schluessel, const Text& wert) {
  plattform.einstellungen.SaveSetting(kAnwendung, kAbschnitt, schluessel, wert);
}

void SaveSettings(Plattform& plattform, const std::vector<std::pair<Text, Text>>& werte) {
  plattform.einstellungen.SaveSettings(kAnwendung, kAbschnitt, werte);
}

void SettingLoeschen(Plattform& plattform, const Text& anwendung, const Text& abschnitt,
                     const Text& schluessel) {
  plattform.einstellungen.DeleteSetting(anwendung, abschnitt, schluessel);
}

void LoadExtrasSet(Plattform& plattform, Einstellungen& werte) {
  Leser leser(plattform);
  AlleOptionen(leser, werte);
}

void SaveExtrasSet(Plattform& plattform, const Einstellungen& werte) {
  Schreiber schreiber;
  AlleOptionen(schreiber, werte);
  schreiber.Werte.emplace_back(L"LängeCD", ZahlText(werte.LängeCD));
  SaveSettings(plattform, schreiber.Werte);
}

}  // namespace vantora
