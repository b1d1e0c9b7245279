#include "ado/convert.h"
#include "ado/recordset.h"
#include "support/database_test.h"
#include "support/rows.h"

#include <gmock/gmock.h>

#include <sstream>

namespace zel::korvandb {
namespace {

using testing::ElementsAre;

/// One incident with an individual, a crew, a contract crew and a piece of equipment.
class Views : public zel::test::DatabaseTest {
protected:
    void SetUp() override {
        for (const char* statement :
             {"INSERT INTO Incidents (IncidentID, IncidentName, IncidentNumber) VALUES (1, 'PINE', 'MT-PHC-000001')",
              "INSERT INTO AccountingCodes (AccountingID, IncidentID, AccountingCode) VALUES (5, 1, 'P4')",
              "INSERT INTO Contractor (ContractorID, IncidentID, ContractorName, ContractorNum, Phone) VALUES "
              "(3, 1, 'TENDERS', '98-1', '(406) 555-0100')",
              "INSERT INTO Agreement (AgreementID, ContractorID, AgreementNum) VALUES (4, 3, 'AG-1')",
              "INSERT INTO Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode, AgencyCode, Status) "
              "VALUES "
              "(10, 1, 'HOLTBY,ADA', 'O-7', 'TIME', 'FORS', 'C')",
              "INSERT INTO Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode, Collection, AccountingID) "
              "VALUES (11, 1, 'TAMARACK', 'C-1', 'HC1', 1, 5)",
              "INSERT INTO Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode, Collection, "
              "ContractedResource, AccountingID, AgreementID, AssignDate) VALUES "
              "(12, 1, 'FALLOW 7', 'C-21', 'HC2', 1, 1, 5, 4, '2005-07-01 07:00:00')",
              "INSERT INTO Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode, Collection, "
              "ContractedResource, AccountingID, AgreementID, Status, AssignDate) VALUES "
              "(13, 1, 'WTSU-TENDERS', 'E-2', 'WTSU', 1, 1, 5, 4, 'C', '2005-07-02 08:15:00')",
              "INSERT INTO Equipment (EquipmentID, ResourceID, AgreementID, AccountingID, UniqueEquipmentName, Make, "
              "Model) "
              "VALUES (20, 13, 4, 5, 'TENDER 11', 'GARRICK', 'G-4')",
              "INSERT INTO Equipment (EquipmentID, ResourceID, AgreementID, AccountingID, UniqueEquipmentName) VALUES "
              "(21, 12, 4, 5, 'FALLOW 7')",
              "INSERT INTO Persons (PersonID, ResourceID, FirstName, LastName, SSN, RequestNumber, KindCode, "
              "AgencyCode, "
              "AccountingID) VALUES (30, 10, 'ADA', 'HOLTBY', '900123456', 'O-7.1', 'PTRC', 'FLND', 5)",
              "INSERT INTO Persons (PersonID, ResourceID, FirstName, LastName, SSN, LeaderID) VALUES "
              "(31, 11, 'BESS', 'MILLRACE', '999999999', 31)",
              "INSERT INTO Persons (PersonID, ResourceID, FirstName, LastName, LeaderID) VALUES "
              "(32, 11, 'KIT', 'ROWANTREE', 31)"})
            run(statement);
    }

    void run(std::string_view statement) { connection().Execute(statement); }

