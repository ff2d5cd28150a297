#include "desktop/widgets/DisclosureGroup.h"

#include "desktop/theme/Tokens.h"
#include "desktop/widgets/CheckBox.h"
#include "desktop/widgets/DisclosureHeader.h"

#include <QPointer>
#include <QVBoxLayout>

#include <utility>

namespace quillon {

DisclosureGroup::DisclosureGroup(const QString& title, MakeContent makeContent, QWidget* parent)
    : QWidget(parent), m_header(new DisclosureHeader(title, this)), m_makeContent(std::move(makeContent)),
      m_column(new QVBoxLayout(this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleName(title);
    m_column->setContentsMargins({});
    m_column->setSpacing(distance::beside);
    m_column->addWidget(m_header);
    connect(m_header, &DisclosureHeader::openRequested, this, &DisclosureGroup::setOpen);
}

DisclosureGroup::DisclosureGroup(const QString& title, Binding<bool> isOn, MakeContent makeContent,
                                 QWidget* parent)
    : DisclosureGroup(title, std::move(makeContent), parent) {
    const auto write = [this, isOn](bool value) {
        // The write may be the end of this form.
        const QPointer<DisclosureGroup> remaining(this);
        isOn.set(value);
        if (remaining && value) {
            remaining->setOpen(true);
        }
        if (remaining) {
            remaining->showState();
        }
    };
    m_isOn = isOn;
    m_check = new CheckBox({}, Binding<bool>([isOn] { return isOn.get(); }, write), m_header);
    m_check->setObjectName(QStringLiteral("disclosureCheck"));
    m_check->setAccessibleName(title);
    m_header->setLeading(m_check);
    showState();
}

void DisclosureGroup::setOpen(bool isOpen) {
    if (isOpen == m_isOpen) {
        return;
    }
    m_isOpen = isOpen;
    showState();
    Q_EMIT openChanged(isOpen);
}

void DisclosureGroup::refresh() {
    if (m_check) {
        m_check->refresh();
    }
    showState();
}

bool DisclosureGroup::showsWhatItHolds() const {
    return m_content && !m_content->isHidden();
}

void DisclosureGroup::showState() {
    const bool isOn = !m_isOn || m_isOn->get();
    const bool isShown = isOn && m_isOpen;
    m_header->setOpenable(isOn);
    m_header->setOpen(isShown);
    if (isShown == showsWhatItHolds()) {
        return;
    }
    if (!isShown) {
        if (m_content->isAncestorOf(window()->focusWidget())) {
            (isOn ? static_cast<QWidget*>(m_header) : m_check)->setFocus();
        }
        m_content->hide();
        return;
    }
    if (m_content) {
        refreshControls(*m_content);
    } else {
        m_content = m_makeContent(this);
        m_column->addWidget(m_content);
    }
    m_content->show();
}

} // namespace quillon
