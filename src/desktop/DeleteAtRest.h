#pragma once

class QObject;

namespace quillon {

/// Deletes `object` in a later turn in which no event loop runs within another. `deleteLater` does so within
/// the loop that it is called from, and while something is dragged out of a widget that loop is the widget's
/// own.
void deleteAtRest(QObject* object);

} // namespace quillon
