#include "editor/FindBar.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/PushButton.h"
#include "editor/JSONSourceView.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace quillon {

namespace {

/// Bytes of a selection that is taken for what to search.
constexpr std::size_t longestTaken = 1000;

PushButton* makeButton(const char* objectName, const QString& name, const char* symbol, QWidget* parent) {
    PushButton* button = PushButton::ofSymbol(symbol, name, ButtonKind::Borderless, parent);
    button->setObjectName(QLatin1String(objectName));
    // A click leaves the keyboard in the field.
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

FindBar::FindBar(JSONSourceView& text, QWidget* parent)
    : QWidget(parent), m_text(text), m_field(new QLineEdit(this)), m_count(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    setAutoFillBackground(true);
    m_field->setObjectName(QStringLiteral("findField"));
    m_field->setAccessibleName(tr("Find"));
    m_field->setPlaceholderText(tr("Find"));
    m_field->setClearButtonEnabled(true);
    m_field->setTextMargins(distance::inside, 0, distance::inside, 0);
    m_count->setObjectName(QStringLiteral("findCount"));
    auto* previous = makeButton("findPrevious", tr("Previous match"), "chevron.up", this);
    auto* next = makeButton("findNext", tr("Next match"), "chevron.down", this);
    auto* done = makeButton("findClose", tr("Close"), "xmark", this);
    auto* row = new QHBoxLayout(this);
    row->setSpacing(distance::inside);
    row->setContentsMargins(distance::groups, distance::inside, distance::groups, distance::inside);
    row->addWidget(m_field, 1);
    row->addWidget(m_count);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(done);
    connect(m_field, &QLineEdit::textChanged, this, [this] { search(Then::select); });
    connect(&text, &JSONSourceView::textChanged, this, [this] {
        if (isVisible()) {
            search(Then::stay);
        }
    });
    connect(previous, &QAbstractButton::clicked, this, [this] { go(Direction::backward); });
    connect(next, &QAbstractButton::clicked, this, [this] { go(Direction::forward); });
    connect(done, &QAbstractButton::clicked, this, [this] { close(); });
    m_field->installEventFilter(this);
    text.installEventFilter(this);
    hide();
}

void FindBar::open() {
    const TextRange selection = m_text.selection();
    const std::string_view selected =
        std::string_view(m_text.text()).substr(selection.begin, selection.size());
    show();
    const bool isWithinLine = m_text.lines().lineOf(selection.begin) == m_text.lines().lineOf(selection.end);
    QString wanted = m_field->text();
    if (!selection.isEmpty() && selection.size() <= longestTaken && isWithinLine) {
        wanted = QString::fromUtf8(selected.data(), static_cast<qsizetype>(selected.size()));
    }
    m_field->setFocus();
    if (wanted == m_field->text()) {
        search(Then::select);
    } else {
        m_field->setText(wanted); // searches
    }
    m_field->selectAll();
}

void FindBar::close() {
    // First, as a bar that hides hands the keyboard on to whatever comes next.
    m_text.setFocus();
    hide();
    m_text.setMatches({});
}

void FindBar::search(Then then) {
    m_text.setMatches(TextMatches(m_text.text(), m_field->text().toStdString()));
    const TextMatches& matches = m_text.matches();
    if (matches.count() > 0) {
        setCurrent(matches.firstFrom(m_text.selection().begin) % matches.count(), then);
    }
    showCount();
}

void FindBar::go(Direction direction) {
    if (!isVisible()) {
        open();
        return;
    }
    const TextMatches& matches = m_text.matches();
    const std::size_t count = matches.count();
    if (count == 0) {
        return;
    }
    const TextRange selection = m_text.selection();
    setCurrent(direction == Direction::forward ? matches.firstFrom(selection.end) % count
                                               : (matches.firstFrom(selection.begin) + count - 1) % count,
               Then::select);
    showCount();
}

void FindBar::setCurrent(std::size_t match, Then then) {
    m_current = match;
    m_text.setCurrentMatch(match);
    if (then == Then::select) {
        const TextRange place = m_text.matches().at(match);
        m_text.select(place.begin, place.end);
    }
}

void FindBar::showCount() {
    const std::size_t count = m_text.matches().count();
    if (m_field->text().isEmpty()) {
        m_count->clear();
    } else if (count == 0) {
        m_count->setText(tr("No matches"));
    } else {
        m_count->setText(tr("%1 of %2").arg(m_current + 1).arg(count));
    }
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (key->matches(QKeySequence::Find)) {
        open();
    } else if (isVisible() && key->key() == Qt::Key_Escape) {
        close();
    } else if (key->matches(QKeySequence::FindPrevious) ||
               (watched == m_field && isReturn && key->modifiers().testFlag(Qt::ShiftModifier))) {
        go(Direction::backward);
    } else if (key->matches(QKeySequence::FindNext) || (watched == m_field && isReturn)) {
        go(Direction::forward);
    } else {
        return QWidget::eventFilter(watched, event);
    }
    return true;
}

} // namespace quillon
