#!/usr/bin/env python3
"""Tells what CHANGELOG.md holds to those who want it in another form.

    tools/build_release_notes.py metainfo VERSION SECONDS <template >metainfo
    tools/build_release_notes.py debian VERSION SECONDS >changelog
    tools/build_release_notes.py check VERSION

VERSION is that of the program, SECONDS the time of its commit. While the changelog has no section for
VERSION the program counts as one under development, with what stands under "Unreleased". "check" ends
with 1, and says why, unless the changelog, the build and the manual pages tell of VERSION as released.
"""

import datetime
import email.utils
import pathlib
import re
import sys
import textwrap
import xml.sax.saxutils

ROOT = pathlib.Path(__file__).resolve().parent.parent
MAINTAINER = "Tovrel authors <tovrel@users.noreply.example.org>"
HEADING = re.compile(r"^## \[(?P<version>[^\]]+)\](?: - (?P<date>\d{4}-\d{2}-\d{2}))?$")


def plain(text):
    """Text without the marks of Markdown."""
    return re.sub(r"\[([^\]]+)\]\([^)]*\)", r"\1", text).replace("`", "").replace("*", "")


def sections():
    """The changelog: a list of (version, date or None, {kind: [change]}), the newest first."""
    found = []
    kind = None
    for line in (ROOT / "CHANGELOG.md").read_text(encoding="utf-8").splitlines():
        if heading := HEADING.match(line):
            found.append((heading["version"], heading["date"], {}))
        elif line.startswith("### ") and found:
            kind = found[-1][2].setdefault(line[4:], [])
        elif line.startswith("- ") and kind is not None:
            kind.append(line[2:])
        elif line.startswith("  ") and kind:
            kind[-1] += " " + line.strip()
    return found


def releases(version, seconds):
    """The releases with their dates, the program's own one first, be it released or not."""
    listed = sections()
    if version in (known for known, _, _ in listed):
        return [one for one in listed if one[0] != "Unreleased"]
    today = datetime.datetime.fromtimestamp(seconds, datetime.timezone.utc).date().isoformat()
    return [(version if known == "Unreleased" else known, date or today, changes)
            for known, date, changes in listed]


def metainfo(version, seconds):
    released = {known for known, _, _ in sections()}
    lines = ["  <releases>"]
    for known, date, changes in releases(version, seconds):
        kind = "stable" if known in released else "development"
        lines += [f'    <release version="{known}" date="{date}" type="{kind}">',
                  "      <description>"]
        for heading, items in changes.items():
            lines += [f"        <p>{heading}:</p>", "        <ul>"]
            lines += [f"          <li>{xml.sax.saxutils.escape(plain(item))}</li>"
                      for item in items]
            lines.append("        </ul>")
        lines += ["      </description>", "    </release>"]
    lines.append("  </releases>")
    return sys.stdin.read().replace("@RELEASES@", "\n".join(lines))


def debian(version, seconds):
    parts = []
    for known, date, changes in releases(version, seconds):
        noon = datetime.datetime.fromisoformat(f"{date}T12:00:00+00:00")
        parts.append(f"tovrel ({known}) unstable; urgency=medium\n")
        for heading, items in changes.items():
            parts += [textwrap.fill(f"{heading}: {plain(item)}", 78, initial_indent="  * ",
                                    subsequent_indent="    ", break_on_hyphens=False) for item in items]
        parts.append(f"\n -- {MAINTAINER}  {email.utils.format_datetime(noon)}\n")
    return "\n".join(parts)


def faults(version):
    """Yields what does not tell of a release of the version."""
    listed = {known: (date, changes) for known, date, changes in sections()}
    if version not in listed:
        yield f'CHANGELOG.md has no section "## [{version}] - DATE"'
    elif listed[version][0] is None:
        yield f"CHANGELOG.md has no date for {version}"
    elif not any(listed[version][1].values()):
        yield f"CHANGELOG.md tells no change of {version}"
    if any(listed.get("Unreleased", (None, {}))[1].values()):
        yield 'CHANGELOG.md still has changes under "Unreleased"'
    build = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    if not re.search(rf"^ +VERSION {re.escape(version)}$", build, re.MULTILINE):
        yield f"CMakeLists.txt is of another version than {version}"
    for page in sorted((ROOT / "docs").glob("*.1")):
        if f'"Tovrel {version}"' not in page.read_text(encoding="utf-8").splitlines()[0]:
            yield f"{page.relative_to(ROOT)} is of another version than {version}"


def main():
    arguments = sys.argv[1:]
    if len(arguments) == 3 and arguments[0] in ("metainfo", "debian"):
        make = metainfo if arguments[0] == "metainfo" else debian
        sys.stdout.write(make(arguments[1], int(arguments[2])))
        return 0
    if len(arguments) == 2 and arguments[0] == "check":
        found = list(faults(arguments[1]))
        for fault in found:
            print(f"release: {fault}", file=sys.stderr)
        return 1 if found else 0
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main())
