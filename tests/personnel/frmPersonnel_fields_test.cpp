#include "personnel/personnel_test.h"

namespace zel::personnel {
namespace {

using testing::IsEmpty;

class PersonnelFields : public PersonnelTest {};
ZEL_ON_BOTH_ENGINES(PersonnelFields);

TEST_P(PersonnelFields, TheToolTipNamesTheCategoriesThatCanBeTyped) {
    open();
    for (const int page : {0, 1})
        EXPECT_EQ(screen().mskCrew(page).ToolTipText(), "Request Number must start with A O S ");
}

TEST_P(PersonnelFields, ARequestNumberBeginsWithALetterOfAnIndividual) {
    open();
    type(screen().mskCrew(0), "-.7cex#o-1.2");
    EXPECT_EQ(screen().mskCrew(0).Text(), "O-1.2");
}

TEST_P(PersonnelFields, ALetterTypedLaterIsOneOfTheCategoriesToo) {
    open();
    type(screen().mskCrew(0), "ocsx4");
    EXPECT_EQ(screen().mskCrew(0).Text(), "OS4");
}

TEST_P(PersonnelFields, KeysAreNotHandledWhileTheShellIsBusy) {
    open();
    session.Working = true;
    type(screen().mskCrew(0), "c");
    session.Working = false;
    EXPECT_EQ(screen().mskCrew(0).Text(), "c");
}

TEST_P(PersonnelFields, LeavingTheRequestNumberWritesItShort) {
    open();
    type(screen().mskCrew(0), "o007.02");
    leave(screen().mskCrew(0));
    EXPECT_EQ(screen().mskCrew(0).Text(), "O-7.2");
    type(screen().mskCrew(0), "o-0");
    leave(screen().mskCrew(0));
    EXPECT_EQ(screen().mskCrew(0).Text(), "O-");
}

TEST_P(PersonnelFields, ALetterBehindTheHyphenIsToldAndKept) {
    open();
    type(screen().mskCrew(0), "o-1a");
    leave(screen().mskCrew(0));
    const auto box = program.box();
    EXPECT_EQ(box.text, "Characters entered after the hypen must be a number or a decimal.");
    EXPECT_EQ(box.buttons, "OK");
    EXPECT_EQ(screen().mskCrew(0).Text(), "O-1A");
}

TEST_P(PersonnelFields, ANumberInUseIsShownAndCancelEmptiesTheAddPage) {
    addRows(5, "SMITH", "", "", "O-77");
    open();
    type(screen().mskCrew(0), "o-077");
    program.dialogs.answer("Cancel");
    leave(screen().mskCrew(0));
    const auto box = program.box();
    EXPECT_EQ(box.text, "O-77 already in use: \r\n\tRequest#: O-77\r\n\tName:       SMITH\r\n\tKindCode: SAFE");
    EXPECT_EQ(box.title, "ZEL: WARNING");
    EXPECT_EQ(box.buttons, "OKCancel");
    EXPECT_EQ(screen().mskCrew(0).Text(), "");
    EXPECT_THAT(program.statements,
                testing::ElementsAre("select name, requestnumber, kindcode from resources where requestnumber = "
                                     "'O-77' and incidentid = 7"));
}

TEST_P(PersonnelFields, ANumberInUseMayBeKept) {
    addRows(5, "SMITH", "", "", "O-77");
    open();
    type(screen().mskCrew(0), "o-77");
    program.dialogs.answer("OK");
    leave(screen().mskCrew(0));
    EXPECT_EQ(screen().mskCrew(0).Text(), "O-77");
}

TEST_P(PersonnelFields, AnEmptyNumberIsNotLookedUp) {
    open();
    type(screen().mskCrew(0), "");
    leave(screen().mskCrew(0));
    EXPECT_THAT(program.statements, IsEmpty());
}

TEST_P(PersonnelFields, TheFirstLetterDecidesTheEmploymentType) {
    open();
    forms::ComboBox& box = screen().cboAD(0);
    for (const auto& [key, type] : {std::pair{"a", "AD"}, {"F", "FED"}, {"o", "OTHER"}, {"x", ""}, {"A", "AD"}}) {
        EXPECT_EQ(program.user.keys(box, key).refusal, "");
        EXPECT_EQ(box.Text(), type);
        EXPECT_EQ(screen().mskOtherRate(0).Visible(), std::string(type) == "OTHER");
        EXPECT_EQ(screen().lblOtherRate(0).Visible(), std::string(type) == "OTHER");
        EXPECT_EQ(screen().tabPersDetail(0).TabEnabled(1), std::string(type) == "AD");
    }
}

TEST_P(PersonnelFields, AnEmploymentTypeMayBeTypedToItsEnd) {
    open();
    forms::ComboBox& box = screen().cboAD(0);
    for (const auto& [keys, type] :
         {std::pair{"ad", "AD"}, {"FED", "FED"}, {"other", "OTHER"}, {"fa", "AD"}, {"fx", ""}}) {
        EXPECT_EQ(program.user.type(box, keys).refusal, "");
        EXPECT_EQ(box.Text(), type) << keys;
        EXPECT_EQ(screen().tabPersDetail(0).TabEnabled(1), std::string(type) == "AD") << keys;
    }
}

TEST_P(PersonnelFields, OnlyOtherCanBeAContractedResource) {
    open();
    EXPECT_FALSE(screen().chkContract(0).Enabled());
    type(screen().cboAD(0), "o");
    EXPECT_EQ(program.user.check(screen().chkContract(0), true).refusal, "");
    type(screen().cboAD(0), "f");
    leave(screen().cboAD(0));
    EXPECT_FALSE(screen().chkContract(0).isChecked());
    EXPECT_FALSE(screen().chkContract(0).Enabled());
}

TEST_P(PersonnelFields, AreaAndClassGiveTheRate) {
    open();
    type(screen().cboAD(0), "a");
    payPage(addSide);
    pick(screen().dbcAreas(0), "ALASKA");
    program.statements.clear();
    pick(screen().dbcClass(0), "AD-3");
    EXPECT_THAT(program.statements, testing::ElementsAre("SELECT * FROM  L_ClassRates WHERE  ClassRatesCode='A3'"));
    EXPECT_EQ(screen().mskPayInfo(2).Text(), "21.36");
    EXPECT_EQ(screen().mskPayInfo(2).FormattedText(), "$21.36");
    EXPECT_FALSE(screen().mskPayInfo(2).Enabled());
    pick(screen().dbcAreas(0), "HAWAII");
    EXPECT_EQ(screen().mskPayInfo(2).Text(), "20.8");
}

TEST_P(PersonnelFields, TheRateOfTheHandRatedClassIsTyped) {
    open();
    type(screen().cboAD(0), "a");
    payPage(addSide);
    pick(screen().dbcAreas(0), "ALASKA");
    pick(screen().dbcClass(0), "AD-5");
    type(screen().mskPayInfo(2), "33.5");
    EXPECT_EQ(screen().mskPayInfo(2).Text(), "33.5");
    pick(screen().dbcClass(0), "AD-1");
    EXPECT_EQ(screen().mskPayInfo(2).Text(), "14.44");
    EXPECT_FALSE(screen().mskPayInfo(2).Enabled());
}

TEST_P(PersonnelFields, TheMergeNoticeIsShownOnAClick) {
    open();
    page(1);
    click(screen().lblMergeNotify(1));
    const auto box = program.box();
    EXPECT_EQ(box.title, "ZEL: Resources Merged");
    EXPECT_EQ(box.text,
              "Resources Merged:\r\nThis person has been Merged with another Incident Resource.\r\nAll shared "
              "attributes of the parent resource have been assumed by this person.\r\nIf the merge was "
              "performed in error you can *not* Undo,\r\ninstead you must delete this record and recreate "
              "it\r\nalong with any dependencies (posts and/or debits).\r\nFor more information on Resource "
              "Merging please select\r\n'Settings' from the 'File' menu.");
}

} // namespace
} // namespace zel::personnel
