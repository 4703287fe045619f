#include "support/Links.h"
#include "workflow/AssignTranslatedFileTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class AssignBadInputTest : public AssignTranslatedFileTest {};

TEST_F(AssignBadInputTest, ChosenFileIsTheTargetItself_FailsAndKeepsTheFile) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Dialogs().ChooseNext(R"(\pkg\dst\styles.css)");
  Boxes().WhileNextNotice([&] { EXPECT_TRUE(Dialog().Visible.Get()); });
  QbtAssignTranslatedFile();
  ASSERT_THAT(Boxes().Texts(), ElementsAre("Error during check-in of file"));
  const MessageBoxRequest& box = Boxes().Shown()[0];
  EXPECT_EQ(box.style, box::kExclamation);
  EXPECT_EQ(box.title, "ORB Quillbank Translator");
  EXPECT_EQ(box.helpFile, gHelpFile);
  EXPECT_EQ(Value("1", "PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T") << "not taken back after a failed copy";
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)");
  EXPECT_THAT(FilesIn(R"(\pkg\dst)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
  EXPECT_FALSE(Dialog().Visible.Get());
  EXPECT_TRUE(TimersAreOn());
}

TEST_F(AssignBadInputTest, MissingTarget_IsReportedByName) {
  OpenSmallPackage();
  std::filesystem::remove(Native(R"(\pkg\dst\styles.css)"));
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred while checkin in file as translation: #53: ")));
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr(R"(\pkg\dst\styles.css)"));
  EXPECT_THAT(BoxStyles(), ElementsAre(box::kStop));
  EXPECT_THAT(Protocol(), HasSubstr("Error           An error has occurred while checkin in file"));
  EXPECT_THAT(TraceLines(),
              Contains(HasSubstr("TranslateMod.QbtAssignTranslatedFile: An error has occurred")));
  EXPECT_FALSE(Exists(R"(\pkg\dst\styles.css)"));
  EXPECT_THAT(DialogCalls(), ElementsAre("show", "hide"));
  EXPECT_TRUE(TimersAreOn());
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(AssignBadInputTest, MissingTargetOfALocalization_HasItsOwnReport) {
  OpenSmallPackage(true);
  std::filesystem::remove(Native(R"(\pkg\dst\styles.css)"));
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred while checkin in file as localization: #53: ")));
}

TEST_F(AssignBadInputTest, ReadOnlyTarget_IsReportedAndStays) {
  OpenSmallPackage();
  ThePlatform().files->SetAttributes(R"(\pkg\dst\styles.css)", attribute::kReadOnly);
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("translation: #70: ")));
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)");
}

TEST_F(AssignBadInputTest, TargetOpenElsewhere_IsReportedAndStays) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kCheckRemovable, failure::kPermissionDenied, "styles.css");
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("translation: #70: ")));
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)");
}

TEST_F(AssignBadInputTest, ChosenFileVanishesBeforeTheCopy_KeepsTheOldOne) {
  OpenSmallPackage();
  FaultyFileSystem& files = InstallFaultyFiles(ThePlatform());
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  files.BeforeNext(FileOperation::kCopy, [&] { std::filesystem::remove(Native(R"(\done\new.css)")); });
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Error during check-in of file"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)");
  EXPECT_THAT(FilesIn(R"(\pkg\dst)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
}

TEST_F(AssignBadInputTest, UnreadableFileOrFullDisk_KeepsTheOldOne) {
  for (const long number : {failure::kPermissionDenied, failure::kDiskFull}) {
    OpenSmallPackage();
    FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
    faults.Fail(FileOperation::kCopy, number, "styles.css");
    SelectNode("DOC1");
    Choose(R"(\done\new.css)");
    QbtAssignTranslatedFile();
    EXPECT_THAT(Boxes().Texts(), Contains("Error during check-in of file"));
    EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)") << number;
    ResetProgramState();
  }
}

