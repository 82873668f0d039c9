#include "mixer/fader.h"

#include "app/werte/zahlen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kZeile = 270;        // twips; height of a line of text
constexpr int kKasten = 240;       // the mute box
constexpr int kAbstand = 90;       // between the parts
constexpr int kKnopfBreite = 600;  // width of the area in which the knob is drawn
constexpr int kStriche = 10;       // divisions of the scale
constexpr int kStrichLang = 90, kStrichKurz = 60, kPixel = 15;
constexpr Color kStrichFarbe = Rgb(154, 165, 200);

}  // namespace

// ---- properties ----

const Text& PropertyBag::ReadProperty(const Text& name, const Text& otherwise) const {
  for (const auto& [known, value] : content_) {
    if (known == name) return value;
  }
  return otherwise;
}

void PropertyBag::WriteProperty(const Text& name, const Text& value, const Text& otherwise) {
  if (value != otherwise) content_.emplace_back(name, value);
}

struct Fader::Eigenschaft {
  Text Name, Vorgabe;
  Text (*Lesen)(const Fader&);
  void (*Setzen)(Fader&, const Text&);
};

namespace {

template <auto Mitglied>
Text ZahlLesen(const Fader& f) {
  return ZahlText(static_cast<int>(f.*Mitglied));
}
template <auto Mitglied>
void ZahlSetzen(Fader& f, const Text& wert) {
  f.*Mitglied = Ganz32(Val(wert));
}
template <auto Mitglied>
Text TextLesen(const Fader& f) {
  return f.*Mitglied;
}
template <auto Mitglied>
void TextSetzen(Fader& f, const Text& wert) {
  f.*Mitglied = wert;
}
template <auto Mitglied>
Text FlagLesen(const Fader& f) {
  return detail::FlagText(f.*Mitglied);
}
template <auto Mitglied>
void FlagSetzen(Fader& f, const Text& wert) {
  f.*Mitglied = wert == L"True";
}

}  // namespace

// MaxValue comes before Value, because the knob's position depends on both.
const std::vector<Fader::Eigenschaft>& Fader::Eigenschaften() {
  static const std::vector<Eigenschaft> kAlle = {
      {L"BackColor", L"0",
       [](const Fader& f) { return ZahlText(static_cast<double>(f.BackColor())); },
       [](Fader& f, const Text& wert) { f.BackColor = static_cast<Color>(Val(wert)); }},
      {L"ForeColor", L"0",
       [](const Fader& f) { return ZahlText(static_cast<double>(f.ForeColor())); },
       [](Fader& f, const Text& wert) { f.ForeColor = static_cast<Color>(Val(wert)); }},
      {L"Enabled", L"False", FlagLesen<&Fader::Enabled>, FlagSetzen<&Fader::Enabled>},
      {L"Font", L"9", ZahlLesen<&Fader::FontSize>, ZahlSetzen<&Fader::FontSize>},
      {L"BackStyle", L"0", ZahlLesen<&Fader::BackStyle>, ZahlSetzen<&Fader::BackStyle>},
      {L"BorderStyle", L"0", ZahlLesen<&Fader::BorderStyle>, ZahlSetzen<&Fader::BorderStyle>},
      {L"Description", L"0", TextLesen<&Fader::Description>, TextSetzen<&Fader::Description>},
      {L"Level", L"0", TextLesen<&Fader::Level>, TextSetzen<&Fader::Level>},
      {L"MaxValue", L"100", ZahlLesen<&Fader::MaxValue>, ZahlSetzen<&Fader::MaxValue>},
      {L"Value", L"0", ZahlLesen<&Fader::Value>, ZahlSetzen<&Fader::Value>},
      {L"Mute", L"0", ZahlLesen<&Fader::Mute>, ZahlSetzen<&Fader::Mute>},
      {L"DeviceTypeMUTE", L"0", ZahlLesen<&Fader::DeviceTypeMUTE>,
       ZahlSetzen<&Fader::DeviceTypeMUTE>},
      {L"DeviceIDMUTE", L"0", ZahlLesen<&Fader::DeviceIDMUTE>, ZahlSetzen<&Fader::DeviceIDMUTE>},
      {L"DeviceTypeMAIN", L"0", ZahlLesen<&Fader::DeviceTypeMAIN>,
       ZahlSetzen<&Fader::DeviceTypeMAIN>},
      {L"DeviceIDMAIN", L"0", ZahlLesen<&Fader::DeviceIDMAIN>, ZahlSetzen<&Fader::DeviceIDMAIN>},
      {L"MuteEnabled", L"False", FlagLesen<&Fader::MuteEnabled>, FlagSetzen<&Fader::MuteEnabled>},
      {L"Alignment", L"Mic", TextLesen<&Fader::Alignment>, TextSetzen<&Fader::Alignment>},
      {L"Caption", L"0", TextLesen<&Fader::Caption>, TextSetzen<&Fader::Caption>},
      {L"CaptionFader", L"Mic", TextLesen<&Fader::CaptionFader>, TextSetzen<&Fader::CaptionFader>},
      {L"CaptionMute", L"Mute", TextLesen<&Fader::CaptionMute>, TextSetzen<&Fader::CaptionMute>},
  };
  return kAlle;
}

void Fader::UserControl_InitProperties() {
  UserControl_ReadProperties({});
}

