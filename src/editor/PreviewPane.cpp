#include "editor/PreviewPane.h"

namespace quillon {

struct PreviewPane::Parts {};

PreviewPane::PreviewPane(DocumentStore&, Settings&, Scheduler&, QWidget* parent) : QWidget(parent) {}

PreviewPane::~PreviewPane() = default;

} // namespace quillon
