#pragma once

#include "desktop/theme/Tokens.h"

#include <QLabel>

namespace quillon {

/// What becomes of a text that is longer than its line.
enum class TextFlow { elided, wrapped };

/// How a text looks.
struct TextLook {
    TextSize size = TextSize::Body;
    QFont::Weight weight = QFont::Normal;
    QColor ThemeColors::*color = &ThemeColors::text;
    TextFlow flow = TextFlow::elided;
};

/// A text that is read only, plain, in a colour of the theme. Elided, it tells the whole of it in a tooltip.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    TextLabel(const QString& text, const TextLook& look, QWidget* parent);

    /// Shows `text` as it is: no character in it stands for a key.
    void setPlainText(const QString& text);
    const QString& plainText() const { return m_text; }
    /// Names `control` for those who hear the window in place of seeing it.
    void setControl(QWidget* control);

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void clicked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void showColor();

    TextLook m_look;
    QString m_text;
};

} // namespace quillon
