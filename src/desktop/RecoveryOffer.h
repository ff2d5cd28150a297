#pragma once

#include "document/RecoveryStore.h"

#include <QDialog>

#include <functional>
#include <vector>

class QPushButton;
class QTreeWidget;

namespace quillon {

/// Offers the documents that a crash interrupted. It closes when none is left to decide about; those that
/// are put off are offered again at the next start.
class RecoveryOffer : public QDialog {
    Q_OBJECT

public:
    /// `recover` is given each document the user wants back.
    RecoveryOffer(std::vector<LeftRecoveryCopy> left, std::function<void(LeftRecoveryCopy)> recover);
    ~RecoveryOffer() override;

private:
    void takeSelected(const std::function<void(LeftRecoveryCopy&)>& use);
    void askToDiscard();
    void showSelection();

    std::vector<LeftRecoveryCopy> m_left; ///< by the rows of the list
    std::function<void(LeftRecoveryCopy)> m_recover;
    QTreeWidget* m_list;
    QPushButton* m_recoverButton;
    QPushButton* m_discardButton;
};

/// What stands in the list for one document: its title, its folder or "Never saved", the time of its last
/// change.
QStringList recoveryRow(const RecoveryInfo& info);

} // namespace quillon