void Fader::UserControl_ReadProperties(const PropertyBag& bag) {
  for (const Eigenschaft& e : Eigenschaften()) e.Setzen(*this, bag.ReadProperty(e.Name, e.Vorgabe));
}

void Fader::UserControl_WriteProperties(PropertyBag& bag) const {
  for (const Eigenschaft& e : Eigenschaften()) bag.WriteProperty(e.Name, e.Lesen(*this), e.Vorgabe);
}

std::optional<Text> Fader::Read(const Text& property) const {
  if (std::optional<Text> known = PictureBox::Read(property)) return known;
  for (const Eigenschaft& e : Eigenschaften()) {
    if (e.Name == property) return e.Lesen(*this);
  }
  return std::nullopt;
}

void Fader::KnopfStellen() {
  imgKnopf.Max = MaxValue();
  imgKnopf.Value = std::clamp(Value(), 0, std::max(MaxValue(), 0));
}

void Fader::WertGesetzt() {
  KnopfStellen();
  Melden(Change);
}

void Fader::MuteGesetzt() {
  Check1.Value = Mute() == 0 ? 0 : 1;
}

void Fader::MuteBedienbar() {
  Check1.Enabled = MuteEnabled();
}

void Fader::AlignmentGesetzt() {
  lblCapt.Caption = Alignment();
}

void Fader::CaptionFaderGesetzt() {
  lblCapt.Caption = CaptionFader();
}

void Fader::CaptionMuteGesetzt() {
  lblMute.Caption = CaptionMute();
}

// ---- parts ----

Fader::Fader(Form& form, const Text& name, int index)
    : PictureBox(form, name, index),
      lblCapt(form, L"lblCapt", index),
      lblFaderBack(form, L"lblFaderBack", index),
      imgKnopf(form, L"imgKnopf", index),
      Check1(form, L"Check1", index),
      lblMute(form, L"lblMute", index) {
  for (Control* teil : {static_cast<Control*>(&lblCapt), static_cast<Control*>(&lblFaderBack),
                        static_cast<Control*>(&imgKnopf), static_cast<Control*>(&Check1),
                        static_cast<Control*>(&lblMute)}) {
    teil->Container = this;
  }
  lblCapt.Align = lblMute.Align = vantora::Alignment::Center;
  imgKnopf.MouseDown = [this](int taste) { imgKnopf_MouseDown(taste); };
  imgKnopf.MouseUp = [this](int taste) { imgKnopf_MouseUp(taste); };
  imgKnopf.Change = [this] { imgKnopf_MouseMove(); };
  Check1.Click = [this] { Check1_Click(); };
  lblMute.Click = [this] { lblMute_Click(); };
  UserControl_InitProperties();
}

void Fader::Refresh() {
  lblFaderBack.Caption = Check1.Caption = Text();
  const auto mitte = [this](Control& teil, int oben, int breite, int hoehe) {
    teil.Left = (Width - breite) / 2;
    teil.Top = oben;
    teil.Width = breite;
    teil.Height = hoehe;
  };
  const int bahn = kZeile + kAbstand;
  const int unten = Height - kZeile - kKasten - kAbstand;
  mitte(lblCapt, 0, Width, kZeile);
  mitte(lblFaderBack, bahn, kPixel, std::max(unten - kAbstand - bahn, 0));
  mitte(imgKnopf, bahn, kKnopfBreite, lblFaderBack.Height);
  mitte(Check1, unten, kKasten, kKasten);
  mitte(lblMute, Height - kZeile, Width, kZeile);
  UserControl_Paint();
}

// Draws the scale: a line at both sides for every tenth of the knob's travel.
void Fader::UserControl_Paint() {
  Cls();
  const int weg = lblFaderBack.Height - FaderKnob::kKnobHeight;
  const int oben = lblFaderBack.Top + FaderKnob::kKnobHeight / 2;
  for (int i = 0; i <= kStriche && weg > 0; ++i) {
    const int y = oben + weg * i / kStriche;
    const int lang = i % (kStriche / 2) == 0 ? kStrichLang : kStrichKurz;
    const int links = imgKnopf.Left - kPixel, rechts = imgKnopf.Left + imgKnopf.Width;
    for (const int x : {links - lang, rechts}) {
      Draw({DrawItem::What::Line, {x, y, x + lang, y}, kStrichFarbe, {}});
    }
  }
}

void Fader::Hinweis(const Text& text) {
  ToolTipText = text;
  lblCapt.ToolTipText = imgKnopf.ToolTipText = lblMute.ToolTipText = Check1.ToolTipText = text;
  imgKnopf.AccessibleName = text;
}

// Calls a copy, because the handler may replace itself.
void Fader::Melden(const std::function<void()>& ereignis) {
  if (const auto ruf = ereignis) ruf();
}

void Fader::imgKnopf_MouseDown(int taste) {
  if (const auto ruf = MouseDown) ruf(taste);
}

void Fader::imgKnopf_MouseMove() {
  Value = imgKnopf.Value();
}

void Fader::imgKnopf_MouseUp(int taste) {
  if (const auto ruf = MouseUp) ruf(taste);
  if (taste == kLeftButton) Melden(Change);
}

void Fader::Check1_Click() {
  Mute = Check1.Value();
  Melden(Change);
}

void Fader::lblMute_Click() {
  if (!Check1.InUse() || !Check1.InSight()) return;
  Check1.Value = Check1.Value() == 0 ? 1 : 0;
  Check1_Click();
}

}  // namespace vantora
