// Layouts: where the controls of a window stand, as data. A line a control:
//
//   form WIDTH HEIGHT [picture=NAME] [back=RRGGBB] [border=0|1]
//   name[(index)] LEFT TOP WIDTH HEIGHT [picture= pressed= icon= font= bold= fore= back= align=
//                                        wrap= fill= line= tab= in=]
//   columns name W0 W1 ...
//
// A label with a place in the order of the focus (tab=) takes it. The place of a control that lies
// in a picture box or a shape (in=, name or name(index)) counts from there; one that the window
// makes later holds nothing. Geometry in twips; "#" begins a comment; a name that the window lacks
// is passed over.
#pragma once

#include "platform/form.h"

namespace vantora {

void LayoutLesen(const Text& layout, Form& fenster);

}  // namespace vantora
