#pragma once

#include "preview/PreviewFrame.h"

#include <QScrollArea>

#include <memory>
#include <optional>

namespace quillon {

/// Where the page stands in the pane: filling it, or in a device's frame at its middle, which scrolls where
/// it is larger than the pane. The caption lies over the page's corner or stands above the frame.
class PreviewStage : public QScrollArea {
    Q_OBJECT

public:
    /// Takes the page over.
    PreviewStage(QWidget& page, QWidget* parent);
    ~PreviewStage() override;

    /// No frame means that the page fills the pane.
    void setFrame(std::optional<FrameSize> frame);
    void setCaption(const QString& text);
    /// Whether the page has the keyboard and shows it.
    void showKeyboard(bool isShown);
    /// Scrolls by a turn of the wheel, in eighths of a degree, in one direction.
    void turnWheel(const QPoint& turn);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    QSize roomFor(const QSize& content, const QSize& pane) const;

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
