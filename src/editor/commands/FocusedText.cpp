#include "editor/commands/FocusedText.h"

#include "editor/JSONSourceView.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QWebEngineView>

namespace quillon {

namespace {

bool isText(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
           qobject_cast<const QTextEdit*>(widget) || qobject_cast<const JSONSourceView*>(widget);
}

/// The engine's own widgets inside of its view have the focus in its place.
QWebEngineView* pageAround(QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        if (auto* view = qobject_cast<QWebEngineView*>(widget)) {
            return view;
        }
    }
    return nullptr;
}

} // namespace

FocusedText::FocusedText(const QWidget& window) {
    QWidget* focused = window.focusWidget();
    QWebEngineView* page = pageAround(focused);
    if (page && page->hasSelection()) {
        m_widget = page;
    } else if (isText(focused)) {
        m_widget = focused;
    }
}

bool FocusedText::isInMenuBar(const QWidget& window) {
    return qobject_cast<const QMenuBar*>(window.focusWidget()) != nullptr;
}

void FocusedText::run(const char* slot) const {
    if (auto* page = qobject_cast<QWebEngineView*>(m_widget.data())) {
        if (qstrcmp(slot, "copy") == 0) {
            page->triggerPageAction(QWebEnginePage::Copy);
        }
    } else if (m_widget && m_widget->metaObject()->indexOfMethod(QByteArray(slot) + "()") >= 0) {
        QMetaObject::invokeMethod(m_widget, slot);
    }
}

} // namespace quillon
