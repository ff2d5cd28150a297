#include "desktop/SaveDialog.h"

#include "package/ArticleFileDocument.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

namespace quillon {

namespace {

std::string pathOf(const QString& text) {
    return QFile::encodeName(text).toStdString();
}

bool isArticle(const QString& path) {
    return QFileInfo(path + QLatin1Char('/') + QLatin1String(articleFileName.data(), articleFileName.size()))
        .isFile();
}

/// Qt's own dialog enters a folder that the user means to choose, and an article is one. It also takes what
/// is selected in the list for the answer when the name in the field is another one by now.
class SaveDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void propose(const QString& name) {
        m_proposed = name;
        selectFile(name);
    }
    const std::optional<std::string>& chosen() const { return m_chosen; }

    void accept() override {
        const QString named = namedPath();
        if (named.isEmpty() || (QFileInfo(named).isDir() && !isArticle(named))) {
            QFileDialog::accept();
            if (!named.isEmpty() && isVisible()) {
                selectFile(m_proposed); // in the folder that was entered
            }
            return;
        }
        m_chosen = pathOf(named);
        done(Accepted);
    }

    void done(int result) override {
        // A dialog of the desktop's own knows only this.
        if (const QStringList files = selectedFiles(); result == Accepted && !m_chosen && !files.isEmpty()) {
            m_chosen = pathOf(files.first());
        }
        QFileDialog::done(result);
    }

private:
    /// What the field names; empty where there is no field. A bare name is that of the selected item, which
    /// need not be in the folder that is shown.
    QString namedPath() const {
        const auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QString text = field ? field->text() : QString();
        if (text.isEmpty()) {
            return text;
        }
        for (const QString& selected : selectedFiles()) {
            if (QFileInfo(selected).fileName() == text) {
                return selected;
            }
        }
        if (text.startsWith(QLatin1String("~/"))) {
            text.replace(0, 1, QDir::homePath());
        }
        return QDir::cleanPath(directory().absoluteFilePath(text));
    }

    QString m_proposed;
    std::optional<std::string> m_chosen;
};

} // namespace

void askForSavePlace(QWidget& window, const std::string& folder, const std::string& name,
                     std::function<void(std::optional<std::string>)> done) {
    auto* dialog = new SaveDialog(&window, QStringLiteral("Save As"), QString::fromStdString(folder));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("saveDialog"));
    dialog->setAccessibleName(QStringLiteral("Save As"));
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->propose(QString::fromStdString(name));
    QObject::connect(dialog, &QDialog::finished, &window, [dialog, done = std::move(done)](int result) {
        done(result == QDialog::Accepted ? dialog->chosen() : std::nullopt);
    });
    dialog->open();
}

void askForPackage(QWidget* window, const std::string& folder, std::function<void(const std::string&)> done) {
    auto* dialog = new QFileDialog(window, QStringLiteral("Open Article"), QString::fromStdString(folder));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("openDialog"));
    dialog->setAccessibleName(QStringLiteral("Open Article"));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Open"));
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [done = std::move(done)](const QString& file) { done(pathOf(file)); });
    dialog->open();
}

} // namespace quillon
