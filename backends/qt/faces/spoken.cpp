#include "backends/qt/faces/spoken.h"

#include <QAccessibleWidget>
#include <QComboBox>
#include <QGuiApplication>
#include <QListView>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace vantora {

namespace {

constexpr int kLinePixels =
    12;  // widgets that are this close in height are read from left to right

// A text that is read as a whole and cannot be changed.
class WholeText : public QAccessibleTextInterface {
 public:
  virtual QString Whole() const = 0;

  void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int /*position*/) override {}
  QString text(int start, int end) const override { return Whole().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(Whole().size()); }
  QRect characterRect(int /*offset*/) const override { return {}; }
  int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }
};

QList<QWidget*> PartsOf(const QWidget& widget);

bool Silent(const QWidget& widget) {
  if (widget.isHidden()) return true;
  const auto* spoken = dynamic_cast<const Spoken*>(&widget);
  return spoken != nullptr && spoken->Says().Role == QAccessible::NoRole &&
         PartsOf(widget).isEmpty();
}

// The widgets in `widget` that a screen reader finds, in the order of reading.
QList<QWidget*> PartsOf(const QWidget& widget) {
  QList<QWidget*> parts;
  for (QObject* child : widget.children()) {
    auto* part = qobject_cast<QWidget*>(child);
    if (part != nullptr && !part->isWindow() && !Silent(*part)) parts << part;
  }
  const auto place = [](const QWidget* part) {
    const QPoint middle = part->geometry().center();
    return std::pair(middle.y() / kLinePixels, middle.x());
  };
  std::stable_sort(parts.begin(), parts.end(),
                   [&](const QWidget* a, const QWidget* b) { return place(a) < place(b); });
  return parts;
}

class SpokenWidget final : public QAccessibleWidget,
                           public QAccessibleValueInterface,
                           public WholeText {
 public:
  SpokenWidget(QWidget* widget, Spoken* spoken) : QAccessibleWidget(widget), spoken_(spoken) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface && Says().Percent >= 0) {
      return static_cast<QAccessibleValueInterface*>(this);
    }
    if (type == QAccessible::TextInterface && !Says().Value.isEmpty()) {
      return static_cast<QAccessibleTextInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
  }

  QAccessible::Role role() const override {
    return Says().Role == QAccessible::NoRole ? QAccessible::Grouping : Says().Role;
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = widget()->isModal();
    state.checkable = Says().State != Lamp::None;
    state.checked = Says().State == Lamp::On;
    state.readOnly = role() == QAccessible::StaticText;
    return state;
  }
  using WholeText::text;
  // A hint that only repeats the name would be read twice.
  QString text(QAccessible::Text wanted) const override {
    if (wanted == QAccessible::Value && Says().Percent >= 0) {
      return QString::number(Says().Percent) + QStringLiteral(" %");
    }
    if (wanted == QAccessible::Value && !Says().Value.isEmpty()) return Says().Value;
    const QString words = QAccessibleWidget::text(wanted);
    const bool repeats =
        wanted == QAccessible::Description && words == QAccessibleWidget::text(QAccessible::Name);
    return repeats ? QString() : words;
  }

  int childCount() const override { return static_cast<int>(PartsOf(*widget()).size()); }
  QAccessibleInterface* child(int index) const override {
    return QAccessible::queryAccessibleInterface(PartsOf(*widget()).value(index));
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child == nullptr ? -1 : static_cast<int>(PartsOf(*widget()).indexOf(child->object()));
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (spoken_->Press && widget()->isEnabled()) names.prepend(Action());
    return names;
  }
  void doAction(const QString& name) override {
    if (name != Action()) return QAccessibleWidget::doAction(name);
    if (!spoken_->Press || !widget()->isEnabled()) return;
    QTimer::singleShot(0, widget(), [spoken = spoken_] {
      if (const auto press = spoken->Press) press();  // a copy: a press can change the control
    });
  }

  QString Whole() const override { return Says().Value; }

  QVariant currentValue() const override { return Says().Percent; }
  void setCurrentValue(const QVariant& /*value*/) override {}
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return 100; }
  QVariant minimumStepSize() const override { return 1; }

 private:
  const Said& Says() const { return spoken_->Says(); }
  const QString& Action() const {
    return Says().State == Lamp::None ? pressAction() : toggleAction();
  }

  Spoken* spoken_;
};

