// Faces of controls for user input: texts, choices, lists and sliders.

#include "backends/qt/faces/cells.h"
#include "backends/qt/faces/face.h"
#include "backends/qt/faces/slider_widget.h"
#include "backends/qt/look/look.h"
#include "backends/qt/loop/keys.h"
#include "backends/qt/windows/form_window.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace vantora {

namespace {

constexpr int kNoLimit = 32767;

class LineWidget final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<bool(int character)> Accepts;

 protected:
  // Input methods commit composed letters, such as letters with an accent, without a key event.
  void inputMethodEvent(QInputMethodEvent* event) override {
    for (const QChar character : event->commitString()) {
      if (!Accepts(character.unicode())) return event->accept();
    }
    QLineEdit::inputMethodEvent(event);
  }
};

class TextFace final : public Face {
 public:
  TextFace(TextBox& box, FormWindow& window) : TextFace(box, window, new LineWidget(&window)) {}

  void MouseRelease(QMouseEvent& event) override {
    Face::MouseRelease(event);
    if (fresh_ && !line_->hasSelectedText()) line_->selectAll();
    fresh_ = false;
  }
  void FocusChanged(bool in) override {
    const auto* box = As<TextBox>();
    fresh_ = in && box != nullptr && box->SelectOnFocus;
    if (fresh_) line_->selectAll();
    if (!in) line_->deselect();
  }

 private:
  TextFace(TextBox& box, FormWindow& window, LineWidget* line)
      : Face(box, window, line), line_(line) {
    line_->Accepts = [this](int character) { return Accepts(character); };
    QObject::connect(line_, &QLineEdit::textChanged, line_, [this](const QString& text) {
      if (this->window().Syncing()) return;
      if (ByReader() && !Welcome(text)) return;
      Take([&](Control& taken) { static_cast<TextBox&>(taken).Text = look::ToText(text); });
      Fire([](Control& told) {
        if (const auto change = static_cast<TextBox&>(told).Change) change();
      });
    });
  }

  // A screen reader writes the text at once, without keys. Keys that the box would have refused
  // refuse the text, and the box keeps what it had.
  bool Welcome(const QString& text) {
    const auto taken = [this](const QChar letter) { return Accepts(letter.unicode()); };
    if (std::all_of(text.begin(), text.end(), taken)) return true;
    const QSignalBlocker quiet(line_);
    if (const auto* box = As<TextBox>()) line_->setText(look::FromText(box->Text));
    return false;
  }

  bool Accepts(int character) {
    bool accepted = true;
    Fire([&](Control& told) {
      if (const auto press = told.KeyPress) accepted = press(character);
    });
    return accepted;
  }

  void Apply(Control& control) override {
    const auto& box = static_cast<const TextBox&>(control);
    look::InkField(*line_, box);
    line_->setMaxLength(box.MaxLength > 0 ? box.MaxLength() : kNoLimit);
    const QString text = look::FromText(box.Text);
    if (line_->text() == text) return;
    line_->setText(text);
    if (!line_->hasFocus()) {
      line_->setCursorPosition(0);
    } else if (box.SelectOnFocus) {
      line_->selectAll();
    }
  }

  LineWidget* line_;
  bool fresh_ = false;  // got the focus and has not been clicked since
};

// The widget's handler for mouse events of the viewport is protected, so this class makes it
// public.
class LinesWidget final : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;
  using QPlainTextEdit::viewportEvent;
};

class LinesFace final : public Face {
 public:
  LinesFace(TextBox& box, FormWindow& window) : LinesFace(box, window, new LinesWidget(&window)) {}

 private:
  LinesFace(TextBox& box, FormWindow& window, LinesWidget* lines)
      : Face(box, window, lines), lines_(lines) {
    SetSurface(lines_->viewport());
    lines_->setTabChangesFocus(true);
    lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines_->setFrameShape(QFrame::StyledPanel);
    QObject::connect(lines_, &QPlainTextEdit::textChanged, lines_, [this] {
      if (this->window().Syncing()) return;
      Take([&](Control& taken) {
        QString text = lines_->toPlainText();
        static_cast<TextBox&>(taken).Text =
            look::ToText(text.replace(u'\n', QLatin1String("\r\n")));
      });
      Fire([](Control& told) {
        if (const auto change = static_cast<TextBox&>(told).Change) change();
      });
    });
  }

  void Pass(QMouseEvent& event) override {
    if (control() != nullptr) lines_->viewportEvent(&event);
  }

