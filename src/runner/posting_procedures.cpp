#include "posting/modMath.h"
#include "runner/procedures.h"

namespace zel::runner {

namespace {

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

} // namespace

void addPostingProcedures(Procedures& table) {
    table.push_back({"CalcHours", "start stop", 2, 2, calcHours});
    table.push_back({"CalcAmount", "hours rate threshold multiplier", 4, 4, calcAmount});
    table.push_back({"CalcRegularHours", "hours threshold", 2, 2, calcRegularHours});
    table.push_back({"CalcExtraHours", "hours threshold", 2, 2, calcExtraHours});
}

} // namespace zel::runner
