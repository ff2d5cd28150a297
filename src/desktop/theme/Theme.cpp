#include "desktop/theme/Theme.h"

#include "desktop/theme/DesktopPreferences.h"
#include "desktop/theme/ThemeStyle.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPalette>
#include <QPointer>
#include <QScopedValueRollback>
#include <QToolTip>

namespace quillon {

namespace {

QPalette paletteOf(const ThemeColors& colors) {
    QPalette palette;
    const auto set = [&palette](std::initializer_list<QPalette::ColorRole> roles, const QColor& color) {
        for (const QPalette::ColorRole role : roles) {
            palette.setColor(role, color);
        }
    };
    set({QPalette::Window, QPalette::Button, QPalette::AlternateBase}, colors.window);
    set({QPalette::Base, QPalette::ToolTipBase, QPalette::Light, QPalette::Midlight}, colors.surface);
    set({QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
         QPalette::BrightText},
        colors.text);
    set({QPalette::Highlight, QPalette::Link, QPalette::LinkVisited}, colors.accent);
    set({QPalette::HighlightedText}, colors.onAccent);
    set({QPalette::PlaceholderText}, colors.textTertiary);
    set({QPalette::Mid, QPalette::Dark}, colors.selection);
    set({QPalette::Shadow}, colors.shadow);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colors.selection);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colors.text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colors.textTertiary);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colors.selection);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, colors.textTertiary);
    return palette;
}

Appearance appearanceOf(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()
               ? Appearance::Dark
               : Appearance::Light;
}

/// The desktop's font. Where no desktop has chosen one, what fontconfig falls back to is a fifth too wide for
/// a form, and the face that the program brings for its pages serves better.
QString interfaceFamily() {
    const QFont desktop = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const QString fallback = QStringLiteral("DejaVu Sans");
    const QString better = QStringLiteral("Inter");
    const bool isFallback = QFontInfo(desktop).family() == fallback && desktop.family() != fallback;
    return isFallback && QFontDatabase::hasFamily(better) ? better : desktop.family();
}

} // namespace

struct Theme::Parts {
    Appearance appearance = Appearance::Light;
    std::optional<Appearance> pinned;
    std::optional<bool> reducedMotion;
    Appearance desktopPalette = Appearance::Light; ///< what the desktop's own colours amount to
    DesktopPreferences desktop;
    QString family = interfaceFamily();
    bool installed = false;
    bool settingPalette = false;
};

Theme::Theme(QObject* application) : QObject(application), m_parts(std::make_unique<Parts>()) {
    m_parts->desktopPalette = appearanceOf(QApplication::palette());
    m_parts->appearance = m_parts->desktopPalette;
    connect(&m_parts->desktop, &DesktopPreferences::changed, this, &Theme::followDesktop);
}

Theme::~Theme() = default;

void Theme::install() {
    if (m_parts->installed) {
        return;
    }
    m_parts->installed = true;
    QApplication::setStyle(new ThemeStyle());
    QApplication::setFont(font(TextSize::Body));
    qApp->installEventFilter(this);
    show(m_parts->appearance);
}

Appearance Theme::appearance() const {
    return m_parts->appearance;
}

const ThemeColors& Theme::colors() const {
    return themeColors(m_parts->appearance);
}

void Theme::pin(std::optional<Appearance> appearance) {
    m_parts->pinned = appearance;
    followDesktop();
}

void Theme::followDesktop() {
    const Appearance wanted =
        m_parts->pinned.value_or(m_parts->desktop.appearance().value_or(m_parts->desktopPalette));
    if (wanted != m_parts->appearance) {
        show(wanted);
    }
}

void Theme::show(Appearance appearance) {
    const bool isNew = m_parts->appearance != appearance;
    m_parts->appearance = appearance;
    if (m_parts->installed) {
        const QScopedValueRollback<bool> guard(m_parts->settingPalette, true);
        const QPalette palette = paletteOf(colors());
        QApplication::setPalette(palette);
        QToolTip::setPalette(palette);
    }
    if (isNew) {
        Q_EMIT changed();
    }
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    const bool isPalette = event->type() == QEvent::ApplicationPaletteChange && watched == qApp;
    const bool isDesktop = event->type() == QEvent::ThemeChange;
    if (m_parts->settingPalette || (!isPalette && !isDesktop)) {
        return false;
    }
    const QScopedValueRollback<bool> guard(m_parts->settingPalette, true);
    if (isDesktop) {
        m_parts->family = interfaceFamily();
        // The program's palette hides that of the desktop as long as it is set.
        QApplication::setPalette(QPalette());
    }
    m_parts->desktopPalette = appearanceOf(QApplication::palette());
    QMetaObject::invokeMethod(
        this,
        [this] {
            followDesktop();
            show(m_parts->appearance);
        },
        Qt::QueuedConnection);
    return false;
}

QFont Theme::font(TextSize size, QFont::Weight weight) const {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setFamily(m_parts->family);
    font.setPixelSize(static_cast<int>(size));
    font.setWeight(weight);
    return font;
}

QFont Theme::numberFont(TextSize size) const {
    QFont made = font(size);
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    made.setFeature("tnum", 1);
#endif
    return made;
}

QFont Theme::monospacedFont(TextSize size) const {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(static_cast<int>(size));
    return font;
}

int Theme::duration(int milliseconds) const {
    const bool reduced = m_parts->reducedMotion.value_or(m_parts->desktop.reducedMotion().value_or(false));
    return reduced ? 0 : milliseconds;
}

void Theme::setReducedMotion(std::optional<bool> reduced) {
    m_parts->reducedMotion = reduced;
}

Theme& theme() {
    static QPointer<Theme> current;
    if (!current) {
        current = new Theme(qApp);
    }
    return *current;
}

} // namespace quillon