  void Apply(Control& control) override {
    const auto& box = static_cast<const TextBox&>(control);
    look::InkField(*lines_, box);
    QString text = look::FromText(box.Text);
    text.remove(u'\r');
    if (lines_->toPlainText() != text) lines_->setPlainText(text);
  }

  LinesWidget* lines_;
};

void Word(QAbstractButton& button, const Text& caption) {
  const QString words = look::Plain(caption).replace(u'&', QLatin1String("&&"));
  if (button.text() != words) button.setText(words);
}

class CheckFace final : public Face {
 public:
  CheckFace(CheckBox& box, FormWindow& window) : CheckFace(box, window, new QCheckBox(&window)) {}

 private:
  CheckFace(CheckBox& box, FormWindow& window, QCheckBox* check)
      : Face(box, window, check), check_(check) {
    const auto take = [this](bool on) {
      Take([&](Control& taken) { static_cast<CheckBox&>(taken).Value = on ? 1 : 0; });
      FireClick();
    };
    QObject::connect(check_, &QCheckBox::clicked, check_, take);
    QObject::connect(check_, &QCheckBox::toggled, check_, [this, take](bool on) {
      if (ByReader()) take(on);
    });
  }

  bool ClicksByMouse() const override { return false; }

  void Apply(Control& control) override {
    const auto& box = static_cast<const CheckBox&>(control);
    look::Ink(*check_, QPalette::WindowText, look::Of(box.ForeColor));
    Word(*check_, box.Caption);
    check_->setChecked(box.Value != 0);
  }

  QCheckBox* check_;
};

class OptionFace final : public Face {
 public:
  OptionFace(OptionButton& option, FormWindow& window)
      : OptionFace(option, window, new QRadioButton(&window)) {}

 private:
  OptionFace(OptionButton& option, FormWindow& window, QRadioButton* radio)
      : Face(option, window, radio), radio_(radio) {
    window.Group(option.Group())->addButton(radio_);
    const auto take = [this] {
      if (auto* chosen = As<OptionButton>()) chosen->SetValue(true);
      FireClick();
    };
    QObject::connect(radio_, &QRadioButton::clicked, radio_, take);
    QObject::connect(radio_, &QRadioButton::toggled, radio_, [this, take](bool on) {
      if (on && ByReader()) take();
    });
  }

  bool ClicksByMouse() const override { return false; }

  void Apply(Control& control) override {
    const auto& option = static_cast<const OptionButton&>(control);
    look::Ink(*radio_, QPalette::WindowText, look::Of(option.ForeColor));
    Word(*radio_, option.Caption);
    if (radio_->isChecked() == option.Value()) return;
    // An exclusive button group always keeps one button set, but a form may want none.
    QButtonGroup* group = window().Group(option.Group());
    group->setExclusive(false);
    radio_->setChecked(option.Value());
    group->setExclusive(true);
  }

  QRadioButton* radio_;
};

class ComboFace final : public Face {
 public:
  ComboFace(ComboBox& box, FormWindow& window) : ComboFace(box, window, new QComboBox(&window)) {}

 private:
  ComboFace(ComboBox& box, FormWindow& window, QComboBox* combo)
      : Face(box, window, combo), combo_(combo) {
    combo_->setMaxVisibleItems(14);
    QObject::connect(combo_, &QComboBox::activated, combo_, [this](int line) {
      Take([&](Control& taken) { static_cast<ComboBox&>(taken).ListIndex = line; });
      FireClick();
    });
    // A screen reader selects a line of the list without opening it.
    QObject::connect(combo_->view()->selectionModel(), &QItemSelectionModel::selectionChanged,
                     combo_, [this](const QItemSelection& selected) {
                       if (!ByReader() || selected.isEmpty() || combo_->view()->isVisible()) return;
                       Choose(selected.indexes().first().row());
                     });
  }

  bool ClicksByMouse() const override { return false; }

  void Choose(int line) {
    if (line == combo_->currentIndex() || this->window().Refused()) return;
    combo_->setCurrentIndex(line);
    emit combo_->activated(line);
  }

  void Apply(Control& control) override {
    const auto& box = static_cast<const ComboBox&>(control);
    look::InkField(*combo_, box);
    QStringList lines;
    for (const Text& item : box.Items()) lines << look::FromText(item);
    if (lines != lines_) {
      combo_->clear();
      combo_->addItems(lines);
      lines_ = lines;
    }
    if (combo_->currentIndex() != box.ListIndex) combo_->setCurrentIndex(box.ListIndex);
  }

