"""The rooms of src/ keep their order: a room includes only itself and rooms above it.

The linker finds most slips, but not a header of a lower room that includes one of a higher.
"""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE_SUFFIXES = {".h", ".cpp", ".in"}

ORDER = ["runtime", "platform", "foundation", "ui", "model", "editors", "workflow"]
ALLOWED = {room: set(ORDER[: place + 1]) for place, room in enumerate(ORDER)}
ALLOWED["wx"] = {"runtime", "platform", "foundation", "ui", "wx"}
ALLOWED["apps"] = {*ORDER, "wx", "apps"}
# A bridge to the office of one system: of the room that it stands in, and bound to that system.
BRIDGES = {"editors/com": "win32"}
ALLOWED.update({bridge: ALLOWED[bridge.split("/")[0]] for bridge in BRIDGES})

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b((?:.*\\\n)*.*)", re.M)
OPERATING_SYSTEM = re.compile(
    r"\b(_*WIN(?:DOWS|NT|32|64)_*|__MINGW\w*|_MSC_VER|__CYGWIN__|_*linux_*|__gnu_linux__"
    r"|_*unix_*|__APPLE__|__FreeBSD__|__WX\w+__|__ANDROID__)\b"
)
SYSTEM_HEADER = re.compile(r"^(windows\.h|shellapi\.h|unistd\.h|fcntl\.h|dlfcn\.h|pwd\.h|sys/.*|gio/.*|glib.*|linux/.*)$")


def findings(room, text):
    """What is wrong in a file of `room` that holds `text`."""
    found = []
    for mark, name in INCLUDE.findall(text):
        first = name.split("/")[0]
        if mark == '"' and "/" in name and first in ALLOWED and first not in ALLOWED[room]:
            found.append(f'includes "{name}", a room below')
        system = re.match(r"platform/(linux|win32)/", name)
        if mark == '"' and system and room not in ("platform", "apps") and BRIDGES.get(room) != system[1]:
            found.append(f'includes "{name}", one platform')
        if mark == '"' and name.startswith("../"):
            found.append(f'includes "{name}": name the room instead')
        if mark == "<" and name.startswith("wx/") and room not in ("wx", "apps"):
            found.append(f"includes <{name}>, the toolkit")
        if mark == "<" and SYSTEM_HEADER.match(name) and room not in ("platform", "wx", "apps"):
            found.append(f"includes <{name}>, an operating system")
    if room not in ("platform", "wx", "apps"):
        found += [f"asks for {m[0]}" for c in CONDITION.findall(text) if (m := OPERATING_SYSTEM.search(c))]
    return found


def room_of(path):
    """The room of a file of src/; a bridge counts as one."""
    folder = "/".join(path.parts[:2])
    return folder if folder in BRIDGES else path.parts[0]


def sources():
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix in SOURCE_SUFFIXES and path.is_file():
            yield path.relative_to(ROOT / "src")


class Rooms(unittest.TestCase):
    def test_everyFileStandsInAKnownRoom(self):
        self.assertEqual([], [str(path) for path in sources() if path.parts[0] not in ALLOWED])

    def test_noFileReachesBelowItsRoom(self):
        wrong = []
        for path in sources():
            text = (ROOT / "src" / path).read_text(encoding="utf-8")
            wrong += [f"{path} {what}" for what in findings(room_of(path), text)]
        self.assertEqual([], wrong)


class TheCheckItself(unittest.TestCase):
    """Slips that must be found, and lines that must pass."""

    def test_slipsAreFound(self):
        for room, line in [
            ("model", '#include "workflow/TranslateMod.h"'),
            ("runtime", '#include "platform/Platform.h"'),
            ("wx", '#include "model/CPxfFile.h"'),
            ("wx", '# include "workflow/TranslateMod.h"'),
            ("ui", "#include <wx/wx.h>"),
            ("editors", '#include "platform/linux/LinuxPlatform.h"'),
            ("editors", '#include "platform/win32/ComValues.h"'),
            ("editors/com", '#include "platform/linux/LinuxPlatform.h"'),
            ("editors/com", '#include "workflow/TranslateMod.h"'),
            ("editors/com", "#ifdef _WIN32"),
            ("foundation", "#include <unistd.h>"),
            ("model", '#include "../ui/Forms.h"'),
            ("workflow", "#ifdef _WIN32"),
            ("workflow", "#if defined(__linux__)"),
            ("editors", "#if defined(A) || \\\n    defined(__MINGW32__)"),
        ]:
            self.assertEqual(1, len(findings(room, line)), line)

    def test_properLinesPass(self):
        for room, line in [
            ("model", '#include "ui/Forms.h"'),
            ("wx", '#include "ui/Toolkit.h"'),
            ("apps", '#include "workflow/TranslateMod.h"\n#include <wx/app.h>'),
            ("editors/com", '#include "platform/win32/ComValues.h"'),
            ("platform", "#ifdef _WIN32"),
            ("wx", "#ifdef __WXGTK__"),
            ("ui", "#ifndef NDEBUG"),
        ]:
            self.assertEqual([], findings(room, line), line)


if __name__ == "__main__":
    unittest.main()
