#include "desktop/widgets/EmptyState.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace quillon {

namespace {

/// The symbol alone, in the colour of secondary text.
class LargeSymbol : public QWidget {
public:
    LargeSymbol(std::string name, QWidget* parent) : QWidget(parent), m_name(std::move(name)) {
        const int side = static_cast<int>(symbolExtent(symbolSize::emptyState));
        setFixedSize(side, side);
        connect(&theme(), &Theme::changed, this, [this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawSymbol(painter, rect(), m_name, symbolSize::emptyState, theme().colors().textTertiary);
    }

private:
    std::string m_name;
};

/// A text of the middle, wrapped where its line is wider than `extent::emptyStateText` or the place is
/// narrower.
TextLabel* makeText(const QString& text, TextLook look, const char* objectName, QWidget* parent) {
    look.flow = TextFlow::wrapped;
    auto* label = new TextLabel(text, look, parent);
    label->setObjectName(QLatin1String(objectName));
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return label;
}

} // namespace

EmptyState::EmptyState(const Content& content, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("emptyState"));
    setAccessibleName(content.title);
    setAccessibleDescription(content.description);
    auto* middle = new QWidget(this);
    middle->setMaximumWidth(extent::emptyStateText);
    auto* across = new QHBoxLayout(this);
    across->setContentsMargins(distance::around, distance::around, distance::around, distance::around);
    // The middle takes all there is, up to its greatest width; the sides take what it leaves.
    constexpr int nearlyAll = 1000;
    across->addStretch(1);
    across->addWidget(middle, nearlyAll);
    across->addStretch(1);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->setSpacing(distance::beside);
    column->addStretch();
    column->addWidget(new LargeSymbol(content.symbol, middle), 0, Qt::AlignHCenter);
    column->addWidget(makeText(content.title, {TextSize::Title, QFont::DemiBold}, "emptyStateTitle", middle));
    if (!content.description.isEmpty()) {
        const TextLook look = {TextSize::Body, QFont::Normal, &ThemeColors::textSecondary};
        column->addWidget(makeText(content.description, look, "emptyStateText", middle));
    }
    if (content.action) {
        auto* button = new PushButton(content.action->title, ButtonKind::Bordered, {}, middle);
        button->setObjectName(QStringLiteral("emptyStateAction"));
        connect(button, &PushButton::clicked, this, [run = content.action->run] { run(); });
        column->addSpacing(distance::groups - distance::beside);
        column->addWidget(button, 0, Qt::AlignHCenter);
    }
    column->addStretch();
}

} // namespace quillon
