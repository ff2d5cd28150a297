#include "desktop/widgets/EmptyState.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/TextLabel.h"

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
    label->setMaximumWidth(extent::emptyStateText);
    return label;
}

} // namespace

EmptyState::EmptyState(const Content& content, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("emptyState"));
    setAccessibleName(content.title);
    setAccessibleDescription(content.description);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(distance::around, distance::around, distance::around, distance::around);
    column->setSpacing(distance::beside);
    column->addStretch();
    column->addWidget(new LargeSymbol(content.symbol, this), 0, Qt::AlignHCenter);
    column->addWidget(makeText(content.title, {TextSize::Title, QFont::DemiBold}, "emptyStateTitle", this));
    if (!content.description.isEmpty()) {
        const TextLook look = {TextSize::Body, QFont::Normal, &ThemeColors::textSecondary};
        column->addWidget(makeText(content.description, look, "emptyStateText", this));
    }
    if (content.action) {
        auto* button = new PushButton(content.action->title, ButtonKind::Bordered, {}, this);
        button->setObjectName(QStringLiteral("emptyStateAction"));
        connect(button, &PushButton::clicked, this, [run = content.action->run] { run(); });
        column->addSpacing(distance::groups - distance::beside);
        column->addWidget(button, 0, Qt::AlignHCenter);
    }
    column->addStretch();
}

} // namespace quillon
