#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace quillon {

/// One way to answer a question.
struct Answer {
    QString text;
    QMessageBox::ButtonRole role = QMessageBox::AcceptRole;
    std::function<void()> action; ///< may be empty
};

/// Something to be told or asked, with the answers in the order of their weight: the first is the default
/// one; the one with RejectRole, or else the last, is that of the Escape key.
struct Question {
    QString name; ///< of the box, for tests and for tools that read the screen
    QString text;
    QString detail;
    std::vector<Answer> answers;
    const char* symbol = "exclamationmark.triangle";
};

/// Shows `question` on `parent`, which takes no other input until it is answered, and returns at once. The
/// box goes with its parent, unanswered. All texts are shown as they are, never as markup.
QMessageBox* ask(QWidget* parent, Question question);

/// Tells the user about a failure; `done` runs when the box has been closed.
QMessageBox* tellFailure(QWidget* parent, const QString& text, const QString& detail,
                         std::function<void()> done = {});

/// The dialog that asks or tells something on `window` right now; null if there is none.
QDialog* openQuestion(const QWidget* window);

} // namespace quillon
