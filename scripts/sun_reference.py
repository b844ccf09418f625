#!/usr/bin/env python3
"""Writes the reference table of sunrise and sunset times that the sun-time tests check against.

The method is deliberately not the one the program uses. The program solves the NOAA equations
for the hour angle of the event. This script takes the sun's apparent position from the low
precision formulae of the Astronomical Almanac (right ascension and declination, good to about
0.01 degree from 1950 to 2050), turns it into the sun's altitude at a given instant through
Greenwich mean sidereal time, and searches the local calendar day for the instants at which the
altitude of the sun's centre crosses -0.833 degrees (refraction and the sun's radius), by a scan
in 2-minute steps and bisection to well under a second. Local days and their UTC offsets,
daylight saving included, come from the zoneinfo database through Python's zoneinfo module.

Usage: scripts/sun_reference.py > tests/core/data/SunReferenceTimes.csv
"""
import math
from datetime import date, datetime, timedelta, timezone
from zoneinfo import ZoneInfo

# Each place with the equinoxes and solstices of 2026 and the two daylight-saving change days of
# its zone in 2026 (Europe's for a zone without daylight saving).
SEASONS = [date(2026, 3, 20), date(2026, 6, 21), date(2026, 9, 23), date(2026, 12, 21)]
EUROPE = [date(2026, 3, 29), date(2026, 10, 25)]
PLACES = [
    ("Quito", -0.1807, -78.4678, "America/Guayaquil", EUROPE),
    ("New York", 40.7128, -74.0060, "America/New_York", [date(2026, 3, 8), date(2026, 11, 1)]),
    ("Berlin", 52.52, 13.405, "Europe/Berlin", EUROPE),
    ("Tromso", 69.6492, 18.9553, "Europe/Oslo", EUROPE),
    ("Sydney", -33.8688, 151.2093, "Australia/Sydney", [date(2026, 4, 5), date(2026, 10, 4)]),
    ("Ushuaia", -54.8019, -68.3030, "America/Argentina/Ushuaia", EUROPE),
    ("Syowa", -69.0044, 39.5814, "Antarctica/Syowa", EUROPE),
]

HORIZON = -0.833


def altitude(ts, lat, lon):
    """Altitude in degrees of the sun's centre at the UTC instant ts (seconds since 1970)."""
    n = ts / 86400.0 + 2440587.5 - 2451545.0
    rad = math.radians
    L = (280.460 + 0.9856474 * n) % 360.0
    g = rad((357.528 + 0.9856003 * n) % 360.0)
    lam = rad(L + 1.915 * math.sin(g) + 0.020 * math.sin(2 * g))
    eps = rad(23.439 - 0.0000004 * n)
    ra = math.atan2(math.cos(eps) * math.sin(lam), math.cos(lam))
    dec = math.asin(math.sin(eps) * math.sin(lam))
    gmst = (18.697374558 + 24.06570982441908 * n) % 24.0
    lha = rad(gmst * 15.0 + lon) - ra
    phi = rad(lat)
    s = math.sin(phi) * math.sin(dec) + math.cos(phi) * math.cos(dec) * math.cos(lha)
    return math.degrees(math.asin(s))


def crossing(a, b, lat, lon):
    fa = altitude(a, lat, lon) - HORIZON
    for _ in range(40):
        m = (a + b) / 2
        fm = altitude(m, lat, lon) - HORIZON
        if (fm > 0) == (fa > 0):
            a, fa = m, fm
        else:
            b = m
    return (a + b) / 2


def events(d, lat, lon, zone):
    tz = ZoneInfo(zone)
    start = datetime(d.year, d.month, d.day, tzinfo=tz).timestamp()
    nxt = d + timedelta(days=1)
    end = datetime(nxt.year, nxt.month, nxt.day, tzinfo=tz).timestamp()
    step = 120.0
    rise = sett = None
    above_any = below_any = False
    t = start
    prev = altitude(t, lat, lon) - HORIZON
    while t < end:
        t2 = min(t + step, end)
        cur = altitude(t2, lat, lon) - HORIZON
        above_any |= prev > 0 or cur > 0
        below_any |= prev <= 0 or cur <= 0
        if prev <= 0 < cur and rise is None:
            rise = crossing(t, t2, lat, lon)
        if prev > 0 >= cur and sett is None:
            sett = crossing(t, t2, lat, lon)
        t, prev = t2, cur

    def local(ts):
        if ts is None:
            return "none"
        lt = datetime.fromtimestamp(round(ts), timezone.utc).astimezone(tz)
        return lt.strftime("%H:%M:%S")

    if rise is None and sett is None:
        word = "polar day" if above_any and not below_any else "polar night"
        return word, word
    return local(rise), local(sett)


def main():
    print("# Sunrise and sunset, local time of the place's zone (daylight saving included).")
    print("# Written by scripts/sun_reference.py: the Astronomical Almanac's low-precision sun")
    print("# position, the altitude through Greenwich mean sidereal time, and a search of the")
    print("# local day for the instants the sun's centre crosses -0.833 degrees. A method")
    print("# independent of the program's NOAA hour-angle equations.")
    print("# place,latitude,longitude,zone,date,sunrise,sunset")
    for name, lat, lon, zone, changes in PLACES:
        for d in sorted(SEASONS + changes):
            rise, sett = events(d, lat, lon, zone)
            print(f"{name},{lat},{lon},{zone},{d.isoformat()},{rise},{sett}")


if __name__ == "__main__":
    main()