// A combo box. The toolkit's own interface gives the chosen line as its name.
class SpokenCombo final : public QAccessibleWidget, public WholeText {
 public:
  explicit SpokenCombo(QComboBox* combo) : QAccessibleWidget(combo, QAccessible::ComboBox) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::TextInterface) return QAccessibleWidget::interface_cast(type);
    return static_cast<QAccessibleTextInterface*>(this);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = Combo()->view()->isVisible();
    state.hasPopup = true;
    return state;
  }
  using WholeText::text;
  QString text(QAccessible::Text wanted) const override {
    return wanted == QAccessible::Value ? Whole() : QAccessibleWidget::text(wanted);
  }
  QString Whole() const override { return Combo()->currentText(); }

  int childCount() const override { return 1; }
  QAccessibleInterface* child(int index) const override {
    return index == 0 ? QAccessible::queryAccessibleInterface(Combo()->view()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && child->object() == Combo()->view() ? 0 : -1;
  }

  QStringList actionNames() const override {
    return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (name != showMenuAction()) return QAccessibleWidget::doAction(name);
    if (!Combo()->isEnabled()) return;
    QTimer::singleShot(0, Combo(), [combo = Combo()] {
      combo->view()->isVisible() ? combo->hidePopup() : combo->showPopup();
    });
  }

 private:
  QComboBox* Combo() const { return static_cast<QComboBox*>(widget()); }
};

// The program. The toolkit keeps the windows of forms that were closed for a while.
class SpokenProgram final : public QAccessibleApplication {
 public:
  int childCount() const override { return static_cast<int>(Windows().size()); }
  QAccessibleInterface* child(int index) const override { return Windows().value(index); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const QList<QAccessibleInterface*> windows = Windows();
    for (qsizetype i = 0; i < windows.size(); ++i) {
      if (windows[i] == child) return static_cast<int>(i);
    }
    return -1;
  }

 private:
  static QList<QAccessibleInterface*> Windows() {
    QList<QAccessibleInterface*> windows;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
      QAccessibleInterface* root = window->isVisible() ? window->accessibleRoot() : nullptr;
      if (root != nullptr && root->object() != nullptr) windows << root;
    }
    return windows;
  }
};

QAccessibleInterface* Find(const QString& /*kind*/, QObject* object) {
  if (object == qApp) return new SpokenProgram;
  if (auto* combo = qobject_cast<QComboBox*>(object)) return new SpokenCombo(combo);
  auto* spoken = dynamic_cast<Spoken*>(object);
  return spoken == nullptr ? nullptr : new SpokenWidget(static_cast<QWidget*>(object), spoken);
}

}  // namespace

void Spoken::Say(QWidget& widget, const Said& said) {
  if (said == said_) return;
  const Said before = std::exchange(said_, said);
  if (!QAccessible::isActive()) return;
  if (said.Percent != before.Percent) {
    QAccessibleValueChangeEvent changed(&widget, said.Percent);
    QAccessible::updateAccessibility(&changed);
  }
  if (said.State != before.State) {
    QAccessible::State bits;
    bits.checked = true;
    QAccessibleStateChangeEvent changed(&widget, bits);
    QAccessible::updateAccessibility(&changed);
  }
  if (said.Value != before.Value) {
    QAccessibleTextUpdateEvent changed(&widget, 0, before.Value, said.Value);
    QAccessible::updateAccessibility(&changed);
  }
}

void LetScreenReadersIn() {
  QAccessible::installFactory(Find);
}

}  // namespace vantora
