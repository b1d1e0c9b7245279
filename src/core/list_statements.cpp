#include "core/lists.h"
#include "core/session.h"

namespace zel::core {

using ado::Sql;

namespace {

Sql accounts(const Session& session, bool bForIncident) {
    if (bForIncident) {
        return "SELECT AccountingCode,AccountingID,IncidentID,AgencyCode,IncidentDefault from AccountingCodes where "
               "IncidentID = " +
               Sql::of(session.gIncidentID) + " order by IncidentDefault,AccountingCode";
    }
    return {"SELECT IncidentName,AccountingCode,AccountingID,AccountingCodes.IncidentID,AgencyCode,IncidentDefault "
            "from AccountingCodes INNER JOIN Incidents ON AccountingCodes.IncidentID = Incidents.IncidentID order "
            "by IncidentName,IncidentDefault,AccountingCode"};
}

Sql incidents(bool server) {
    const Sql head("Select Incidents.IncidentID as IncidentID, IncidentName, IncidentNumber, IncidentLocation, "
                   "EndDate, ParentIncident, IncidentState, AdminName, AdminAddr1, AdminAddr2, AdminCity, "
                   "AdminState, AdminZip, AccountingID, AccountingCode, AccountingCodes.IncidentID as aIncidentID, "
                   "IncidentDefault, AgencyCode, StartDate FROM Incidents LEFT JOIN AccountingCodes ON "
                   "Incidents.IncidentID = AccountingCodes.IncidentID WHERE accountingcodes.incidentid is null or ");
    return head + (server ? Sql("accountingcodes.incidentdefault=1 order by IncidentName")
                          : Sql("accountingcodes.incidentdefault=true order by IncidentName"));
}

Sql ratesWhere(RateLinesOf of) {
    return (of.key == RateLinesOf::Key::EquipmentID ? Sql("EquipmentID = ") : Sql("ResourceID = ")) + Sql::of(of.id);
}

Sql rateLines(RateLinesOf of) {
    return "Select [Primary],RateType,Rate,GuaranteeAmt,UnitOfMeasureID,EquipmentID,ResourceID,Description from "
           "UnitOfMeasure where " +
           ratesWhere(of);
}

Sql primaryRateLines(bool server, RateLinesOf of) {
    const Sql columns(" as Info,RateType,Rate,GuaranteeAmt,UnitOfMeasureID,EquipmentID,ResourceID from UnitOfMeasure "
                      "where [Primary] = ");
    if (server) {
        return "Select Convert(nvarchar,RateType) + '  |  $' + Convert(nvarchar,Rate) + '  |  $' + "
               "Convert(nvarchar,GuaranteeAmt)" +
               columns + "1 and " + ratesWhere(of);
    }
    return "Select RateType & '  |  ' & Format(Rate,'Standard') & '  |  ' & Format(GuaranteeAmt,'Standard')" + columns +
           "True and " + ratesWhere(of);
}

Sql specialRateLines(bool server, RateLinesOf of) {
    const Sql columns(" as Info,RateType,Rate,Description,UnitOfMeasureID,EquipmentID,ResourceID from UnitOfMeasure "
                      "where [Primary] = ");
    if (server) {
        return "Select Convert(nvarchar,RateType) + '  |  $' + Convert(nvarchar,Rate) + '  |  ' + Description" +
               columns + "0 and " + ratesWhere(of);
    }
    return "Select RateType & '  |  ' & Format(Rate,'Standard') & '  |  ' & Description" + columns + "False and " +
           ratesWhere(of);
}

} // namespace

Sql listStatement(const Session& session, bool bForIncident, int listNumber, RateLinesOf of) {
    const bool server = session.gServerDialect;
    switch (listNumber) {
    case 1:
        return accounts(session, bForIncident);
    case 2:
        return "SELECT KindCode,KindDesc,RequestCat FROM L_Kind where KindCode is not Null ORDER BY Kindcode";
    case 4:
        return "SELECT Code,Description FROM L_State order by code";
    case 5:
        return incidents(server);
    case 6:
        return server ? Sql("Select Description, Postable, Code from L_Status where ZEL = 1 order by description")
                      : Sql("Select Description, Postable, Code from L_Status where ZEL = True order by description");
    case 7:
        return "Select AgencyCode, AgencyDesc from qryAgency where AgencyCode is not Null order by AgencyCode";
    case 8:
        return "Select distinct area from L_ClassRates order by area";
    case 9:
        return "Select distinct class from L_ClassRates order by class";
    case 10:
        return server ? Sql("Select EquipDescription from L_RateType where EquipRate = 1 order by EquipDescription")
                      : Sql("Select EquipDescription from L_RateType where EquipRate = True order by "
                            "EquipDescription");
    case 11:
        return rateLines(of);
    case 12:
        return primaryRateLines(server, of);
    case 13:
        return specialRateLines(server, of);
    case 14:
        return server ? Sql("SELECT L_Status.Code, L_Status.Description From L_Status WHERE "
                            "(((L_Status.Postable)=1))")
                      : Sql("SELECT L_Status.Code, L_Status.Description From L_Status WHERE "
                            "(((L_Status.Postable)=True))");
    case 15:
        return "SELECT AccountingID,AccountingCodes.IncidentID,IncidentName,AccountingCode,AgencyCode,IncidentDefault "
               "from AccountingCodes INNER JOIN Incidents ON AccountingCodes.IncidentID = Incidents.IncidentID order "
               "by IncidentName,IncidentDefault,AccountingCode";
    default:
        return {};
    }
}

} // namespace zel::core
