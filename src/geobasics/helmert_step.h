// helmert_step.h - the parameters of a datum as matrices, and the plain form of a shift; for
// geobasics itself.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_HELMERT_STEP_H
#define ZAV_GEOBASICS_HELMERT_STEP_H

namespace zav {

// WGS84 = Shift + Turn * Datum, Datum = BackTurn * (WGS84 - Shift); matrices row by row.
struct THelmertStep {
  double Shift[3];
  double Turn[9];
  double BackTurn[9];
};

// Of a row 1..NumDatumRows; kept for the whole run.
const THelmertStep& HelmertStep(int Row) noexcept;

// ExactHelmertTransform by the standard library's functions: for positions wherever they are.
int SingleExactHelmert(int SourceDatum, double Lat, double Long, double Height, int TargetDatum,
                       double& Lat2, double& Long2, double& Height2) noexcept;

}  // namespace zav

#endif
