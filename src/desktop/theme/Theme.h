#pragma once

#include "desktop/theme/Tokens.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quillon {

/// How the program looks right now. It follows the desktop between light and dark while it runs, unless an
/// appearance is pinned. Widgets ask it whenever they paint; they are repainted at each change.
class Theme : public QObject {
    Q_OBJECT

public:
    ~Theme() override;

    /// Gives the application the program's style, font and palette, and keeps the palette up to date.
    void install();

    Appearance appearance() const;
    const ThemeColors& colors() const;
    /// Keeps to one appearance whatever the desktop does; nothing follows the desktop again.
    void pin(std::optional<Appearance> appearance);

    /// The desktop's interface font.
    QFont font(TextSize size, QFont::Weight weight = QFont::Normal) const;
    /// The same for numbers in fields: figures of one width, where this Qt can ask for them.
    QFont numberFont(TextSize size) const;
    QFont monospacedFont(TextSize size) const;

    /// `milliseconds`, or 0 where motion is to be avoided.
    int duration(int milliseconds) const;
    /// Says whether motion is to be avoided; nothing asks the desktop again.
    void setReducedMotion(std::optional<bool> reduced);

Q_SIGNALS:
    /// After appearance or colours changed; the application's palette has changed already.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend Theme& theme();
    explicit Theme(QObject* application);

    void followDesktop();
    void show(Appearance appearance);

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

/// The theme of the running application, made at its first use, gone with the application.
Theme& theme();

} // namespace quillon
