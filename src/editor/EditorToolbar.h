#pragma once

#include <QWidget>

namespace quillon {

class EditorWindowState;

/// The row at the top of a document window.
class EditorToolbar : public QWidget {
    Q_OBJECT

public:
    /// `state` outlives the toolbar.
    EditorToolbar(EditorWindowState& state, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillon
