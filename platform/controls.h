// The controls of a window: plain values that know when they changed, and the handlers that the
// window hangs on them. Nothing here draws; a renderer or a test looks at the values.
// Geometry is in twips (1/1440 inch).
#pragma once

#include "platform/images.h"
#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantora {

class Control;
class Form;

using Color = std::uint32_t;  // 0xRRGGBB
constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) {
  return (red << 16U) | (green << 8U) | blue;
}
constexpr Color kTransparent = 0xFF000000U;

// Key codes as handlers get them; letters and digits are their upper-case code.
enum Key : int {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyReturn = 13,
  kKeyEscape = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyDelete = 46,
  kKeyF1 = 112,
  kKeyF12 = 123,
};

enum MouseButton : int { kLeftButton = 1, kRightButton = 2 };

// A value that marks its control dirty when it really changes.
template <typename T>
class Property {
 public:
  Property(Control& owner, T value) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property& other) { return *this = other.value_; }
  Property& operator=(const T& value);

  const T& operator()() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT: reads like the value it is

 private:
  Control& owner_;
  T value_;
};

enum class ControlKind {
  Label,
  PictureButton,
  TextBox,
  CheckBox,
  OptionButton,
  ComboBox,
  ListBox,
  ListView,
  Slider,
  Shape,
  PictureBox,
  LevelMeter,
  Timer,
};

class Control {
 public:
  // `index` is the place in a control array, -1 for a control of its own.
  Control(Form& form, Text name, int index = -1);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual ControlKind Kind() const = 0;
  // The value of a property as text, as a script or a screen reader would ask for it; flags are
  // "True" and "False". Nothing for a property that the control does not have.
  virtual std::optional<Text> Read(const Text& property) const;

  // Visible with all that it lies in.
  bool InSight() const { return Visible && (Container == nullptr || Container->InSight()); }
  // Enabled with all that it lies in.
  bool InUse() const { return Enabled && (Container == nullptr || Container->InUse()); }
  Form& Owner() { return form_; }
  const Form& Owner() const { return form_; }
  void MarkDirty();

  const Text Name;
  const int Index;

  Property<int> Left{*this, 0}, Top{*this, 0}, Width{*this, 0}, Height{*this, 0};
  Property<bool> Visible{*this, true}, Enabled{*this, true};
  Property<Text> ToolTipText{*this, Text()};
  Property<Text> AccessibleName{*this, Text()};  // blank: the caption or the tooltip serves
  Property<Color> ForeColor{*this, Rgb(235, 238, 245)}, BackColor{*this, kTransparent};
  Property<int> FontSize{*this, 9};  // points
  Property<bool> FontBold{*this, false}, FontItalic{*this, false};
  Property<Text> FontName{*this, Text()};  // of labels and text boxes; blank: the program's own
  Text Tag;
  int TabIndex = 0;  // order of the focus; controls that take none ignore it
  // The control that it lies in, one that was made earlier: its place then counts from there, and
  // it is cut off at the edges, hidden and dimmed with it. Fixed once the window is shown.
  Control* Container = nullptr;
  bool Dirty = true;  // cleared by the renderer

  // Of labels and picture boxes: where the mouse is, in twips from the upper left corner; true
  // while a mouse handler runs. It goes beyond the edges while a button is held.
  int MouseX = 0, MouseY = 0;
  // Of labels and picture boxes: true while KeyDown or a mouse handler runs.
  bool ShiftHeld = false, ControlHeld = false;

  std::function<void()> Click, DblClick, GotFocus, LostFocus;
  std::function<void(int button)> MouseDown, MouseUp;
  std::function<void(int button)> MouseMove;  // labels and picture boxes; 0 for no button
  std::function<void(int key)> KeyDown, KeyUp;
  // Returns false to refuse a typed character (its code, or a control code such as 8).
  std::function<bool(int character)> KeyPress;

 private:
  Form& form_;
};

template <typename T>
Property<T>& Property<T>::operator=(const T& value) {
  if (!(value_ == value)) {
    value_ = value;
    owner_.MarkDirty();
  }
  return *this;
}

enum class Alignment { Left, Right, Center };

class Label : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Label; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Caption{*this, Text()};  // "&" marks no shortcut, line ends break the line
  Property<Alignment> Align{*this, Alignment::Left};
  Property<bool> WordWrap{*this, false};
  Property<int> BorderStyle{*this, 0};  // 1: a thin frame
  // How large words in a font of their own (FontName) are shown. They keep the breadth that they
  // have on paper, so what stands beside each other there does so here.
  Property<double> FontScale{*this, 1.0};
  bool TabStop = false;         // takes the focus; Return and the space bar then act as its click
  const Control* Of = nullptr;  // the button that it is the caption of: with that it goes dim
};

