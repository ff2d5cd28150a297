#include "desktop/Questions.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>

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

} // namespace

QMessageBox* ask(QWidget* parent, Question question) {
    auto* box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(question.name);
    box->setAccessibleName(question.text);
    box->setIcon(QMessageBox::Warning);
    box->setWindowTitle(question.text);
    box->setText(question.text);
    box->setInformativeText(question.detail);
    showTextsAsTheyAre(*box);

    QPushButton* escape = nullptr;
    std::vector<std::pair<QAbstractButton*, std::function<void()>>> actions;
    for (Answer& answer : question.answers) {
        QPushButton* button = box->addButton(answer.text, answer.role);
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
