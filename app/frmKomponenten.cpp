#include "app/frmKomponenten.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"

#include <utility>

namespace vantora {

namespace {

constexpr const wchar_t* kScsiZweig = L"ENUM\\SCSI";
constexpr int kVersuche = 5;
constexpr int kVersuchsPauseMs = 200;
constexpr int kStatusMs = 3000;
constexpr int kAutoInsertSchluessel = 20;
constexpr std::size_t kProduktLaenge = 16;  // characters in the description of a drive

}  // namespace

frmKomponenten::frmKomponenten(Programm& programm, EreignisEmpfaenger empfaenger)
    : VtrFenster(programm, L"frmKomponenten"),
      MCD(programm.plattform.mcd),
      ACD(programm.plattform.acd),
      CD(programm.plattform.cd),
      Mp3Play1(programm.plattform.mp3),
      empfaenger_(std::move(empfaenger)) {
  EreignisseVerbinden();
}

frmKomponenten::~frmKomponenten() {
  MCD.Events = McdEvents{};
  ACD.Events = AcdEvents{};
  CD.StatusUpdate = nullptr;
  Mp3Play1.Mp3Play1_ActFrame = nullptr;
  Mp3Play1.Mp3Play1_Failure = nullptr;
  Mp3Play1.Mp3Play1_ThreadEnded = nullptr;
}

void frmKomponenten::EreignisseVerbinden() {
  BrennEmpfaenger& brennen = *empfaenger_.Brennen;
  McdEvents& e = MCD.Events;
  e.MCD_ActTrack = [&brennen](int track) { brennen.MCD_ActTrack(track); };
  e.MCD_TrackPercent = [&brennen](int percent) { brennen.MCD_TrackPercent(percent); };
  e.MCD_InfoMessage = [&brennen](int code, const Text& t) { brennen.MCD_InfoMessage(code, t); };
  e.MCD_StatusChange = [&brennen](int state) { brennen.MCD_StatusChange(state); };
  e.MCD_WriteLeadIn = [&brennen](int mode) { brennen.MCD_WriteLeadIn(mode); };
  e.MCD_WriteLeadOut = [&brennen](int mode) { brennen.MCD_WriteLeadOut(mode); };
  e.MCD_Fixating = [&brennen] { brennen.MCD_Fixating(); };
  e.MCD_Verify = [&brennen](int track, int state) { brennen.MCD_Verify(track, state); };
  e.MCD_BurningProcessComplete = [&brennen](int success) {
    brennen.MCD_BurningProcessComplete(success);
  };
  e.MCD_UserStop = [&brennen] { brennen.MCD_UserStop(); };
  e.MCD_Failure = [&brennen](int code, const Text& text) { brennen.MCD_Failure(code, text); };
  e.MCD_ScsiEvents = [&brennen](int first, int second, int code, int fourth, const Text& text) {
    brennen.MCD_ScsiEvents(first, second, code, fourth, text);
  };
  e.MCD_ASPIEvent = [&brennen](int code, const Text& text) { brennen.MCD_ASPIEvent(code, text); };

  GrabEmpfaenger& grab = *empfaenger_.Grab;
  ACD.Events.ACD_ActPosition = [&grab](int position) { grab.ACD_ActPosition(position); };
  ACD.Events.ACD_ReadComplete = [&grab] { grab.ACD_ReadComplete(); };
  ACD.Events.ACD_Failure = [&grab](int code, const Text& text) { grab.ACD_Failure(code, text); };
  CD.StatusUpdate = [this] { CD_StatusUpdate(); };

  Mp3Empfaenger& mp3 = *empfaenger_.Mp3;
  Mp3Play1.Mp3Play1_ActFrame = [&mp3](int frame) { mp3.Mp3Play1_ActFrame(frame); };
  Mp3Play1.Mp3Play1_Failure = [&mp3](int code, const Text& t) { mp3.Mp3Play1_Failure(code, t); };
  Mp3Play1.Mp3Play1_ThreadEnded = [&mp3] { mp3.Mp3Play1_ThreadEnded(); };
}

// ---- finding the drives ----

void frmKomponenten::LaufwerkeLesen(std::vector<Text>& liste) const {
  std::vector<LaufwerkEintrag> laufwerke;
  prog.LaufwerkListe(laufwerke);
  liste.clear();
  for (const LaufwerkEintrag& laufwerk : laufwerke) liste.push_back(laufwerk.Zeile);
}

void frmKomponenten::CDLaufwerkeLesen(std::vector<Text>& liste) const {
  std::vector<Text> zeilen;
  LaufwerkeLesen(zeilen);
  liste.assign(1, Text());
  for (const Text& zeile : zeilen) {
    if (!Enthaelt(zeile, L"ist eine CD-ROM]")) continue;
    prog.AppLog(L"CheckAudioCD", zeile);
    liste.push_back(Links(zeile, 3));
  }
}

void frmKomponenten::CheckAudioCDRomDevices() {
  const Text ort = L"CheckAudioCDRomDevices";
  prog.AppLog(ort, L"Init ACD");
  ACD_INIT();
  prog.AppLog(ort, L"GetCDDrivLetters");
  std::vector<Text> wurzeln;
  CDLaufwerkeLesen(wurzeln);
  AktCDDevice = 1;
  AktCDDrive = wurzeln.size() > 1 ? wurzeln[1] : Text();
  prog.AppLog(ort, L"SetStartCDDevice:" + ZahlText(AktCDDevice));
  prog.AppLog(ort, L"SetStartCDDrive:" + AktCDDrive);
  SaveSetting(prog.plattform, L"AudioCDROMDrive", AktCDDrive);
  SaveSetting(prog.plattform, L"AudioCDROMDevice", ZahlText(AktCDDevice));
}

void frmKomponenten::LaufwerkeMelden() {
  const Text ort = L"Init_Prog";
  const int anzahl = ACD.DriveCount();
  prog.AppLog(ort, L"ACD say drives:" + ZahlText(anzahl));
  for (int i = 1; i <= anzahl; ++i) {
    // Product, target and LUN stand at fixed positions of the description.
    const Text name = ACD.DriveDescription(i) + Text(32, L' ');
    prog.AppLog(ort, L"ACD say drive:" + ZahlText(i) + L" called:" + Trim(name));
    const Text laufwerk =
        SCSILaufwerkSuchen(name.substr(0, 16), name.substr(20, 2), name.substr(23, 2));
    prog.AppLog(ort, L"WindowsSystem say driveletter for this drive:" + Links(laufwerk, 1));
  }
}

Text frmKomponenten::SCSILaufwerkSuchen(const Text& Produkt, const Text& Ziel,
                                        const Text& LUN) const {
  Registry& registry = prog.plattform.registry;
  Text geraet;
  for (const Text& name : registry.SubKeys(kScsiZweig)) {
    if (!Enthaelt(Ucase(name), Trim(Produkt))) continue;
    geraet = name;
    break;
  }
  const Text zweig = Text(kScsiZweig) + L"\\" + geraet;
  for (const Text& name : registry.SubKeys(zweig)) {
    Text schluessel = zweig;
    schluessel += L"\\";
    schluessel += name;
    const auto wert = [&](const wchar_t* was) { return Trim(registry.Value(schluessel, was)); };
    Text buchstabe = wert(L"CurrentDriveLetterAssignment");
    if (Val(wert(L"SCSILUN")) != Val(LUN) || Val(wert(L"SCSITargetID")) != Val(Ziel)) continue;
    if (prog.plattform.laufwerke.GetDriveType(buchstabe + L":\\") == kDriveCdRom) return buchstabe;
  }
  return Text();
}

bool frmKomponenten::AutoInsertAktiv() const {
  Registry& registry = prog.plattform.registry;
  const std::vector<Text> geraete = registry.SubKeys(kScsiZweig);
  for (std::size_t i = 0; i < geraete.size() && i <= kAutoInsertSchluessel; ++i) {
    const Text zweig = Text(kScsiZweig) + L"\\" + geraete[i];
    const std::vector<Text> erste = registry.SubKeys(zweig);
    if (erste.empty()) continue;
    if (Val(registry.Value(zweig + L"\\" + erste[0], L"AutoInsertNotification")) == 1) return true;
  }
  return false;
}

void frmKomponenten::ACD_INIT() {
  if (ACD.Init() != 0) prog.MsgBoxen(LoadResString(9009), kStopp);
}

void frmKomponenten::ACD_Open() {
  ACD.Init();
  ACD.SelectDevice(AktCDDevice);
  const Text name = Trim(Links(ACD.DriveDescription(AktCDDevice), kProduktLaenge));
  const std::int32_t versatz = GetZahl(prog.plattform, L"Read_Offset_" + name, L"0");
  ACD.ReadOffset(versatz);
  if (versatz != 0) prog.AppLog(L"ACD_Open", name + L" read offset:" + ZahlText(versatz));
  prog.CDPlayerSchliessen();
}

void frmKomponenten::ACD_Close() {
  CDGeschlossen = true;
  ACD.CloseDevice();
  ACD.ResetDevice();
  prog.CDPlayerSchliessen();
}

// ---- the CD control ----

bool frmKomponenten::CD_Check() {
  return CD.Tracks() != 0;
}

Text frmKomponenten::ImageFehler() const {
  const SheetFault fehler = CD.Fault();
  if (fehler.Sheet.empty()) return Text();
  const Text stelle = fehler.Sheet + LoadResString(30071) + ZahlText(fehler.Line);
  Text text = fehler.File.empty() ? LoadResString(30070) + stelle + L"."
                                  : LoadResString(30072) + fehler.File + L" (" + stelle + L").";
  prog.AppLog(L"CD_Check", text);
  return text;
}

int frmKomponenten::GetNumTracks() {
  return CD.Tracks();
}
int frmKomponenten::GetCDLength() {
  return CD.Length();
}

int frmKomponenten::GetTrackLength(int track) {
  CD.Track(track);
  return CD.TrackLength();
}

void frmKomponenten::CD_GetPositionTMS(int& track, int& minute, int& sekunde) {
  if (CD.TimeFormat() != kMciTmsf) CD.TimeFormat(kMciTmsf);
  const auto stelle = static_cast<std::uint32_t>(CD.Position());
  track = static_cast<int>(stelle & 0xFFU);
  minute = static_cast<int>(stelle >> 8U & 0xFFU);
  sekunde = static_cast<int>(stelle >> 16U & 0xFFU);
}

void frmKomponenten::CD_SetFormatMS() {
  CD.TimeFormat(kMciMilliseconds);
}
void frmKomponenten::CD_SetFormatTMSF() {
  CD.TimeFormat(kMciTmsf);
}

// The drive gets several tries, because it may still be spinning up.
void frmKomponenten::CD_Open(const Text& laufwerk) {
  constexpr bool Win98Art = true;  // the drive is given by its root, not by its letter
  int versuche = kVersuche;
  do {
    CD_Close();
    if (ACD.DriveCount() >= 2) {
      CD.FileName(Ucase(Win98Art ? AddBackslash(laufwerk) : Links(laufwerk, 2)));
    }
    CD.DeviceType(L"CDAudio");
    CD.UpdateInterval(kStatusMs);
    CD.Command(L"Open");
    CDModus = CD.Mode();
    prog.AppLog(L"CD_Open", L"Device " + laufwerk + L" Result:" + ZahlText(CDModus));
    prog.CDPlayerSchliessen();
    --versuche;
    prog.plattform.schleife.Sleep(kVersuchsPauseMs);
  } while (CDModus == kMciNotOpen && versuche > 0);
}

void frmKomponenten::CD_Play() {
  CD.Command(L"play");
}
void frmKomponenten::CD_Stop() {
  CD.Command(L"Stop");
}
void frmKomponenten::CD_Pause() {
  CD.Command(L"Pause");
}

void frmKomponenten::CD_SetTrack(int track) {
  CD_SetFormatTMSF();
  CD.To(track);
  CD.Command(L"seek");
}

void frmKomponenten::CD_Close() {
  CD.UpdateInterval(0);
  CD.Command(L"Stop");
  CD.Command(L"Close");
  prog.AppLog(L"CD_Close", L"Device " + AktCDDrive + L" Result:" + ZahlText(CDModus));
}

void frmKomponenten::CD_StatusUpdate() {
  CDModus = CD.Mode();
  prog.plattform.schleife.DoEvents();
}

// ---- MP3 ----

void frmKomponenten::MP3_Init() {
  Mp3Play1.Init();
}

std::int32_t frmKomponenten::MP3_GetMBSize(const Text& datei) {
  Mp3Play1.Open(datei, L"");
  return Ganz32(static_cast<double>(GanzDiv(Abgeschnitten(Mp3Play1.LengthMs() * 176.4), kMB)));
}

}  // namespace vantora
