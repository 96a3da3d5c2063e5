// kernels_plain.cpp - the loops for any processor.
// SPDX-License-Identifier: MIT
#define ZAV_KERNELS PlainArrayKernels
#include "kernels.inc"
