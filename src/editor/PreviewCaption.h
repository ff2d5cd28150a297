#pragma once

#include <QWidget>

namespace quillon {

/// The line over a page that says what it is shown for, in a capsule.
class PreviewCaption : public QWidget {
    Q_OBJECT

public:
    explicit PreviewCaption(QWidget* parent);

    void setText(const QString& text);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};

} // namespace quillon
