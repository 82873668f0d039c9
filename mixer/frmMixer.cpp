#include "mixer/frmMixer.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"

#include "platform/twips.h"

#include <utility>

namespace vantora {

namespace {

constexpr int kAbfrageMs = 500;
constexpr int kMuellMs = 200, kLeseMs = 1500;
constexpr std::size_t kKurzerName = 7;  // longest name that fits a fader

class Sanduhr {
 public:
  explicit Sanduhr(EventLoop& schleife) : schleife_(schleife) {
    schleife_.MousePointer(Pointer::Hourglass);
  }
  ~Sanduhr() { schleife_.MousePointer(Pointer::Normal); }
  Sanduhr(const Sanduhr&) = delete;
  Sanduhr& operator=(const Sanduhr&) = delete;

 private:
  EventLoop& schleife_;
};

}  // namespace

frmMixer::frmMixer(Programm& programm) : VtrFenster(programm, L"frmMixer") {
  for (int i = 0; i < kFader; ++i) {
    linien_[static_cast<std::size_t>(i)] = prog.plattform.eqpro.NewMixer();
    Fader(i).Change = [this, i] { Fader_Change(i); };
  }
  Mixer = prog.plattform.eqpro.NewMixer();
  faderMasterOut.Change = [this] { faderMasterOut_Change(); };
  Knopf(imgCloseMixer, [this] { imgCloseMixer_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  tmrWaste.Enabled = tmrGetWinMixerData.Enabled = false;  // these timers do nothing
  tmrWaste.Interval = kMuellMs;
  tmrGetWinMixerData.Interval = kLeseMs;
}

void frmMixer::Form_Load() {
  LayoutAnwenden(Name);
  ToolTipsSetzen(*this);
  FaderVorbereiten(faderMasterOut);
  for (int i = 0; i < kFader; ++i) FaderVorbereiten(Fader(i));
  SkaliereForm(prog, *this);
  MitteSetzen(prog, *this);
  SetTexte();
  InitMixer();
}

void frmMixer::FaderVorbereiten(vantora::Fader& fader) {
  fader.UserControl_InitProperties();
  fader.BackColor = kTransparent;
  fader.Enabled = true;
  fader.CaptionMute = L"";
  fader.Refresh();
}

void frmMixer::SetTexte() {
  Caption = LoadResString(14200);
  lblTitel.Caption = LoadResString(14200);
  lblReproducir.Caption = LoadResString(14201);
  lblGuardar.Caption = LoadResString(14202);
  Beschriften(lblCloseMixer, imgCloseMixer, LoadResString(14203));
  imgCloseMixer.ToolTipText = LoadResString(14400);
  imgHelp.ToolTipText = LoadResString(1);
}

void frmMixer::InitMixer() {
  const Sanduhr sanduhr(prog.plattform.schleife);
  Weiter([&] {
    prog.AppLog(L"Mixer:INITMixer", L"Count Mixer:" + ZahlText(M(0).MixerCount()));
    M(0).Init();
    prog.AppLog(L"Mixer:INITMixer", L"Set Mixer:" + M(0).MixerName(0));
    M(0).MixerIndex(0);
    M(0).SetLineID(kNoLine);
    Fader(0).MuteEnabled = true;
    for (int i = 1; i < kFader; ++i) {
      M(i).Init();
      M(i).PollInterval(kAbfrageMs);
      M(i).MixerIndex(0);
      M(i).SetLineID(kNoLine);
      Fader(i).MuteEnabled = true;
    }
    // With large fonts the faders are smaller, so their parts are placed again.
    if (prog.plattform.bildschirm.TwipsPerPixelX() == kLargeFontTwipsPerPixel) {
      for (int i = 0; i < kFader; ++i) Fader(i).Refresh();
      faderMasterOut.Refresh();
    }
    OutputsSuchen();
    InputsSuchen();
    Mixer->Init();
    Mixer->SetLineID(kMasterLine);
    Mixer->PollInterval(kAbfrageMs);
    Mixer->MixerIndex(0);
    faderMasterOut.MuteEnabled = true;
    faderMasterOut.CaptionFader = LoadResString(14206);
    faderMasterOut.Hinweis(LoadResString(14401) + LoadResString(14206));
    faderMasterOut.Check1.AccessibleName = LoadResString(14204) + L": " + LoadResString(14206);
    faderMasterOut.Check1.Visible = Mixer->HasMute(kMasterLine);
    faderMasterOut.Visible = !Mixer->LineName().empty();
    for (int i = 0; i < kFader; ++i) Fader(i).Visible = M(i).LineID() != kNoLine;
    GetMixerValueFormWindows();
  });
}

void frmMixer::Form_Activate() {
  if (std::exchange(versteckt_, false)) {
    InitMixer();
  } else {
    GetMixerValueFormWindows();
  }
}

void frmMixer::OutputsSuchen() {
  Weiter([&] {
    const int anzahl = M(0).LineOutCount();
    prog.AppLog(L"Mixer:OutputsSuchen", L"Count LineOut:" + ZahlText(anzahl));
    for (int i = 0; i < anzahl && i < kErsterEingang; ++i) {
      const int lineID = M(0).LineOutID(i);
      LinieZeigen(i, lineID);
      prog.AppLog(L"Mixer:OutputsSuchen", L"Channel:" + ZahlText(i) + L"/" + M(i).LineName());
    }
  });
}

void frmMixer::InputsSuchen() {
  Weiter([&] {
    const int anzahl = M(0).LineInCount();
    prog.AppLog(L"Mixer:InputsSuchen", L"Count LineIns:" + ZahlText(anzahl));
    for (int i = 0; i < anzahl && i + kErsterEingang < kFader; ++i) {
      const int platz = i + kErsterEingang;
      LinieZeigen(platz, M(0).LineInID(i));
      prog.AppLog(L"Mixer:InputsSuchen", L"Channel:" + ZahlText(i) + L"/" + M(platz).LineName());
    }
  });
}

void frmMixer::LinieZeigen(int i, int lineID) {
  M(i).SetLineID(lineID);
  const Text name = M(i).LineName();
  Fader(i).CaptionFader = name.substr(0, kKurzerName);
  Fader(i).MuteEnabled = M(i).HasMute(lineID);
  Fader(i).Check1.Visible = Fader(i).MuteEnabled();
  Fader(i).Hinweis(LoadResString(14401) + name);
  if (i >= kErsterEingang) {  // an output may have the same name
    Fader(i).AccessibleName = LoadResString(14202) + L": " + LoadResString(14401) + name;
    Fader(i).imgKnopf.AccessibleName = Fader(i).AccessibleName;
  }
  const Text schalter = LoadResString(i < kErsterEingang ? 14204 : 14205);
  Fader(i).Check1.AccessibleName = schalter + L": " + name;
}

void frmMixer::FaderLesen(vantora::Fader& fader, ucEQPro& linie, bool eingang) {
  fader.Value = Ganz32(static_cast<double>(linie.Volume()) / kFullVolume * 100);
  const bool an = eingang ? linie.Select() : linie.Mute();
  fader.CaptionMute = an ? LoadResString(eingang ? 14205 : 14204) : Text();
  fader.Mute = an ? 1 : 0;
}

void frmMixer::GetMixerValueFormWindows() {
  if (MixerLiest) return;
  MixerLiest = true;
  {
    const Sanduhr sanduhr(prog.plattform.schleife);
    Weiter([&] {
      for (int i = 0; i < kFader; ++i) FaderLesen(Fader(i), M(i), i >= kErsterEingang);
      FaderLesen(faderMasterOut, *Mixer, false);
    });
  }
  MixerLiest = false;
}

void frmMixer::FaderSchreiben(vantora::Fader& fader, ucEQPro& linie, bool eingang) {
  linie.SetVolume(Ganz32(fader.Value() / 100.0 * kFullVolume));
  const bool an = fader.MuteEnabled() && fader.Mute() == 1;
  fader.CaptionMute = an ? LoadResString(eingang ? 14205 : 14204) : Text();
  if (eingang) {
    linie.SetSelect(an);
  } else {
    linie.SetMute(an);
  }
}

void frmMixer::Fader_Change(int Index) {
  if (MixerLiest) return;
  const bool eingang = Index >= kErsterEingang;
  const bool vorher = eingang && M(Index).Select();
  FaderSchreiben(Fader(Index), M(Index), eingang);
  // Many cards record from only one input at a time, so another input may have been deselected.
  if (eingang && M(Index).Select() != vorher) GetMixerValueFormWindows();
}

void frmMixer::faderMasterOut_Change() {
  if (MixerLiest) return;
  FaderSchreiben(faderMasterOut, *Mixer, false);
  prog.plattform.schleife.DoEvents();
}

bool frmMixer::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgCloseMixer_MouseUp();
  return true;
}

void frmMixer::imgCloseMixer_MouseUp() {
  KnopfBild(imgCloseMixer);
  versteckt_ = true;
  prog.plattform.schleife.Hide(*this);
}

}  // namespace vantora
