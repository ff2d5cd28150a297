#include "desktop/theme/Motion.h"

#include "desktop/theme/Tokens.h"

#include <cmath>
#include <numbers>

namespace quillon {

namespace {

constexpr double response = 0.22; ///< seconds
constexpr double damping = 0.85;

/// A damped harmonic oscillation from 0 to 1.
double spring(double fraction) {
    if (fraction >= 1) {
        return 1;
    }
    const double time = fraction * motion::spring / 1000;
    const double frequency = 2 * std::numbers::pi / response;
    const double root = std::sqrt(1 - damping * damping);
    const double swing = frequency * root * time;
    return 1 - std::exp(-damping * frequency * time) * (std::cos(swing) + damping / root * std::sin(swing));
}

} // namespace

QEasingCurve springCurve() {
    QEasingCurve curve;
    curve.setCustomType(spring);
    return curve;
}

} // namespace quillon
