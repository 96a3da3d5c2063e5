// lanes.h - four doubles at a time, and the functions of them that projections need.
//
// Plain vector extensions of GCC and clang: the compiler makes of them what the processor has. Only
// additions, multiplications, divisions and roots in a fixed order, no fused ones, so that every
// processor gives the same numbers. All is static: each file that includes this has its own, made
// for the processor that the file is compiled for.
//
// Source: sine, cosine and arctangent are the polynomials of the freely distributable mathematical
//         library of Sun Microsystems (fdlibm, 1993: k_sin.c, k_cos.c, s_atan.c), within one unit
//         in the last place.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_ARRAYS_LANES_H
#define ZAV_GEOBASICS_ARRAYS_LANES_H

#include <cstddef>
#include <cstdint>

#if defined(__AVX2__)
#include <immintrin.h>
#elif defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zav {

using TLanes = double __attribute__((vector_size(32)));
using TBits = int64_t __attribute__((vector_size(32)));  // also masks: all bits set or none

#define ZAV_LANES static inline __attribute__((always_inline))
#define ZAV_MEMBER inline __attribute__((always_inline))

constexpr size_t NumLanes = 4;

ZAV_LANES TLanes All(double Value) { return TLanes{Value, Value, Value, Value}; }

// The first Count lanes; the others repeat the first, so that they are as usual as it is.
ZAV_LANES TLanes Load(const double* From, size_t Count) {
  TLanes Value;
  if (Count == NumLanes) {
    __builtin_memcpy(&Value, From, sizeof(Value));
    return Value;
  }
  for (size_t I = 0; I < NumLanes; ++I) Value[I] = From[I < Count ? I : 0];
  return Value;
}

ZAV_LANES void Store(TLanes Value, double* To, size_t Count) {
  if (Count == NumLanes) {
    __builtin_memcpy(To, &Value, sizeof(Value));
    return;
  }
  for (size_t I = 0; I < Count; ++I) To[I] = Value[I];
}

// Calls Four(Index, Count) for each four points and what is left.
template <typename TFour>
ZAV_LANES void ForEachFour(size_t Count, TFour Four) {
  size_t Index = 0;
  for (; Index + NumLanes <= Count; Index += NumLanes) Four(Index, NumLanes);
  if (Index < Count) Four(Index, Count - Index);
}

// --- bits ----------------------------------------------------------------------------------------

ZAV_LANES TBits BitsOf(TLanes Value) {
  TBits Bits;
  __builtin_memcpy(&Bits, &Value, sizeof(Bits));
  return Bits;
}

ZAV_LANES TLanes FromBits(TBits Bits) {
  TLanes Value;
  __builtin_memcpy(&Value, &Bits, sizeof(Value));
  return Value;
}

ZAV_LANES TLanes Select(TBits Mask, TLanes Then, TLanes Else) {
  return FromBits((Mask & BitsOf(Then)) | (~Mask & BitsOf(Else)));
}

ZAV_LANES TLanes Where(TBits Mask, TLanes Value) { return FromBits(Mask & BitsOf(Value)); }

ZAV_LANES bool AllSet(TBits Mask) {
#if defined(__AVX2__)
  __m256d Value;
  __builtin_memcpy(&Value, &Mask, sizeof(Value));
  return _mm256_movemask_pd(Value) == 15;
#else
  return (Mask[0] & Mask[1] & Mask[2] & Mask[3]) != 0;
#endif
}

ZAV_LANES TBits SignBits() {
  const int64_t Sign = INT64_MIN;
  return TBits{Sign, Sign, Sign, Sign};
}

ZAV_LANES TLanes Abs(TLanes X) { return FromBits(BitsOf(X) & ~SignBits()); }

// --- functions -----------------------------------------------------------------------------------

ZAV_LANES TLanes Sqrt(TLanes X) {
#if defined(__AVX2__)
  __m256d Value;
  __builtin_memcpy(&Value, &X, sizeof(Value));
  Value = _mm256_sqrt_pd(Value);
  __builtin_memcpy(&X, &Value, sizeof(Value));
#elif defined(__SSE2__)
  __m128d Half[2];
  __builtin_memcpy(Half, &X, sizeof(Half));
  Half[0] = _mm_sqrt_pd(Half[0]);
  Half[1] = _mm_sqrt_pd(Half[1]);
  __builtin_memcpy(&X, Half, sizeof(Half));
#else
  for (size_t I = 0; I < NumLanes; ++I) X[I] = __builtin_sqrt(X[I]);
#endif
  return X;
}

