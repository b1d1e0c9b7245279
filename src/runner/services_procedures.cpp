#include "runner/command_error.h"
#include "runner/procedures.h"
#include "services/request_number.h"
#include "services/text_rules.h"
#include "services/time_rules.h"

namespace zel::runner {

namespace {

void formatByType(Call& call) {
    call.result = services::FormatByType(call.session, call.text(0), call.number(1));
}

void trimRequestNumber(Call& call) {
    call.result = services::TrimRequestNumber(call.text(0));
}

void stripChars(Call& call) {
    call.result = services::StripChars(call.value(0), call.textOr(1, ""));
}

void padText(Call& call) {
    if (call.text(2).size() != 1)
        throw CommandError("the pad character is one character");
    call.result = services::PadText(call.text(0), call.flag(1), call.text(2).front(), call.number(3));
}

void blankIfEmpty(Call& call) {
    call.result = services::BlankIfEmpty(call.value(0), call.flagOr(1, false));
}

void formatMaskValue(Call& call) {
    call.result = services::FormatMaskValue(call.value(0), call.flagOr(1, false));
}

void roundQuarterHour(Call& call) {
    call.result = services::RoundQuarterHour(call.session, call.value(0));
}

void convertAmPm(Call& call) {
    call.result = services::ConvertAmPm(call.text(0));
}

} // namespace

void addServicesProcedures(Procedures& table) {
    table.push_back({"FormatByType", "text type", 2, 2, formatByType});
    table.push_back({"TrimRequestNumber", "text", 1, 1, trimRequestNumber});
    table.push_back({"StripChars", "value [characters]", 1, 2, stripChars});
    table.push_back({"PadText", "value left pad length", 4, 4, padText});
    table.push_back({"BlankIfEmpty", "value [numeric]", 1, 2, blankIfEmpty});
    table.push_back({"FormatMaskValue", "value [time]", 1, 2, formatMaskValue});
    table.push_back({"RoundQuarterHour", "value", 1, 1, roundQuarterHour});
    table.push_back({"ConvertAmPm", "text", 1, 1, convertAmPm});
}

} // namespace zel::runner
