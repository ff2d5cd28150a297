#pragma once

#include "desktop/theme/Painting.h"

#include <QAbstractButton>

#include <string>

namespace quillon {

/// A button with a title, a symbol, or both.
class PushButton : public QAbstractButton {
    Q_OBJECT

public:
    /// `title` names the button even where only its symbol is shown. `symbol` may be empty.
    explicit PushButton(const QString& title, ButtonKind kind = ButtonKind::Bordered, std::string symbol = {},
                        QWidget* parent = nullptr);

    /// A square button that shows `symbol`; its `name` is read aloud and stands in its tool tip.
    static PushButton* ofSymbol(std::string symbol, const QString& name,
                                ButtonKind kind = ButtonKind::Borderless, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Shows { Title, SymbolOnly };

    ButtonKind m_kind;
    std::string m_symbol;
    Shows m_shows = Shows::Title;
};

} // namespace quillon
