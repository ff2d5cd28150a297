#include "desktop/widgets/TypedText.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>

namespace quillon {

std::optional<QString> TypedText::toShow(Typing typing) {
    if (m_isWriting) {
        return std::nullopt;
    }
    std::string value = m_binding.get();
    if (value == m_seen && (typing == Typing::goesOn || !m_readsOtherwise)) {
        return std::nullopt;
    }
    m_readsOtherwise = false;
    m_seen = std::move(value);
    return QString::fromStdString(*m_seen);
}

void TypedText::write(QWidget& widget, const QString& text) {
    const QPointer<QWidget> remaining(&widget);
    const Binding<std::string> binding = m_binding;
    const std::string typed = text.toStdString();
    m_isWriting = true;
    binding.set(typed);
    if (!remaining) {
        return;
    }
    m_isWriting = false;
    m_seen = binding.get();
    m_readsOtherwise = *m_seen != typed;
}

int movedCaret(QStringView before, QStringView after, int place) {
    const qsizetype beginning = std::ranges::mismatch(before, after).in1 - before.begin();
    if (place > beginning) {
        const qsizetype longest = std::min(before.size(), after.size()) - beginning;
        qsizetype end = 0;
        while (end < longest && before[before.size() - 1 - end] == after[after.size() - 1 - end]) {
            ++end;
        }
        const qsizetype fromEnd = before.size() - place;
        const qsizetype moved =
            fromEnd <= end ? after.size() - fromEnd : std::min<qsizetype>(place, after.size() - end);
        place = static_cast<int>(moved);
    }
    const bool isWithin = place > 0 && place < after.size() && after[place].isLowSurrogate();
    return isWithin ? place - 1 : place;
}

bool isBeingTyped(const QWidget& widget) {
    return widget.window()->focusWidget() == &widget;
}

bool endsTyping(Qt::FocusReason reason) {
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

bool isHistoryKey(const QKeyEvent& key) {
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

void openTextMenu(QMenu* menu, const QPoint& place) {
    // The first group of the toolkit's menu undoes and redoes.
    bool isHistory = true;
    for (QAction* action : menu->actions()) {
        if (isHistory) {
            isHistory = !action->isSeparator();
            menu->removeAction(action);
        }
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(place);
}

} // namespace quillon
