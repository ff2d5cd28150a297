#include "editor/EditorColumns.h"

#include "desktop/theme/Theme.h"

#include <QMouseEvent>
#include <QPainter>

#include <functional>

namespace quillon {

namespace {

constexpr int grabWidth = 8; ///< width in which a line can be taken, in points

/// The line between two columns, with room on both sides to take it.
class ColumnLine : public QWidget {
public:
    ColumnLine(const char* name, QWidget* parent) : QWidget(parent) {
        setObjectName(QLatin1String(name));
        setAttribute(Qt::WA_NoSystemBackground);
        setCursor(Qt::SplitHCursor);
        connect(&theme(), &Theme::changed, this, [this] { update(); });
    }

    std::function<void(int)> onMove; ///< to where it is dragged, in points from the parent's left
    std::function<void()> onDoubleClick;

    /// The room to take it lies on its right, where no column has a scroll bar.
    void place(int x, int height) {
        setGeometry(x, 0, grabWidth, height);
        raise();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(QRect(0, 0, extent::line, height()), theme().colors().columnLine);
    }
    void mousePressEvent(QMouseEvent* event) override { m_offset = static_cast<int>(event->position().x()); }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() & Qt::LeftButton) {
            onMove(mapToParent(event->position().toPoint()).x() - m_offset);
        }
    }
    void mouseDoubleClickEvent(QMouseEvent*) override { onDoubleClick(); }

private:
    int m_offset = 0;
};

} // namespace

struct EditorColumns::Parts {
    QWidget* outline;
    QWidget* middle;
    QWidget* inspector;
    ColumnLine outlineLine;
    ColumnLine inspectorLine;
    Sidebars shown;
    ColumnWidths wanted;
};

EditorColumns::EditorColumns(QWidget* outline, QWidget* middle, QWidget* inspector, QWidget* parent)
    : QWidget(parent), m_parts(new Parts{.outline = outline,
                                         .middle = middle,
                                         .inspector = inspector,
                                         .outlineLine = ColumnLine("outlineLine", this),
                                         .inspectorLine = ColumnLine("inspectorLine", this)}) {
    for (QWidget* column : {outline, middle, inspector}) {
        column->setParent(this);
    }
    Parts& parts = *m_parts;
    // A width wanted beyond what fits would make the line stick on its way back.
    parts.outlineLine.onMove = [this, &parts](int x) {
        parts.wanted.outline =
            std::min(x + extent::line, width() - ColumnWidths::smallestMiddle - parts.inspector->width());
        arrange();
        parts.wanted.outline = parts.outline->width();
    };
    parts.inspectorLine.onMove = [this, &parts](int x) {
        const int most = width() - ColumnWidths::smallestMiddle - widths().outline;
        parts.wanted.inspector = std::min(width() - x, most);
        arrange();
        parts.wanted.inspector = widths().inspector;
    };
    parts.outlineLine.onDoubleClick = [this, &parts] {
        parts.wanted.outline = ColumnWidths::usualOutline;
        arrange();
    };
    parts.inspectorLine.onDoubleClick = [this, &parts] {
        parts.wanted.inspector = ColumnWidths::usualInspector;
        arrange();
    };
}

EditorColumns::~EditorColumns() = default;

void EditorColumns::setSidebars(const Sidebars& shown) {
    m_parts->shown = shown;
    arrange();
}

ColumnWidths EditorColumns::widths() const {
    return fitColumns(width(), m_parts->wanted, m_parts->shown);
}

void EditorColumns::resizeEvent(QResizeEvent*) {
    arrange();
}

void EditorColumns::arrange() {
    Parts& parts = *m_parts;
    const ColumnWidths fit = widths();
    parts.outline->setGeometry(0, 0, fit.outline, height());
    parts.outline->setVisible(fit.outline > 0);
    parts.outlineLine.setVisible(fit.outline > 0);
    // The lines are the outer columns' own last points.
    parts.outlineLine.place(fit.outline - extent::line, height());
    parts.middle->setGeometry(fit.outline, 0, fit.middle, height());
    parts.inspector->setGeometry(fit.outline + fit.middle, 0, fit.inspector, height());
    parts.inspector->setVisible(fit.inspector > 0);
    parts.inspectorLine.setVisible(fit.inspector > 0);
    parts.inspectorLine.place(fit.outline + fit.middle, height());
}

} // namespace quillon
