// calibration_proposal.h - what position a point of the map probably has.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_PROPOSAL_H
#define ZAV_APPS_VIEWER_CALIBRATION_PROPOSAL_H

#include <QString>

#include <geomap/calibration/calibration.h>

#include "position_readout.h"

namespace zav {

// The position that the fit gives for a pixel, as text that ParseTypedPosition reads. Where a
// crossing of round parallels and meridians (degrees, minutes or seconds; under UTM kilometres of
// the map's zone) lies within a few pixels it is that one, exactly: people mark crossings. Empty
// without a fit.
QString ProposedPosition(const TCalibration& Calibration, TPoint Pixel, ReadoutFormat Format);

}  // namespace zav

#endif
