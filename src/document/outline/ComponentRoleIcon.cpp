#include "document/outline/ComponentRoleIcon.h"

namespace quillon {

namespace {

std::string_view symbolOf(const ComponentRole& role, bool isSelected) {
    return isSelected ? role.filledSymbolName() : role.symbolName();
}

} // namespace

void ComponentRoleIcon::appear() {
    displayedSystemImage = symbolOf(role, isSelected);
    drawOnActive = false;
}

void ComponentRoleIcon::setSelected(bool selected) {
    if (selected == isSelected) {
        return;
    }
    isSelected = selected;
    displayedSystemImage = symbolOf(role, isSelected);
    drawOnActive = false;
    if (isSelected && !drawsOn()) {
        ++activationCount;
    }
}

void ComponentRoleIcon::setRole(const ComponentRole& next) {
    role = next;
    displayedSystemImage = symbolOf(role, isSelected);
}

std::string_view ComponentRoleIcon::systemImage() const {
    return displayedSystemImage.empty() ? symbolOf(role, isSelected) : displayedSystemImage;
}

} // namespace quillon
