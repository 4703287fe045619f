"""The Windows machine that Wine plays for the tests: programs, paths, registry, and windows on the display at hand."""

import atexit
import os
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "wx" / "window"))

import desktop  # noqa: E402

PREFIX = os.environ["QB_WINE_PREFIX"]
PROGRAM = os.environ["QB_TRANSLATOR"]
EDITOR = os.environ["QB_SMALL_EDITOR"]
SETTINGS = r"HKEY_CURRENT_USER\Software\ORB\Quillbank\Quillbank Translator"
CLASSES = "HKEY_CLASSES_ROOT"  # Wine does not look into the user's own classes


def shut_down():
    """Ends what runs on the machine. Its desktop stands on one display, and the next test has another."""
    for option in ("-k", "-w"):
        subprocess.run(["wineserver", option], env={**os.environ, "WINEPREFIX": PREFIX}, stderr=subprocess.DEVNULL)


if pathlib.Path(PREFIX).exists():
    shut_down()
atexit.register(shut_down)


def start(*command, folder):
    """Starts a program of the machine."""
    return subprocess.Popen([HERE / "under_wine", PREFIX, *command], cwd=folder)


def windows_path(path):
    """Where the machine sees a file of ours."""
    return "Z:" + str(path).replace("/", "\\")


def import_registry(folder, keys):
    """Sets keys, a dictionary of values each, or removes them where that is None."""
    lines = ["Windows Registry Editor Version 5.00", ""]
    for key, values in keys.items():
        lines.append(f"[{key}]" if values is not None else f"[-{key}]")
        for name, value in (values or {}).items():
            text = value.replace("\\", "\\\\").replace('"', '\\"')
            lines.append((f'"{name}"' if name else "@") + f'="{text}"')
        lines.append("")
    file = folder / "import.reg"
    file.write_text("\r\n".join(lines), "utf-16")
    if start("regedit", "/S", windows_path(file), folder=folder).wait() != 0:
        raise AssertionError(f"the registry did not take {keys}")


def write_settings(folder, **values):
    """Settings of an earlier run. A session number makes the program take the others as they stand."""
    settings = {"SessionNumber": "1", "InterfaceLanguage": "en", "ViewDetailed": "0", "UserID": "ORB AG",
                "HelpFile": r"en\00005554.chm", "InstallationPath": windows_path(pathlib.Path(PROGRAM).parent),
                "ProgramGroup": "ORB Quillbank", "TimerInterval": "5000", "LastFile1": "-", "LastFile2": "-",
                "LastFile3": "-", "LastFile4": "-", "TraceFile": "TraceFile", "Trace": "1"}
    settings.update(values)
    import_registry(folder, {SETTINGS: None})
    import_registry(folder, {SETTINGS: settings})


def file_type(extension, *verbs):
    """The keys of a file type whose verbs start the small editor."""
    name = f"QuillbankTest{extension}"
    keys = {rf"{CLASSES}\{extension}": {"": name}, rf"{CLASSES}\{name}": {}}
    for verb in verbs:
        keys[rf"{CLASSES}\{name}\shell\{verb}\command"] = {"": f'"{windows_path(EDITOR)}" {verb} "%1"'}
    return keys


def window(title):
    """The number of the window on screen whose title starts so, or None."""
    found = desktop.windows_named(f"^{title}")
    return found[-1] if found else None


def wait_for_window(title):
    return desktop.wait_until(lambda: window(title), f"window '{title}'")


def activate(title):
    """Brings a window to the front, so that keys go to it."""
    desktop.activate(wait_for_window(title))
