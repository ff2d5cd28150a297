#pragma once

#include "document/ColumnWidths.h"

#include <QWidget>

#include <memory>

namespace quillon {

/// Three columns side by side: outline, middle and inspector. The lines between them are dragged to give the
/// outer ones other widths, which they keep while the window changes; a double click brings the usual width
/// back.
class EditorColumns : public QWidget {
    Q_OBJECT

public:
    /// The columns become children of this.
    EditorColumns(QWidget* outline, QWidget* middle, QWidget* inspector, QWidget* parent);
    ~EditorColumns() override;

    void setSidebars(const Sidebars& shown);
    /// As they stand now, in points.
    ColumnWidths widths() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
