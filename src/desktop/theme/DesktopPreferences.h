#pragma once

#include "desktop/theme/Tokens.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quillon {

/// What the desktop's settings service says about the look of programs. Where no service answers, nothing is
/// known, for ever; answers come after the event loop has started.
class DesktopPreferences : public QObject {
    Q_OBJECT

public:
    explicit DesktopPreferences(QObject* parent = nullptr);
    ~DesktopPreferences() override;

    std::optional<Appearance> appearance() const; ///< absent: unknown or no preference
    std::optional<bool> reducedMotion() const;    ///< absent: unknown

Q_SIGNALS:
    void changed();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
