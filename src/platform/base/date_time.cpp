// date_time.cpp - see date_time.h.
// SPDX-License-Identifier: MIT
#include <platform/base/date_time.h>

#include <chrono>
#include <cmath>

namespace zav {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int32_t SecondsPerDay = 86400;
constexpr sys_days DayZero =
    std::chrono::year{1899} / std::chrono::month{12} / std::chrono::day{30};

year_month_day DateOf(const TDateTimeParts& Parts) noexcept {
  return std::chrono::year{Parts.Year} / std::chrono::month{static_cast<unsigned>(Parts.Month)} /
         std::chrono::day{static_cast<unsigned>(Parts.Day)};
}

bool InRange(int32_t Value, int32_t Low, int32_t High) noexcept {
  return Value >= Low && Value <= High;
}

}  // namespace

bool EncodeDateTime(const TDateTimeParts& Parts, TDateTime& Value) noexcept {
  Value = 0;
  if (!InRange(Parts.Year, 1, 9999) || !InRange(Parts.Month, 1, 12) || !InRange(Parts.Day, 1, 31) ||
      !InRange(Parts.Hour, 0, 23) || !InRange(Parts.Minute, 0, 59) ||
      !InRange(Parts.Second, 0, 59) || !DateOf(Parts).ok()) {
    return false;
  }
  const auto day = static_cast<double>((sys_days{DateOf(Parts)} - DayZero).count());
  const double time =
      static_cast<double>(Parts.Hour * 3600 + Parts.Minute * 60 + Parts.Second) / SecondsPerDay;
  Value = day < 0 ? day - time : day + time;
  return true;
}

TDateTimeParts DecodeDateTime(TDateTime Value) noexcept {
  constexpr double FirstDay = -693593;  // 1 January of the year 1
  constexpr double LastDay = 2958466;   // the day after 31 December 9999
  if (!(Value >= FirstDay - 0.999999 && Value < LastDay)) return {};
  auto day = static_cast<int32_t>(std::trunc(Value));
  auto seconds =
      static_cast<int32_t>(std::nearbyint(std::abs(Value - std::trunc(Value)) * SecondsPerDay));
  if (seconds == SecondsPerDay) {
    seconds = 0;
    ++day;
  }
  if (day >= static_cast<int32_t>(LastDay)) return {};
  const year_month_day date{DayZero + days{day}};
  return {static_cast<int32_t>(date.year()),
          static_cast<int32_t>(static_cast<unsigned>(date.month())),
          static_cast<int32_t>(static_cast<unsigned>(date.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

}  // namespace zav
