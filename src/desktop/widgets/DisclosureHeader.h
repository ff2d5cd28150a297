#pragma once

#include <QAbstractButton>
#include <QVariantAnimation>

namespace quillon {

/// The head of a disclosure group: a chevron that turns, and the title. Space, Return and a click toggle,
/// Right opens, Left closes. It only asks; whoever owns it answers with `setOpen`.
class DisclosureHeader : public QAbstractButton {
    Q_OBJECT

public:
    DisclosureHeader(const QString& title, QWidget* parent);

    bool isOpen() const { return m_isOpen; }
    void setOpen(bool isOpen);
    /// What cannot be opened looks so, and the keyboard passes it by.
    void setOpenable(bool isOpenable);
    /// Puts a widget between the chevron and the title.
    void setLeading(QWidget* widget);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void openRequested(bool isOpen);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void turnTo(double angle);
    int titleStart() const;

    QWidget* m_leading = nullptr;
    QVariantAnimation m_turn;
    double m_angle; ///< of the chevron, in degrees
    bool m_isOpen = false;
    bool m_isOpenable = true;
};

} // namespace quillon