  QComboBox* combo_;
  QStringList lines_;
};

// The widget's handler for mouse events of the viewport is protected, so this class makes it
// public.
class OpenList final : public QListWidget {
 public:
  using QListWidget::QListWidget;
  using QListWidget::viewportEvent;
};

// Keeps lines from being wider than their list. A line that is too long is shortened in its middle,
// since its end matters. A line with tab characters is drawn in columns.
class LineDelegate final : public CellDelegate {
 public:
  LineDelegate(const FormWindow& window, QObject* parent) : CellDelegate(parent), window_(window) {}

  std::vector<int> TabStops;  // in twips

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int needed = CellDelegate::sizeHint(option, index).height();
    const int line = look::Pixels(kListLine, window_.Scale());
    return {1, option.fontMetrics.height() <= line ? line : needed};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    if (TabStops.empty()) return CellDelegate::paint(painter, option, index);
    QStyleOptionViewItem line(option);
    initStyleOption(&line, index);
    QStringList cells = line.text.split(u'\t');
    cells.resize(static_cast<qsizetype>(TabStops.size()));
    if (const QString note = index.data(kNoteRole).toString(); !note.isEmpty()) cells.back() = note;
    line.text.clear();
    const QWidget* list = option.widget;
    list->style()->drawControl(QStyle::CE_ItemViewItem, &line, painter, list);
    const bool chosen = line.state.testFlag(QStyle::State_Selected);
    painter->setFont(line.font);
    painter->setPen(line.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
    for (std::size_t i = 0; i < TabStops.size(); ++i) {
      QRect cell = line.rect.adjusted(Pixels(TabStops[i]), 0, 0, 0);
      if (i + 1 < TabStops.size()) cell.setRight(line.rect.left() + Pixels(TabStops[i + 1]) - 1);
      cell.adjust(kCellMargin, 0, -kCellMargin, 0);
      painter->drawText(cell, Qt::AlignLeft | Qt::AlignVCenter,
                        line.fontMetrics.elidedText(cells[static_cast<qsizetype>(i)],
                                                    Qt::ElideRight, cell.width()));
    }
  }

  static constexpr int kNoteRole = Qt::UserRole;

 protected:
  QString Short(const QString& text, const QFontMetrics& metrics, int width) const override {
    return metrics.elidedText(text, Qt::ElideMiddle, width);
  }

 private:
  static constexpr int kCellMargin = 4;  // pixels
  int Pixels(int twips) const { return look::Pixels(twips, window_.Scale()); }

  const FormWindow& window_;
};

class ListFace final : public Face {
 public:
  ListFace(ListBox& box, FormWindow& window) : ListFace(box, window, new OpenList(&window)) {}

  // The widget has already changed the selection during the mouse or key event. A drag that began
  // on a line may end outside the list.
  void MousePress(QMouseEvent& event) override {
    changed_ = false;
    Face::MousePress(event);
  }
  void MouseRelease(QMouseEvent& event) override {
    Face::MouseRelease(event);
    if (event.button() != Qt::LeftButton) return;
    if (changed_ || list_->indexAt(event.position().toPoint()).isValid()) FireClick();
  }
  void KeyPress(QKeyEvent& event) override {
    changed_ = false;
    if (keys::Walks(event) && list_->selectedItems().isEmpty() && list_->count() > 0) {
      list_->setCurrentRow(keys::FirstRow(event, list_->currentRow(), list_->count()),
                           QItemSelectionModel::ClearAndSelect);
    } else {
      PassKey(event);
    }
    if (changed_) FireClick();
  }

 private:
  ListFace(ListBox& box, FormWindow& window, OpenList* list)
      : Face(box, window, list), list_(list), lines_(new LineDelegate(window, list)) {
    SetSurface(list_->viewport());
    list_->setSelectionMode(box.MultiSelect ? QAbstractItemView::ExtendedSelection
                                            : QAbstractItemView::SingleSelection);
    list_->setUniformItemSizes(true);
    list_->setItemDelegate(lines_);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QObject::connect(list_->verticalScrollBar(), &QScrollBar::valueChanged, list_, [this](int top) {
      Take([&](Control& taken) { static_cast<ListBox&>(taken).TopIndex = top; });
      top_ = top;
      if (this->window().Syncing()) return;
      Fire([](Control& told) {
        if (const auto scroll = static_cast<ListBox&>(told).Scroll) scroll();
      });
    });
    QObject::connect(list_, &QListWidget::itemSelectionChanged, list_, [this] {
      if (this->window().Syncing()) return;
      TakeChoice();
      changed_ = true;
      if (!this->window().Touched()) FireClick();
    });
  }

