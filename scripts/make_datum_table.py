#!/usr/bin/env python3
"""Writes src/geobasics/datum_rows.inc: the datum table, from the public registry in PROJ's proj.db.

Usage: scripts/make_datum_table.py [PROJ_DB] > src/geobasics/datum_rows.inc

Source: the EPSG geodetic parameter data set and ESRI's registry, as PROJ (Debian: proj-data) ships them.
Rows stand in the order of the datum codes of DMA TR 8350.2, "Department of Defense World Geodetic System
1984", and the rows of one datum in the order of its region letters; national sets come after them.

The registry's coordinate frame rotations (EPSG method 9607) turn their signs: the table has the position
vector convention (9606). Angles become arc seconds, scales parts per million.
"""
import math
import sqlite3
import sys

# NAME | SOURCE | KEY=VALUE | ... with the keys
#   area     the text of the area, where it is not the registry's
#   ell      the ellipsoid, where TR 8350.2 names another than the registry
#   round    decimals of rotations and scale
#   values   dx dy dz ds rx ry rz, where no registry has the row
#   instead  why the source is another datum's: no public set of the datum itself is known
#   note     a remark
ROWS = """
ACCRA | EPSG:1569
ADINDAN | EPSG:1103
ADINDAN | EPSG:1106
ADINDAN | EPSG:1104
ADINDAN | EPSG:1105
ADINDAN | EPSG:1101
ADINDAN | EPSG:1102
ADINDAN | EPSG:1100
ANTIGUA ISLAND ASTRO 1943 | EPSG:15811
AIN EL ABD 1970 | EPSG:1110
AIN EL ABD 1970 | EPSG:1111
AMERICAN SAMOA 1962 | EPSG:1577
RD, AMERSFOORT | EPSG:4833
ANNA 1 ASTRO 1965 | EPSG:15794
ARC 1950 | EPSG:1114
ARC 1950 | EPSG:1116
ARC 1950 | EPSG:1117
ARC 1950 | EPSG:1118
ARC 1950 | EPSG:1119
ARC 1950 | EPSG:1120
ARC 1950 | EPSG:1121
ARC 1950 | EPSG:1115
ARC 1950 | EPSG:1113
ARC 1960 | EPSG:1284
ARC 1960 | EPSG:1285
ASCENSION ISLAND 1958 | EPSG:15797
MONTSERRAT IS. ASTRO 1958 | EPSG:1444
ASTRO STATION 1952 | EPSG:15799
ASTRO BACON E 1845 | EPSG:15796
AUSTRALIAN GEODETIC 1966 | EPSG:1108
AUSTRALIAN GEODETIC 1984 | EPSG:1109
DJAKARTA | EPSG:8452
BEKAA BASE SOUTH END | EPSG:6911
BERMUDA 1957 | EPSG:1124
BISSAU | EPSG:1547
BOGOTA OBSERVATORY | EPSG:1125
BERNE (1898), | EPSG:1766
BUKIT RIMPAH | EPSG:1126
CAPE CANAVERAL | EPSG:15804
CAMPO INCHAUSPE 1969 | EPSG:1127
CANTON ASTRO 1966 | EPSG:15803
CAPE | EPSG:1128
CAMP AREA ASTRO | EPSG:15802
S-JTSK | EPSG:15965
S-JTSK | EPSG:5239
CARTHAGE | EPSG:1130
CHATHAM ISLAND ASTRO 1971 | EPSG:1080
CHUA ASTRO | EPSG:1131
CH1903+ | EPSG:1676
CORREGO ALEGRE | EPSG:1132
OBSERVATOROI | EPSG:6900
CYPRUS 1935 | EPSG:1136 | instead=no public set; European 1950 in Cyprus, with its ellipsoid
ESTONIA 1937 | ESRI:108261
DABOLA | EPSG:1518
DECEPTION ISLAND | EPSG:15812
GUX 1 ASTRO | EPSG:15807
EASTER ISLAND 1967 | EPSG:15806
WAKE-ENIWETOK 1960 | EPSG:15822
EUROPEAN DATUM 1950 | EPSG:1134
EUROPEAN DATUM 1950 | EPSG:1140
EUROPEAN DATUM 1950 | EPSG:1139
EUROPEAN DATUM 1950 | EPSG:1145
EUROPEAN DATUM 1950 | EPSG:1136
EUROPEAN DATUM 1950 | EPSG:1137
EUROPEAN DATUM 1950 | EPSG:1138 | area=England, Channel Islands, Scotland and Shetland
EUROPEAN DATUM 1950 | EPSG:1141
EUROPEAN DATUM 1950 | EPSG:1142
EUROPEAN DATUM 1950 | EPSG:1143
EUROPEAN DATUM 1950 | EPSG:1138 | area=England, Ireland, Scotland and Shetland
EUROPEAN DATUM 1950 | EPSG:1144
EUROPEAN DATUM 1950 | EPSG:1133
EUROPEAN DATUM 1950 | EPSG:1135
EUROPEAN DATUM 1950 | EPSG:1245
EUROPEAN DATUM 1950 | EPSG:1627
EUROPEAN DATUM 1950 | EPSG:1311
EUROPEAN DATUM 1950 | EPSG:1275
EUROPEAN DATUM 1950 | EPSG:1629
EUROPEAN DATUM 1950 | EPSG:1087
EUROPEAN DATUM 1950 | EPSG:1612
EUROPEAN DATUM 1950 | EPSG:1613
EUROPEAN DATUM 1950 | EPSG:1631
EUROPEAN DATUM 1950 | EPSG:1633
EUROPEAN DATUM 1950 | EPSG:1784
EUROPEAN 1979 | EPSG:15752
EUROPEAN 1979 | EPSG:15752 | instead=no second public set; the mean of western Europe again
ETRF89 | EPSG:1149
FAHUD | EPSG:1256
OBSERVATORIO MET. 1939 | EPSG:1887
FORT THOMAS 1955 | EPSG:15750
GAN 1970 | EPSG:15713
GEOCENTRIC DATUM AUSTRALIA | EPSG:1150
GEODETIC DATUM 1949 | EPSG:1151
DOS 1968 | EPSG:15805
GRACIOSA BASE SW 1948 | EPSG:1886
GGRS87 | EPSG:1272
GUNUNG SEGARA | EPSG:1897
GUAM 1963 | EPSG:1070
HARTEBEESTHOCK 1994 | EPSG:1505
HELSINKI, KALLIO CHURCH | EPSG:1639 | instead=no public set; KKJ, which took its place with nearly the same coordinates
HERAT NORTH | EPSG:1246
MGI DATUM/HERMANNSKOGEL | ESRI:108095 | round=4
HERMANNSKOGEL | ESRI:108264
HITO XVIII 1963 | EPSG:1892
HJORSEY 1955 | EPSG:1951
HONG KONG 1963 | EPSG:15842
HONG KONG 1980 | EPSG:1825
HU-TZU-SHAN | EPSG:1152
HUNGARIAN DATUM 1972 | EPSG:1448
BELLEVUE (IGN), | EPSG:15801
INDONESIAN 1974 | EPSG:1248
IRAQ-KUWAIT BOUNDARY 1992 | EPSG:1993
INDIAN | EPSG:1155
INDIAN | EPSG:1156 | ell=gelEver56
INDIAN | EPSG:1247 | ell=gelEverPak
INDIAN 1954 | EPSG:1153
INDIAN 1960 | EPSG:1542
INDIAN 1960 | EPSG:1543
1 INDIAN 1975 | EPSG:1304
IRELAND 1965 | EPSG:1956
ISTS 061 ASTRO 1968 | EPSG:15813
ISTS 073 ASTRO 1969 | EPSG:15808
JOHNSTON ISLAND 1961 | EPSG:15809
KANDAWALA JACKSON? | EPSG:1157
KERTAU 1948 | EPSG:1158
KERGUELEN ISLAND 1949 | EPSG:1915
KOREAN GEODETIC SYSTEM 1995 | EPSG:1558
KKJ | EPSG:10099
KUSAIE ASTRO 1951 | EPSG:15810
LC5 ASTRO 1961 | EPSG:15814
LEIGON | EPSG:1159
LIBERIA 1964 | EPSG:1160
LISBON (Castelo di Sao Jorge), D7 | EPSG:1988
LKS94 | EPSG:1283
LUXEMBOURG NT | EPSG:5486
LUZON | EPSG:1161
LUZON | EPSG:1162
MASSAWA | EPSG:1165
MERCHICH | EPSG:1166
MIDWAY ASTRO 1961 | EPSG:15818
MAHE 1971 | EPSG:1164
MINNA | EPSG:1167
MINNA | EPSG:1168
ROME 1940 | EPSG:1169
ROME 1940 | EPSG:1660
ROME 1940 | EPSG:1664
M'PORALOKO | EPSG:1163
VITI LEVU 1916 | EPSG:15897
NAHRWAN | EPSG:1189
NAHRWAN | EPSG:1191
NAHRWAN | EPSG:1190
NAPARIMA | EPSG:1192
NORTH AMERICAN 1983 | EPSG:1188 | area=USA - Alaska (without Aleutian Islands)
NORTH AMERICAN 1983 | EPSG:1188 | area=Canada
NORTH AMERICAN 1983 | EPSG:1188 | area=USA - CONUS
NORTH AMERICAN 1983 | EPSG:1188 | area=Mexico and Central America
NORTH AMERICAN 1983 | EPSG:1251
NORTH AMERICAN 1983 | EPSG:1252
NORTH AMERICAN 1927 | EPSG:1174
NORTH AMERICAN 1927 | EPSG:1175
NORTH AMERICAN 1927 | EPSG:1173
NORTH AMERICAN 1927 | EPSG:1176
NORTH AMERICAN 1927 | EPSG:1172
NORTH AMERICAN 1927 | EPSG:1179
NORTH AMERICAN 1927 | EPSG:1181
NORTH AMERICAN 1927 | EPSG:1180
NORTH AMERICAN 1927 | EPSG:1182
NORTH AMERICAN 1927 | EPSG:1183
NORTH AMERICAN 1927 | EPSG:1187
NORTH AMERICAN 1927 | EPSG:1171
NORTH AMERICAN 1927 | EPSG:1184
NORTH AMERICAN 1927 | EPSG:1170
NORTH AMERICAN 1927 | EPSG:1177
NORTH AMERICAN 1927 | EPSG:1178
NORTH AMERICAN 1927 | EPSG:1185
NORTH AMERICAN 1927 | EPSG:1186
NORTH AMERICAN 1927 | EPSG:1249
NORTH AMERICAN 1927 | EPSG:1250
NTF | EPSG:1193
NGO 1948 | EPSG:1654
NORTH SAHARA 1959 | EPSG:1253
BELGIUM DATUM 1972 | EPSG:15929
OLD EGYPTIAN 1907 | EPSG:1148
ORDNANCE GB 1936 | EPSG:1314 | values=446.448 -125.157 542.06 -20.49 0.15 0.247 0.8421
OLD HAWAI'IAN | EPSG:15825
OLD HAWAI'IAN | EPSG:15826
OLD HAWAI'IAN | EPSG:15827
OLD HAWAI'IAN | EPSG:15828
OLD HAWAI'IAN | EPSG:15824
OLD HAWAI'IAN | ESRI:108331
OLD HAWAI'IAN | ESRI:108332
OLD HAWAI'IAN | ESRI:108333
OLD HAWAI'IAN | ESRI:108334
OLD HAWAI'IAN | ESRI:108330
PALESTINE 1928 | EPSG:1074
AYABELLA LIGHTHOUSE | EPSG:15800
PITCAIRN ASTRO 1967 | EPSG:15819
PICO DE LAS NIEVES. | EPSG:9743
PORTO SANTO 1936. | EPSG:1888
PROV. S AMERICAN 1956 | EPSG:1202
PROV. S AMERICAN 1956 | EPSG:1203
PROV. S AMERICAN 1956 | EPSG:1204
PROV. S AMERICAN 1956 | EPSG:1205
PROV. S AMERICAN 1956 | EPSG:1206
PROV. S AMERICAN 1956 | EPSG:1207
PROV. S AMERICAN 1956 | EPSG:1208
PROV. S AMERICAN 1956 | EPSG:1209
PROV. S AMERICAN 1956 | EPSG:1201
POINT 58 | EPSG:1880
POINT NOIRE 1948 | EPSG:1200
PULKOVO 1942 | EPSG:1254
PULKOVO 1942 | EPSG:1334
PULKOVO 1942 | EPSG:1679
PUERTO RICO & Virgin Is. | EPSG:1893
QATAR NATIONAL 1974 | EPSG:1561
QATAR NATIONAL 1995 | EPSG:1840
QORNOQ | EPSG:1797
DHDN (RAUENBERG), | EPSG:1777
REUNION | EPSG:15751
RT90 | EPSG:1896
SANTO(DOS), 1965 | EPSG:15820
SOUTH AMERICAN 1969 | EPSG:1865
SOUTH AMERICAN 1969 | EPSG:1866
SOUTH AMERICAN 1969 | EPSG:1867
SOUTH AMERICAN 1969 | EPSG:1868
SOUTH AMERICAN 1969 | EPSG:1869
SOUTH AMERICAN 1969 | EPSG:1870
SOUTH AMERICAN 1969 | EPSG:1872
SOUTH AMERICAN 1969 | EPSG:1873
SOUTH AMERICAN 1969 | EPSG:1874
SOUTH AMERICAN 1969 | EPSG:1871
SOUTH AMERICAN 1969 | EPSG:1875
SOUTH AMERICAN 1969 | EPSG:1876
SOUTH AMERICAN 1969 | EPSG:1864
SAO BRAZ | EPSG:1885
SAPPER HILL 1943 (2000 adj), | EPSG:1225
SCHWARZECK | EPSG:1226
SOUTH EAST ISLAND | EPSG:6914
SOVIET GEODETIC SYSTEM 85 | TR 8350.2 | ell=gelSGS85 | area=World | values=3 9 -9 0 0 0 0
PZ90 (GLONASS), | EPSG:1244
SELVAGEM GRANDE 1938 | EPSG:1965
DOS 71/4 | EPSG:15798
SIERRA LEONE DATUM 1960 | EPSG:1614
SIRGAS | EPSG:1581
SOUTH ASIA | ESRI:108269
S-42 (PULKOVO 1942), | EPSG:15996
S-42 (PK42), | EPSG:15997
S-42 (PULKOVO 1942), | EPSG:15998
S-42 (PULKOVO 1942), | EPSG:1290
S-42 (PK 1942), | EPSG:1291
SYSTEM 1942/58 (PULKOVO 1942), | EPSG:1645
S-42 (PULKOVO 1942), | EPSG:15999
S-42 (PULKOVO 1942), | EPSG:15497
S-42 (PULKOVO 1942), | EPSG:1675
S-42 (PULKOVO 1942), | EPSG:15995
TANANARIVE OBSERVATORY | EPSG:1227
TRISTAN ASTRO 1968 | EPSG:15816
TETE | EPSG:6901
TIMBALAI 1948 (Everest), | EPSG:1228
TIMBALAI 1968,Adj of 1948 | EPSG:1852 | note=one datum with the row before in the registry
TIMBALAI 1968, Adj of 1948 | EPSG:5249 | note=one datum with the row before in the registry
TIMBALAI 1948 (Bessel), | EPSG:1228 | instead=no public set on the Bessel ellipsoid; the set on the Everest ellipsoid
TOKYO | EPSG:1231
TOKYO | EPSG:1232
TOKYO | EPSG:1233
TERN ISLAND (FRIG), 1961 | EPSG:15795
VOIROL 1875 | EPSG:1294
WAKE ISLAND ASTRO 1952 | EPSG:15823
WORLD GEODETIC SYSTEM 1972 | EPSG:1238
WORLD GEODETIC SYSTEM 1984 | TR 8350.2 | ell=gelWGS84 | area=World | values=0 0 0 0 0 0 0
YACARE | EPSG:1234
ZANDERIJ | EPSG:1235
"""

