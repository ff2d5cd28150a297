#pragma once

#include "desktop/theme/Painting.h"
#include "gallery/GalleryRow.h"

namespace quillon {

/// Makes a widget that stands like `state`.
using MakeInState = std::function<QWidget*(QWidget* parent, const ControlState& state)>;

/// A row that shows a widget at rest, below the pointer, pressed, with the keyboard, chosen, and disabled.
GalleryRow rowOfStates(const QString& name, const MakeInState& make);

} // namespace quillon