// A button drawn from pictures; also a plain picture when no handler hangs on it.
class PictureButton : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::PictureButton; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Picture{*this, Text()};    // resource name; what is shown now
  Property<Text> Icon{*this, Text()};       // resource name of a picture on top, centred
  Property<double> ClipTop{*this, 0.0};     // shown part of the picture, in shares of its
  Property<double> ClipHeight{*this, 1.0};  // height
  Text PictureReleased, PicturePressed;     // blank: the picture does not change on a press
  bool TabStop = true;  // false: takes no focus; the mouse and the window's own keys press it
};

class TextBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::TextBox; }
  std::optional<vantora::Text> Read(const vantora::Text& property) const override;

  Property<vantora::Text> Text{*this, vantora::Text()};
  Property<int> MaxLength{*this, 0};  // characters, 0 for no limit
  bool SelectOnFocus = true;
  bool MultiLine = false;  // Return begins a line; lines end in "\r\n". Fixed once it is shown.
  std::function<void()> Change;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::CheckBox; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Caption{*this, Text()};
  Property<int> Value{*this, 0};  // 0 or 1
};

// Of the option buttons of one group at most one is set; setting one clears the others.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, Text name, int index, int group);
  ControlKind Kind() const override { return ControlKind::OptionButton; }
  std::optional<Text> Read(const Text& property) const override;

  bool Value() const { return value_(); }
  void SetValue(bool value);
  int Group() const { return group_; }

  Property<Text> Caption{*this, Text()};

 private:
  Property<bool> value_{*this, false};
  int group_;
};

// What combo box and list box share: lines of text and a line that is chosen, from 0, -1 for none.
class ListControl : public Control {
 public:
  using Control::Control;
  std::optional<Text> Read(const Text& property) const override;

  virtual void Clear();
  void AddItem(const Text& item);
  int ListCount() const { return static_cast<int>(items_.size()); }
  const Text& List(int index) const { return items_.at(static_cast<std::size_t>(index)); }
  const std::vector<Text>& Items() const { return items_; }
  Property<int> ListIndex{*this, -1};

 protected:
  std::vector<Text> items_;
};

class ComboBox : public ListControl {
 public:
  using ListControl::ListControl;
  ControlKind Kind() const override { return ControlKind::ComboBox; }
  std::optional<Text> Read(const Text& property) const override;
};

constexpr int kListLine = 240;  // twips; the height of a line of a list box

class ListBox : public ListControl {
 public:
  using ListControl::ListControl;
  ControlKind Kind() const override { return ControlKind::ListBox; }
  std::optional<Text> Read(const Text& property) const override;

  bool MultiSelect = false;
  void Clear() override;  // and nothing is selected
  bool Selected(int index) const;
  void Select(int index, bool selected);  // in a single list the others are cleared
  int SelCount() const;
  Property<int> TopIndex{*this, 0};  // the first line in sight; who shows the list keeps it so
  std::function<void()> Scroll;      // the user has moved the lines

 private:
  std::vector<bool> selected_;
};

class ListView;

class ListItem {
 public:
  explicit ListItem(ListView& list) : list_(list) {}
  const Text& SubItems(int column) const;  // column 0 is the row's first text
  void SetSubItems(int column, const Text& content);
  bool Selected() const { return selected_; }
  void SetSelected(bool selected);

 private:
  ListView& list_;
  std::vector<Text> texts_;
  bool selected_ = false;
};

class ListItems {
 public:
  explicit ListItems(ListView& list) : list_(list) {}
  ListItem& Add();
  void Clear();
  int Count() const { return static_cast<int>(items_.size()); }
  bool empty() const { return items_.empty(); }
  ListItem& operator()(int index) { return items_[Place(index)]; }  // error 9 for no such row
  const ListItem& operator()(int index) const { return items_[Place(index)]; }

 private:
  std::size_t Place(int index) const {
    if (index >= 1 && index <= Count()) return static_cast<std::size_t>(index - 1);
    throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
  }

  ListView& list_;
  std::deque<ListItem> items_;
};

