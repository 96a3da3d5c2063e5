/// @file
/// qt.h - all of the Qt adapter.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_H
#define ZAV_PLATFORM_QT_QT_H

#include <platform/qt/geo_atlas_widget.h>
#include <platform/qt/geo_map_accessible.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_clipboard.h>
#include <platform/qt/qt_control_window.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_fonts.h>
#include <platform/qt/qt_glyphs.h>
#include <platform/qt/qt_guard.h>
#include <platform/qt/qt_host.h>
#include <platform/qt/qt_image.h>
#include <platform/qt/qt_image_file.h>
#include <platform/qt/qt_page_canvas.h>
#include <platform/qt/qt_panel.h>
#include <platform/qt/qt_printer.h>

#endif
