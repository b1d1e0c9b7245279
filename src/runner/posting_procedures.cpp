#include "core/session.h"
#include "posting/clsBusiness.h"
#include "posting/modMath.h"
#include "posting/modPost.h"
#include "posting/overlap_check.h"
#include "runner/procedures.h"

namespace zel::runner {

namespace {

using posting::clsBusiness;

void calcHours(Call& call) {
    call.result = ado::Value(posting::CalcHours(call.timeOfDay(0), call.timeOfDay(1)));
}

void calcAmount(Call& call) {
    call.result = ado::Value(posting::CalcAmount(call.single(0), call.money(1), call.single(2), call.single(3)));
}

void calcRegularHours(Call& call) {
    call.result = ado::Value(posting::CalcRegularHours(call.single(0), call.single(1)));
}

void calcExtraHours(Call& call) {
    call.result = ado::Value(posting::CalcExtraHours(call.single(0), call.single(1)));
}

void checkPersonOverlap(Call& call) {
    call.result = posting::CheckPersonOverlap(call.session, call.moment(0), call.number(1), call.number(2),
                                              call.timeOfDay(3), call.timeOfDay(4));
    call.byref.set("vYNMSa", call.session.vYNMSa);
}

void checkEquipOverlap(Call& call) {
    call.result =
        posting::CheckEquipOverlap(call.session, call.moment(0), call.number(1), call.number(2), call.number(3),
                                   call.timeOfDay(4), call.timeOfDay(5), call.textOr(6, "Primary"));
    call.byref.set("vYNMSa", call.session.vYNMSa);
}

void postPerson(Call& call) {
    posting::PersonPosting entry;
    entry.ActivityDT = call.moment(0);
    entry.Start = call.timeOfDay(1);
    entry.Stop = call.timeOfDay(2);
    entry.PersonID = call.number(3);
    entry.AccountingID = call.numberOr(4, call.session.gAccountingID);
    entry.KindCode = call.textOr(5, "");
    entry.Premium = call.textOr(6, "");
    entry.AllowSplit = call.flagOr(7, true);
    entry.ReturnTravel = call.flagOr(8, false);
    entry.YesNoOnly = call.flagOr(9, false);
    call.result = posting::PostPerson(call.session, entry);
    call.byref.set("Asked", entry.Asked);
    call.byref.set("Answer", static_cast<int>(entry.Answer));
}

void postPersonSplit(Call& call) {
    posting::SplitPosting entry;
    entry.ActivityDT = call.moment(0);
    entry.Start = call.timeOfDay(1);
    entry.Stop = call.timeOfDay(2);
    entry.PersonID = call.number(3);
    entry.AccountingID = call.number(4);
    entry.KindCode = call.text(5);
    entry.Class = call.text(6);
    entry.Rate = call.single(7);
    entry.Premium = call.textOr(8, "");
    entry.ReturnTravel = call.flagOr(9, false);
    call.result = posting::PostPersonSplit(call.session, entry);
}

void compareInvoiceDate(Call& call) {
    call.result = clsBusiness(call.session).CompareInvoiceDate(call.moment(0));
}

void compareIncStartDate(Call& call) {
    call.result = clsBusiness(call.session).CompareIncStartDate(call.moment(0));
}

void compareHireDate(Call& call) {
    call.result = clsBusiness(call.session).CompareHireDate(call.moment(0));
}

void validRate(Call& call) {
    float rate = call.single(0);
    call.result = clsBusiness(call.session).ValidRate(rate);
    call.byref.set("rate", ado::Value(rate));
}

void postDateInvoiced(Call& call) {
    call.result = clsBusiness(call.session).PostDateInvoiced(call.number(0), call.moment(1));
}

} // namespace

void addPostingProcedures(Procedures& table) {
    table.push_back({"CalcHours", "start stop", 2, 2, calcHours});
    table.push_back({"CalcAmount", "hours rate threshold multiplier", 4, 4, calcAmount});
    table.push_back({"CalcRegularHours", "hours threshold", 2, 2, calcRegularHours});
    table.push_back({"CalcExtraHours", "hours threshold", 2, 2, calcExtraHours});
    table.push_back({"CheckPersonOverlap", "date person posting start stop", 5, 5, checkPersonOverlap});
    table.push_back(
        {"CheckEquipOverlap", "date equipment resource posting start stop [mode]", 6, 7, checkEquipOverlap});
    table.push_back({"PostPerson",
                     "date start stop person [account] [kind] [premium] [allowSplit] [returnTravel] [yesNoOnly]", 4, 10,
                     postPerson});
    table.push_back({"PostPersonSplit", "date start stop person account kind class rate [premium] [returnTravel]", 8,
                     10, postPersonSplit});
    table.push_back({"CompareInvoiceDate", "date", 1, 1, compareInvoiceDate});
    table.push_back({"CompareIncStartDate", "date", 1, 1, compareIncStartDate});
    table.push_back({"CompareHireDate", "date", 1, 1, compareHireDate});
    table.push_back({"ValidRate", "rate", 1, 1, validRate});
    table.push_back({"PostDateInvoiced", "person date", 2, 2, postDateInvoiced});
}

} // namespace zel::runner
