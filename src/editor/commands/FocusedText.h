#pragma once

#include <QPointer>
#include <QWidget>

namespace quillon {

/// The text of a window that has its keyboard focus: a field, the JSON, or the page while some of it is
/// selected. The clipboard's commands are meant for it.
class FocusedText {
public:
    explicit FocusedText(const QWidget& window);

    /// Whether the keyboard is in the menus, for as long as one of them is open.
    static bool isInMenuBar(const QWidget& window);

    explicit operator bool() const { return m_widget; }

    void cut() const { run("cut"); }
    void copy() const { run("copy"); }
    void paste() const { run("paste"); }

private:
    void run(const char* slot) const;

    QPointer<QWidget> m_widget;
};

} // namespace quillon
