// The splash window, with which the process begins. It shows itself, loads the main window, and
// unloads itself when the main window is ready. F12 pressed while it is shown turns the trace log
// on.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmStartUp final : public VtrFenster {
 public:
  explicit frmStartUp(Programm& programm);

  void Form_Load() override;
  bool Form_KeyDown(int taste, bool strg) override;

  PictureBox picBack{*this, L"picBack"};
  Label lblStatus{*this, L"lblStatus"};
};

}  // namespace vantora
