// A fader as on a mixing desk: a track with a knob, a caption above it, a mute box with a caption
// of its own below it. It knows nothing of mixers; it holds a value and reports changes.
//
// Setting Value reports Change like a hand on the knob does, so who sets it must expect the echo.
#pragma once

#include "platform/fader_knob.h"
#include "platform/form.h"

#include <utility>
#include <vector>

namespace vantora {

// What a control's properties are kept in, in the order in which they were written. A property that
// has its default is not written.
class PropertyBag {
 public:
  const Text& ReadProperty(const Text& name, const Text& otherwise) const;
  void WriteProperty(const Text& name, const Text& value, const Text& otherwise);
  const std::vector<std::pair<Text, Text>>& Content() const { return content_; }

 private:
  std::vector<std::pair<Text, Text>> content_;
};

class Fader final : public PictureBox {
 public:
  Fader(Form& form, const Text& name, int index = -1);

  // A value whose setting goes on to a part of the fader.
  template <typename T>
  class Durchgereicht {
   public:
    Durchgereicht(Fader& fader, T wert, void (Fader::*gesetzt)())
        : fader_(fader), wert_(std::move(wert)), gesetzt_(gesetzt) {}
    Durchgereicht(const Durchgereicht&) = delete;
    Durchgereicht& operator=(const Durchgereicht&) = delete;
    Durchgereicht& operator=(const T& wert) {
      if (!(wert_ == wert)) fader_.MarkDirty();
      wert_ = wert;
      (fader_.*gesetzt_)();
      return *this;
    }
    const T& operator()() const { return wert_; }
    operator const T&() const { return wert_; }  // NOLINT: reads like the value it is

   private:
    Fader& fader_;
    T wert_;
    void (Fader::*gesetzt_)();
  };

  void Refresh();  // puts the parts where they belong; after every change of the fader's size
  Text FB() const { return {}; }
  void Hinweis(const Text& text);  // tooltip of all parts, and the name that is read aloud
  std::optional<Text> Read(const Text& property) const override;

  void imgKnopf_MouseDown(int taste);
  void imgKnopf_MouseMove();  // the value has moved with the knob, or by a key
  void imgKnopf_MouseUp(int taste);
  void Check1_Click();
  void lblMute_Click();
  void UserControl_Paint();
  void UserControl_InitProperties();
  void UserControl_ReadProperties(const PropertyBag& bag);
  void UserControl_WriteProperties(PropertyBag& bag) const;

  std::function<void()> Change;  // beside MouseDown and MouseUp

  // Properties beside those of every control; what is stored only, means nothing here.
  int BackStyle = 0, BorderStyle = 0;
  Text Description = L"0", Level = L"0", Caption = L"0";  // stored only
  int DeviceTypeMUTE = 0, DeviceIDMUTE = 0;               // stored only
  int DeviceTypeMAIN = 0, DeviceIDMAIN = 0;               // stored only
  Durchgereicht<int> MaxValue{*this, 100, &Fader::KnopfStellen};
  Durchgereicht<int> Value{*this, 0, &Fader::WertGesetzt};                 // 0 to MaxValue
  Durchgereicht<int> Mute{*this, 0, &Fader::MuteGesetzt};                  // 0 or 1
  Durchgereicht<bool> MuteEnabled{*this, false, &Fader::MuteBedienbar};    // the box can be used
  Durchgereicht<Text> Alignment{*this, L"Mic", &Fader::AlignmentGesetzt};  // text of lblCapt, too
  Durchgereicht<Text> CaptionFader{*this, L"Mic", &Fader::CaptionFaderGesetzt};
  Durchgereicht<Text> CaptionMute{*this, L"Mute", &Fader::CaptionMuteGesetzt};

  Label lblCapt, lblFaderBack;  // caption; the track
  FaderKnob imgKnopf;
  CheckBox Check1;
  Label lblMute;

 private:
  struct Eigenschaft;
  static const std::vector<Eigenschaft>& Eigenschaften();

  void KnopfStellen();
  void WertGesetzt();
  void MuteGesetzt();
  void MuteBedienbar();
  void AlignmentGesetzt();
  void CaptionFaderGesetzt();
  void CaptionMuteGesetzt();
  void Melden(const std::function<void()>& ereignis);
};

}  // namespace vantora
