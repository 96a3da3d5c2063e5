// option_values.h - numbers and sizes as values of options.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_OPTION_VALUES_H
#define ZAV_APPS_ZAVGEO_OPTION_VALUES_H

#include <platform/base/geometry.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zav {

// Count finite numbers, separated by commas. Throws EUsageError.
std::vector<double> NumbersOfOption(const std::string& Option, const std::string& Text,
                                    size_t Count);
// "WIDTHxHEIGHT" in pixels, both Low to High. Throws EUsageError.
TSize SizeOfOption(const std::string& Option, const std::string& Text, int32_t Low, int32_t High);
// Throws EUsageError for a value outside Low..High.
void RequireRange(const std::string& Option, double Value, double Low, double High);

}  // namespace zav

#endif
