// The splash window and the entry of the process: it shows itself, brings up the main window, and
// is gone when that stands. F12 pressed while it is shown turns the trace log on.
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
