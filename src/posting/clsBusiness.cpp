#include "posting/clsBusiness.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/session.h"
#include "forms/dialogs.h"

namespace zel::posting {

bool clsBusiness::CompareInvoiceDate(const ado::DateTime& activity) const {
    const auto invoice = ado::parseDateTime(session_.gInvoiceDate);
    return !invoice || *invoice < activity;
}

bool clsBusiness::CompareIncStartDate(const ado::DateTime& activity) const {
    const auto start = ado::parseDateTime(session_.gIncidentStart);
    if (!start || *start <= activity)
        return true;
    session_.dialogs.message(
        "Cannot have an activity date prior to INCIDENT START date!\r\n\tActivity Date: " + ado::toText(activity) +
            "\r\nIncident Start Date: " + session_.gIncidentStart,
        session_.title(": Invalid Date vs Incident Start Date"), forms::Buttons::OK, forms::Icon::Exclamation);
    return false;
}

bool clsBusiness::CompareHireDate(const ado::DateTime& activity) const {
    const auto hired = ado::parseDateTime(session_.gHireDate);
    if (!hired || *hired <= activity)
        return true;
    session_.dialogs.message(
        "Cannot have an activity date prior to RESOURCE HIRE date!\r\nActivity Date: " + ado::toText(activity) +
            "\r\nHire Date: " + session_.gHireDate,
        session_.title(": Invalid Date vs Resource Hire Date"), forms::Buttons::OK, forms::Icon::Exclamation);
    return false;
}

bool clsBusiness::ValidRate(float& rate) const {
    constexpr float mostUnasked = 100.0F;
    if (rate <= mostUnasked)
        return true;
    const auto answer = session_.dialogs.message("The Rate entered was $" + ado::toText(rate) +
                                                     " which is greater then $100. \r\nIs this rate correct?",
                                                 "Excess Rate", forms::Buttons::YesNo, forms::Icon::Exclamation);
    if (answer == forms::Answer::Yes)
        return true;
    rate = 0;
    return false;
}

bool clsBusiness::PostDateInvoiced(std::int32_t person, const ado::DateTime& activity) const {
    ado::Recordset invoices;
    invoices.Open("Select Max(LastDate) as LastDate From PersonsInvoices Where PersonID = " + ado::Sql::of(person) +
                      " and Del = 0",
                  session_.connection());
    const ado::Value last = invoices.value("LastDate");
    invoices.Close();
    return !last.isEmpty() && ado::toDateTime(last) >= activity;
}

} // namespace zel::posting
