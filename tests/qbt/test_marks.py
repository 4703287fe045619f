"""mark and translate run the workbench's commands; questions are answered at the terminal or with --yes."""

import os
import pty
import signal
import subprocess
import time
import unittest

from qbt_process import QBT, QbtTest, document, package_text


class Changing(QbtTest):
    def setUp(self):
        super().setUp()
        self.text = package_text(document(1, "FRESH"), document(2, "BEGUN", "MODIFIED", "MODIFIED"),
                                 document(3, "FIXED", "READONLY_OPEN", "READONLY"))
        self.write_package(self.text)


class Marks(Changing):
    def test_aMarkIsInThePackage_AndIsTold(self):
        result = self.qbt("mark", "BEGUN", "completed")
        self.assertEqual((0, "BEGUN: completed\n", ""), (result.code, result.out, result.err.split("qbt: FIXED")[0]))
        self.assertEqual("COMPLETE", self.value(2, "PROGRESS"))
        self.assertEqual("MODIFIED", self.value(2, "1STATE"))
        self.assertEqual(self.file.stat().st_size, int(self.value("GLOBAL", "FILESIZE")))

    def test_theFirstChangeBacksThePackageUp_AndWritesTheProtocol(self):
        self.qbt("mark", "BEGUN", "completed")
        self.assertEqual(self.text.encode(), (self.folder / "Trans.BAK").read_bytes())
        protocol = (self.folder / "Protocol.txt").read_text()
        self.assertIn("Setting status to 'completed': GUID2", protocol)
        self.assertTrue(protocol.rstrip().endswith("=" * 79))
        self.assertEqual({"Trans.pxf", "Trans.BAK", "Protocol.txt", "src", "dst"},
                         {path.name for path in self.folder.iterdir()})

    def test_severalDocumentsAreMarkedAtOnce(self):
        result = self.qbt("mark", "FRESH", "2", "to-be-translated", "--yes")
        self.assertEqual("FRESH: to-be-translated\nBEGUN: to-be-translated\n", result.out)
        self.assertEqual("UNCHANGED", self.value(2, "PROGRESS"))

    def test_aQuestionThatNobodyAnswersChangesNothing_AndHasACodeOfItsOwn(self):
        result = self.qbt("mark", "FRESH", "completed")
        self.assertEqual((4, ""), (result.code, result.out))
        self.assertIn("Are you sure to re-define the status", result.err)
        self.assertIn("--yes", result.err)
        self.assertEqual("UNCHANGED", self.value(1, "PROGRESS"))

    def test_yesAnswersTheQuestion(self):
        self.assertEqual(0, self.qbt("--yes", "mark", "FRESH", "completed").code)
        self.assertEqual("COMPLETE", self.value(1, "PROGRESS"))

    def test_whatIsRefusedIsSaid_AndTheOthersAreDone(self):
        self.write_package(package_text(document(1, "FIXED", "READONLY", "READONLY"), document(2, "FRESH")))
        result = self.qbt("translate", "FIXED")
        self.assertEqual(1, result.code)
        self.assertIn("qbt: FIXED: State change failed", result.err)
        result = self.qbt("-y", "mark", "FIXED", "FRESH", "in-progress")
        self.assertEqual((1, "FRESH: in-progress\n"), (result.code, result.out))
        self.assertEqual("qbt: FIXED: The document is read-only and keeps its state\n", result.err)

    def test_aWrongNameDoesNotEvenTouchThePackage(self):
        before = self.tree()
        self.assertEqual(2, self.qbt("-y", "mark", "BEGUN", "NONE", "completed").code)
        self.assertEqual(before, self.tree())

    def test_aPackageThatDoesNotOpenIsSaid(self):
        self.write_package(self.text.replace("1ROLE=DST_CURR", "1ROLE=NONE", 1))
        result = self.qbt("mark", "BEGUN", "completed")
        self.assertEqual(3, result.code)
        self.assertIn("Ill-formed data encountered in PXF file", result.err)
        self.assertIn("could not be opened", result.err)

    def test_aPackageOfAnotherKindIsSaid(self):
        self.write_package(self.text.replace("TRANSTYPE=GEN", "TRANSTYPE=TWB2"))
        result = self.qbt("mark", "BEGUN", "completed")
        self.assertEqual(3, result.code)
        self.assertIn("Not a Quillbank Translator package.", result.err)

    def test_aPackageThatCannotBeWrittenIsSaid_AndNothingIsClaimed(self):
        self.file.chmod(0o444)
        result = self.qbt("mark", "BEGUN", "completed")
        self.assertEqual((3, ""), (result.code, result.out))
        self.assertIn("Error updating translation package", result.err)
        self.assertEqual(self.text.encode(), self.file.read_bytes())

    def test_whatTheOpeningOnlyRemarksIsTold_AndTheCommandRuns(self):
        listed = self.text.replace("1FILE_COUNT=1", "1PROPSECTION=ADD1\r\n1FILE_COUNT=1", 1)
        self.write_package(listed + "[ADD1]\r\nCOUNT=1\r\n")
        result = self.qbt("mark", "BEGUN", "completed")
        self.assertEqual((0, "BEGUN: completed\n"), (result.code, result.out))
        self.assertIn("Error while loading properties", result.err)

    def test_theSettingsOfTheWindowStayAsTheyAre(self):
        self.qbt("mark", "BEGUN", "completed")
        self.assertFalse((self.config / "quillbank-translator").exists())

    def test_aDocumentThatSomebodyHasOpenIsTold(self):
        self.write_package(package_text(document(1, "OUT", "OPENUNCHANGED_C_UNCHANGED_T", "INCOMPLETE"),
                                        document(2, "BEGUN", "MODIFIED", "MODIFIED")))
        self.assertIn("OUT is marked as open", self.qbt("mark", "BEGUN", "completed").err)

    def test_theTraceIsWrittenWhereItIsAskedFor(self):
        self.qbt("mark", "BEGUN", "completed", "--trace", self.root / "trace.txt")
        self.assertIn("SET COMPLETED: GUID2", (self.root / "trace.txt").read_text())


