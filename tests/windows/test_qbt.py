"""The terminal program of Windows gives the answers that are expected on Linux: the same tests, those of them in which the
platform has a say."""

import pathlib
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "qbt"))

from qbt_process import QBT  # noqa: E402

TESTS = [
    "test_readers.Readers.test_listAsJson_HoldsTheSame",
    "test_readers.Readers.test_listNamesEveryDocument_InAnAlignedTable",
    "test_readers.Readers.test_showTellsVersionsAndFiles",
    "test_readers.Readers.test_nothingIsWritten_AndNothingIsMade",
    "test_readers.Readers.test_theOnlyPackageOfTheFolderIsTaken_OrTheOneNamed",
    "test_readers.Readers.test_aPackageThatIsNotThere_OrCannotBeRead_IsNamed",
    "test_readers.Readers.test_textsAreReadInThePackagesCodePage",
    "test_readers.Readers.test_theSamplesAreRead",
    "test_readers.Readers.test_aPackageInAFolderOfForeignLetters_IsRead_AndWritten",
    "test_readers.Usage.test_versionIsThatOfTheProduct",
    "test_readers.Usage.test_aWrongCommandLineIsToldOnTheErrorStream",
    "test_check.Check.test_aWholePackageHasNoFindings",
    "test_check.Check.test_findingsAreLinesAsCompilersWriteThem",
    "test_check.Check.test_missingFiles",
    "test_check.Check.test_filesAreFoundInAnyCase",
    "test_check.Check.test_filesThatNobodyLists",
    "test_check.Check.test_pathsThatLeaveThePackage",
    "test_marks.Marks.test_aMarkIsInThePackage_AndIsTold",
    "test_marks.Marks.test_theFirstChangeBacksThePackageUp_AndWritesTheProtocol",
    "test_marks.Marks.test_aQuestionThatNobodyAnswersChangesNothing_AndHasACodeOfItsOwn",
    "test_marks.Marks.test_whatIsRefusedIsSaid_AndTheOthersAreDone",
    "test_marks.Marks.test_aPackageThatDoesNotOpenIsSaid",
    "test_marks.Marks.test_aPackageThatCannotBeWrittenIsSaid_AndNothingIsClaimed",
    "test_marks.Marks.test_theTraceIsWrittenWhereItIsAskedFor",
    "test_changes.Titles.test_anyTextIsATitle_ACommandsNameToo_AndBehindADoubleDashAnOption",
    "test_changes.Titles.test_aTitleThatTheCodePageCannotHoldIsRefused_AndNothingIsLost",
    "test_changes.Assigning.test_furtherFilesAreAddedBehindIt",
    "test_changes.Assigning.test_aFileThatIsNotThereIsSaid_BeforeThePackageIsTouched",
    "test_changes.Assigning.test_pathsFromTheCurrentFolderAreTaken_WithBlanksToo",
    "test_changes.Components.test_replacePutsAnotherFileInItsPlace",
    "test_changes.Components.test_deleteAsks_AndThenDeletes",
    "test_changes.Components.test_replaceAllTakesAllFilesOfAFolder",
    "test_new.New.test_everyDocumentIsThere_AsSourceAndAsTranslation",
    "test_new.New.test_namesAreWrittenInTheCodePageOfTheTargetLanguage",
    "test_new.New.test_theSourcesOfASampleMakeAPackage",
]


def load_tests(loader, _tests, _pattern):
    return loader.loadTestsFromNames(TESTS)


if __name__ == "__main__":
    # Keeps the machine on, whose start takes longer than a command.
    with subprocess.Popen([*QBT[:-1], "cmd", "/c", "pause"], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as running:
        running.stdout.read(1)
        program = unittest.main(verbosity=2, exit=False)
        running.stdin.close()
    sys.exit(not program.result.wasSuccessful())
