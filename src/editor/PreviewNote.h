#pragma once

#include <QWidget>

namespace quillon {

class PushButton;
class TextLabel;

/// A card over the lower edge of the preview that tells what became of its page, with one way out of it at
/// most.
class PreviewNote : public QWidget {
    Q_OBJECT

public:
    explicit PreviewNote(QWidget* parent);

    /// Shows `text` until it is closed or, where there is nothing to do, for some seconds. An empty `action`
    /// has no button.
    void tell(const QString& text, const QString& action);
    /// Keeps to the middle of its parent's lower edge.
    void arrange();

Q_SIGNALS:
    void actionChosen();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextLabel* m_text;
    PushButton* m_action;
    int m_told = 0;
};

} // namespace quillon
