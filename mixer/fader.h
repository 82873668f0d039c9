// A fader as on a mixing desk: a track with a knob, a caption above, and a mute box with its own
// caption below. It knows no mixer; it holds a value and reports changes.
//
// Setting Value raises Change, as moving the knob does.
#pragma once

#include "platform/fader_knob.h"
#include "platform/form.h"

#include <utility>
#include <vector>

namespace vantora {

// The stored properties of a control, in the order of writing. A property with its default value is
// not written.
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

  // A value that is passed on to a part of the fader when it is set.
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

  void Refresh();  // places the parts; call it after every change of the fader's size
  Text FB() const { return {}; }
  void Hinweis(const Text& text);  // sets the tooltip of all parts, and the name for screen readers
  std::optional<Text> Read(const Text& property) const override;

  void imgKnopf_MouseDown(int taste);
  void imgKnopf_MouseMove();  // mouse or key has moved the knob
  void imgKnopf_MouseUp(int taste);
  void Check1_Click();
  void lblMute_Click();
  void UserControl_Paint();
  void UserControl_InitProperties();
  void UserControl_ReadProperties(const PropertyBag& bag);
  void UserControl_WriteProperties(PropertyBag& bag) const;

  std::function<void()> Change;  // raised in addition to MouseDown and MouseUp

  // Properties in addition to those of every control. Those marked "stored only" have no effect.
  int BackStyle = 0, BorderStyle = 0;
  Text Description = L"0", Level = L"0", Caption = L"0";  // stored only
  int DeviceTypeMUTE = 0, DeviceIDMUTE = 0;               // stored only
  int DeviceTypeMAIN = 0, DeviceIDMAIN = 0;               // stored only
  Durchgereicht<int> MaxValue{*this, 100, &Fader::KnopfStellen};
  Durchgereicht<int> Value{*this, 0, &Fader::WertGesetzt};               // 0 to MaxValue
  Durchgereicht<int> Mute{*this, 0, &Fader::MuteGesetzt};                // 0 or 1
  Durchgereicht<bool> MuteEnabled{*this, false, &Fader::MuteBedienbar};  // the box can be used
  // Also the text of lblCapt.
  Durchgereicht<Text> Alignment{*this, L"Mic", &Fader::AlignmentGesetzt};
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
