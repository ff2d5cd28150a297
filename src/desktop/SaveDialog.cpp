#include "desktop/SaveDialog.h"

#include "package/ArticleFileDocument.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

namespace quillon {

namespace {

std::string pathOf(const QString& text) {
    return QFile::encodeName(text).toStdString();
}

bool isArticle(const QString& path) {
    return QFileInfo(path + QLatin1Char('/') + QLatin1String(articleFileName.data(), articleFileName.size()))
        .isFile();
}

/// An article is a folder, which a dialog would enter where a user means to choose it.
class SaveDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    std::optional<std::string> chosen() const { return m_chosen; }

    void accept() override {
        const QStringList files = selectedFiles();
        if (files.size() == 1 && isArticle(files.first())) {
            m_chosen = pathOf(files.first());
            QDialog::accept();
            return;
        }
        QFileDialog::accept();
    }

    void done(int result) override {
        if (const QStringList files = selectedFiles(); result == Accepted && !m_chosen && !files.isEmpty()) {
            m_chosen = pathOf(files.first());
        }
        QFileDialog::done(result);
    }

private:
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
    dialog->selectFile(QString::fromStdString(name));
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