# EPSG code of an ellipsoid to the enumerator of ellipsoids.h.
ELLIPSOIDS = {
    7001: "gelAiry30", 7002: "gelModifAiry", 7003: "gelAuNat65", 7004: "gelBess41", 7005: "gelBesselMod",
    7008: "gelClrk66", 7010: "gelClrk80Benoit", 7011: "gelClrk80IGN", 7012: "gelClrk80RGS",
    7013: "gelClrk80Arc", 7015: "gelEver30Ind", 7016: "gelEverest", 7018: "gelEver48", 7019: "gelGRS80",
    7020: "gelHelm06", 7021: "gelIndo74", 7022: "gelInt24", 7024: "gelKrass40", 7029: "gelWarOffice",
    7030: "gelWGS84", 7034: "gelClrk80", 7036: "gelGRS67", 7042: "gelEver30", 7043: "gelWGS72",
    7044: "gelEver56", 7045: "gelEver75", 7046: "gelBess41Nam", 7050: "gelSAm69", 7053: "gelHough60",
    7054: "gelPZ90", 7055: "gelClrk80intfoot", 107004: "gelModifFish60",
}
ARC_SECONDS = {9104: 1.0, 9101: 648000 / math.pi, 9109: 0.648 / math.pi, 9113: 0.324, 1031: 0.001}
PARTS_PER_MILLION = {9202: 1.0, 9201: 1e6, 1028: 0.001}


