#include "editor/FindBar.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

#include <algorithm>

namespace quillon {

namespace {

QToolButton* makeButton(const char* objectName, const QString& name, std::string_view symbol,
                        QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setIcon(symbolIcon(symbol));
    button->setAutoRaise(true);
    return button;
}

} // namespace

FindBar::FindBar(QPlainTextEdit& text, QWidget* parent)
    : QWidget(parent), m_text(text), m_field(new QLineEdit(this)), m_count(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    setAutoFillBackground(true);
    m_field->setObjectName(QStringLiteral("findField"));
    m_field->setAccessibleName(tr("Find"));
    m_field->setPlaceholderText(tr("Find"));
    m_field->setClearButtonEnabled(true);
    m_count->setObjectName(QStringLiteral("findCount"));
    auto* previous = makeButton("findPrevious", tr("Previous match"), "chevron.up", this);
    auto* next = makeButton("findNext", tr("Next match"), "chevron.down", this);
    auto* done = makeButton("findClose", tr("Close"), "xmark", this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(distance::groups, distance::inside, distance::groups, distance::inside);
    row->addWidget(m_field, 1);
    row->addWidget(m_count);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(done);
    connect(m_field, &QLineEdit::textChanged, this, [this] { search(); });
    connect(&text, &QPlainTextEdit::textChanged, this, [this] {
        if (isVisible()) {
            search();
        }
    });
    connect(previous, &QToolButton::clicked, this, [this] { go(Direction::backward); });
    connect(next, &QToolButton::clicked, this, [this] { go(Direction::forward); });
    connect(done, &QToolButton::clicked, this, [this] { close(); });
    m_field->installEventFilter(this);
    text.installEventFilter(this);
    hide();
}

void FindBar::open() {
    const QString selected = m_text.textCursor().selectedText();
    show();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) {
        m_field->setText(selected);
    }
    m_field->setFocus();
    m_field->selectAll();
    search();
}

void FindBar::close() {
    // First, as a bar that hides hands the keyboard on to whatever comes next.
    m_text.setFocus();
    hide();
}

void FindBar::search() {
    const QString needle = m_field->text();
    const QString text = m_text.toPlainText();
    m_places.clear();
    for (qsizetype place = needle.isEmpty() ? -1 : text.indexOf(needle, 0, Qt::CaseInsensitive); place >= 0;
         place = text.indexOf(needle, place + needle.size(), Qt::CaseInsensitive)) {
        m_places.push_back(static_cast<int>(place));
    }
    if (!m_places.empty()) {
        const auto next =
            std::lower_bound(m_places.begin(), m_places.end(), m_text.textCursor().selectionStart());
        select(next == m_places.end() ? 0 : static_cast<std::size_t>(next - m_places.begin()));
    }
    showCount();
}

void FindBar::go(Direction direction) {
    if (m_places.empty()) {
        return;
    }
    const std::size_t count = m_places.size();
    select((m_current + (direction == Direction::forward ? 1 : count - 1)) % count);
    showCount();
}

void FindBar::select(std::size_t place) {
    m_current = place;
    QTextCursor cursor = m_text.textCursor();
    cursor.setPosition(m_places[place]);
    cursor.setPosition(m_places[place] + static_cast<int>(m_field->text().size()), QTextCursor::KeepAnchor);
    m_text.setTextCursor(cursor);
}

void FindBar::showCount() {
    if (m_field->text().isEmpty()) {
        m_count->clear();
    } else if (m_places.empty()) {
        m_count->setText(tr("No matches"));
    } else {
        m_count->setText(tr("%1 of %2").arg(m_current + 1).arg(m_places.size()));
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
    } else if (isVisible() && (key->matches(QKeySequence::FindPrevious) ||
                               (watched == m_field && isReturn && (key->modifiers() & Qt::ShiftModifier)))) {
        go(Direction::backward);
    } else if (isVisible() && (key->matches(QKeySequence::FindNext) || (watched == m_field && isReturn))) {
        go(Direction::forward);
    } else {
        return QWidget::eventFilter(watched, event);
    }
    return true;
}

} // namespace quillon