    std::vector<std::string> list(const std::string& statement) { return test::rowsOf(connection(), statement); }
};
ZEL_ON_BOTH_ENGINES(Views);

struct Named {
    const char* view;
    const char* columns;
};

constexpr Named needed[] = {
    {"qrySelectPersonnel",
     "LnFn Info PersonID FirstName LastName SSN AgencyCode LeaderID OverheadID PStatus MailAddr1 MailAddr2 City State "
     "ZipCode Phone FaxPhone Area Class Rate InitEmployYN PointOfHire ReturnTravelYN FedCode Remarks KindCode "
     "RequestNumber PRequestNumber Collection RResourceID IncidentID Status RKindCode Name fSSN ResourceID RAgencyCode "
     "AccountingCode AccountingID mobDate ContractedResource EContactName ERelation EAddress1 EAddress2 ECity EState "
     "EZipCode EHomePhone EWorkPhone EWorkPhoneExt I9YN W4YN I9ExpDt MiddleInitial Demob PaidTime"},
    {"qryCrewMembers",
     "LnFn Info PersonID RResourceID RequestNumber IncidentID ResourceID LastName FirstName MiddleInitial fSSN PStatus "
     "FedCode AgencyCode I9YN I9ExpDt W4YN Demob PRequestNumber Collection"},
    {"qryCrews", "CrewInfo Name CrewStatus IncidentID ResourceID AgencyCode HomeUnitCode RequestNumber KindCode Status "
                 "LeaderName Contract ParentID AccountingID ContractedResource AccountingCode"},
    {"qryResources", "ContractorName ContractorNum AgreementNum RequestNumber KindCode UniqueEquipmentName Status "
                     "IncidentID"},
    {"qryContractsEquip",
     "IncidentID Name KindCode EquipmentID AgreementID ResourceID UniqueEquipmentName RequestNumber Make ContractorID "
     "ContractorName ContractorNum Phone Status ParentID AgreementNum AssignDate AccountingID AccountingCode"},
    {"qryContractsCrew",
     "IncidentID Name KindCode AgreementID ResourceID RequestNumber ContractorID ContractorName ContractorNum Phone "
     "Status ParentID AgreementNum AssignDate AccountingID AccountingCode"},
    {"qryContractorEquip", "CContractorID EEquipmentID AccountingID AccountingCode Info Name Model RequestNumber "
                           "AssignDate Status ResourceID"},
    {"qryEquipMgmt", "KindCode KindDesc IncidentID RequestNumber UniqueEquipmentName AssignDate IncidentName "
                     "IncidentNumber Name"},
    {"qryAgency", "AgencyID AgencyCode AgencyGroupID RateGroupID AgencyDesc AGD RGD"},
};

TEST_P(Views, Have_the_columns_that_screens_read) {
    for (const Named& view : needed) {
        const ado::CatalogTable* made = connection().engine().catalog().table(view.view);
        ASSERT_NE(made, nullptr) << view.view;
        std::istringstream columns(view.columns);
        for (std::string column; columns >> column;)
            EXPECT_NE(made->column(column), nullptr) << view.view << "." << column;
    }
}

TEST_P(Views, LnFn_keeps_the_key_behind_63_blanks) {
    EXPECT_THAT(list("SELECT LnFn FROM qrySelectPersonnel WHERE PersonID = 30"),
                ElementsAre("HOLTBY, ADA" + std::string(63, ' ') + "30"));
}

TEST_P(Views, Info_and_fSSN_show_the_number_with_its_dashes) {
    EXPECT_THAT(list("SELECT Info, fSSN, SSN FROM qrySelectPersonnel WHERE PersonID = 30"),
                ElementsAre("HOLTBY, ADA  (900-12-3456)  O-7|900-12-3456|900123456"));
}

TEST_P(Views, A_person_without_a_number_is_listed_all_the_same) {
    EXPECT_THAT(list("SELECT LastName, Info FROM qrySelectPersonnel WHERE PersonID = 32"),
                ElementsAre("ROWANTREE|ROWANTREE, KIT  (--)  C-1"));
}

TEST_P(Views, A_person_and_its_resource_keep_their_own_columns_apart) {
    EXPECT_THAT(list("SELECT RequestNumber, PRequestNumber, KindCode, RKindCode, AgencyCode, RAgencyCode, RResourceID, "
                     "ResourceID, Status, AccountingCode FROM qrySelectPersonnel WHERE PersonID = 30"),
                ElementsAre("O-7|O-7.1|PTRC|TIME|FLND|FORS|10|10|C|P4"));
}

TEST_P(Views, Crew_members_are_the_persons_of_collections) {
    EXPECT_THAT(list("SELECT PersonID FROM qryCrewMembers ORDER BY PersonID"), ElementsAre("31", "32"));
}

TEST_P(Views, A_crew_shows_its_leader_and_whether_a_contract_stands_behind_it) {
    EXPECT_THAT(list("SELECT CrewInfo, LeaderName, Contract, AccountingCode FROM qryCrews WHERE ResourceID = 11"),
                ElementsAre("TAMARACK C-1/HC1|MILLRACE, BESS||P4"));
    EXPECT_THAT(list("SELECT CrewInfo, LeaderName, Contract FROM qryCrews WHERE ResourceID = 12"),
                ElementsAre("FALLOW 7 C-21/HC2||12"));
}

TEST_P(Views, Contract_equipment_shows_contractor_agreement_and_account) {
    EXPECT_THAT(list("SELECT UniqueEquipmentName, ContractorName, AgreementNum, AccountingCode, AssignDate FROM "
                     "qryContractsEquip WHERE EquipmentID = 20"),
                ElementsAre("TENDER 11|TENDERS|AG-1|P4|7/2/2005 8:15:00 AM"));
    EXPECT_THAT(list("SELECT Info, CContractorID, EEquipmentID, Model FROM qryContractorEquip WHERE EEquipmentID = 20"),
                ElementsAre("TENDER 11, E-2|3|20|G-4"));
}

TEST_P(Views, Equipment_with_operators_is_no_contract_crew) {
    EXPECT_THAT(list("SELECT ResourceID, ContractorName FROM qryContractsCrew"), ElementsAre("12|TENDERS"));
}

TEST_P(Views, The_resource_search_lists_what_has_no_contract_too) {
    EXPECT_THAT(list("SELECT RequestNumber, ContractorName FROM qryResources ORDER BY ResourceID"),
                ElementsAre("O-7|", "C-1|", "C-21|TENDERS", "E-2|TENDERS"));
}

TEST_P(Views, Equipment_management_names_kind_and_incident) {
    EXPECT_THAT(list("SELECT KindDesc, IncidentName, IncidentNumber, UniqueEquipmentName FROM qryEquipMgmt WHERE "
                     "RequestNumber = 'E-2'"),
                ElementsAre("Water Tender, Support|PINE|MT-PHC-000001|TENDER 11"));
}

TEST_P(Views, Texts_that_a_view_makes_compare_without_regard_to_case) {
    EXPECT_THAT(list("SELECT PersonID FROM qrySelectPersonnel WHERE Info LIKE 'holtby, ada%'"), ElementsAre("30"));
    run("UPDATE Persons SET LastName = 'holtby-reed' WHERE PersonID = 31");
    EXPECT_THAT(list("SELECT LastName FROM qrySelectPersonnel ORDER BY LnFn"),
                ElementsAre("HOLTBY", "holtby-reed", "ROWANTREE"));
}

TEST_P(Views, A_change_through_a_view_reaches_the_person_and_the_resource) {
    ado::Recordset rows;
    rows.Open("SELECT * FROM qrySelectPersonnel WHERE PersonID = 30", connection());
    rows.setValue("LastName", "HOLTBY-REED");
    rows.setValue("RKindCode", "COST");
    rows.Update();
    EXPECT_THAT(list("SELECT LastName, KindCode, RKindCode FROM qrySelectPersonnel WHERE PersonID = 30"),
                ElementsAre("HOLTBY-REED|PTRC|COST"));
}

} // namespace
} // namespace zel::korvandb
