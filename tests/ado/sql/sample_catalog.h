#pragma once

#include "ado/catalog.h"

namespace zel::ado::sql {

/// A few of the system's tables and views, enough to translate by.
inline Catalog sampleCatalog() {
    using enum ColumnType;
    Catalog catalog;
    catalog.add({"Persons",
                 {{"PersonID", Integer},
                  {"ResourceID", Integer},
                  {"FirstName", Text},
                  {"LastName", Text},
                  {"SSN", Text},
                  {"PStatus", Text},
                  {"Rate", Currency},
                  {"InitEmployYN", Flag},
                  {"Remarks", Text}},
                 "PersonID",
                 ""});
    catalog.add({"Resources",
                 {{"ResourceID", Integer},
                  {"IncidentID", Integer},
                  {"Name", Text},
                  {"RequestNumber", Text},
                  {"Status", Text},
                  {"ParentID", Integer},
                  {"Collection", Flag}},
                 "ResourceID",
                 ""});
    catalog.add({"PersonsPost",
                 {{"PersonsPostID", Integer},
                  {"PersonID", Integer},
                  {"ActivityDT", DateTime},
                  {"StartTime", DateTime},
                  {"StopTime", DateTime},
                  {"Rate", Currency},
                  {"Hours", Double},
                  {"Amt", Currency},
                  {"Remarks", Text}},
                 "PersonsPostID",
                 ""});
    catalog.add({"AccountingCodes",
                 {{"AccountingID", Integer},
                  {"IncidentID", Integer},
                  {"AccountingCode", Text},
                  {"AgencyCode", Text},
                  {"IncidentDefault", Flag}},
                 "AccountingID",
                 ""});
    catalog.add({"UnitOfMeasure",
                 {{"UnitOfMeasureID", Integer},
                  {"EquipmentID", Integer},
                  {"Rate", Currency},
                  {"Primary", Flag},
                  {"GuaranteeAmt", Currency},
                  {"RateType", Text},
                  {"ResourceID", Integer},
                  {"Description", Text}},
                 "UnitOfMeasureID",
                 ""});
    catalog.add({"L_Status", {{"Code", Text}, {"Description", Text}, {"ZEL", Flag}, {"Postable", Flag}}, "Code", ""});
    catalog.add({"PersonsInvoices", {{"PersonID", Integer}, {"LastDate", DateTime}, {"Del", Flag}}, "", ""});
    catalog.add({"qryCrews",
                 {{"CrewInfo", Text}, {"ResourceID", Integer}, {"Name", Text}, {"RequestNumber", Text}},
                 "",
                 " SELECT resources.name AS crewinfo FROM dbo.resources;"});
    catalog.add({"qryCrewNames", {{"Name", Text}}, "", "SELECT name FROM qryCrews q JOIN qryCrews ON true;"});
    return catalog;
}

} // namespace zel::ado::sql
