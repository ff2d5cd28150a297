#pragma once

#include <QEasingCurve>

namespace quillon {

/// The course of a spring over `motion::spring` milliseconds: response 0.22 s, damping fraction 0.85. It
/// shoots a little over its end before it rests.
QEasingCurve springCurve();

} // namespace quillon
