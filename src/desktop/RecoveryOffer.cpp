#include "desktop/RecoveryOffer.h"

#include "desktop/DocumentText.h"
#include "desktop/Questions.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

namespace quillon {

QStringList recoveryRow(const RecoveryInfo& info) {
    return {shownTitle(info.title),
            info.packagePath ? shownPath(*info.packagePath) : QStringLiteral("Never saved"),
            shownTime(info.time)};
}

RecoveryOffer::RecoveryOffer(std::vector<LeftRecoveryCopy> left, Recover recover)
    : m_left(std::move(left)), m_recover(std::move(recover)), m_list(new QTreeWidget(this)) {
    const QString text = QStringLiteral("Quillon ended before these articles were saved.");
    setObjectName(QStringLiteral("recoveryOffer"));
    setAccessibleName(text);
    setWindowTitle(QStringLiteral("Recover Articles"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(text, this));

    m_list->setObjectName(QStringLiteral("recoveryList"));
    m_list->setAccessibleName(QStringLiteral("Articles that were not saved"));
    m_list->setHeaderLabels(
        {QStringLiteral("Title"), QStringLiteral("Folder"), QStringLiteral("Last Change")});
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const LeftRecoveryCopy& copy : m_left) {
        m_list->addTopLevelItem(new QTreeWidgetItem(recoveryRow(copy.info())));
    }
    m_list->selectAll();
    for (int index = 0; index < m_list->columnCount(); ++index) {
        m_list->resizeColumnToContents(index);
    }
    column->addWidget(m_list);

    auto* buttons = new QDialogButtonBox(this);
    m_recoverButton = buttons->addButton(QStringLiteral("Recover"), QDialogButtonBox::AcceptRole);
    m_discardButton = buttons->addButton(QStringLiteral("Discard"), QDialogButtonBox::DestructiveRole);
    QPushButton* later = buttons->addButton(QStringLiteral("Decide Later"), QDialogButtonBox::RejectRole);
    for (QPushButton* button : {m_recoverButton, m_discardButton, later}) {
        button->setObjectName(button->text());
    }
    m_recoverButton->setDefault(true);
    connect(m_recoverButton, &QPushButton::clicked, this, [this] { takeSelected(m_recover); });
    connect(m_discardButton, &QPushButton::clicked, this, &RecoveryOffer::askToDiscard);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &RecoveryOffer::showSelection);
    column->addWidget(buttons);
}

RecoveryOffer::~RecoveryOffer() = default;

void RecoveryOffer::showSelection() {
    const bool isAny = !m_list->selectedItems().isEmpty();
    m_recoverButton->setEnabled(isAny);
    m_discardButton->setEnabled(isAny);
}

void RecoveryOffer::takeSelected(const Recover& use) {
    std::vector<LeftRecoveryCopy> taken;
    for (QTreeWidgetItem* item : m_list->selectedItems()) {
        const int row = m_list->indexOfTopLevelItem(item);
        taken.push_back(std::move(m_left[static_cast<std::size_t>(row)]));
        m_left.erase(m_left.begin() + row);
        delete m_list->takeTopLevelItem(row);
    }
    use(std::move(taken));
    if (m_left.empty()) {
        accept();
    }
}

void RecoveryOffer::askToDiscard() {
    const auto count = m_list->selectedItems().size();
    ask(this,
        {.name = QStringLiteral("discardQuestion"),
         .text = count == 1 ? QStringLiteral("Do you want to discard this article’s changes?")
                            : QStringLiteral("Do you want to discard the changes of %1 articles?").arg(count),
         .detail = QStringLiteral("They cannot be brought back."),
         .answers = {{QStringLiteral("Cancel"), QMessageBox::RejectRole, {}},
                     {QStringLiteral("Discard"), QMessageBox::DestructiveRole, [this] {
                          takeSelected([](std::vector<LeftRecoveryCopy> copies) {
                              for (LeftRecoveryCopy& copy : copies) {
                                  copy.discard();
                              }
                          });
                      }}}});
}

} // namespace quillon