class Registry:
    def __init__(self, file):
        self.db = sqlite3.connect(f"file:{file}?mode=ro", uri=True)

    def one(self, query, *arguments):
        row = self.db.execute(query, arguments).fetchone()
        if row is None:
            raise SystemExit(f"the registry has no row for {arguments}")
        return row

    def values(self, authority, code):
        """dx dy dz ds rx ry rz of a transformation to WGS 84."""
        method, crs, *shift, rx, ry, rz, angle, ds, scale = self.one(
            "SELECT method_code, target_crs_code, tx, ty, tz, rx, ry, rz, rotation_uom_code,"
            " scale_difference, scale_difference_uom_code"
            " FROM helmert_transformation_table WHERE auth_name = ? AND code = ?", authority, code)
        if crs != 4326 or method not in (9603, 9606, 9607):
            raise SystemExit(f"{authority}:{code} is no Helmert transformation to WGS 84")
        if method == 9603:
            return [*shift, 0, 0, 0, 0]
        turn = -1 if method == 9607 else 1
        angles = [turn * r * ARC_SECONDS[angle] for r in (rx, ry, rz)]
        if ARC_SECONDS[angle] != 1:
            angles = [round(a, 8) for a in angles]
        return [*shift, ds * PARTS_PER_MILLION[scale], *angles]

    def ellipsoid(self, authority, code):
        return ELLIPSOIDS[self.one(
            "SELECT d.ellipsoid_code FROM helmert_transformation_table h"
            " JOIN geodetic_crs c ON c.auth_name = h.source_crs_auth_name AND c.code = h.source_crs_code"
            " JOIN geodetic_datum d ON d.auth_name = c.datum_auth_name AND d.code = c.datum_code"
            " WHERE h.auth_name = ? AND h.code = ?", authority, code)[0]]

    def area(self, authority, code):
        return self.one(
            "SELECT e.name FROM usage u"
            " JOIN extent e ON e.auth_name = u.extent_auth_name AND e.code = u.extent_code"
            " WHERE u.object_table_name = 'helmert_transformation' AND u.object_auth_name = ?"
            " AND u.object_code = ?", authority, code)[0]