TEST_F(AssignBadInputTest, AtNoMomentIsTheDocumentWithoutItsFile) {
  OpenSmallPackage();
  FaultyFileSystem& files = InstallFaultyFiles(ThePlatform());
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  std::string duringTheCopy;
  files.BeforeNext(FileOperation::kCopy, [&] { duringTheCopy = Bytes(R"(\pkg\dst\styles.css)"); });
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(duringTheCopy, R"(\pkg\dst\styles.css)");
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\done\new.css)");
  EXPECT_THAT(FilesIn(R"(\pkg\dst)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
}

TEST_F(AssignBadInputTest, TargetIsALinkOutOfThePackage_IsRefusedByName) {
  OpenSmallPackage();
  Write(R"(\outside\secret.css)", "secret");
  std::filesystem::remove(Native(R"(\pkg\dst\styles.css)"));
  if (!MadeLink(Native(R"(\outside\secret.css)"), Native(R"(\pkg\dst\styles.css)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(R"(The path '\pkg\dst\styles.css' leads out of the package. Nothing is changed.)"));
  EXPECT_EQ(Bytes(R"(\outside\secret.css)"), "secret");
  EXPECT_TRUE(std::filesystem::is_symlink(Native(R"(\pkg\dst\styles.css)")));
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED");
  EXPECT_FALSE(Dialog().Visible.Get());
}

TEST_F(AssignBadInputTest, PackageThatLeadsOutside_ChangesNothingThere) {
  Write(R"(\outside\styles.css)", "secret");
  for (const char* path : {R"(..\outside)", R"(dst\..\..\outside)"}) {
    OpenPackageText(SmallPackageWith("1PATH=dst", std::string("1PATH=") + path));
    SelectNode("DOC1");
    Choose(R"(\done\new.css)");
    QbtAssignTranslatedFile();
    EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("leads out of the package")));
    EXPECT_EQ(Bytes(R"(\outside\styles.css)"), "secret");
    EXPECT_EQ(State("DOC1"), "UNCHANGED");
    ResetProgramState();
  }
}

TEST_F(AssignBadInputTest, PackageThatListsItselfAsADocument_StaysWhole) {
  std::string text = SmallPackageWith("1FILE_NAME1=styles.css", "1FILE_NAME1=Trans.pxf");
  text.replace(text.find("1PATH=dst"), 9, "1PATH=.");
  OpenPackageText(text);
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("is the package file itself. Nothing is changed.")));
  EXPECT_EQ(Value("1", "LOIO"), "DOC1");
}

TEST_F(AssignBadInputTest, DocumentWithoutFiles_IsReported) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Loio("DOC1").RemoveAllDstFiles();
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("checkin in file as translation: #9: ")));
}

TEST_F(AssignBadInputTest, PackageThatCannotBeWritten_IsSaidAndTheFileIsThere) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts().back(), HasSubstr("The package file could not be changed: "));
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\done\new.css)");
  faults.Heal();
  Loio("DOC1").SavePLState();
  EXPECT_EQ(Value("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(AssignBadInputTest, OtherProgramMarksADocumentMeanwhile_BothChangesStand) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Write(R"(\done\new.css)", "new");
  Dialogs().AnswerNext([&](OpenFileRecord& record) {
    std::string text = Bytes(kPackage);
    const std::size_t at = text.find("PROGRESS=", text.find("[2]"));
    text.replace(at, text.find("\r\n", at) - at, "PROGRESS=COMPLETE");
    Write(kPackage, text);
    record.fileName = R"(\done\new.css)";
    return true;
  });
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Value("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Value("2", "PROGRESS"), "COMPLETE");
}

TEST_F(AssignBadInputTest, PackageReplacedByAnotherMeanwhile_IsLeftAloneAndSaid) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  const std::string other = SmallPackageWith("LOIO=DOC", "LOIO=ABC");
  Write(kPackage, other);
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Bytes(kPackage), other);
  EXPECT_THAT(Boxes().Texts().back(), HasSubstr("another package stands in its place"));
}

}  // namespace
}  // namespace qb
