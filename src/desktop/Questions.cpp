#include "desktop/Questions.h"

#include "desktop/theme/Symbols.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpacerItem>

#include <utility>

namespace quillon {

namespace {

/// A title or a path may look like markup.
void showTextsAsTheyAre(QMessageBox& box) {
    box.setTextFormat(Qt::PlainText);
    for (QLabel* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
    }
}

/// Gives each answer a key of its own, that of the first word which has one left.
QString withKey(const QString& text, QString& taken) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar letter = text[at].toLower();
        const bool beginsWord = at == 0 || !text[at - 1].isLetter();
        if (beginsWord && letter.isLetter() && !taken.contains(letter)) {
            taken += letter;
            return QString(text).insert(at, QLatin1Char('&'));
        }
    }
    return text;
}

/// Most paths fit on a line or two.
void makeWide(QMessageBox& box) {
    constexpr int width = 420; // points
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Minimum), grid->rowCount(),
                      0, 1, grid->columnCount());
    }
}

} // namespace

QMessageBox* ask(QWidget* parent, Question question) {
    auto* box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(question.name);
    box->setAccessibleName(question.text);
    constexpr int symbolSide = 32;
    box->setIconPixmap(
        symbolIcon(question.symbol).pixmap(QSize(symbolSide, symbolSide), box->devicePixelRatioF()));
    box->setWindowTitle(question.text);
    box->setText(question.text);
    box->setInformativeText(question.detail);
    showTextsAsTheyAre(*box);

    QString keys;
    QPushButton* escape = nullptr;
    std::vector<std::pair<QAbstractButton*, std::function<void()>>> actions;
    for (Answer& answer : question.answers) {
        QPushButton* button = box->addButton(withKey(answer.text, keys), answer.role);
        button->setObjectName(answer.text);
        if (actions.empty()) {
            box->setDefaultButton(button);
        }
        escape = !escape || box->buttonRole(escape) != QMessageBox::RejectRole ? button : escape;
        actions.emplace_back(button, std::move(answer.action));
    }
    box->setEscapeButton(escape);
    QObject::connect(box, &QMessageBox::finished, box, [box, actions = std::move(actions)] {
        // No longer in the way of the next question.
        box->setObjectName({});
        for (const auto& [button, action] : actions) {
            if (button == box->clickedButton() && action) {
                action();
                return;
            }
        }
    });
    makeWide(*box);
    box->open();
    return box;
}

QMessageBox* tellFailure(QWidget* parent, const QString& text, const QString& detail,
                         std::function<void()> done) {
    return ask(parent, {.name = QStringLiteral("failure"),
                        .text = text,
                        .detail = detail,
                        .answers = {{QStringLiteral("OK"), QMessageBox::AcceptRole, std::move(done)}}});
}

QDialog* openQuestion(const QWidget* window) {
    for (QDialog* dialog : window->findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (dialog->isVisible()) {
            return dialog;
        }
    }
    return nullptr;
}

} // namespace quillon
