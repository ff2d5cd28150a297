#pragma once

#include <QTimer>
#include <QVariantAnimation>
#include <QWidget>

#include <optional>

namespace quillon {

class PushButton;

/// Whether the user may end the work that a progress tells of.
enum class Cancelling { Offered, Absent };

/// Tells of work that goes on: a bar while it is known how far it is, a spinner while it is not. Short work
/// shows nothing; what has once shown stays until the end. Its place is kept free in the meantime.
class ProgressIndicator : public QWidget {
    Q_OBJECT

public:
    /// `name` says what is being done; it is read aloud.
    explicit ProgressIndicator(const QString& name, Cancelling cancelling = Cancelling::Absent,
                               QWidget* parent = nullptr);

    /// The work begins; how far it is, is not known.
    void start();
    /// How far the work is, from 0 to 1, or nothing when that is not known. Begins the work if need be.
    void setProgress(std::optional<double> fraction);
    /// The work is over: nothing is shown any more.
    void finish();

    bool isShowing() const { return m_isShowing; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user asked for the end of the work; it goes on until `finish()`.
    void cancelled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void appear();
    void spinAsNeeded();
    QRectF signArea() const;
    void drawSpinner(QPainter& painter, const QRectF& area) const;

    std::optional<double> m_fraction;
    bool m_isShowing = false;
    PushButton* m_cancel = nullptr;
    QTimer m_delay;
    QVariantAnimation m_turn;
};

} // namespace quillon
