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
    using Recover = std::function<void(std::vector<LeftRecoveryCopy>)>;

    /// `recover` is given the documents that the user wants back.
    RecoveryOffer(std::vector<LeftRecoveryCopy> left, Recover recover);
    ~RecoveryOffer() override;

private:
    void takeSelected(const Recover& use);
    void askToDiscard();
    void showSelection();

    std::vector<LeftRecoveryCopy> m_left; ///< by the rows of the list
    Recover m_recover;
    QTreeWidget* m_list;
    QPushButton* m_recoverButton;
    QPushButton* m_discardButton;
};

/// What stands in the list for one document: its title, its folder or "Never saved", the time of its last
/// change.
QStringList recoveryRow(const RecoveryInfo& info);

} // namespace quillon