// A table with a head; rows count from 1, several can be selected.
class ListView : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::ListView; }
  std::optional<Text> Read(const Text& property) const override;

  struct Column {
    Text Header;
    int Width;  // twips
  };
  void SetColumns(std::vector<Column> columns);
  const std::vector<Column>& Columns() const { return columns_; }

  vantora::ListItems ListItems{*this};
  std::function<void(int row)> ItemClick;
  std::function<bool(const std::vector<Text>& files)> OLEDragOver;  // false: no drop here
  std::function<void(const std::vector<Text>& files)> OLEDragDrop;

 private:
  std::vector<Column> columns_;
};

class Slider : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Slider; }
  std::optional<Text> Read(const Text& property) const override;

  Property<int> Min{*this, 0}, Max{*this, 100}, Value{*this, 0};
  Property<bool> Vertical{*this, false};  // the minimum is at the top
  bool Upwards = false;                   // of a vertical one: the greatest value is at the top
  // Half of the way to the greatest value is its square root: for levels, from a minimum of 0.
  bool Logarithmic = false;
  std::function<void()> Change;
};

// A filled rectangle: a panel, a line (one side 15 twips) or a bar.
class Shape : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Shape; }

  Property<Color> FillColor{*this, Rgb(53, 55, 99)};
  Property<Color> BorderColor{*this, kTransparent};
  Property<int> Opacity{*this, 100};  // percent; below 100 what lies beneath shines through
};

// What a picture box draws, in twips from its upper left corner, in order.
struct DrawItem {
  enum class What { Line, Polyline, Rectangle, Words, Picture, Polygon } Kind = What::Line;
  std::vector<int> Points;  // x, y, x, y …; rectangle and picture: left, top, right, bottom
  Color Ink = 0;
  Text Content;  // the text, or the picture's resource name
  int FontSize = 9;
  Color Fill = kTransparent;  // of a polygon, whose edge is the ink; either may be transparent
  // Where words stand: from their point to the right, around it, or up to it.
  Alignment Align = Alignment::Left;
  // Of words in a font that is not the windows' own (FontName is not blank). They begin at their
  // point, the corner of the first letter's cell, and are turned around it; Fill lies beneath them.
  Text FontName = {};
  double FontTwips = 0;  // the size of the letters
  bool Bold = false, Italic = false, Underline = false, StrikeOut = false;
  int Angle = 0;    // tenths of a degree, against the clock
  Bild Photo = {};  // of a picture: this one instead of a resource
};

// Takes the focus when something hangs on its KeyDown.
class PictureBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::PictureBox; }
  std::optional<Text> Read(const Text& property) const override;

  void Cls();
  void Draw(DrawItem item);
  const std::vector<DrawItem>& Drawing() const { return drawing_; }
  int Revision() const { return revision_; }  // another one when something else is drawn
  Property<Text> Picture{*this, Text()};      // resource name of the ground

 private:
  std::vector<DrawItem> drawing_;
  int revision_ = 0;
};

enum class Ears { Both, Left, Right };

// Bars of light for what is heard, left and right. A tall one stands upright.
class LevelMeter : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::LevelMeter; }
  std::optional<Text> Read(const Text& property) const override;

  Property<bool> Active{*this, false};
  Property<int> PeakLeft{*this, 0}, PeakRight{*this, 0};  // 0 to 32767
  Property<int> Mark{*this, 0};                           // a peak that is marked, 0 for none
  Ears Shown = Ears::Both;
};

// Runs `OnTimer` every `Interval` milliseconds while it is enabled and its window is loaded.
class Timer : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Timer; }

  Property<int> Interval{*this, 0};
  void Restart();  // on, with a whole interval to go
  int Starts = 0;  // how often that was asked for
  std::function<void()> OnTimer;
};

struct MenuItem {
  Text Name, Caption;
  std::function<void()> Click;
  bool Enabled = true;
};

struct Menu {
  Text Name;
  std::vector<MenuItem> Items;
};

// N controls of one kind under one name, from index 0.
template <typename C, int N>
class ControlArray {
 public:
  ControlArray(Form& form, const Text& name) {
    for (int i = 0; i < N; ++i) items_.push_back(std::make_unique<C>(form, name, i));
  }
  ControlArray(Form& form, const Text& name, int group) {
    for (int i = 0; i < N; ++i) items_.push_back(std::make_unique<C>(form, name, i, group));
  }
  C& operator()(int index) { return *items_.at(static_cast<std::size_t>(index)); }
  const C& operator()(int index) const { return *items_.at(static_cast<std::size_t>(index)); }
  static constexpr int Count() { return N; }

 private:
  std::vector<std::unique_ptr<C>> items_;
};

}  // namespace vantora
