#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

namespace quillon {

/// A line over the preview that tells what became of its page, with one way out of it at most.
class PreviewNote : public QFrame {
    Q_OBJECT

public:
    explicit PreviewNote(QWidget* parent);

    /// Shows `text` until it is closed or, where there is nothing to do, for some seconds. An empty `action`
    /// has no button.
    void tell(const QString& text, const QString& action);
    /// Keeps to the upper edge of its parent.
    void arrange();

Q_SIGNALS:
    void actionChosen();

private:
    QLabel* m_text;
    QToolButton* m_action;
    int m_told = 0;
};

} // namespace quillon
