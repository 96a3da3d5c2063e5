/// @file
/// matrix.h - dense matrices and vectors of doubles, numbered from 1.
///
/// Values: they are copied whole and compared element by element. An element outside the matrix
/// reads as 0 and is not written. Sizes below 0 count as 0.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_MATRIX_H
#define ZAV_PLATFORM_BASE_MATRIX_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include <platform/base/api.h>

namespace zav {

/// A matrix of numbers, 0 x 0 at first.
class ZAVGEO_API TMatrix {
 public:
  TMatrix() = default;
  /// All elements are 0.
  TMatrix(int32_t Columns, int32_t Rows) { Resize(Columns, Rows); }

  /// Gives the matrix a new size; all elements become 0.
  void Resize(int32_t Columns, int32_t Rows);
  /// Columns, 0 or more.
  int32_t NumColumns() const noexcept { return FColumns; }
  /// Rows, 0 or more.
  int32_t NumRows() const noexcept { return FRows; }

  /// An element; 0 outside the matrix.
  double GetVal(int32_t Column, int32_t Row) const noexcept;
  /// Sets an element; outside the matrix nothing happens.
  void SetVal(int32_t Column, int32_t Row, double Value) noexcept;
  /// Sets every element.
  void Fill(double Value) noexcept;
  /// Becomes a copy of Source, size included.
  void Clone(const TMatrix& Source) { *this = Source; }

  /// The NumColumns() elements of a row, side by side; the next row follows them. Not checked:
  /// 1 <= Row <= NumRows().
  double* RowData(int32_t Row) noexcept { return FValues.data() + Offset(1, Row); }
  /// The same for reading.
  const double* RowData(int32_t Row) const noexcept { return FValues.data() + Offset(1, Row); }

  friend bool operator==(const TMatrix&, const TMatrix&) = default;

 private:
  bool Inside(int32_t Column, int32_t Row) const noexcept {
    return Column >= 1 && Column <= FColumns && Row >= 1 && Row <= FRows;
  }
  size_t Offset(int32_t Column, int32_t Row) const noexcept {
    return static_cast<size_t>(Row - 1) * static_cast<size_t>(FColumns) +
           static_cast<size_t>(Column - 1);
  }

  int32_t FColumns = 0;
  int32_t FRows = 0;
  std::vector<double> FValues;
};

/// A vector of numbers, empty at first.
class ZAVGEO_API TVector {
 public:
  TVector() = default;
  /// All elements are 0.
  explicit TVector(int32_t Size) { SetVecSize(Size); }

  /// Gives the vector a new size; all elements become 0.
  void SetVecSize(int32_t Size);
  /// Elements, 0 or more.
  int32_t Size() const noexcept { return static_cast<int32_t>(FValues.size()); }

  /// An element; 0 outside the vector.
  double GetVal(int32_t Index) const noexcept;
  /// Sets an element; outside the vector nothing happens.
  void SetVal(int32_t Index, double Value) noexcept;

  /// The elements side by side.
  double* Data() noexcept { return FValues.data(); }
  /// The same for reading.
  const double* Data() const noexcept { return FValues.data(); }

  friend bool operator==(const TVector&, const TVector&) = default;

 private:
  std::vector<double> FValues;
};

}  // namespace zav

#endif
