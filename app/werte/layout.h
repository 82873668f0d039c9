// Layouts describe as data where the controls of a window stand. Each control has one line:
//
//   form WIDTH HEIGHT [picture=NAME] [back=RRGGBB] [border=0|1]
//   name[(index)] LEFT TOP WIDTH HEIGHT [picture= pressed= icon= font= bold= fore= back= align=
//                                        wrap= fill= line= tab= in=]
//   columns name W0 W1 ...
//
// A label gets the focus only if it has a place in the focus order (tab=). The place of a control
// inside a picture box or a shape (in=, name or name(index)) is relative to that container; the
// container must have been made before the control. All measures are in twips; "#" begins a
// comment; a line whose name does not exist in the window is skipped.
#pragma once

#include "platform/form.h"

namespace vantora {

void LayoutLesen(const Text& layout, Form& fenster);

}  // namespace vantora
