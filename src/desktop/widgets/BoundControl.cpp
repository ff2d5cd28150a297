#include "desktop/widgets/BoundControl.h"

#include <QWidget>

#include <vector>

namespace quillon {

void refreshControls(QWidget& root) {
    const QPointer<QWidget> remaining(&root);
    if (auto* control = dynamic_cast<BoundControl*>(&root)) {
        control->refresh();
        if (remaining && !control->showsWhatItHolds()) {
            return;
        }
    }
    if (!remaining) {
        return;
    }
    const QObjectList children = root.children();
    const std::vector<QPointer<QObject>> below(children.begin(), children.end());
    for (const QPointer<QObject>& child : below) {
        if (auto* widget = qobject_cast<QWidget*>(child.data())) {
            refreshControls(*widget);
        }
    }
}

} // namespace quillon
