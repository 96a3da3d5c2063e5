// proj_support.h - PROJ as a judge: pipelines and its copy of the registry.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOBASICS_PROJ_SUPPORT_H
#define ZAV_TESTS_GEOBASICS_PROJ_SUPPORT_H

#include <geobasics/ellipsoids.h>
#include <platform/base/text_format.h>
#include <proj.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>

namespace zav {

using TTriple = std::array<double, 3>;

inline PJ_CONTEXT* ProjContext() {
  static const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> Context(
      proj_context_create(), proj_context_destroy);
  return Context.get();
}

using TProj = std::unique_ptr<PJ, decltype(&proj_destroy)>;

// The object of the registry, empty when there is none: ("EPSG", "7030", PJ_CATEGORY_ELLIPSOID).
inline TProj FromRegistry(const std::string& Authority, const std::string& Code,
                          PJ_CATEGORY Category) {
  return {proj_create_from_database(ProjContext(), Authority.c_str(), Code.c_str(), Category, 0,
                                    nullptr),
          proj_destroy};
}

// "+proj=cart" with the axes of the ellipsoid.
inline std::string CartStep(TGeoEllipsoid Ellipsoid) {
  return "+proj=cart +a=" + ShortestNumber(AxesOf(Ellipsoid).A) +
         " +b=" + ShortestNumber(AxesOf(Ellipsoid).B);
}

inline constexpr const char* LongLatDegrees =
    "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step ";

// Numbers through a definition of PROJ.
class TPipeline {
 public:
  explicit TPipeline(const std::string& Definition)
      : FProj(proj_create(ProjContext(), Definition.c_str()), proj_destroy) {
    if (!FProj) throw std::runtime_error("PROJ refuses " + Definition);
  }
  explicit TPipeline(TProj Operation) : FProj(std::move(Operation)) {}

  TTriple operator()(const TTriple& In, PJ_DIRECTION Direction = PJ_FWD) const {
    const PJ_COORD Out = proj_trans(FProj.get(), Direction, proj_coord(In[0], In[1], In[2], 0));
    return {Out.xyz.x, Out.xyz.y, Out.xyz.z};
  }

 private:
  TProj FProj;
};

}  // namespace zav

#endif
