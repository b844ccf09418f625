#!/usr/bin/env python3
"""The yardstick of the service's idle cost: a headless loop in the style of the Python
`schedule` module that does the service's evaluation every 900 ms on the heavy schedule of the
benchmark (8 relays with 6 time pairs each, all days, every even/odd code). Each run, as the
service's tick: reads the time; for every relay checks its days and its code, and every time
pair from its texts (with the pairs' colours for the rows); works out each relay's state and
total on-time text; makes the output byte, reads it back from an emulated port, forms the
relay and input texts; and once a minute appends the state line to the daily log. It uses the
`schedule` module when it is installed, else plain time.sleep.

    scripts/idle_schedule_loop.py LOG-DIRECTORY
"""
import datetime
import os
import sys
import time

CODES = ["EO", "OD", "EH", "OM", "TH", "MH", "BH", "5"]
START = [["%d:10:00" % (2 + p * 3) for p in range(6)] for _ in CODES]
END = [["%d:50:30" % (4 + p * 3) for p in range(6)] for _ in CODES]
DAYS = ["1234567"] * 8
ON, OFF = 0x00FF00, 0x000080
LOG_DIR = sys.argv[1] if len(sys.argv) > 1 else "."
state = {"minute": -1, "port": 0, "old": [9] * 8}
pair_colour = [OFF] * 48
total_text = [""] * 8
counts = [0] * 8


def seconds_of(text):
    h, m, s = text.split(":")
    return int(h) * 3600 + int(m) * 60 + int(s)


def hms(seconds):
    return "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60)


def code_allows(code, now, seconds, tick_ms):
    if code == "EO":
        return True
    if code in ("OD", "ED"):
        return now.day % 2 == (1 if code == "OD" else 0)
    if code in ("EH", "OH"):
        return now.hour % 2 == (0 if code == "EH" else 1)
    if code in ("OM", "EM"):
        return now.minute % 2 == (1 if code == "OM" else 0)
    if code in ("TH", "MH", "BH"):
        half = seconds // 1800 % 2
        return half == 0 if code == "TH" else half == 1 if code == "MH" else True
    cycle = int(code) * 60000
    return tick_ms // cycle % 2 == 0


def evaluate():
    now = datetime.datetime.now()
    seconds = now.hour * 3600 + now.minute * 60 + now.second
    tick_ms = int(time.monotonic() * 1000)
    weekday = str(now.isoweekday() % 7 + 1)
    byte = 0
    for relay, code in enumerate(CODES):
        on = False
        total = 0
        for p in range(6):
            start, end = seconds_of(START[relay][p]), seconds_of(END[relay][p])
            inside = start <= seconds < end if start <= end else seconds >= start or seconds < end
            total += end - start if start <= end else 86400 - start + end
            pair_colour[relay * 6 + p] = ON if inside else OFF
            on = on or inside
        on = on and weekday in DAYS[relay] and code_allows(code, now, seconds, tick_ms)
        total_text[relay] = "Over24hr" if total > 86400 else hms(total)
        if on:
            byte |= 1 << relay
    state["port"] = byte  # the emulated board latches the output
    read_back = state["port"]
    texts = []
    for relay in range(8):
        bit = (read_back >> relay) & 1
        if bit and state["old"][relay] == 0:
            counts[relay] += 1
        state["old"][relay] = bit
        texts.append(str(relay + 1) if bit else "-")
    relay_text = " ".join(texts)
    input_text = " ".join("-" for _ in range(8))
    if now.minute != state["minute"]:
        state["minute"] = now.minute
        name = os.path.join(LOG_DIR, now.strftime("Vantrellion_%Y_%m_%d.Log"))
        with open(name, "a", newline="") as log:
            log.write("%s <%s>R><I<%s>I \r\n" % (hms(seconds), relay_text, input_text))


try:
    import schedule

    schedule.every(0.9).seconds.do(evaluate)
    while True:
        schedule.run_pending()
        time.sleep(max(0.0, schedule.idle_seconds() or 0.9))
except ImportError:
    next_at = time.monotonic()
    while True:
        evaluate()
        next_at += 0.9
        time.sleep(max(0.0, next_at - time.monotonic()))