// For |X| up to 1e5.
ZAV_LANES void SinCos(TLanes X, TLanes& Sin, TLanes& Cos) {
  // Quarter turns are taken off in three parts, the first two of which have 33 bits.
  constexpr double TwoOverPi = 6.36619772367581382433e-01;
  constexpr double HalfPi1 = 1.57079632673412561417e+00;
  constexpr double HalfPi2 = 6.07710050630396597660e-11;
  constexpr double HalfPi3 = 2.02226624879595063154e-21;
  constexpr double Magic = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to whole numbers
  const TLanes Shifted = X * TwoOverPi + Magic;
  const TBits Quarter = BitsOf(Shifted);
  const TLanes K = Shifted - Magic;
  const TLanes R = ((X - K * HalfPi1) - K * HalfPi2) - K * HalfPi3;
  const TLanes Z = R * R;

  const TLanes S =
      R + R * Z *
              (-1.66666666666666324348e-01 +
               Z * (8.33333333332248946124e-03 +
                    Z * (-1.98412698298579493134e-04 +
                         Z * (2.75573137070700676789e-06 + Z * (-2.50507602534068634195e-08 +
                                                                Z * 1.58969099521155010221e-10)))));
  const TLanes HalfZ = 0.5 * Z;
  const TLanes W = 1.0 - HalfZ;
  const TLanes C =
      W +
      (((1.0 - W) - HalfZ) +
       Z * Z *
           (4.16666666666666019037e-02 +
            Z * (-1.38888888888741095749e-03 +
                 Z * (2.48015872894767294178e-05 +
                      Z * (-2.75573143513906633035e-07 +
                           Z * (2.08757232129817482790e-09 + Z * -1.13596475577881948265e-11))))));

  const TBits Swap = -(Quarter & 1);
  const TBits SinSign = (Quarter & 2) << 62;
  const TBits CosSign = ((Quarter + 1) & 2) << 62;
  Sin = FromBits(BitsOf(Select(Swap, C, S)) ^ SinSign);
  Cos = FromBits(BitsOf(Select(Swap, S, C)) ^ CosSign);
}

// Not both 0.
ZAV_LANES TLanes ArcTan2(TLanes Y, TLanes X) {
  constexpr double TanEighthTurn = 0.41421356237309503;  // of pi/8
  constexpr double QuarterPi = 7.85398163397448278999e-01;
  constexpr double QuarterPiLow = 3.06161699786838301793e-17;
  const TLanes Ax = Abs(X);
  const TLanes Ay = Abs(Y);
  const TBits Steep = Ay > Ax;
  const TLanes Small = Select(Steep, Ax, Ay);
  const TLanes Large = Select(Steep, Ay, Ax);
  const TBits Diagonal = Small > TanEighthTurn * Large;
  const TLanes Q = Select(Diagonal, Small - Large, Small) / Select(Diagonal, Small + Large, Large);
  const TLanes Z = Q * Q;
  const TLanes W = Z * Z;
  const TLanes Odd =
      Z * (3.33333333333329318027e-01 +
           W * (1.42857142725034663711e-01 +
                W * (9.09088713343650656196e-02 +
                     W * (6.66107313738753120669e-02 +
                          W * (4.97687799461593236017e-02 + W * 1.62858201153657823623e-02)))));
  const TLanes Even =
      W * (-1.99999999998764832476e-01 +
           W * (-1.11111104054623557880e-01 +
                W * (-7.69187620504482999495e-02 +
                     W * (-5.83357013379057348645e-02 + W * -3.65315727442169155270e-02))));
  TLanes R = Where(Diagonal, All(QuarterPi)) -
             ((Q * (Odd + Even) - Where(Diagonal, All(QuarterPiLow))) - Q);
  R = Select(Steep, 2 * QuarterPi - (R - 2 * QuarterPiLow), R);
  R = Select(X < 0.0, 4 * QuarterPi - (R - 4 * QuarterPiLow), R);
  return FromBits(BitsOf(R) | (BitsOf(Y) & SignBits()));
}

}  // namespace zav

#endif
