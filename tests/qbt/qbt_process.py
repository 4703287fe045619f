"""Runs the program `qbt` as a process, each test in a folder of its own."""

import json
import os
import pathlib
import re
import shlex
import subprocess
import tempfile
import unittest

# The program, behind what it takes to start one of another platform.
QBT = [*shlex.split(os.environ.get("QB_RUNNER", "")), os.environ["QB_QBT"]]
ON_WINDOWS = QBT[-1].endswith(".exe")
EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"


def native(path):
    """A path of the package as the program shows it."""
    return path.replace("/", "\\") if ON_WINDOWS else path


def text_of(output):
    """What a program wrote, with the line ends of its platform taken off."""
    text = output.decode()
    return text.replace("\r\n", "\n") if ON_WINDOWS else text


class Result:
    def __init__(self, process):
        self.code = process.returncode
        self.out = text_of(process.stdout)
        self.err = text_of(process.stderr)

    def json(self):
        return json.loads(self.out)


def document(number, name, progress="", state="UNCHANGED", files=("page.htm",), folder="", more=""):
    """The section of a document with a translation and a source."""
    lines = [f"[{number}]", f"LOIO=GUID{number}", "CLASS=DOCUMENT", f"RVD_TECH_NAME={name}", "PROCESS=JS"]
    lines += [f"PROGRESS={progress}"] if progress else []
    lines += ["PHIO_COUNT=2"]
    for version, (role, path) in enumerate([("DST_CURR", "dst"), ("SRC_CURR", "src")], 1):
        lines += [f"{version}PHIO=G{number}{version}", f"{version}CLASS=DOCUMENT", f"{version}ROLE={role}",
                  f"{version}PATH={path}\\{folder or name.lower()}",
                  f"{version}STATE={state if version == 1 else 'READONLY'}",
                  f"{version}DOCUMENT_FORMAT=HTM", f"{version}DESCRIPTION=Title of {name}",
                  f"{version}FILE_COUNT={len(files)}"]
        for place, file in enumerate(files, 1):
            lines += [f"{version}FILE_NAME{place}={file}", f"{version}FORMAT{place}={'PRIM' if place == 1 else ''}",
                      f"{version}SHORT_NAME{place}={file}"]
    return "\r\n".join(lines) + "\r\n" + more


def package_text(*documents, type="GEN"):
    """A package file of these sections, with its true length in it."""
    head = (f"[GLOBAL]\r\nTITLE=Test\r\nSRCLANGUAGE=DE\r\nDSTLANGUAGE=EN\r\nINFOBJS={len(documents)}\r\n"
            f"FILESIZE=@SIZE@@@\r\n[TRANS]\r\nTRANSTYPE={type}\r\n")
    return with_length(head + "".join(documents))


def with_length(text):
    return re.sub(r"FILESIZE=.{8}", f"FILESIZE={len(text.encode('cp1252')):08}", text)


class QbtTest(unittest.TestCase):
    def setUp(self):
        self._temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self._temporary.cleanup)
        self.root = pathlib.Path(self._temporary.name)
        self.folder = self.root / "package"
        self.folder.mkdir()
        self.file = self.folder / "Trans.pxf"
        self.config = self.root / "config"

    def environment(self):
        return {**os.environ, "XDG_CONFIG_HOME": str(self.config), "LC_ALL": "C.UTF-8"}

    def qbt(self, *arguments, cwd=None, input=None):
        """`input` None: nobody is there to answer."""
        process = subprocess.run([*QBT, *map(str, arguments)], cwd=cwd or self.folder, env=self.environment(),
                                 input=(input or "").encode(), capture_output=True, timeout=120)
        return Result(process)

    def write_package(self, text):
        """Writes the package file and every file that it lists."""
        self.file.write_bytes(text.encode("cp1252"))
        for section in text.split("\r\n[")[1:]:
            paths = dict(re.findall(r"^(\d+)PATH=(.*?)\r$", section, re.M))
            for version, name in re.findall(r"^(\d+)FILE_NAME\d+=(.*?)\r$", section, re.M):
                if version in paths:
                    self.write(f"{paths[version]}/{name}".replace("\\", "/"), f"content of {name}")

    def write(self, path, content="content"):
        file = self.folder / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content)
        return file

    def value(self, section, key):
        """The value of a key in the package file; None without it."""
        text = self.file.read_bytes().decode("cp1252")
        found = re.search(rf"^\[{section}\]\r\n((?:[^\[].*\r\n|\r\n)*)", text, re.M)
        found = found and re.search(rf"^{key}=(.*)\r$", found[1], re.M)
        return found[1] if found else None

    def tree(self):
        """All files of the package's folder with bytes and times."""
        return {str(path.relative_to(self.folder)): (path.read_bytes(), path.stat().st_mtime_ns)
                for path in sorted(self.folder.rglob("*")) if path.is_file()}
