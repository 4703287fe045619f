#include <gmock/gmock.h>

#include "workflow/OpenPackage.h"
#include "workflow/TitleFixture.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class StrangeTitleTest : public TranslateTitleTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(StrangeTitleTest, Title_ComesBackAsItWasTyped) {
  const std::string other = Value("ADD1", "1VALUE");
  Translate("TITLED", Type(GetParam()));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(StoredTitle(), GetParam());
  EXPECT_EQ(Value("ADD1", "1VALUE"), other);
  QbtOpen(kPackage);
  EXPECT_EQ(gLoios->Item("TITLED")->GetTitle(role::kDstCurr), GetParam());
  Translate("TITLED", [](frmTranslateTitle& form) { form.btnOkay.Click(); });
  EXPECT_EQ(StoredTitle(), GetParam()) << "a second look must not change it";
}

INSTANTIATE_TEST_SUITE_P(Table, StrangeTitleTest,
                         ::testing::Values(std::string(), std::string(10'000, 'x'), std::string("]"),
                                           std::string("[GLOBAL]"), std::string("a=b=c"), std::string("=x"),
                                           std::string(";no comment"), std::string("\"in quotes\""),
                                           std::string("'in quotes'"), std::string("\""), std::string("\"\""),
                                           std::string("\"a\" and \"b\""), std::string("5\" disk"),
                                           std::string("one\ttab"), std::string("\ttabs at the ends\t"),
                                           std::string("100 % %1"), std::string("C:\\new\\title"),
                                           std::string("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xE2\x82\xAC")));

TEST_F(TranslateTitleTest, LeadingBlanks_DoNotCount) {
  Translate("TITLED", Type("   Style sheets  "));
  EXPECT_EQ(StoredTitle(), "Style sheets");
}

TEST_F(TranslateTitleTest, OtherValuesOfTheList_KeepTheirQuotesAndBlanks) {
  PackageBuilder package;
  package.Loio("Q")
      .Phio("DST_CURR", "dst")
      .File("a.css", "PRIM")
      .Property("NOTE", "\"\"quoted\"\"", "\"  blanks\"");
  package.Property("DESCRIPTION", "old");
  Write(R"(\quotes\Trans.pxf)", package.Text());
  QbtOpen(R"(\quotes\Trans.pxf)");
  Translate("Q", Type("new"));
  EXPECT_EQ(Entry(R"(\quotes\Trans.pxf)", "ADD1", "1VALUE"), "\"quoted\"");
  EXPECT_EQ(Entry(R"(\quotes\Trans.pxf)", "ADD1", "1INFO"), "  blanks");
  EXPECT_EQ(Entry(R"(\quotes\Trans.pxf)", "ADD1", "2VALUE"), "new");
}

TEST_F(TranslateTitleTest, CharactersThatTheCodePageLacks_AreShownAndNothingIsWritten) {
  const std::string before = Bytes(kPackage);
  TypeInVain("TITLED", "\xD0\x96 and \xE6\x97\xA5 and \xD0\x96 again");
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Boxes().Shown()[0].text,
            "The package is written in code page 1252, which cannot hold these characters:\r\n\r\n\xD0\x96 "
            "(U+0416)  "
            "\xE6\x97\xA5 (U+65E5)\r\n\r\nPlease write the title without them.");
  EXPECT_EQ(Boxes().Shown()[0].style, box::kExclamation);
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_EQ(State("TITLED"), "UNCHANGED");
}

TEST_F(TranslateTitleTest, ManyCharactersThatTheCodePageLacks_AreShownUpToTen) {
  TypeInVain(
      "TITLED",
      "\xD0\x90\xD0\x91\xD0\x92\xD0\x93\xD0\x94\xD0\x95\xD0\x96\xD0\x97\xD0\x98\xD0\x99\xD0\x9A\xD0\x9B");
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("\xD0\x99 (U+0419) ...")));
}

TEST_F(TranslateTitleTest, RefusedTitle_CanBeMendedInTheSameDialog) {
  Translate("TITLED", [](frmTranslateTitle& form) {
    form.ctlTitleTrans.Text = std::string("\xD0\x96");
    form.btnOkay.Click();
    ASSERT_TRUE(form.Visible);
    form.ctlTitleTrans.Text = std::string("Style sheets");
    form.btnOkay.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_EQ(StoredTitle(), "Style sheets");
}

TEST_F(TranslateTitleTest, JapanesePackage_TakesJapaneseAndRefusesUmlauts) {
  PackageBuilder package;
  package.In("GLOBAL").Set("DSTLANGUAGE", "JA");
  package.Loio("J").Phio("DST_CURR", "dst").File("a.css", "PRIM").Property("DESCRIPTION", "x");
  Write(R"(\ja\Trans.pxf)", package.Text());
  QbtOpen(R"(\ja\Trans.pxf)");
  Translate("J", Type("\xE8\xA1\xA8"));
  EXPECT_EQ(Entry(R"(\ja\Trans.pxf)", "ADD1", "1VALUE"), "\xE8\xA1\xA8");
  EXPECT_THAT(Bytes(R"(\ja\Trans.pxf)"), HasSubstr("1VALUE=\x95\x5C\r\n"));
  TypeInVain("J", "\xC3\xA4");
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("code page 932, which cannot hold these characters")));
}

TEST_F(TranslateTitleTest, LineBreaks_AreRefusedAndTheDialogStays) {
  const std::string before = Bytes(kPackage);
  for (const std::string& title :
       {std::string("two\nlines"), std::string("two\r\nlines"), std::string("a\0b", 3)}) {
    TypeInVain("TITLED", title);
    EXPECT_THAT(Boxes().Texts(),
                ElementsAre("A title cannot hold a line break. Please write it in one line."));
    Boxes().Forget();
  }
  EXPECT_EQ(Bytes(kPackage), before);
}

TEST_F(TranslateTitleTest, DocumentWithoutATargetVersion_CannotTakeATitleAndSaysSo) {
  TypeInVain("SOURCE", "Source");
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("This document has no version in the target language that could take a title."));
  EXPECT_EQ(State("SOURCE"), "UNCHANGED");
}

}  // namespace
}  // namespace qb
