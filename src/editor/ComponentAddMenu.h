#pragma once

#include "model/ComponentRole.h"

#include <QMenu>

#include <functional>

namespace quillon {

/// Fills `menu` with everything that can be added to an article, in its sections; `onAdd` is told what was
/// chosen.
void fillComponentAddMenu(QMenu& menu, const std::function<void(const ComponentRole&)>& onAdd);

} // namespace quillon
