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

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    void refresh();
    void showPageControls(bool areShown);
    void arrange();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
