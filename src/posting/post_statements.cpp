#include "posting/post_statements.h"

#include "core/session.h"

namespace zel::posting::statements {

using ado::Sql;

namespace {

// The blanks push the key out of sight and keep persons of one name apart.
constexpr ado::Words personsOfAll =
    "SELECT Persons.LastName + ', ' + Persons.FirstName + '                                              "
    "                 ' + cast(Persons.PersonID as nvarchar) AS LnFn, Persons.LastName + ', ' + "
    "Persons.FirstName + '  (' + SUBSTRING(Persons.SSN, 1, 3) + '-' + SUBSTRING(Persons.SSN, 4, 2) + '-' "
    "+ SUBSTRING(Persons.SSN, 6, 4) + ')  ' + Resources.RequestNumber AS Info, Persons.PersonID, "
    "Persons.FirstName, Persons.LastName, Persons.SSN, Persons.AgencyCode, Persons.LeaderID, "
    "Persons.OverheadID, Persons.PStatus, Persons.MailAddr1, Persons.MailAddr2, Persons.City, "
    "Persons.State, Persons.ZipCode, Persons.Phone, Persons.FaxPhone, Persons.Area, Persons.Class, "
    "Persons.Rate, Persons.InitEmployYN, Persons.PointOfHire, Persons.ReturnTravelYN, Persons.FedCode, "
    "Persons.Remarks, Persons.KindCode, Resources.RequestNumber, Resources.Collection, "
    "Persons.ResourceID AS RResourceID, Resources.IncidentID, Resources.Status, Resources.KindCode AS "
    "RKindCode, Resources.Name, Persons.SSN AS fSSN, Resources.ResourceID, Resources.AgencyCode AS "
    "RAgencyCode, AccountingCodes.AccountingCode, Persons.AccountingID, Resources.mobDate, "
    "Resources.ContractedResource, Persons.PersonID FROM (AccountingCodes RIGHT OUTER JOIN Resources "
    "INNER JOIN Persons ON Resources.ResourceID = Persons.ResourceID ON AccountingCodes.AccountingID = "
    "Persons.AccountingID) LEFT JOIN L_Status ON Persons.PStatus = L_Status.Code ";

constexpr ado::Words personStatus =
    "(((L_Status.ZEL)=1) OR ((Persons.PStatus Is Null) OR (Persons.PStatus = ''))) ORDER BY LnFn";

constexpr ado::Words crewsOfOne =
    "SELECT DISTINCT qryCrews.CrewInfo, qryCrews.*, Left(qryCrews.RequestNumber, 1) as Letter, "
    "dbo.f_SortRequestNumber(qryCrews.RequestNumber) as Req FROM qryCrews LEFT JOIN L_Status ON "
    "qryCrews.Status = L_Status.Code WHERE (((((qryCrews.ParentID)<>-1) AND ((L_Status.ZEL)=1)) OR "
    "(((qryCrews.Status) Is Null) or qryCrews.Status = '') AND (qryCrews.ParentID<>-1)) AND "
    "(qrycrews.incidentid = ";

constexpr ado::Words crewsOfAll =
    "SELECT DISTINCT qryCrews.CrewInfo, qryCrews.*, Left(qryCrews.RequestNumber, 1) as Letter, "
    "dbo.f_SortRequestNumber(qryCrews.RequestNumber) as Req FROM qryCrews LEFT JOIN L_Status ON "
    "qryCrews.Status = L_Status.Code WHERE ((((qryCrews.ParentID)<>-1) AND ((L_Status.ZEL)=1)) OR "
    "(((qryCrews.Status) Is Null) or qryCrews.Status = '') AND (qryCrews.ParentID<>-1)) ORDER BY Letter, "
    "Req ASC";

constexpr ado::Words members = "Select "
                               "Lnfn,Info,PersonID,FirstName,LastName,fSSN,PStatus,Class,Rate,FedCode,Collection,"
                               "RResourceID,RKindCode,KindCode,AccountingCode,AccountingID,Area "
                               "from qrySelectPersonnel";

constexpr ado::Words contractorColumns =
    "SELECT distinct Contractor.ContractorName, Contractor.ContractorID, Contractor.ContractorNum, "
    "Contractor.Addr, Contractor.City , Contractor.State, Contractor.Zip, Contractor.Phone, "
    "Contractor.IncidentID FROM Contractor ";

/// The first letter of a request number decides what a contracted resource is.
Sql letterTest(int contractType) {
    switch (contractType) {
    case 0:
        return "(LEFT(RequestNumber, 1)='E') ";
    case 1:
        return "(LEFT(RequestNumber, 1)='C') ";
    default:
        return "(LEFT(RequestNumber, 1)<>'E') AND (LEFT(RequestNumber, 1)<>'C') ";
    }
}

} // namespace

Sql persons(const core::Session& session) {
    if (session.gManageAll)
        return Sql(personsOfAll) + "WHERE " + personStatus;
    return Sql(personsOfAll) + "WHERE (Resources.IncidentID = " + Sql::of(session.gIncidentID) + ") AND " +
           personStatus;
}

Sql crews(const core::Session& session) {
    if (session.gManageAll)
        return crewsOfAll;
    return crewsOfOne + Sql::of(session.gIncidentID) + ")) ORDER BY Letter, Req ASC";
}

Sql crewMembers() {
    return members;
}

Sql contractors(const core::Session& session) {
    if (session.gManageAll)
        return contractorColumns;
    return contractorColumns + ("WHERE Contractor.IncidentID = " + Sql::of(session.gIncidentID));
}

Sql equipment(const core::Session& session) {
    return "SELECT * FROM qryContractsEquip LEFT JOIN L_Status ON qryContractsEquip.Status = L_Status.Code WHERE "
           "((((L_Status.ZEL)=1) AND " +
           letterTest(session.gContractType) + " AND (qryContractsEquip.IncidentID = " + Sql::of(session.gIncidentID) +
           ") AND ((qryContractsEquip.ParentID)<>-1)) OR ((qryContractsEquip.Status Is Null) OR "
           "(qryContractsEquip.Status='')))";
}

} // namespace zel::posting::statements
