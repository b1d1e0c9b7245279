#include "korvandb/demo_world.h"

namespace zel::korvandb {

DemoWorld::DemoWorld(ado::Engine& demoEngine, const DemoSize& demoSize)
    : engine(demoEngine), size(demoSize), firstNames(texts.list("FirstNames", "Name")),
      lastNames(texts.list("LastNames", "Name")), towns(texts.rows("Towns")), payPlan(texts.rows("L_ClassRates")),
      incidents(engine, "Incidents",
                "IncidentID IncidentNumber IncidentName IncidentLocation IncidentState StartDate AdminName AdminAddr1 "
                "AdminCity AdminState AdminZip"),
      accounts(engine, "AccountingCodes", "AccountingID IncidentID AccountingCode AgencyCode IncidentDefault"),
      resources(engine, "Resources",
                "ResourceID IncidentID Name RequestNumber AgencyCode HomeUnitCode KindCode CheckinDate CheckinTime "
                "ReleaseDate ReleaseTime Status NumberPersonnel Collection AccountingID AgreementID AssignDate "
                "ContractedResource GovtSuppliesYN"),
      persons(engine, "Persons",
              "PersonID ResourceID FirstName LastName SSN RequestNumber AgencyCode LeaderID OverheadID PStatus FedCode "
              "KindCode AccountingID MailAddr1 City State ZipCode Phone Area Class Rate InitEmployYN ReturnTravelYN "
              "PointOfHire I9YN W4YN"),
      equipment(engine, "Equipment",
                "EquipmentID ResourceID AgreementID AccountingID UniqueEquipmentName Make Model GovtOperatorYN "
                "GovtSuppliesYN"),
      rateLines(engine, "UnitOfMeasure",
                "UnitOfMeasureID EquipmentID Rate Primary GuaranteeAmt RateType ResourceID Description"),
      contractors(engine, "Contractor",
                  "ContractorID IncidentID ContractorName ContractorNum Addr City State Zip Phone"),
      agreements(engine, "Agreement", "AgreementID ContractorID AgreementNum BeginDt ExpDt PointOfHire AdminOfficeID"),
      offices(engine, "AdminOffice", "AdminOfficeID Name Addr1 Addr2 City State Zip"),
      personsPosts(engine, "PersonsPost",
                   "PersonsPostID PersonID ActivityDT StartTime StopTime KindCode Class Rate PremiumCode Hours Amt "
                   "AccountingID InvoiceID"),
      contractorPosts(
          engine, "ContractorPost",
          "ContractorPostID EquipmentID ResourceID ActivityDT UOM StartNum StopNum StartTime StopTime Units "
          "Rate Amt GuarAmt SUOM SStartNum SStopNum SStartTime SStopTime SUnits SRate SAmt AccountingID "
          "InvoiceID"),
      debits(engine, "PersonsDebit", "PersonsDebitID PersonID ActivityDT Description AccountingID Amt"),
      adjustments(engine, "ContractorAdjustments",
                  "ContractorAdjustmentID ContractorID EquipmentID ResourceID ActivityDT Description Amt AccountingID "
                  "InvoiceID"),
      personsInvoices(engine, "PersonsInvoices", "InvoiceID PersonID LastDate Del"),
      equipInvoices(engine, "EquipInvoices", "InvoiceID EquipmentID LastDate Del") {}

ado::DateTime DemoWorld::day(int number) {
    return ado::DateTime::fromDate(2005, 7, 1).addDays(number);
}

std::vector<DemoTable*> DemoWorld::tables() {
    return {&incidents,       &accounts,    &resources,   &persons,         &equipment,
            &rateLines,       &contractors, &agreements,  &offices,         &personsPosts,
            &contractorPosts, &debits,      &adjustments, &personsInvoices, &equipInvoices};
}

void DemoWorld::finish() {
    RowWriter numbers(engine, "NextNumbers", "TableName NextNumber");
    for (DemoTable* table : tables()) {
        table->rows().finish();
        numbers.add({table->name(), table->lastKey() + 1});
    }
    numbers.finish();
}

} // namespace zel::korvandb