class AtATerminal(Changing):
    def play(self, answer, *arguments):
        """Runs qbt with a terminal of its own, on which `answer` is typed when a question is up."""
        mine, its = pty.openpty()
        process = subprocess.Popen([*QBT, *arguments], cwd=self.folder, env=self.environment(), stdin=its,
                                   stdout=subprocess.PIPE, stderr=its)
        os.close(its)
        screen = b""
        try:
            while True:
                screen += os.read(mine, 4096)
                if answer is not None and b"] " in screen.split(b"?")[-1]:
                    os.write(mine, answer.encode() + b"\n")
                    answer = None
        except OSError:  # the terminal has no other end any more
            pass
        os.close(mine)
        out = process.stdout.read().decode()
        process.stdout.close()
        return process.wait(60), out, screen.decode()

    def test_theQuestionIsAsked_AndYesIsTaken(self):
        code, out, screen = self.play("y", "mark", "FRESH", "completed")
        self.assertEqual((0, "FRESH: completed\n"), (code, out))
        self.assertIn("[y/N]", screen)
        self.assertEqual("COMPLETE", self.value(1, "PROGRESS"))

    def test_noLeavesTheDocument(self):
        for answer in ("n", ""):
            code, out, _ = self.play(answer, "mark", "FRESH", "completed")
            self.assertEqual((1, ""), (code, out))
            self.assertEqual("UNCHANGED", self.value(1, "PROGRESS"))

    def test_theBarIsDrawnForSeveralDocuments_OnATerminalOnly(self):
        _, out, screen = self.play(None, "-y", "mark", "FRESH", "BEGUN", "completed")
        self.assertIn("1/2 BEGUN", screen)
        self.assertNotIn("1/2", out)
        self.assertNotIn("1/2", self.qbt("-y", "mark", "FRESH", "BEGUN", "in-progress").err)


class Editors(Changing):
    def setUp(self):
        super().setUp()
        self.editor = self.root / "editor"
        folder = self.config / "quillbank-translator"
        folder.mkdir(parents=True)
        (folder / "registry.ini").write_text(
            "[HKEY_CLASSES_ROOT\\.css]\n@=Script\n"
            f"[HKEY_CLASSES_ROOT\\Script\\shell\\Edit\\command]\n@={self.editor} %1\n")
        self.write_package(package_text(document(1, "SCRIPT", files=("page.css",)).replace("FORMAT=HTM", "FORMAT=CSS"),
                                        document(2, "OTHER", files=("page.css",)).replace("FORMAT=HTM", "FORMAT=CSS")))

    def use_editor(self, script):
        self.editor.write_text("#!/bin/sh\n" + script)
        self.editor.chmod(0o755)

    def test_itWaitsForTheEditor_AndNotesWhatWasSaved(self):
        # The time is one that is certainly later than the start of the session.
        self.use_editor('echo translated > "$1"; touch -d "1 hour" "$1"\n')
        result = self.qbt("translate", "SCRIPT")
        self.assertEqual((0, "SCRIPT: in-progress\n"), (result.code, result.out), result.err)
        self.assertEqual("MODIFIED_C_UNCHANGED_T", self.value(1, "PROGRESS"))
        self.assertEqual("translated\n", (self.folder / "dst/script/page.css").read_text())

    def test_anEditorThatSavedNothingLeavesTheDocument(self):
        self.use_editor("exit 0\n")
        result = self.qbt("translate", "SCRIPT", "OTHER")
        self.assertEqual((0, "SCRIPT: to-be-translated\nOTHER: to-be-translated\n"), (result.code, result.out))

    def test_theDocumentIsOpenWhileItsEditorRuns(self):
        state = self.root / "state"
        self.use_editor(f'grep PROGRESS= "{self.file}" > "{state}"\n')
        self.qbt("translate", "SCRIPT")
        self.assertIn("PROGRESS=OPENUNCHANGED_C_UNCHANGED_T", state.read_text())

    def test_anInterruptionEndsTheWaiting_AndTheEditorLivesOn(self):
        self.check_interruption(signal.SIGTERM)

    def test_aTerminalThatIsClosedEndsTheWaitingToo(self):
        self.check_interruption(signal.SIGHUP)

    def check_interruption(self, number):
        begun = self.root / "begun"
        end = self.root / "end"
        self.use_editor(f'exec > /dev/null 2>&1\necho $$ > "{begun}.new"; mv "{begun}.new" "{begun}"\n'
                        f'while [ ! -e "{end}" ]; do sleep 0.05; done\nrm "{begun}"\n')
        process = subprocess.Popen([*QBT, "translate", "SCRIPT", "OTHER"], cwd=self.folder, env=self.environment(),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        while not begun.exists():
            self.assertIsNone(process.poll())
            time.sleep(0.02)
        process.send_signal(number)
        out, err = process.communicate(timeout=60)
        self.assertEqual(130, process.returncode)
        self.assertEqual(b"", out)
        self.assertIn(b"close editor", err)
        os.kill(int(begun.read_text()), 0)  # raises if it has gone
        end.touch()
        while begun.exists():
            time.sleep(0.02)


if __name__ == "__main__":
    unittest.main()
