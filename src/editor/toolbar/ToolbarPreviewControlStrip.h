#pragma once

#include <QWidget>

#include <memory>

namespace quillon {

class EditorWindowState;

/// The pills in the middle of the toolbar: the page or its JSON; of the page, its device with its
/// orientation, and its appearance.
class ToolbarPreviewControlStrip : public QWidget {
    Q_OBJECT

public:
    /// `state` outlives the strip.
    ToolbarPreviewControlStrip(EditorWindowState& state, QWidget* parent);
    ~ToolbarPreviewControlStrip() override;

private:
    void refresh();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
