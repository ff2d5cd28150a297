#pragma once

#include "base/Binding.h"

#include <QString>
#include <QWidget>

#include <optional>
#include <string>

class QKeyEvent;
class QMenu;

namespace quillon {

/// A text that is typed somewhere, and the value it stands for. While it is typed it stays as typed, though
/// the value may read otherwise ("3.0" reads "3"), until that becomes another one.
class TypedText {
public:
    explicit TypedText(Binding<std::string> binding) : m_binding(std::move(binding)) {}

    enum class Typing { goesOn, isOver };

    /// What is to be shown in place of the text that is there; none where that may stay.
    std::optional<QString> toShow(Typing typing);
    /// Writes what was typed into `widget`, of which this is a part. The write may be the end of both.
    void write(QWidget& widget, const QString& text);

private:
    Binding<std::string> m_binding;
    std::optional<std::string> m_seen; ///< the value when it was last shown or written
    bool m_readsOtherwise = false;     ///< than what was typed
    bool m_isWriting = false;
};

/// Where a caret at `place` of `before` comes to stand once the text is `after`: beside what it stood beside,
/// and never within a character.
int movedCaret(QStringView before, QStringView after, int place);

/// Whether the last keyboard of `widget`'s window was `widget`, even where another window has it now.
bool isBeingTyped(const QWidget& widget);
/// Whether the keyboard is gone for good, and not just until a menu closes or the window comes back.
bool endsTyping(Qt::FocusReason reason);

/// Whether `key` undoes or redoes. Fields leave that to their window, which undoes in the document.
bool isHistoryKey(const QKeyEvent& key);
/// Opens the toolkit's menu of a field that can be typed into, without undo and redo, at `place` of the
/// screen.
void openTextMenu(QMenu* menu, const QPoint& place);

} // namespace quillon
