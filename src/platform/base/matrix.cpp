// matrix.cpp - see matrix.h.
// SPDX-License-Identifier: MIT
#include <platform/base/matrix.h>

#include <algorithm>

namespace zav {

void TMatrix::Resize(int32_t Columns, int32_t Rows) {
  const int32_t columns = std::max(Columns, 0);
  const int32_t rows = std::max(Rows, 0);
  FValues.assign(static_cast<size_t>(columns) * static_cast<size_t>(rows), 0.0);
  FColumns = columns;
  FRows = rows;
}

double TMatrix::GetVal(int32_t Column, int32_t Row) const noexcept {
  return Inside(Column, Row) ? FValues[Offset(Column, Row)] : 0.0;
}

void TMatrix::SetVal(int32_t Column, int32_t Row, double Value) noexcept {
  if (Inside(Column, Row)) FValues[Offset(Column, Row)] = Value;
}

void TMatrix::Fill(double Value) noexcept { std::fill(FValues.begin(), FValues.end(), Value); }

void TVector::SetVecSize(int32_t Size) {
  FValues.assign(static_cast<size_t>(std::max(Size, 0)), 0.0);
}

double TVector::GetVal(int32_t Index) const noexcept {
  return Index >= 1 && Index <= Size() ? FValues[static_cast<size_t>(Index - 1)] : 0.0;
}

void TVector::SetVal(int32_t Index, double Value) noexcept {
  if (Index >= 1 && Index <= Size()) FValues[static_cast<size_t>(Index - 1)] = Value;
}

}  // namespace zav
