"""The libraries that a Windows program asks the system for."""

import re
import subprocess

# What every Windows has.
SYSTEM = {"advapi32", "bcrypt", "comctl32", "comdlg32", "gdi32", "kernel32", "msimg32", "msvcrt", "ole32", "oleacc", "oleaut32",
          "rpcrt4", "shell32", "shlwapi", "user32", "uxtheme", "version", "winhttp", "winmm", "winspool", "ws2_32"}


def headers_of(program):
    return subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], check=True, capture_output=True, text=True).stdout


def libraries_of(program):
    """Their names in lower case, without what stands behind the dot."""
    return {re.sub(r"\.(dll|drv)$", "", name.lower()) for name in re.findall(r"DLL Name: (\S+)", headers_of(program))}
