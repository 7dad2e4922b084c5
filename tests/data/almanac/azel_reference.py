#!/usr/bin/env python3
"""Azimuth and elevation from maast_alm01jan2020.yuma.txt, written apart from the C++ store.

Prints the rows of the table in tests/rxio/AlmanacTest.cpp. Run once; the values are pasted
into the test. Orbit: GPS almanac propagation (IS-GPS-200 constants), rotation into ECEF by
matrices; observer: WGS-84; direction from the topocentric rotation matrix.
"""
import math
import os

GM = 3.986005e14
OMEGA_E = 7.2921151467e-5
A_WGS84 = 6378137.0
F_WGS84 = 1 / 298.257223563
FULL_WEEK = 38 + 2048  # the file's 10-bit week 38 in January 2020


def read_yuma(path):
    sats = {}
    cur = {}
    with open(path) as f:
        for line in f:
            if ":" not in line:
                continue
            key, value = (s.strip() for s in line.split(":", 1))
            cur[key] = float(value)
            if key == "week":
                sats[int(cur["ID"])] = cur
                cur = {}
    return sats


def matmul(m, v):
    return [sum(m[r][c] * v[c] for c in range(3)) for r in range(3)]


def rot_x(a):
    c, s = math.cos(a), math.sin(a)
    return [[1, 0, 0], [0, c, -s], [0, s, c]]


def rot_z(a):
    c, s = math.cos(a), math.sin(a)
    return [[c, -s, 0], [s, c, 0], [0, 0, 1]]


def sat_ecef(alm, gps_seconds):
    toa = alm["Time of Applicability(s)"]
    tk = gps_seconds - (FULL_WEEK * 604800 + toa)
    a = alm["SQRT(A)  (m 1/2)"] ** 2
    e = alm["Eccentricity"]
    m = alm["Mean Anom(rad)"] + math.sqrt(GM / a**3) * tk
    ea = m
    for _ in range(50):
        ea = m + e * math.sin(ea)  # fixed-point iteration, not Newton
    nu = 2 * math.atan(math.sqrt((1 + e) / (1 - e)) * math.tan(ea / 2))
    r = a * (1 - e * math.cos(ea))
    u = nu + alm["Argument of Perigee(rad)"]
    node = (alm["Right Ascen at Week(rad)"]
            + (alm["Rate of Right Ascen(r/s)"] - OMEGA_E) * tk - OMEGA_E * toa)
    in_plane = [r * math.cos(u), r * math.sin(u), 0.0]
    return matmul(rot_z(node), matmul(rot_x(alm["Orbital Inclination(rad)"]), in_plane))


def observer_ecef(lat, lon, h):
    e2 = F_WGS84 * (2 - F_WGS84)
    n = A_WGS84 / math.sqrt(1 - e2 * math.sin(lat) ** 2)
    return [(n + h) * math.cos(lat) * math.cos(lon), (n + h) * math.cos(lat) * math.sin(lon),
            (n * (1 - e2) + h) * math.sin(lat)]


def az_el(sat, lat_deg, lon_deg, h, gps_seconds):
    lat, lon = math.radians(lat_deg), math.radians(lon_deg)
    s = sat_ecef(sat, gps_seconds)
    o = observer_ecef(lat, lon, h)
    d = [s[i] - o[i] for i in range(3)]
    # ECEF to east, north, up: rotate by longitude about z, then by colatitude about east.
    enu = matmul(rot_x(-(math.pi / 2 - lat)), matmul(rot_z(-(lon + math.pi / 2)), d))
    east, north, up = enu
    az = math.degrees(math.atan2(east, north)) % 360
    el = math.degrees(math.asin(up / math.sqrt(east**2 + north**2 + up**2)))
    return az, el


# (PRN, GPS week, seconds of week, latitude deg, longitude deg, height m)
CASES = [
    (1, 2086, 503808, 47.3769, 8.5417, 408),
    (2, 2086, 503808, 47.3769, 8.5417, 408),
    (12, 2086, 520000, -33.8688, 151.2093, 58),
    (24, 2086, 420000, -0.1807, -78.4678, 2850),
    (5, 2087, 100000, 78.2232, 15.6267, 10),
    (32, 2085, 600000, 35.6812, 139.7671, 40),
    (19, 2086, 259218, -77.8463, 166.6683, 20),
    (31, 2086, 0, 64.1466, -21.9426, 0),
]

if __name__ == "__main__":
    sats = read_yuma(os.path.join(os.path.dirname(__file__), "maast_alm01jan2020.yuma.txt"))
    for prn, week, sow, lat, lon, h in CASES:
        az, el = az_el(sats[prn], lat, lon, h, week * 604800 + sow)
        print(f"    {{{prn}, {week}, {sow}, {lat}, {lon}, {h}, {az:.4f}, {el:.4f}}},")
