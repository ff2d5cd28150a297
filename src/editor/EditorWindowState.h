#pragma once

#include "document/EditorOperations.h"
#include "editor/PreviewPane.h"
#include "preview/ResponsiveArticlePreview.h"

#include <QObject>

namespace quillon {

/// What a document window shows besides its document; it lives as long as the window.
class EditorWindowState : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    PreviewMode mode() const { return m_mode; }
    const PreviewChoice& choice() const { return m_choice; }
    const Sidebars& sidebars() const { return m_sidebars; }

    void setMode(PreviewMode mode) { set(m_mode, mode); }
    void setChoice(const PreviewChoice& choice) { set(m_choice, choice); }
    void setSidebars(const Sidebars& sidebars) { set(m_sidebars, sidebars); }

    void setDevice(PreviewDevice device) { choose(&PreviewChoice::device, device); }
    void setAppearance(PreviewAppearance appearance) { choose(&PreviewChoice::appearance, appearance); }
    void setZoom(double zoom) { choose(&PreviewChoice::zoom, zoom); }
    /// From portrait to landscape or back.
    void flipOrientation();
    void toggleSidebars() { setSidebars(toggledSidebars(m_sidebars)); }
    void toggleOutline() { setSidebars({!m_sidebars.outline, m_sidebars.inspector}); }
    void toggleInspector() { setSidebars({m_sidebars.outline, !m_sidebars.inspector}); }

Q_SIGNALS:
    void changed();

private:
    template <typename Value>
    void set(Value& held, const Value& value) {
        if (!(held == value)) {
            held = value;
            Q_EMIT changed();
        }
    }
    template <typename Value>
    void choose(Value PreviewChoice::*member, const Value& value) {
        set(m_choice.*member, value);
    }

    PreviewMode m_mode = PreviewMode::rendered;
    PreviewChoice m_choice;
    Sidebars m_sidebars;
};

} // namespace quillon
