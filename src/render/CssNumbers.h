#pragma once

#include <string>

namespace quillon::HTMLRenderer {

/// Appends `value` without decimals when it is whole, else in the shortest form that reads back; "0" for a
/// value that is not finite. For all numbers but those of the grid.
void formatNumber(std::string& out, double value);
std::string formatNumber(double value);

/// Appends `value` as the nearest whole number when it is within 0.005 of it, else with two decimals; "0" for
/// a value that is not finite. For the grid and lengths.
void formatGridNumber(std::string& out, double value);
std::string formatGridNumber(double value);

} // namespace quillon::HTMLRenderer
