#!/usr/bin/env python3
"""Writes what packages say of releases, from CHANGELOG.md: the metainfo of software centres, and Debian's changelog.

usage: release_notes.py CHANGELOG VERSION MAINTAINER METAINFO-TEMPLATE FOLDER

The section [Unreleased] stands for VERSION, and its day is that of SOURCE_DATE_EPOCH.
"""
import gzip
import os
import re
import sys
import textwrap
import time
from email.utils import formatdate
from pathlib import Path
from xml.sax.saxutils import escape


def sections(text, version, seconds):
    """Pairs of a version, its time and its points, the newest first. Sections without points are left out."""
    parts = re.split(r"^## \[([^\]]+)\](?: - (\d{4}-\d{2}-\d{2}))?\n", text, flags=re.MULTILINE)
    found = []
    for name, day, body in zip(parts[1::3], parts[2::3], parts[3::3]):
        points = [" ".join(point.split()) for point in re.findall(r"^- (.*?)(?=^- |^#|\Z)", body, re.MULTILINE | re.DOTALL)]
        moment = time.mktime(time.strptime(day, "%Y-%m-%d")) if day else seconds
        if points:
            found.append((version if name == "Unreleased" else name, moment, day is None, points))
    if not found:
        raise ValueError("the changelog has no section with points")
    return found


def plain(point):
    """Without the marks of Markdown."""
    return re.sub(r"\[([^\]]+)\]\([^)]+\)", r"\1", point).replace("`", "")


def metainfo(releases):
    lines = ["  <releases>"]
    for version, moment, is_open, points in releases:
        kind = ' type="development"' if is_open else ""
        day = time.strftime("%Y-%m-%d", time.gmtime(moment))
        lines.append(f'    <release version="{version}" date="{day}"{kind}>\n      <description>\n        <ul>')
        lines += [f"          <li>{escape(plain(point))}</li>" for point in points]
        lines.append("        </ul>\n      </description>\n    </release>")
    return "\n".join(lines + ["  </releases>"])


def debian_changelog(releases, maintainer):
    entries = []
    for version, moment, _, points in releases:
        body = "\n".join(textwrap.fill(plain(point), 78, initial_indent="  * ", subsequent_indent="    ")
                         for point in points)
        entries.append(f"ledra ({version}) unstable; urgency=medium\n\n{body}\n\n"
                       f" -- {maintainer}  {formatdate(moment)}\n")
    return "\n".join(entries)


def main():
    if len(sys.argv) != 6:
        sys.exit("usage: release_notes.py CHANGELOG VERSION MAINTAINER METAINFO-TEMPLATE FOLDER")
    changelog, version, maintainer, template, folder = sys.argv[1:]
    os.environ["TZ"] = "UTC"
    time.tzset()
    seconds = int(os.environ.get("SOURCE_DATE_EPOCH", time.time()))
    releases = sections(Path(changelog).read_text(encoding="utf-8"), version, seconds)
    target = Path(folder)
    target.mkdir(parents=True, exist_ok=True)
    text = Path(template).read_text(encoding="utf-8").replace("@RELEASES@", metainfo(releases))
    (target / Path(template).name.removesuffix(".in")).write_text(text, encoding="utf-8")
    (target / "changelog.gz").write_bytes(
        gzip.compress(debian_changelog(releases, maintainer).encode(), compresslevel=9, mtime=0))


if __name__ == "__main__":
    main()
