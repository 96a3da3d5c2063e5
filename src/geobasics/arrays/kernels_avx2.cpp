// kernels_avx2.cpp - the loops for x86-64 processors with AVX2; compiled with -mavx2.
// SPDX-License-Identifier: MIT
#define ZAV_KERNELS Avx2ArrayKernels
#include "kernels.inc"
