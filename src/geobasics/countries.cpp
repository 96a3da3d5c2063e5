// countries.cpp - the rows of the country catalogue, and finding them.
// SPDX-License-Identifier: MIT
#include <geobasics/countries.h>

#include <algorithm>
#include <string>

#include <platform/base/text.h>

namespace zav {

// Name, FIPS 10-4, ISO alpha-2, ISO alpha-3, central latitude and longitude, capital, its latitude,
// longitude and altitude.
// clang-format off
const std::array<TCountryData, NumCountries> CountryData{{
    {"Afghanistan",                       "af", "af", "afg",   33.0,    65.0, "Kabul",                34.5309,   69.1368, 1807},
    {"Albania",                           "al", "al", "alb",   41.0,    20.0, "Tirana",               41.3275,   19.8189,  113},
    {"Algeria",                           "ag", "dz", "dza",   28.0,     3.0, "Algiers",              36.7658,    3.0319,    0},
    {"American Samoa",                    "aq", "as", "asm", -14.33,  -170.0, "Pago Pago",           -14.2793,  -170.701,   49},
    {"Andorra",                           "an", "ad", "and",   42.5,     1.5, "Andorra la Vella",     42.5078,    1.5211, 1037},
    {"Angola",                            "ao", "ao", "ago",  -12.5,    18.5, "Luanda",               -8.8368,   13.2343,   73},
    {"Anguilla",                          "av", "ai", "aia",  18.25,  -63.17, "The Valley",            18.217,  -63.0578,   19},
    {"Antarctica",                        "ay", "aq", "ata",  -90.0,     0.0, "",                       -90.0,       0.0,    0},
    {"Antigua and Barbuda",               "ac", "ag", "atg",  17.05,   -61.8, "Saint John's",         17.1172,  -61.8457,    4},
    {"Argentina",                         "ar", "ar", "arg",  -34.0,   -64.0, "Buenos Aires",        -34.6131,  -58.3772,   31},
    {"Armenia",                           "am", "am", "arm",   40.0,    45.0, "Yerevan",              40.1811,   44.5136,  994},
    {"Aruba",                             "aa", "aw", "abw",   12.5,  -69.97, "Oranjestad",            12.524,   -70.027,   22},
    {"Australia",                         "as", "au", "aus",  -27.0,   133.0, "Canberra",            -35.2835,  149.1281,  571},
    {"Austria",                           "au", "at", "aut",  47.33,   13.33, "Vienna",               48.2085,   16.3721,  193},
    {"Azerbaijan",                        "aj", "az", "aze",   40.5,    47.5, "Baku",                 40.3777,    49.892,  -23},
    {"Bahamas",                           "bf", "bs", "bhs",  24.25,   -76.0, "Nassau",               25.0582,  -77.3431,    5},
    {"Bahrain",                           "ba", "bh", "bhr",   26.0,   50.55, "Manama",               26.2279,   50.5857,    7},
    {"Bangladesh",                        "bg", "bd", "bgd",   24.0,    90.0, "Dhaka",                23.7104,   90.4074,   23},
    {"Barbados",                          "bb", "bb", "brb",  13.17,  -59.53, "Bridgetown",           13.1073,  -59.6202,   12},
    {"Belarus",                           "bo", "by", "blr",   53.0,    28.0, "Minsk",                   53.9,   27.5667,  222},
    {"Belgium",                           "be", "be", "bel",  50.83,     4.0, "Brussels",             50.8505,    4.3488,   28},
    {"Belize",                            "bh", "bz", "blz",  17.25,  -88.75, "Belmopan",               17.25,  -88.7667,   71},
    {"Benin",                             "bn", "bj", "ben",    9.5,    2.25, "Porto-Novo",            6.4965,    2.6036,   20},
    {"Bermuda",                           "bd", "bm", "bmu",  32.33,  -64.75, "Hamilton",             32.2949,   -64.783,   22},
    {"Bhutan",                            "bt", "bt", "btn",   27.5,    90.5, "Thimphu",              27.4661,   89.6419, 2307},
    {"Bolivia",                           "bl", "bo", "bol",  -17.0,   -65.0, "Sucre",               -19.0333,  -65.2627, 2798},
    {"Bosnia and Herzegovina",            "bk", "ba", "bih",   44.0,    18.0, "Sarajevo",             43.8486,   18.3564,  509},
    {"Botswana",                          "bc", "bw", "bwa",  -22.0,    24.0, "Gaborone",            -24.6545,   25.9086, 1011},
    {"Brazil",                            "br", "br", "bra",  -10.0,   -55.0, "Brasilia",            -15.7797,  -47.9297, 1136},
    {"British Virgin Islands",            "vi", "vg", "vgb",   18.5,   -64.5, "Road Town",            18.4269,  -64.6208,    9},
    {"Brunei",                            "bx", "bn", "brn",    4.5,  114.67, "Bandar Seri Begawan",   4.9403,  114.9481,   16},
    {"Bulgaria",                          "bu", "bg", "bgr",   43.0,    25.0, "Sofia",                42.6975,   23.3241,  562},
    {"Burkina Faso",                      "uv", "bf", "bfa",   13.0,    -2.0, "Ouagadougou",          12.3657,   -1.5339,  299},
    {"Burma;Myanmar",                     "bm", "mm", "mmr",   22.0,    98.0, "Nay Pyi Taw",           19.745,   96.1297,  122},
    {"Burundi",                           "by", "bi", "bdi",   -3.5,    30.0, "Bujumbura",            -3.3822,   29.3644,  805},
    {"Cambodia",                          "cb", "kh", "khm",   13.0,   105.0, "Phnom Penh",           11.5625,   104.916,   20},
    {"Cameroon",                          "cm", "cm", "cmr",    6.0,    12.0, "Yaounde",               3.8667,   11.5167,  726},
    {"Canada",                            "ca", "ca", "can",   60.0,   -95.0, "Ottawa",               45.4112,  -75.6981,   71},
    {"Cape Verde",                        "cv", "cv", "cpv",   16.0,   -24.0, "Praia",                14.9315,  -23.5125,   18},
    {"Cayman Islands",                    "cj", "ky", "cym",   19.5,   -80.5, "George Town",          19.2866,  -81.3744,    3},
    {"Central African Republic",          "ct", "cf", "caf",    7.0,    21.0, "Bangui",                4.3612,    18.555,  351},
    {"Chad",                              "cd", "td", "tcd",   15.0,    19.0, "N'Djamena",            12.1067,   15.0444,  299},
    {"Chile",                             "ci", "cl", "chl",  -30.0,   -71.0, "Santiago",            -33.4569,  -70.6483,  556},
    {"China",                             "ch", "cn", "chn",   35.0,   105.0, "Beijing",              39.9075,  116.3972,   49},
    {"Christmas Island",                  "kt", "cx", "cxr",  -10.5,  105.67, "The Settlement",      -10.4217,  105.6791,  135},
    {"Cocos Islands",                     "ck", "cc", "cck", -12.17,   96.83, "West Island",         -12.1568,   96.8225,   12},
    {"Colombia",                          "co", "co", "col",    4.0,   -72.0, "Bogota",                4.6097,  -74.0817, 2582},
    {"Comoros",                           "cn", "km", "com", -12.17,   44.25, "Moroni",              -11.7022,   43.2551,   27},
    {"Congo, Democratic Republic of the", "cg", "cd", "cod",    0.0,    25.0, "Kinshasa",             -4.3276,   15.3136,  281},
    {"Congo, Republic of the",            "cf", "cg", "cog",   -1.0,    15.0, "Brazzaville",          -4.2661,   15.2832,  284},
    {"Cook Islands",                      "cw", "ck", "cok", -21.23, -159.77, "Avarua",              -21.2078,  -159.775,    6},
    {"Costa Rica",                        "cs", "cr", "cri",   10.0,   -84.0, "San Jose",              9.9333,  -84.0833, 1161},
    {"Cote d'Ivoire",                     "iv", "ci", "civ",    8.0,    -5.0, "Yamoussoukro",          6.8206,   -5.2767,  214},
    {"Croatia",                           "hr", "hr", "hrv",  45.17,    15.5, "Zagreb",               45.8144,    15.978,  135},
    {"Cuba",                              "cu", "cu", "cub",   21.5,   -80.0, "Havana",                23.133,   -82.383,   41},
    {"Cyprus",                            "cy", "cy", "cyp",   35.0,    33.0, "Nicosia",              35.1753,   33.3642,  147},
    {"Czech Republic",                    "ez", "cz", "cze",  49.75,    15.5, "Prague",                50.088,   14.4208,  202},
    {"Denmark",                           "da", "dk", "dnk",   56.0,    10.0, "Copenhagen",           55.6759,   12.5655,   14},
    {"Djibouti",                          "dj", "dj", "dji",   11.5,    43.0, "Djibouti",              11.589,    43.145,    6},
    {"Dominica",                          "do", "dm", "dma",  15.42,  -61.33, "Roseau",               15.3017,  -61.3881,   11},
    {"Dominican Republic",                "dr", "do", "dom",   19.0,  -70.67, "Santo Domingo",        18.5001,  -69.9886,   55},
    {"East Timor;Timor Lestre",           "tt", "tl", "tls",  -8.83,  125.92, "Dili",                 -8.5586,  125.5736,    3},
    {"Ecuador",                           "ec", "ec", "ecu",   -2.0,   -77.5, "Quito",                -0.2298,   -78.525, 2854},
    {"Egypt",                             "eg", "eg", "egy",   27.0,    30.0, "Cairo",                30.0626,   31.2497,   23},
    {"El Salvador",                       "es", "sv", "slv",  13.83,  -88.92, "San Salvador",         13.6893,  -89.1872,  653},
    {"Equatorial Guinea",                 "ek", "gq", "gnq",    2.0,    10.0, "Malabo",                  3.75,    8.7833,   40},
    {"Eritrea",                           "er", "er", "eri",   15.0,    39.0, "Asmara",               15.3381,   38.9318, 2334},
    {"Estonia",                           "en", "ee", "est",   59.0,    26.0, "Tallinn",               59.437,   24.7535,   12},
    {"Ethiopia",                          "et", "et", "eth",    8.0,    38.0, "Addis Ababa",            9.025,   38.7469, 2405},
    {"Falkland Islands; Malvinas",        "fk", "fk", "flk", -51.75,   -59.0, "Stanley",                -51.7,    -57.85,   43},
    {"Faroe Islands",                     "fo", "fo", "fro",   62.0,    -7.0, "Torshavn",             62.0097,   -6.7716,    1},
    {"Fiji",                              "fj", "fj", "fji",  -18.0,   178.0, "Suva",                -18.1416,  178.4415,   57},
    {"Finland",                           "fi", "fi", "fin",   64.0,    26.0, "Helsinki",             60.1695,   24.9354,   26},
    {"France",                            "fr", "fr", "fra",   46.0,     2.0, "Paris",                48.8534,    2.3488,   42},
    {"French Guiana",                     "fg", "gf", "guf",    4.0,   -53.0, "Cayenne",               4.9333,  -52.3333,    7},
    {"French Polynesia",                  "fp", "pf", "pyf",  -15.0,  -140.0, "Papeete",             -17.5373, -149.5665,    9},
    {"Gabon",                             "gb", "ga", "gab",   -1.0,   11.75, "Libreville",            0.3924,    9.4536,    8},
    {"Gambia",                            "ga", "gm", "gmb",  13.47,  -16.57, "Banjul",               13.4527,   -16.578,    5},
    {"Georgia",                           "gg", "ge", "geo",   42.0,    43.5, "Tbilisi",              41.6941,   44.8337,  491},
    {"Germany",                           "gm", "de", "deu",   51.0,     9.0, "Berlin",               52.5163,   13.3276,   34},
    {"Ghana",                             "gh", "gh", "gha",    8.0,    -2.0, "Accra",                  5.556,   -0.1969,   33},
    {"Gibraltar",                         "gi", "gi", "gib",  36.13,   -5.35, "Gibraltar",            36.1447,   -5.3526,   11},
    {"Greece",                            "gr", "gr", "grc",   39.0,    22.0, "Athens",               37.9794,   23.7162,   42},
    {"Greenland",                         "gl", "gl", "grl",   72.0,   -40.0, "Nuuk",                 64.1835,  -51.7216,    1},
    {"Grenada",                           "gj", "gd", "grd",  12.12,  -61.67, "Saint George's",       12.0564,  -61.7485,   33},
    {"Guadeloupe",                        "gp", "gp", "glp",  16.25,  -61.58, "Basse-Terre",          15.9985,  -61.7255,   59},
    {"Guam",                              "gq", "gu", "gum",  13.47,  144.78, "Hagatna",              13.4757,  144.7489,    5},
    {"Guatemala",                         "gt", "gt", "gtm",   15.5,  -90.25, "Guatemala City",       14.6407,  -90.5133, 1508},
    {"Guernsey",                          "gk", "gg", "ggy",  49.47,   -2.58, "Saint Peter Port",     49.4598,   -2.5353,   10},
    {"Guinea",                            "gv", "gn", "gin",   11.0,   -10.0, "Conakry",                9.538,  -13.6773,   13},
    {"Guinea-Bissau",                     "pu", "gw", "gnb",   12.0,   -15.0, "Bissau",               11.8636,  -15.5977,   13},
    {"Guyana",                            "gy", "gy", "guy",    5.0,   -59.0, "Georgetown",            6.8045,  -58.1553,    3},
    {"Haiti",                             "ha", "ht", "hti",   19.0,  -72.42, "Port-au-Prince",       18.5392,   -72.335,   44},
    {"Honduras",                          "ho", "hn", "hnd",   15.0,   -86.5, "Tegucigalpa",          14.0818,  -87.2068,  944},
    {"Hungary",                           "hu", "hu", "hun",   47.0,    20.0, "Budapest",              47.498,   19.0399,  111},
    {"Iceland",                           "ic", "is", "isl",   65.0,   -18.0, "Reykjavik",            64.1355,  -21.8954,   37},
    {"India",                             "in", "in", "ind",   20.0,    77.0, "New Delhi",            28.6358,   77.2245,  212},
    {"Indonesia",                         "id", "id", "idn",   -5.0,   120.0, "Jakarta",              -6.2146,  106.8451,   16},
    {"Iran",                              "ir", "ir", "irn",   32.0,    53.0, "Tehran",               35.6944,   51.4215, 1178},
    {"Iraq",                              "iz", "iq", "irq",   33.0,    44.0, "Baghdad",              33.3406,   44.4009,   41},
    {"Ireland",                           "ei", "ie", "irl",   53.0,    -8.0, "Dublin",               53.3331,   -6.2489,   17},
    {"Israel",                            "is", "il", "isr",   31.5,   34.75, "Jerusalem",             31.769,   35.2163,  786},
    {"Italy",                             "it", "it", "ita",  42.83,   12.83, "Rome",                 41.8919,   12.5113,   52},
    {"Jamaica",                           "jm", "jm", "jam",  18.25,   -77.5, "Kingston",              17.997,  -76.7936,   65},
    {"Japan",                             "ja", "jp", "jpn",   36.0,   138.0, "Tokyo",                35.6895,  139.6917,   44},
    {"Jersey",                            "je", "je", "jey",  49.25,   -2.17, "Saint Helier",          49.188,   -2.1049,   11},
    {"Jordan",                            "jo", "jo", "jor",   31.0,    36.0, "Amman",                31.9552,    35.945,  757},
    {"Kazakhstan",                        "kz", "kz", "kaz",   48.0,    68.0, "Astana",               51.1801,    71.446,  358},
    {"Kenya",                             "ke", "ke", "ken",    1.0,    38.0, "Nairobi",              -1.2833,   36.8167, 1684},
    {"Kiribati",                          "kr", "ki", "kir",   1.42,   173.0, "Tarawa",                1.3278,   172.977,    6},
    {"Korea, North",                      "kn", "kp", "prk",   40.0,   127.0, "Pyongyang",            39.0339,  125.7543,   43},
    {"Korea, South",                      "ks", "kr", "kor",   37.0,   127.5, "Seoul",                 37.566,  126.9784,   38},
    {"Kuwait",                            "ku", "kw", "kwt",   29.5,   47.75, "Kuwait City",          29.3697,   47.9783,   16},
    {"Kyrgyzstan",                        "kg", "kg", "kgz",   41.0,    75.0, "Bishkek",                42.87,     74.59,  767},
    {"Laos",                              "la", "la", "lao",   18.0,   105.0, "Vientiane",            17.9667,     102.6,  174},
    {"Latvia",                            "lg", "lv", "lva",   57.0,    25.0, "Riga",                  56.946,   24.1059,    6},
    {"Lebanon",                           "le", "lb", "lbn",  33.83,   35.83, "Beirut",               33.8889,   35.4944,  102},
    {"Lesotho",                           "lt", "ls", "lso",  -29.5,    28.5, "Maseru",              -29.3167,   27.4833, 1552},
    {"Liberia",                           "li", "lr", "lbr",    6.5,    -9.5, "Monrovia",              6.3005,  -10.7969,   32},
    {"Libya",                             "ly", "ly", "lby",   25.0,    17.0, "Tripoli",              32.8752,   13.1875,   21},
    {"Liechtenstein",                     "ls", "li", "lie",  47.17,    9.53, "Vaduz",                47.1415,    9.5215,  465},
    {"Lithuania",                         "lh", "lt", "ltu",   56.0,    24.0, "Vilnius",              54.6892,   25.2798,   98},
    {"Luxembourg",                        "lu", "lu", "lux",  49.75,    6.17, "Luxembourg",           49.6117,      6.13,  316},
    {"Macedonia",                         "mk", "mk", "mkd",  41.83,    22.0, "Skopje",               41.9965,   21.4314,  247},
    {"Madagascar",                        "ma", "mg", "mdg",  -20.0,    47.0, "Antananarivo",        -18.9137,   47.5361, 1274},
    {"Malawi",                            "mi", "mw", "mwi",  -13.5,    34.0, "Lilongwe",            -13.9669,   33.7873, 1056},
    {"Malaysia",                          "my", "my", "mys",    2.5,   112.5, "Kuala Lumpur",          3.1412,  101.6865,   56},
    {"Maldives",                          "mv", "mv", "mdv",   3.25,    73.0, "Male",                  4.1748,   73.5089,    8},
    {"Mali",                              "ml", "ml", "mli",   17.0,    -4.0, "Bamako",                 12.65,      -8.0,  338},
    {"Malta",                             "mt", "mt", "mlt",  35.88,   14.45, "Valletta",             35.8997,   14.5147,   44},
    {"Marshall Islands",                  "rm", "mh", "mhl",    9.0,   168.0, "Majuro",                7.0897,  171.3803,    6},
    {"Martinique",                        "mb", "mq", "mtq",  14.67,   -61.0, "Fort-de-France",       14.6089,  -61.0733,    6},
    {"Mauritania",                        "mr", "mr", "mrt",   20.0,   -12.0, "Nouakchott",           18.0858,  -15.9785,   10},
    {"Mauritius",                         "mp", "mu", "mus", -20.28,   57.55, "Port Louis",          -20.1619,   57.4989,    3},
    {"Mayotte",                           "mf", "yt", "myt", -12.83,   45.17, "Mamoudzou",           -12.7823,   45.2288,   23},
    {"Mexico",                            "mx", "mx", "mex",   23.0,  -102.0, "Mexico City",          19.4285,  -99.1277, 2240},
    {"Micronesia",                        "fm", "fm", "fsm",   6.92,  158.25, "Palikir",               6.9248,  158.1611,   92},
    {"Moldova",                           "md", "md", "mda",   47.0,    29.0, "Chisinau",             47.0056,   28.8575,   55},
    {"Monaco",                            "mn", "mc", "mco",  43.73,     7.4, "Monaco",               43.7333,    7.4167,   62},
    {"Mongolia",                          "mg", "mn", "mng",   46.0,   105.0, "Ulan Bator",           47.9077,  106.8832, 1284},
    {"Montenegro",                        "mj", "me", "mne",   42.5,    19.3, "Podgorica",            42.4411,   19.2636,   49},
    {"Montserrat",                        "mh", "ms", "msr",  16.75,   -62.2, "Plymouth",             16.7055,  -62.2129,   77},
    {"Morocco",                           "mo", "ma", "mar",   32.0,    -5.0, "Rabat",                34.0132,   -6.8326,   46},
    {"Mozambique",                        "mz", "mz", "moz", -18.25,    35.0, "Maputo",              -25.9655,   32.5832,   70},
    {"Namibia",                           "wa", "na", "nam",  -22.0,    17.0, "Windhoek",            -22.5594,   17.0832, 1656},
    {"Nauru",                             "nr", "nr", "nru",  -0.53,  166.92, "Yaren",                -0.5508,  166.9252,    6},
    {"Nepal",                             "np", "np", "npl",   28.0,    84.0, "Kathmandu",            27.7017,   85.3206, 1296},
    {"Netherlands",                       "nl", "nl", "nld",   52.5,    5.75, "Amsterdam",             52.374,    4.8897,   13},
    {"Netherlands Antilles",              "nt", "an", "ant",  12.25,  -68.75, "Willemstad",           12.1084,  -68.9335,    1},
    {"New Caledonia",                     "nc", "nc", "ncl",  -21.5,   165.5, "Noumea",              -22.2763,  166.4572,   11},
    {"New Zealand",                       "nz", "nz", "nzl",  -41.0,   174.0, "Wellington",          -41.2866,  174.7756,   31},
    {"Nicaragua",                         "nu", "ni", "nic",   13.0,   -85.0, "Managua",              12.1328,  -86.2504,  108},
    {"Niger",                             "ng", "ne", "ner",   16.0,     8.0, "Niamey",               13.5137,    2.1098,  206},
    {"Nigeria",                           "ni", "ng", "nga",   10.0,     8.0, "Abuja",                 9.0579,    7.4951,  476},
    {"Niue",                              "ne", "nu", "niu", -19.03, -169.87, "Alofi",               -19.0545, -169.9177,   51},
    {"Norfolk Island",                    "nf", "nf", "nfk", -29.03,  167.95, "Kingston",            -29.0546,  167.9663,   71},
    {"Northern Mariana Islands",          "cq", "mp", "mnp",   15.2,  145.75, "Saipan",               15.2123,  145.7545,  211},
    {"Norway",                            "no", "no", "nor",   62.0,    10.0, "Oslo",                 59.9127,   10.7461,   26},
    {"Oman",                              "mu", "om", "omn",   21.0,    57.0, "Muscat",               23.5841,   58.4078,   14},
    {"Pakistan",                          "pk", "pk", "pak",   30.0,    70.0, "Islamabad",            33.7215,   73.0433,  579},
    {"Palau",                             "ps", "pw", "plw",    7.5,   134.5, "Melekeok",              7.5004,  134.6235,   68},
    {"Panama",                            "pm", "pa", "pan",    9.0,   -80.0, "Panama City",           8.9936,  -79.5197,   17},
    {"Papua New Guinea",                  "pp", "pg", "png",   -6.0,   147.0, "Port Moresby",         -9.4431,  147.1797,   79},
    {"Paraguay",                          "pa", "py", "pry",  -23.0,   -58.0, "Asuncion",            -25.3007,  -57.6359,  133},
    {"Peru",                              "pe", "pe", "per",  -10.0,   -76.0, "Lima",                -12.0432,  -77.0282,  152},
    {"Philippines",                       "rp", "ph", "phl",   13.0,   122.0, "Manila",               14.6042,  120.9822,   13},
    {"Poland",                            "pl", "pl", "pol",   52.0,    20.0, "Warsaw",               52.2298,   21.0118,  113},
    {"Portugal",                          "po", "pt", "prt",   39.5,    -8.0, "Lisbon",               38.7167,   -9.1333,   45},
    {"Puerto Rico",                       "rq", "pr", "pri",  18.25,   -66.5, "San Juan",             18.4663,  -66.1057,   11},
    {"Qatar",                             "qa", "qa", "qat",   25.5,   51.25, "Doha",                 25.2793,   51.5224,   13},
    {"Reunion",                           "re", "re", "reu",  -21.1,    55.6, "Saint-Denis",         -20.8823,   55.4504,   44},
    {"Romania",                           "ro", "ro", "rou",   46.0,    25.0, "Bucharest",            44.4323,   26.1063,   83},
    {"Russia",                            "rs", "ru", "rus",   60.0,   100.0, "Moscow",               55.7522,   37.6156,  144},
    {"Rwanda",                            "rw", "rw", "rwa",   -2.0,    30.0, "Kigali",                 -1.95,   30.0589, 1542},
    {"Saint Helena",                      "sh", "sh", "shn", -15.95,    -5.7, "Jamestown",           -15.9387,   -5.7168,  426},
    {"Saint Kitts and Nevis",             "sc", "kn", "kna",  17.33,  -62.75, "Basseterre",           17.2948,  -62.7261,   10},
    {"Saint Lucia",                       "st", "lc", "lca",  13.88,  -60.97, "Castries",             13.9957,  -61.0061,  119},
    {"Saint Pierre and Miquelon",         "sb", "pm", "spm",  46.83,  -56.33, "Saint-Pierre",         46.7791,  -56.1773,   30},
    {"Saint Vincent and the Grenadines",  "vc", "vc", "vct",  13.25,   -61.2, "Kingstown",            13.1553,  -61.2274,   11},
    {"Samoa",                             "ws", "ws", "wsm", -13.58, -172.33, "Apia",                -13.8333, -171.7667,    9},
    {"San Marino",                        "sm", "sm", "smr",  43.93,   12.47, "San Marino",           43.9367,   12.4464,  683},
    {"Sao Tome and Principe",             "tp", "st", "stp",    1.0,     7.0, "Sao Tome",              0.3365,    6.7273,    8},
    {"Saudi Arabia",                      "sa", "sa", "sau",   25.0,    45.0, "Riyadh",               24.6877,   46.7219,  612},
    {"Senegal",                           "sg", "sn", "sen",   14.0,   -14.0, "Dakar",                14.6937,  -17.4441,   12},
    {"Serbia and Montenegro",             "yi", "cs", "scg",   44.0,    21.0, "Belgrade",              44.804,   20.4651,  120},
    {"Seychelles",                        "se", "sc", "syc",  -4.58,   55.67, "Victoria",             -4.6167,     55.45,   60},
    {"Sierra Leone",                      "sl", "sl", "sle",    8.5,   -11.5, "Freetown",               8.484,  -13.2299,   49},
    {"Singapore",                         "sn", "sg", "sgp",   1.37,   103.8, "Singapore",             1.2897,  103.8501,   23},
    {"Slovakia",                          "lo", "sk", "svk",  48.67,    19.5, "Bratislava",           48.1482,   17.1067,  157},
    {"Slovenia",                          "si", "si", "svn",  46.12,   14.82, "Ljubljana",            46.0511,   14.5051,  295},
    {"Solomon Islands",                   "bp", "sb", "slb",   -8.0,   159.0, "Honiara",              -9.4333,    159.95,   49},
    {"Somalia",                           "so", "so", "som",    6.0,    48.0, "Mogadishu",             2.0371,   45.3438,   12},
    {"South Africa",                      "sf", "za", "zaf",  -29.0,    24.0, "Pretoria",            -25.7449,   28.1878, 1332},
    {"Spain",                             "sp", "es", "esp",   40.0,    -4.0, "Madrid",               40.4165,   -3.7026,  665},
    {"Sri Lanka",                         "ce", "lk", "lka",    7.0,    81.0, "Colombo",               6.9319,   79.8478,    9},
    {"Sudan",                             "su", "sd", "sdn",   15.0,    30.0, "Khartoum",             15.5518,   32.5324,  381},
    {"Suriname",                          "ns", "sr", "sur",    4.0,   -56.0, "Paramaribo",            5.8664,  -55.1668,    5},
    {"Svalbard",                          "sv", "sj", "sjm",   78.0,    20.0, "Longyearbyen",         78.2233,   15.6469,    1},
    {"Swaziland",                         "wz", "sz", "swz",  -26.5,    31.5, "Mbabane",             -26.3167,   31.1333, 1209},
    {"Sweden",                            "sw", "se", "swe",   62.0,    15.0, "Stockholm",            59.3326,   18.0649,   28},
    {"Switzerland",                       "sz", "ch", "che",   47.0,     8.0, "Bern",                 46.9481,    7.4474,  549},
    {"Syria",                             "sy", "sy", "syr",   35.0,    38.0, "Damascus",             33.5102,   36.2913,  701},
    {"Taiwan",                            "tw", "tw", "twn",   23.5,   121.0, "Taipei",               25.0478,  121.5319,   10},
    {"Tajikistan",                        "ti", "tj", "tjk",   39.0,    71.0, "Dushanbe",             38.5358,    68.779,  767},
    {"Tanzania",                          "tz", "tz", "tza",   -6.0,    35.0, "Dodoma",               -6.1722,   35.7395, 1125},
    {"Thailand",                          "th", "th", "tha",   15.0,   100.0, "Bangkok",               13.754,  100.5014,   12},
    {"Togo",                              "to", "tg", "tgo",    8.0,    1.17, "Lome",                  6.1375,    1.2123,    6},
    {"Tonga",                             "tn", "to", "ton",  -20.0,  -175.0, "Nuku'alofa",          -21.1394, -175.2018,    5},
    {"Trinidad and Tobago",               "td", "tt", "tto",   10.5,  -61.25, "Port of Spain",        10.6667,  -61.5189,   21},
    {"Tunisia",                           "ts", "tn", "tun",   34.0,     9.0, "Tunis",                 36.819,   10.1658,   23},
    {"Turkey",                            "tu", "tr", "tur",   39.0,    35.0, "Ankara",               39.9199,   32.8543,  874},
    {"Turkmenistan",                      "tx", "tm", "tkm",   40.0,    60.0, "Ashgabat",               37.95,   58.3833,  219},
    {"Turks and Caicos Islands",          "tk", "tc", "tca",  21.75,  -71.58, "Cockburn Town",        21.4612,  -71.1419,    7},
    {"Tuvalu",                            "tv", "tv", "tuv",   -8.0,   178.0, "Funafuti",             -8.5243,  179.1942,    7},
    {"Uganda",                            "ug", "ug", "uga",    1.0,    32.0, "Kampala",               0.3163,   32.5822, 1223},
    {"Ukraine",                           "up", "ua", "ukr",   49.0,    32.0, "Kiev",                 50.4547,   30.5238,  187},
    {"United Arab Emirates",              "ae", "ae", "are",   24.0,    54.0, "Abu Dhabi",            24.4667,   54.3667,    6},
    {"United Kingdom",                    "uk", "gb", "gbr",   54.0,    -2.0, "London",               51.5085,   -0.1257,   25},
    {"United States",                     "us", "us", "usa",   38.0,   -97.0, "Washington",           38.8951,  -77.0364,    6},
    {"Uruguay",                           "uy", "uy", "ury",  -33.0,   -56.0, "Montevideo",          -34.9033,  -56.1882,   34},
    {"Uzbekistan",                        "uz", "uz", "uzb",   41.0,    64.0, "Tashkent",             41.2647,   69.2163,  424},
    {"Vanuatu",                           "nh", "vu", "vut",  -16.0,   167.0, "Port-Vila",           -17.7338,  168.3219,   59},
    {"Vatican",                           "vt", "va", "vat",   41.9,   12.45, "Vatican City",         41.9024,   12.4533,   62},
    {"Venezuela",                         "ve", "ve", "ven",    8.0,   -66.0, "Caracas",               10.488,  -66.8792,  887},
    {"Vietnam",                           "vm", "vn", "vnm",   16.0,   106.0, "Hanoi",                21.0245,  105.8412,   10},
    {"Virgin Islands",                    "vq", "vi", "vir",  18.33,  -64.83, "Charlotte Amalie",     18.3419,  -64.9307,   10},
    {"Wallis and Futuna",                 "wf", "wf", "wlf",  -13.3,  -176.2, "Mata-Utu",            -13.2816, -176.1745,   15},
    {"Western Sahara",                    "wi", "eh", "esh",   24.5,   -13.0, "El Aaiun",             27.1418,   -13.188,   68},
    {"Yemen",                             "ym", "ye", "yem",   15.0,    48.0, "Sanaa",                15.3547,   44.2067, 2253},
    {"Zambia",                            "za", "zm", "zmb",  -15.0,    30.0, "Lusaka",              -15.4067,   28.2871, 1277},
    {"Zimbabwe",                          "zi", "zw", "zwe",  -20.0,    30.0, "Harare",              -17.8292,    31.054, 1480},
}};
// clang-format on

namespace {

// Whether the text is the name, as it stands ("Korea, North"), turned round ("North Korea"), or one
// of two names ("Burma", "Myanmar").
bool IsName(const std::string& Key, std::string_view Name) {
  if (SearchKey(Name) == Key) return true;
  const size_t Semicolon = Name.find(';');
  if (Semicolon != std::string_view::npos)
    return SearchKey(Name.substr(0, Semicolon)) == Key ||
           SearchKey(TrimBlanks(Name.substr(Semicolon + 1))) == Key;
  const size_t Comma = Name.find(", ");
  if (Comma == std::string_view::npos) return false;
  const std::string Round =
      std::string(Name.substr(Comma + 2)) + " " + std::string(Name.substr(0, Comma));
  return SearchKey(Round) == Key;
}

template <typename Predicate>
const TCountryData* FirstCountry(Predicate Is) {
  const auto Found = std::find_if(CountryData.begin(), CountryData.end(), Is);
  return Found == CountryData.end() ? nullptr : &*Found;
}

}  // namespace

const TCountryData* FindCountryByISO(std::string_view Code) {
  return FirstCountry([&](const TCountryData& Each) {
    return SameText(Code, Each.ISO3166_2.View()) || SameText(Code, Each.ISO3166_3.View());
  });
}

const TCountryData* FindCountryByFips(std::string_view Code) {
  return FirstCountry([&](const TCountryData& Each) { return SameText(Code, Each.Fips10.View()); });
}

const TCountryData* FindCountryByName(std::string_view Name) {
  const std::string Key = SearchKey(TrimBlanks(Name));
  return FirstCountry([&](const TCountryData& Each) { return IsName(Key, Each.Name.View()); });
}

const TCountryData* FindCountry(std::string_view CodeOrName) {
  const TCountryData* Found = FindCountryByISO(TrimBlanks(CodeOrName));
  return Found != nullptr ? Found : FindCountryByName(CodeOrName);
}

std::vector<const TCountryData*> FindCountriesByCapital(std::string_view Capital) {
  const std::string Key = SearchKey(TrimBlanks(Capital));
  std::vector<const TCountryData*> Found;
  for (const TCountryData& Each : CountryData)
    if (!Key.empty() && SearchKey(Each.Capital.View()) == Key) Found.push_back(&Each);
  return Found;
}

}  // namespace zav
