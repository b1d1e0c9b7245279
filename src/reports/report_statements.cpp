#include "reports/report_statements.h"

#include <initializer_list>

namespace zel::reports {

namespace {

using ado::Sql;

constexpr ado::Words workRest =
    "SELECT Incidents.IncidentName, Incidents.IncidentNumber, Persons.FirstName, Persons.LastName, "
    "ReportRecords.RequestNumber, ReportRecords.ActivityDT, ReportRecords.TotalDayHrs, "
    "ReportRecords.ExcessHrs, ReportRecords.ReportRun, ReportRecords.KindCode, ReportRecords.HR20in24, "
    "ReportRecords.HR36in48 FROM (ReportRecords ReportRecords INNER JOIN Incidents Incidents ON "
    "ReportRecords.IncidentID=Incidents.IncidentID) INNER JOIN Persons Persons ON "
    "ReportRecords.PersonID=Persons.PersonID";

constexpr ado::Words commissaryCharges =
    "Select a.activitydt, a.amt, b.lastname, b.firstname, c.RequestNumber, d.incidentname, "
    "d.incidentnumber from personsdebit a inner join persons b on a.personid = b.personid inner join "
    "resources c on b.resourceid = c.resourceid inner join incidents d on c.incidentid = d.incidentid";

constexpr ado::Words summHours =
    "SELECT Incidents.IncidentName, Persons.LastName, Persons.FirstName, PersonsPost.PersonID, "
    "PersonsPost.KindCode, Persons.SSN, PersonsPost.Hours, Incidents.IncidentNumber, "
    "Incidents.IncidentID FROM ((Incidents Incidents INNER JOIN Resources Resources ON "
    "Incidents.IncidentID=Resources.IncidentID) INNER JOIN Persons Persons ON "
    "Resources.ResourceID=Persons.ResourceID) INNER JOIN PersonsPost PersonsPost ON "
    "Persons.PersonID=PersonsPost.PersonID";

constexpr ado::Words summContractor =
    "SELECT Contractor.ContractorNum, Contractor.ContractorName, Contractor.Addr, Contractor.City, "
    "Contractor.State, Contractor.Zip, Incidents.IncidentName, Contractor.ContractorID, "
    "ContractorPost.EquipmentID, ContractorPost.ActivityDT, ContractorPost.Units, ContractorPost.UOM, "
    "ContractorPost.Rate, ContractorPost.Amt, ContractorPost.SUnits, ContractorPost.SUOM, "
    "ContractorPost.SRate, ContractorPost.SAmt, ContractorPost.GuarAmt, Equipment.EquipmentID, "
    "Equipment.UniqueEquipmentName, ContractorAdjustments.Amt, Incidents.IncidentNumber, L_Kind.KindDesc "
    "FROM   ((((((Agreement Agreement INNER JOIN Contractor Contractor ON "
    "Agreement.ContractorID=Contractor.ContractorID) INNER JOIN Equipment Equipment ON "
    "Agreement.AgreementID=Equipment.AgreementID) INNER JOIN Resources Resources ON "
    "Equipment.ResourceID=Resources.ResourceID) INNER JOIN ContractorPost ContractorPost ON "
    "Equipment.EquipmentID=ContractorPost.EquipmentID) INNER JOIN ContractorAdjustments "
    "ContractorAdjustments ON Equipment.EquipmentID=ContractorAdjustments.EquipmentID) INNER JOIN "
    "Incidents Incidents ON Resources.IncidentID=Incidents.IncidentID) INNER JOIN L_Kind L_Kind ON "
    "Resources.KindCode=L_Kind.KindCode";

constexpr ado::Words excessHours =
    "SELECT Incidents.IncidentName, Incidents.IncidentNumber, Persons.FirstName, Persons.LastName, "
    "ReportRecords.RequestNumber, ReportRecords.ActivityDT, ReportRecords.TotalDayHrs, "
    "ReportRecords.ExcessHrs, ReportRecords.ReportRun FROM   (ReportRecords ReportRecords INNER JOIN "
    "Incidents Incidents ON ReportRecords.IncidentID=Incidents.IncidentID) INNER JOIN Persons Persons ON "
    "ReportRecords.PersonID=Persons.PersonID";

constexpr ado::Words timeReport =
    "SELECT Resources.ResourceID, Resources.KindCode, Resources.RequestNumber, Resources.Collection, "
    "Persons.PersonID, Persons.FirstName, Persons.LastName, Persons.SSN, Persons.MailAddr1, "
    "Persons.MailAddr2, Persons.City, Persons.State, Persons.ZipCode, Persons.InitEmployYN, "
    "Persons.PointOfHire, Persons.ReturnTravelYN, Persons.FedCode, Persons.Remarks, Persons.KindCode, "
    "Persons.ResourceID, PersonsPost.PersonsPostID, PersonsPost.PersonID, PersonsPost.PremiumCode, "
    "PersonsPost.Class, PersonsPost.Rate, PersonsPost.ActivityDT, PersonsPost.StartTime, "
    "PersonsPost.StopTime, PersonsPost.Hours, PersonsPost.Column288, PersonsPost.RptOrder, "
    "PersonsPost.AccountingID, AccountingCodes.AccountingCode, AccountingCodes.AccountingID, "
    "AccountingCodes.IncidentID, Incidents.IncidentID , Incidents.IncidentNumber, "
    "Incidents.IncidentName, Incidents.IncidentLocation, Incidents.IncidentState From Resources "
    "Resources, Persons Persons, PersonsPost PersonsPost, AccountingCodes AccountingCodes, Incidents "
    "Incidents Where Resources.ResourceID = Persons.ResourceID AND Persons.PersonID = "
    "PersonsPost.PersonID AND PersonsPost.AccountingID = AccountingCodes.AccountingID AND "
    "AccountingCodes.IncidentID = Incidents.IncidentID";

constexpr ado::Words crewInvoice =
    "SELECT Contractor.ContractorNum, Contractor.ContractorName, Contractor.Addr, Contractor.City, "
    "Contractor.State, Contractor.Zip, Incidents.IncidentName, Agreement.AgreementNum, "
    "Agreement.PointOfHire, Incidents.AdminName, Incidents.AdminAddr1, Incidents.AdminAddr2, "
    "Incidents.AdminCity, Incidents.AdminState, Incidents.AdminZip, Agreement.ExpDt, "
    "Resources.RequestNumber, Resources.ReleaseDate, Resources.ReleaseTime, Incidents.Incidentid, "
    "Contractor.ContractorID, Resources.CheckinDate, Resources.CheckinTime, L_Kind.KindDesc, "
    "Resources.GovtSuppliesYN as GovtOperatorYN, Resources.GovtSuppliesYN, Resources.Withdrawn, "
    "Resources.KindCode as Model, 'CONTRACT CREW' as Make,Resources.ResourceID as EquipmentID, "
    "ContractorPost.ActivityDT, ContractorPost.Units, ContractorPost.UOM, ContractorPost.Rate, "
    "ContractorPost.Amt, ContractorPost.SUnits, ContractorPost.SUOM, ContractorPost.SRate, "
    "ContractorPost.SAmt, ContractorPost.GuarAmt, Resources.Name as UniqueEquipmentName, "
    "AccountingCodes.AccountingCode, ContractorPost.AccountingID, Agreement.BeginDt, Resources.Remarks "
    "as RemarksOF286 FROM (((((ContractorPost ContractorPost INNER JOIN Resources Resources ON "
    "ContractorPost.ResourceID=Resources.ResourceID) INNER JOIN Agreement Agreement ON "
    "Resources.AgreementID=Agreement.AgreementID) INNER JOIN AccountingCodes AccountingCodes ON "
    "Resources.AccountingID=AccountingCodes.AccountingID) INNER JOIN L_Kind L_Kind ON "
    "Resources.KindCode=L_Kind.KindCode) INNER JOIN Contractor Contractor ON "
    "Agreement.ContractorID=Contractor.ContractorID) INNER JOIN Incidents Incidents ON "
    "Contractor.IncidentID=Incidents.IncidentID";

constexpr ado::Words useInvoice =
    "SELECT Contractor.ContractorNum, Contractor.ContractorName, Contractor.Addr, Contractor.City, "
    "Contractor.State, Contractor.Zip, Incidents.IncidentName, Agreement.AgreementNum, "
    "Agreement.PointOfHire, Incidents.AdminName, Incidents.AdminAddr1, Incidents.AdminAddr2, "
    "Incidents.AdminCity, Incidents.AdminState, Incidents.AdminZip, Agreement.ExpDt, "
    "Resources.RequestNumber, Resources.ReleaseDate, Resources.ReleaseTime, Incidents.IncidentID, "
    "Contractor.ContractorID, Resources.CheckinDate, Resources.CheckinTime, L_Kind.KindDesc, "
    "Equipment.GovtOperatorYN, Equipment.GovtSuppliesYN, Equipment.Withdrawn, Equipment.Model, "
    "Equipment.Make, ContractorPost.EquipmentID, ContractorPost.ActivityDT, ContractorPost.Units, "
    "ContractorPost.UOM, ContractorPost.Rate, ContractorPost.Amt, ContractorPost.SUnits, "
    "ContractorPost.SUOM, ContractorPost.SRate, ContractorPost.SAmt, ContractorPost.GuarAmt, "
    "Equipment.UniqueEquipmentName, AccountingCodes.AccountingCode, ContractorPost.AccountingID, "
    "Agreement.BeginDt, Resources.RemarksOF286 FROM ((((((Agreement Agreement INNER JOIN Contractor "
    "Contractor ON Agreement.ContractorID=Contractor.ContractorID) INNER JOIN Equipment Equipment ON "
    "Agreement.AgreementID=Equipment.AgreementID) INNER JOIN Resources Resources ON "
    "Equipment.ResourceID=Resources.ResourceID) INNER JOIN ContractorPost ContractorPost ON "
    "Equipment.EquipmentID=ContractorPost.EquipmentID) INNER JOIN AccountingCodes AccountingCodes ON "
    "ContractorPost.AccountingID=AccountingCodes.AccountingID) INNER JOIN Incidents Incidents ON "
    "AccountingCodes.IncidentID=Incidents.IncidentID) INNER JOIN L_Kind L_Kind ON "
    "Resources.KindCode=L_Kind.KindCode";

constexpr ado::Words contractorDebits =
    "SELECT Contractor.ContractorName, Contractor.ContractorNum, Equipment.Make, Equipment.Model, "
    "Incidents.IncidentName, Incidents.IncidentID, Contractor.ContractorID, Resources.KindCode, "
    "Equipment.EquipmentID, ContractorAdjustments.Amt, ContractorAdjustments.ActivityDT, "
    "Equipment.UniqueEquipmentName, ContractorAdjustments.Description FROM (((Contractor Contractor "
    "INNER JOIN Incidents Incidents ON Contractor.IncidentID=Incidents.IncidentID) INNER JOIN "
    "ContractorAdjustments ContractorAdjustments ON "
    "Contractor.ContractorID=ContractorAdjustments.ContractorID) INNER JOIN Equipment Equipment ON "
    "ContractorAdjustments.EquipmentID=Equipment.EquipmentID) INNER JOIN Resources Resources ON "
    "Equipment.ResourceID=Resources.ResourceID";

constexpr ado::Words commAuthorization =
    "SELECT Resources.RequestNumber, Resources.Name, Persons.SSN, Persons.InitEmployYN, Persons.FedCode, "
    "Persons.PersonID, Persons.FirstName, Persons.LastName, Incidents.IncidentID, Resources.ResourceID, "
    "Persons.PointOfHire, Persons.ReturnTravelYN, Persons.MailAddr1, Persons.MailAddr2, Persons.City, "
    "Persons.State, Persons.ZipCode FROM (Incidents Incidents INNER JOIN Resources Resources ON "
    "Incidents.IncidentID=Resources.IncidentID) INNER JOIN Persons Persons ON "
    "Resources.ResourceID=Persons.ResourceID";

constexpr ado::Words equipMgmt =
    "SELECT qryEquipMgmt.KindCode, qryEquipMgmt.KindDesc, qryEquipMgmt.IncidentID, "
    "qryEquipMgmt.RequestNumber, qryEquipMgmt.UniqueEquipmentName, qryEquipMgmt.AssignDate, "
    "qryEquipMgmt.IncidentName, qryEquipMgmt.IncidentNumber, qryEquipMgmt.Name FROM qryEquipMgmt";

constexpr ado::Words crewRoster =
    "SELECT Incidents.IncidentName, Incidents.IncidentNumber, Resources.RequestNumber, Resources.Name, "
    "Persons.LastName, Persons.FirstName, Persons.SSN, Persons.PStatus, Persons.FedCode, "
    "Persons.KindCode, Resources.IncidentID, Resources.ResourceID FROM (Incidents Incidents INNER JOIN "
    "Resources Resources ON Incidents.IncidentID=Resources.IncidentID) LEFT OUTER JOIN Persons Persons "
    "ON Resources.ResourceID=Persons.ResourceID";

constexpr ado::Words commissaryDetail =
    "SELECT Incidents.IncidentNumber, Incidents.IncidentName, Incidents.IncidentLocation, "
    "qrySelectPersonnel.RequestNumber, qrySelectPersonnel.PersonID, qrySelectPersonnel.FirstName, "
    "qrySelectPersonnel.LastName, qrySelectPersonnel.MailAddr1, qrySelectPersonnel.MailAddr2, "
    "qrySelectPersonnel.City, qrySelectPersonnel.State, qrySelectPersonnel.ZipCode, "
    "qrySelectPersonnel.fSSN, PersonsDebit.ActivityDT, PersonsDebit.Description, PersonsDebit.Amt, "
    "Incidents.IncidentState, Incidents.IncidentID, qrySelectPersonnel.RResourceID, "
    "qrySelectPersonnel.AccountingCode FROM (qrySelectPersonnel qrySelectPersonnel INNER JOIN Incidents "
    "Incidents ON qrySelectPersonnel.IncidentID=Incidents.IncidentID) INNER JOIN PersonsDebit "
    "PersonsDebit ON qrySelectPersonnel.PersonID=PersonsDebit.PersonID";

constexpr ado::Words crewDeductions =
    "SELECT Agreement.AgreementNum, Contractor.ContractorName, Resources.Name, Contractor.ContractorNum, "
    "'CONTRACT CREW' as Make, Resources.KindCode as Model, Incidents.IncidentName, "
    "Contractor.ContractorID, ContractorAdjustments.Amt, ContractorAdjustments.Description, "
    "ContractorAdjustments.ActivityDT, Resources.Name as UniqueEquipmentName, Resources.ResourceID as "
    "EquipmentID, Resources.RequestNumber FROM (((ContractorAdjustments ContractorAdjustments INNER JOIN "
    "Resources Resources ON ContractorAdjustments.ResourceID=Resources.ResourceID) INNER JOIN Agreement "
    "Agreement ON Resources.AgreementID=Agreement.AgreementID) INNER JOIN Incidents Incidents ON "
    "Resources.IncidentID=Incidents.IncidentID) INNER JOIN Contractor Contractor ON "
    "Agreement.ContractorID=Contractor.ContractorID";

constexpr ado::Words equipDeductions =
    "SELECT Agreement.AgreementNum, Contractor.ContractorName, Resources.Name, Contractor.ContractorNum, "
    "Equipment.Make, Equipment.Model, Incidents.IncidentName, Contractor.ContractorID, "
    "ContractorAdjustments.Amt, ContractorAdjustments.Description, ContractorAdjustments.ActivityDT, "
    "Equipment.UniqueEquipmentName, ContractorAdjustments.EquipmentID, Resources.RequestNumber FROM "
    "((((Contractor Contractor INNER JOIN Incidents Incidents ON "
    "Contractor.IncidentID=Incidents.IncidentID) INNER JOIN ContractorAdjustments ContractorAdjustments "
    "ON Contractor.ContractorID=ContractorAdjustments.ContractorID) INNER JOIN Equipment Equipment ON "
    "ContractorAdjustments.EquipmentID=Equipment.EquipmentID) INNER JOIN Resources Resources ON "
    "Equipment.ResourceID=Resources.ResourceID) INNER JOIN Agreement Agreement ON "
    "Equipment.AgreementID=Agreement.AgreementID";

constexpr ado::Words timeReportOrder =
    "Order By Resources.RequestNumber ASC, PersonsPost.PersonID ASC, PersonsPost.Column288 ASC, "
    "AccountingCodes.AccountingCode ASC, PersonsPost.Rate ASC, Incidents.IncidentName ASC, "
    "PersonsPost.RptOrder ASC, PersonsPost.ActivityDT ASC, PersonsPost.StartTime ASC, "
    "PersonsPost.StopTime ASC";

/// Joins the pieces that are there with one blank.
Sql join(std::initializer_list<Sql> pieces) {
    Sql whole;
    for (const Sql& piece : pieces) {
        if (piece.empty())
            continue;
        if (!whole.empty())
            whole += " ";
        whole += piece;
    }
    return whole;
}

/// One report under composition: what was asked for, and the statements so far.
class Composer {
public:
    Composer(const ReportValues& values, const Selection& selection) : values_(values), selection_(selection) {}

