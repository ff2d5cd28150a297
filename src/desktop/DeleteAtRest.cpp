#include "desktop/DeleteAtRest.h"

#include <QObject>
#include <QThread>
#include <QTimer>

#include <chrono>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto pause = 50ms; ///< between two looks

} // namespace

void deleteAtRest(QObject* object) {
    QTimer::singleShot(0, object, [object] {
        if (QThread::currentThread()->loopLevel() <= 1) {
            object->deleteLater();
        } else {
            QTimer::singleShot(pause, object, [object] { deleteAtRest(object); });
        }
    });
}

} // namespace quillon
