#!/usr/bin/env python3
"""Reads crew calendar files with the icalendar package (a reader nobody here wrote) and
compares their events with what the calling test expects.

usage: check_icalendar.py EXPECTED.json

EXPECTED.json: {"folder": DIR, "files": {NAME: [EVENT, ...]}} where each EVENT holds
"uid", "summary", "start" and "end" (ISO text, a date alone for a whole day) and, when
given, "location" and "description". Prints what differs; exit status 1 when anything does.
"""
import json
import os
import sys

from icalendar import Calendar


def raw_problems(name, raw):
    problems = []
    if not raw.endswith(b"\r\n"):
        problems.append(f"{name}: the last line has no CR LF")
    lines = raw.split(b"\r\n")[:-1]
    for n, line in enumerate(lines, 1):
        if b"\n" in line or b"\r" in line:
            problems.append(f"{name}: line {n} holds a bare line end")
        if len(line) > 75:
            problems.append(f"{name}: line {n} has {len(line)} octets")
        try:
            line.decode("utf-8")
        except UnicodeDecodeError:
            problems.append(f"{name}: line {n} is not whole UTF-8 (a fold cut a character)")
    return problems


def events_of(raw):
    calendar = Calendar.from_ical(raw)
    out = []
    for event in calendar.walk("VEVENT"):
        out.append({
            "uid": str(event.get("UID", "")),
            "summary": str(event.get("SUMMARY", "")),
            "location": str(event.get("LOCATION", "")),
            "description": str(event.get("DESCRIPTION", "")),
            "start": event.decoded("DTSTART").isoformat(),
            "end": event.decoded("DTEND").isoformat(),
        })
    return out


def main():
    with open(sys.argv[1], encoding="utf-8") as f:
        expected = json.load(f)
    problems = []
    for name, wanted in expected["files"].items():
        with open(os.path.join(expected["folder"], name), "rb") as f:
            raw = f.read()
        problems += raw_problems(name, raw)
        got = events_of(raw)
        uids = [e["uid"] for e in got]
        if len(set(uids)) != len(uids):
            problems.append(f"{name}: an id stands twice: {uids}")
        if len(got) != len(wanted):
            problems.append(f"{name}: {len(got)} events, expected {len(wanted)}: {got}")
            continue
        for g, w in zip(got, wanted):
            for key, value in w.items():
                if g[key] != value:
                    problems.append(f"{name}: {key} is {g[key]!r}, expected {value!r}")
    for p in problems:
        print(p)
    print(f"{len(expected['files'])} calendars read, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
