#pragma once

#include "base/Binding.h"
#include "desktop/widgets/BoundControl.h"

#include <QWidget>

#include <functional>
#include <optional>

class QVBoxLayout;

namespace quillon {

class CheckBox;
class DisclosureHeader;

/// A title that shows and hides what belongs to it. With a check box in its head, there is something to show
/// only while that is on; turning it on opens the group.
class DisclosureGroup : public QWidget, public BoundControl {
    Q_OBJECT

public:
    /// Makes what the group holds, at the first opening and not before.
    using MakeContent = std::function<QWidget*(QWidget* parent)>;

    DisclosureGroup(const QString& title, MakeContent makeContent, QWidget* parent = nullptr);
    DisclosureGroup(const QString& title, Binding<bool> isOn, MakeContent makeContent,
                    QWidget* parent = nullptr);

    bool isOpen() const { return m_isOpen; }
    void setOpen(bool isOpen);
    /// None as long as the group was never open.
    QWidget* content() const { return m_content; }

    void refresh() override;
    bool showsWhatItHolds() const override;

Q_SIGNALS:
    /// After the user or the program opened or closed the group.
    void openChanged(bool isOpen);

private:
    void showState();

    DisclosureHeader* m_header;
    CheckBox* m_check = nullptr;
    std::optional<Binding<bool>> m_isOn;
    MakeContent m_makeContent;
    QVBoxLayout* m_column;
    QWidget* m_content = nullptr;
    bool m_isOpen = false;
};

} // namespace quillon