  bool ClicksByMouse() const override { return false; }
  // The right button does nothing: it would change the selection without a click.
  void Pass(QMouseEvent& event) override {
    if (control() != nullptr && event.button() != Qt::RightButton) list_->viewportEvent(&event);
  }

  static QString Spoken(QString line, const QString& note) {
    return line.replace(u'\t', QLatin1String(", ")) + QLatin1String(", ") + note;
  }

  void TakeChoice() {
    Take([&](Control& taken) {
      auto& box = static_cast<ListBox&>(taken);
      const int lines = std::min(box.ListCount(), list_->count());
      int line = list_->currentRow();
      for (int i = 0; i < lines; ++i) {
        const bool on = list_->item(i)->isSelected();
        if (box.Selected(i) == on) continue;
        box.Select(i, on);
        if (on && !window().Touched()) line = i;  // a screen reader does not move the current line
      }
      if (box.MultiSelect && line < lines) box.ListIndex = line;
    });
  }

  void Apply(Control& control) override {
    const auto& box = static_cast<const ListBox&>(control);
    const int top = box.TopIndex;
    const bool moved = top != top_;
    look::InkField(*list_, box);
    lines_->TabStops = box.TabStops;
    while (list_->count() > box.ListCount()) delete list_->takeItem(list_->count() - 1);
    for (int i = 0; i < box.ListCount(); ++i) {
      const QString text = look::FromText(box.List(i));
      if (i >= list_->count()) {
        list_->addItem(text);
      } else if (list_->item(i)->text() != text) {
        list_->item(i)->setText(text);
      }
      const QString note = look::FromText(box.Note(i));
      if (note == list_->item(i)->data(LineDelegate::kNoteRole).toString()) continue;
      list_->item(i)->setData(LineDelegate::kNoteRole, note);
      list_->item(i)->setData(Qt::AccessibleTextRole, Spoken(text, note));
    }
    if (list_->currentRow() != box.ListIndex) {
      list_->setCurrentRow(box.ListIndex, QItemSelectionModel::NoUpdate);
    }
    for (int i = 0; i < box.ListCount(); ++i) {
      QListWidgetItem* item = list_->item(i);
      if (item->isSelected() != box.Selected(i)) item->setSelected(box.Selected(i));
    }
    if (moved) list_->verticalScrollBar()->setValue(top);
  }

  OpenList* list_;
  LineDelegate* lines_;
  int top_ = 0;  // first visible line, equal in widget and list
  bool changed_ = false;
};

class SliderFace final : public Face {
 public:
  SliderFace(Slider& slider, FormWindow& window)
      : SliderFace(slider, window, new SliderWidget(&window)) {}

 private:
  SliderFace(Slider& slider, FormWindow& window, SliderWidget* widget)
      : Face(slider, window, widget), slider_(widget) {
    QObject::connect(slider_, &QSlider::valueChanged, slider_, [this](int value) {
      if (this->window().Syncing()) return;
      Take([&](Control& taken) { static_cast<Slider&>(taken).Value = value; });
      Fire([](Control& told) {
        if (const auto change = static_cast<Slider&>(told).Change) change();
      });
    });
  }

  void Apply(Control& control) override {
    const auto& slider = static_cast<const Slider&>(control);
    slider_->Set(slider);
  }

  SliderWidget* slider_;
};

}  // namespace

std::unique_ptr<Face> MakeInputFace(Control& control, FormWindow& window) {
  switch (control.Kind()) {
    case ControlKind::TextBox:
      if (auto& box = static_cast<TextBox&>(control); box.MultiLine) {
        return std::make_unique<LinesFace>(box, window);
      } else {
        return std::make_unique<TextFace>(box, window);
      }
    case ControlKind::CheckBox:
      return std::make_unique<CheckFace>(static_cast<CheckBox&>(control), window);
    case ControlKind::OptionButton:
      return std::make_unique<OptionFace>(static_cast<OptionButton&>(control), window);
    case ControlKind::ComboBox:
      return std::make_unique<ComboFace>(static_cast<ComboBox&>(control), window);
    case ControlKind::ListBox:
      return std::make_unique<ListFace>(static_cast<ListBox&>(control), window);
    default:
      return std::make_unique<SliderFace>(static_cast<Slider&>(control), window);
  }
}

}  // namespace vantora
