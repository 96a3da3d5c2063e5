#!/bin/sh
# Makes the calibration files of samples/maps from their control points.
# Usage: scripts/make_samples.sh PATH-TO-zavgeo
set -eu
zavgeo=$(realpath "${1:?usage: $0 PATH-TO-zavgeo}")
cd "$(dirname "$0")/../samples/maps"

# IMAGE MODEL POINTS CAPTION
make() {
  echo "${1%.*}: $2"
  "$zavgeo" calibrate --model "$2" --points "${1%.*}.$3.csv" --image "$1" --caption "$4" \
    -o "${1%.*}.xml" | grep '^# rms_px'
}

make world_equirect.jpg  equirect          points     "World"
make world_miller.jpg    millercylindrical points     "World, Miller projection"
make europe_conic.jpg    conicconformal    points     "Europe"
make namerica_lcc.jpg    conicconformal    points     "North America"
make alps_utm32n.jpg     utm               utm_points "Alps"
make gotthard_utm32n.jpg utm               utm_points "Gotthard"
make andes_utm19s.jpg    utm               utm_points "Andes of Santiago"
make iberia_bonne.jpg    biquadraticpn     points     "Iberian Peninsula"
make australia_laea.jpg  parabolicip       lines      "Australia"
make iceland.bmp         equirect          points     "Iceland"
make sicily_8bit.bmp     equirect          points     "Sicily"
