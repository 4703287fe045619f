"""The manual page and the completion know what the program knows."""

import pathlib
import re
import subprocess
import unittest

from qbt_process import QBT, QbtTest, document, package_text

PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"
MANUAL = PACKAGING / "man" / "qbt.1"
COMPLETION = PACKAGING / "completion" / "qbt"


def subcommands(help_text):
    return re.findall(r"^  ([a-z-]+) +\S", help_text.split("Subcommands:")[1], re.M) if "Subcommands:" in help_text else []


class Manual(QbtTest):
    def setUp(self):
        super().setUp()
        self.text = MANUAL.read_text().replace("\\-", "-")

    def test_theFormatterHasNothingToSay(self):
        for command in (["mandoc", "-T", "lint", MANUAL],
                        ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", MANUAL]):
            result = subprocess.run(command, capture_output=True, env=self.environment())
            self.assertEqual(b"", result.stderr, command)
            if command[0] == "mandoc":
                self.assertEqual((0, b""), (result.returncode, result.stdout))

    def test_everyCommandAndOptionIsThere(self):
        for command in [""] + subcommands(self.qbt("--help").out):
            help_text = self.qbt(*command.split(), "--help").out
            self.assertIn(command, self.text)
            for word in subcommands(help_text) if command == "component" else []:
                self.assertIn(f"component {word}", self.text)
            for option in re.findall(r"--[a-z-]+", help_text.split("Exit codes")[0]):
                self.assertIn(option, self.text, command)

    def test_theExitCodesAreThoseOfTheHelp(self):
        told = re.search(r"Exit codes: (.*)The manual", self.qbt("--help").out, re.S)[1]
        for code in re.findall(r"\b(\d+) ", told):
            self.assertIn(f".B {code}\n", self.text)


class Completion(QbtTest):
    def setUp(self):
        super().setUp()
        self.write_package(package_text(document(1, "FRESH"), document(2, "BEGUN", "MODIFIED", "MODIFIED")))

    def complete(self, *words):
        """What is offered for the last of the words."""
        script = (f'source "{COMPLETION}"; compopt() {{ :; }}; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _qbt; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        result = subprocess.run(["bash", "-c", script, "bash", QBT[-1], *words], cwd=self.folder, env=self.environment(),
                                capture_output=True, timeout=60)
        self.assertEqual(b"", result.stderr)
        return result.stdout.decode().split()

    def test_commandsAreOffered_AllOfThem(self):
        self.assertEqual(sorted(subcommands(self.qbt("--help").out)), sorted(self.complete("")))
        self.assertEqual(["show", "status"], sorted(self.complete("s")))

    def test_documentsOfThePackageAreOffered(self):
        self.assertEqual(["FRESH", "BEGUN"], self.complete("show", ""))
        self.assertEqual(["BEGUN"], self.complete("-p", str(self.folder), "translate", "BE"))
        self.assertEqual(["completed"], self.complete("mark", "FRESH", "comp"))

    def test_optionsOfTheCommandAreOffered(self):
        self.assertEqual(["--strict"], self.complete("check", "--s"))
        for command in subcommands(self.qbt("--help").out):
            own = set(re.findall(r"--[a-z-]+", self.qbt(command, "--help").out.split("Exit codes")[0]))
            self.assertLessEqual(own, set(self.complete(command, "--")))

    def test_statesAreOffered(self):
        self.assertEqual(["in-progress"], self.complete("list", "--state", "in"))


if __name__ == "__main__":
    unittest.main()
