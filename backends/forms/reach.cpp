#include "backends/forms/reach.h"

#include "backends/forms/form_loop.h"

#include <algorithm>

namespace vantora {

namespace {

int RowsOf(const Control& control) {
  if (const auto* view = dynamic_cast<const ListView*>(&control)) return view->ListItems.Count();
  if (const auto* list = dynamic_cast<const ListControl*>(&control)) return list->ListCount();
  Refuse(NameOf(control) + " has no rows");
}

}  // namespace

std::string Utf8(const Text& name) {
  std::string bytes;
  const auto add = [&bytes](unsigned value) { bytes += static_cast<char>(value); };
  for (const wchar_t letter : name) {
    const auto c = std::char_traits<wchar_t>::to_int_type(letter);
    if (c < 0x80) {
      add(c);
    } else if (c < 0x800) {
      add(0xC0U | c >> 6U);
      add(0x80U | (c & 0x3FU));
    } else {
      add(0xE0U | (c >> 12U & 0xFU));
      add(0x80U | (c >> 6U & 0x3FU));
      add(0x80U | (c & 0x3FU));
    }
  }
  return bytes;
}

std::string NameOf(const Form& form) {
  return Utf8(form.Name);
}

std::string NameOf(const Control& control) {
  std::string name = NameOf(control.Owner()) + "." + Utf8(control.Name);
  if (control.Index >= 0) name += "(" + std::to_string(control.Index) + ")";
  return name;
}

void Refuse(const std::string& why) {
  throw Unreachable(why);
}

void Reach(FormLoop& loop, Form& form, bool evenDisabled) {
  const std::string name = NameOf(form);
  if (!form.Visible()) Refuse(name + " is not shown");
  if (loop.Minimized(form)) Refuse(name + " is minimized");
  if (!loop.Reachable(form)) {
    const Form* front = loop.Front();
    Refuse(name + " cannot be reached behind " + (front ? NameOf(*front) : "another window"));
  }
  if (!form.Window.Enabled && !evenDisabled) Refuse(name + " is disabled");
  loop.BringForward(form);
}

void Reach(FormLoop& loop, Control& control) {
  if (!loop.Alive(control)) Refuse("the control is gone");
  Reach(loop, control.Owner());
  if (control.Kind() == ControlKind::Timer) Refuse(NameOf(control) + " cannot be seen");
  if (!control.InSight()) Refuse(NameOf(control) + " is hidden");
  if (!control.InUse()) Refuse(NameOf(control) + " is disabled");
  if (control.Container != nullptr && SeenOf(control).Empty()) {
    Refuse(NameOf(control) + " lies out of sight");
  }
}

void CheckRows(const Control& control, const std::vector<int>& rows) {
  const int count = RowsOf(control);
  for (const int row : rows) {
    if (row >= 1 && row <= count) continue;
    Refuse(NameOf(control) + " has no row " + std::to_string(row) + ", it has " +
           std::to_string(count));
  }
  if (control.Kind() == ControlKind::ComboBox && rows.size() != 1) {
    Refuse(NameOf(control) + " takes exactly one row");
  }
  const auto* list = dynamic_cast<const ListBox*>(&control);
  if (list != nullptr && !list->MultiSelect && rows.size() > 1) {
    Refuse(NameOf(control) + " takes one row only");
  }
}

SeenArea SeenOf(const Control& control) {
  SeenArea seen{0, 0, control.Width, control.Height};
  int x = 0, y = 0;
  for (const Control* inner = &control; inner->Container != nullptr; inner = inner->Container) {
    const Control& outer = *inner->Container;
    x += inner->Left;
    y += inner->Top;
    seen = {std::max(seen.Left, -x), std::max(seen.Top, -y), std::min(seen.Right, outer.Width - x),
            std::min(seen.Bottom, outer.Height - y)};
  }
  return seen;
}

}  // namespace vantora
