/// @file
/// api.h - marks what the shared libraries export; everything else stays inside them.
///
/// A class or function of a public header that has code in a library is declared with ZAVGEO_API.
/// The libraries are compiled with hidden visibility, so what is not marked cannot be linked to,
/// and does not become part of the binary interface by accident. Compilers without visibility
/// (those for DLLs) build static libraries only.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_API_H
#define ZAV_PLATFORM_BASE_API_H

#if defined(__GNUC__)
/// Exports a class or function from a shared library.
#define ZAVGEO_API __attribute__((visibility("default")))
#else
#define ZAVGEO_API
#endif

#endif