def parse(line):
    name, source, *rest = [part.strip() for part in line.split(" | ")]
    return name, source, dict(part.split("=", 1) for part in rest)


def number(value):
    return repr(int(value)) if value == int(value) else repr(value)


def row_of(registry, line):
    name, source, keys = parse(line)
    known = source.startswith(("EPSG:", "ESRI:"))
    at = (source[:4], int(source[5:])) if known else ()
    values = ([float(v) for v in keys["values"].split()] if "values" in keys else registry.values(*at))
    if "round" in keys:
        values = [round(v, int(keys["round"])) for v in values]
    ellipsoid = keys.get("ell") or registry.ellipsoid(*at)
    area = keys.get("area") or registry.area(*at).removesuffix(" - onshore")
    given = "false" if "instead" in keys else "true"
    text = (f'{{"{name}", "{area}", {ellipsoid}, {", ".join(number(v) for v in values)}, '
            f'"{source}", {given}}},')
    remarks = [keys[key] for key in ("instead", "note") if key in keys]
    remarks += [f"{what} as in TR 8350.2" for key, what in (("ell", "ellipsoid"), ("area", "area"))
                if key in keys and known]
    return text, ", ".join(remarks)


def main():
    registry = Registry(sys.argv[1] if len(sys.argv) > 1 else "/usr/share/proj/proj.db")
    print("// datum_rows.inc - written by scripts/make_datum_table.py; do not edit.")
    print("// SPDX-License-Identifier: MIT")
    for row, line in enumerate(ROWS.strip().splitlines(), 1):
        text, remark = row_of(registry, line)
        if remark:
            print(f"// {row}: {remark}.")
        print(text)


main()
