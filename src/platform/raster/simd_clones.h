// simd_clones.h - compiles a function for several processors and picks the best one at run time.
//
// Only for functions of whole-number arithmetic, so that every clone gives the same result.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_SIMD_CLONES_H
#define ZAV_PLATFORM_RASTER_SIMD_CLONES_H

// Off under sanitizers, because the run-time choice is made before they are set up.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define ZAV_SIMD_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define ZAV_SIMD_CLONES
#endif

#endif