    ReportStatements compose(int number);

private:
    /// The words and the incident, unless all incidents are managed as one.
    [[nodiscard]] Sql incident(const Sql& words) const {
        return selection_.ManageAll ? Sql() : words + Sql::of(selection_.IncidentID);
    }
    [[nodiscard]] bool person() const { return selection_.PersonID > 0; }
    [[nodiscard]] bool resource() const { return selection_.ResourceID > 0; }
    [[nodiscard]] Sql personKey() const { return Sql::of(selection_.PersonID); }
    [[nodiscard]] Sql resourceKey() const { return Sql::of(selection_.ResourceID); }
    /// Whether the key is there; without it the report is refused with the word.
    bool needs(std::int32_t key, const char* word);
    void names(const char* title, const char* layout);

    void hours(const Sql& select);
    void commissary();
    void hoursSummary();
    [[nodiscard]] Sql contractorCondition() const;
    void contractorSummary();
    void personTimeReport();
    void invoice();
    void debitsOfContractor();
    void authorization();
    void equipment();
    void roster();
    void detail();
    void deductions();

    const ReportValues& values_;
    const Selection& selection_;
    ReportStatements made_;
};

bool Composer::needs(std::int32_t key, const char* word) {
    if (key < 1)
        made_.refusal = word;
    return key >= 1;
}

void Composer::names(const char* title, const char* layout) {
    made_.title = title;
    made_.layout = layout;
}

void Composer::hours(const Sql& select) {
    made_.silent = values_.ReportRun < 1;
    if (made_.silent)
        return;
    Sql order = "ORDER BY ReportRecords.ExcessHrs";
    if (values_.SortField == "R")
        order = "ORDER BY ReportRecords.RequestNumber, Persons.LastName, Persons.FirstName";
    else if (values_.SortField == "P")
        order = "ORDER BY Persons.LastName, Persons.FirstName";
    made_.sqlRpt = join({select, "Where ReportRecords.ReportRun = " + Sql::of(values_.ReportRun), order});
}

void Composer::commissary() {
    names("Commissary Charges By Date", "CommissaryCharges");
    made_.sqlRpt = join({commissaryCharges, incident("WHERE c.IncidentID = "), "order by a.activitydt"});
}

void Composer::hoursSummary() {
    names("Summary of Hours Worked", "SummHours");
    const Sql all = incident("Where Incidents.IncidentID = ");
    const Sql one =
        "Where Incidents.IncidentID = " + Sql::of(selection_.IncidentID) + " And PersonsPost.PersonID = " + personKey();
    made_.sqlRpt = join({summHours, person() ? one : all, "ORDER BY Persons.LastName, Persons.FirstName"});
    // Without a person the debits are asked for by incident, which this statement does not read.
    made_.sqlRptSub = join({"SELECT sum(PersonsDebit.Amt) as Amt, PersonsDebit.PersonID FROM PersonsDebit PersonsDebit",
                            person() ? "WHERE PersonsDebit.PersonID = " + personKey() : all,
                            "group by PersonsDebit.PersonID order by PersonsDebit.PersonID"});
}

Sql Composer::contractorCondition() const {
    const Sql contractor = Sql::of(values_.ContractorID);
    if (selection_.ManageAll)
        return "Where Contractor.ContractorID = " + contractor;
    return incident("Where Incidents.IncidentID = ") + " And Contractor.ContractorID = " + contractor;
}

void Composer::contractorSummary() {
    names("Payment Summary of Equipment Usage", "SummContractor");
    const bool all = values_.ContractorID < 1;
    made_.sqlRpt = join({summContractor, all ? incident("Where Incidents.IncidentID = ") : contractorCondition(),
                         "ORDER BY L_Kind.KindDesc, Equipment.UniqueEquipmentName"});
}

void Composer::personTimeReport() {
    names("OF-288", "OF288");
    Sql selected, debits;
    if (resource()) {
        selected = "AND Resources.ResourceID = " + resourceKey();
        debits = "WHERE PersonsDebit.PersonID IN(Select PersonID from Persons WHERE ResourceID= " + resourceKey() + ")";
    } else if (person()) {
        selected = "AND Persons.PersonID = " + personKey();
        debits = "WHERE PersonsDebit.PersonID = " + personKey();
    }
    made_.sqlRpt = join({timeReport, selected, incident("AND Incidents.IncidentID = "), timeReportOrder});
    const Sql ofIncident = incident("AND (Resources.IncidentID = ");
    // Without a selection the condition of the incident belongs to the last join.
    made_.sqlRptSub =
        join({"Select PersonsDebit.PersonID, Sum(Amt) as DebitAmt From PersonsDebit INNER JOIN Persons ON "
              "PersonsDebit.PersonID = Persons.PersonID INNER JOIN Resources ON Persons.ResourceID = "
              "Resources.ResourceID",
              debits, ofIncident.empty() ? Sql() : ofIncident + ")", "group by PersonsDebit.PersonID"});
}

void Composer::invoice() {
    names(values_.ContCrew ? "OF-286 Contract Crew" : "OF-286", "OF286");
    // This report alone tests the incident when all are managed as one, and by a name that no table has.
    const Sql extra = selection_.ManageAll ? "AND Incident.IncidentID = " + Sql::of(selection_.IncidentID) : Sql();
    if (values_.ContCrew) {
        if (needs(values_.ResourceID, "No ResourceID"))
            made_.sqlRpt =
                join({crewInvoice, "where Resources.ResourceID = " + Sql::of(values_.ResourceID), extra,
                      "ORDER BY ContractorPost.ResourceID, Incidents.IncidentID, ContractorPost.AccountingID"});
    } else if (needs(values_.EquipmentID, "No EquipmentID")) {
        made_.sqlRpt = join({useInvoice, "where equipment.equipmentid = " + Sql::of(values_.EquipmentID), extra,
                             "ORDER BY ContractorPost.EquipmentID, Incidents.IncidentID, ContractorPost.AccountingID"});
    }
}

void Composer::debitsOfContractor() {
    names("Contractor Debits", "ContractorDebits");
    if (needs(values_.ContractorID, "No Contractor Selected"))
        made_.sqlRpt = join({contractorDebits, contractorCondition(),
                             "ORDER BY Contractor.ContractorName, Resources.KindCode, Equipment.EquipmentID"});
}

void Composer::authorization() {
    names("Commissary Authorization", "CommAuthorization");
    Sql selected = "WHERE Resources.ResourceID IN (SELECT Persons.ResourceID FROM Persons)";
    if (person())
        selected = "WHERE Persons.PersonID = " + personKey();
    else if (resource())
        selected = "WHERE Persons.ResourceID = " + resourceKey();
    made_.sqlRpt = join({commAuthorization, selected, incident("AND Incidents.IncidentID = ")});
}

void Composer::equipment() {
    names("Equipment Management", "EquipMgmt");
    made_.sqlRpt = join({equipMgmt, incident("WHERE qryEquipMgmt.IncidentID = ")});
}

void Composer::roster() {
    names("Crew Roster", "CrewRoster");
    if (needs(selection_.ResourceID, "No Crew Selected"))
        made_.sqlRpt = join(
            {crewRoster, "WHERE Resources.ResourceID = " + resourceKey(), incident("AND Resources.IncidentID = ")});
}

void Composer::detail() {
    names("Commissry Detail", "CommissaryDetail");
    const Sql charged = "(PersonsDebit.Amt Is Not Null Or PersonsDebit.Amt > 0)";
    Sql selected = "Where " + charged;
    if (person())
        selected = "Where qrySelectPersonnel.PersonID = " + personKey() + " And " + charged;
    else if (resource())
        selected = "Where qrySelectPersonnel.ResourceID = " + resourceKey() + " And " + charged;
    made_.sqlRpt = join(
        {commissaryDetail, selected, incident("AND Incidents.IncidentID = "), "ORDER BY qrySelectPersonnel.PersonID"});
}

void Composer::deductions() {
    names(values_.ContCrew ? "Contract Crew Deductions & Additions" : "Equipment Deductions & Additions",
          "EquipDeductions");
    const Sql order = "ORDER BY Contractor.ContractorName, Resources.Name";
    if (values_.ContCrew) {
        if (needs(values_.ResourceID, "No ResourceID"))
            made_.sqlRpt = join({crewDeductions, "Where Resources.ResourceID = " + Sql::of(values_.ResourceID), order});
    } else if (needs(values_.EquipmentID, "No EquipmentID")) {
        made_.sqlRpt =
            join({equipDeductions, "Where ContractorAdjustments.EquipmentID = " + Sql::of(values_.EquipmentID), order});
    }
}

ReportStatements Composer::compose(int number) {
    switch (number) {
    case 1:
        names("Work/Rest", "WorkRest");
        hours(workRest);
        break;
    case 2:
        commissary();
        break;
    case 3:
        hoursSummary();
        break;
    case 4:
        contractorSummary();
        break;
    case 5:
        names("Hours in Excess of Standard", "ExcessHours");
        hours(excessHours);
        break;
    case 6:
        personTimeReport();
        break;
    case 7:
        invoice();
        break;
    case 8:
        debitsOfContractor();
        break;
    case 9:
        authorization();
        break;
    case 11:
        equipment();
        break;
    case 12:
        roster();
        break;
    case 13:
        detail();
        break;
    case 14:
        deductions();
        break;
    default:
        break;
    }
    return made_;
}

} // namespace

bool isComposedReport(int number) {
    return number >= 1 && number <= 14 && number != 10;
}

ReportStatements composeReport(int number, const ReportValues& values, const Selection& selection) {
    return Composer(values, selection).compose(number);
}

} // namespace zel::reports
