#include "desktop/widgets/ChoiceRow.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace quillon {

class ChoiceSegment : public QAbstractButton {
public:
    ChoiceSegment(ChoiceRow& row, const Choice& choice, int index)
        : QAbstractButton(&row), m_row(row), m_choice(choice) {
        setCheckable(true);
        setAccessibleName(choice.title);
        setObjectName(choice.title);
        setAttribute(Qt::WA_Hover);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        connect(this, &QAbstractButton::clicked, &row, [&row, index] { row.choose(index); });
    }

    QSize sizeHint() const override { return m_row.segmentSize(m_choice); }
    QSize minimumSizeHint() const override {
        const QSize size = sizeHint();
        return {std::min(size.width(), extent::control), size.height()};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        m_row.paintSegment(painter, rect(), m_choice, widgetState(*this));
    }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
        case Qt::Key_Right:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
            m_row.chooseBy(event->key());
            return;
        default:
            QAbstractButton::keyPressEvent(event);
        }
    }

    // What is chosen is for the binding to say.
    void nextCheckState() override {}

private:
    ChoiceRow& m_row;
    Choice m_choice;
};

ChoiceRow::ChoiceRow(const QString& name, std::vector<Choice> choices, Binding<int> binding, QWidget* parent)
    : QWidget(parent), m_choices(std::move(choices)), m_binding(std::move(binding)),
      m_row(new QHBoxLayout(this)) {
    setAccessibleName(name);
    setObjectName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (const Choice& choice : m_choices) {
        auto* segment = new ChoiceSegment(*this, choice, static_cast<int>(m_segments.size()));
        m_segments.push_back(segment);
        m_row->addWidget(segment);
    }
    m_slide.setStartValue(0.0);
    m_slide.setEndValue(1.0);
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    ChoiceRow::refresh();
}

void ChoiceRow::refresh() {
    const QRectF before = markArea();
    const int count = static_cast<int>(m_segments.size());
    const int index = m_binding.get();
    const int chosen = index >= 0 && index < count ? index : noChoice;
    const bool hasKeyboard = isAncestorOf(window()->focusWidget());
    const int entrance = std::max(chosen, 0);
    for (int at = 0; at < count; ++at) {
        QAbstractButton& segment = *m_segments[static_cast<std::size_t>(at)];
        segment.setChecked(at == chosen);
        segment.setFocusPolicy(at == entrance ? Qt::StrongFocus : Qt::ClickFocus);
    }
    if (hasKeyboard) {
        m_segments[static_cast<std::size_t>(entrance)]->setFocus();
    }
    if (chosen != m_chosen) {
        m_chosen = chosen;
        slideFrom(before);
    }
}

void ChoiceRow::choose(int index) {
    if (index != m_chosen) {
        writeThrough(*this, m_binding, index);
    }
}

void ChoiceRow::chooseBy(int key) {
    const int last = static_cast<int>(m_segments.size()) - 1;
    const auto target = [&] {
        switch (key) {
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        case Qt::Key_Left:
        case Qt::Key_Up:
            return m_chosen - 1;
        default:
            return m_chosen + 1;
        }
    };
    choose(std::clamp(target(), 0, last));
}

QRectF ChoiceRow::markArea() const {
    if (m_chosen == noChoice) {
        return {};
    }
    const QRectF end = m_segments[static_cast<std::size_t>(m_chosen)]->geometry();
    if (m_slide.state() != QAbstractAnimation::Running) {
        return end;
    }
    const double way = m_slide.currentValue().toDouble();
    const auto between = [way](double from, double to) {
        return from + (to - from) * way;
    };
    return {between(m_slideStart.left(), end.left()), end.top(), between(m_slideStart.width(), end.width()),
            end.height()};
}

void ChoiceRow::slideFrom(const QRectF& area) {
    m_slide.stop();
    const int duration = theme().duration(motion::usual);
    if (isVisible() && !area.isEmpty() && m_chosen != noChoice && duration > 0) {
        m_slideStart = area;
        m_slide.setDuration(duration);
        m_slide.start();
    }
    update();
}

} // namespace quillon
