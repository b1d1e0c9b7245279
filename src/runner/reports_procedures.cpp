#include "ado/convert.h"
#include "reports/modRpt.h"
#include "runner/command_error.h"
#include "runner/procedures.h"

namespace zel::runner {

namespace {

/// The arguments behind the report's number, by their places; one that is not there, or Null, is left out.
class Given {
public:
    explicit Given(const Call& call) : call_(call) {}

    [[nodiscard]] bool has(std::size_t index) const {
        return index < call_.arguments.size() && !call_.value(index).isNull();
    }
    [[nodiscard]] std::int32_t key(std::size_t index) const { return has(index) ? call_.number(index) : 0; }
    [[nodiscard]] std::string text(std::size_t index) const { return has(index) ? call_.text(index) : std::string(); }
    [[nodiscard]] bool flag(std::size_t index) const { return has(index) && call_.flag(index); }
    [[nodiscard]] double amount(std::size_t index) const {
        if (!has(index))
            return 0;
        if (!ado::isNumeric(call_.text(index)))
            throw CommandError("'" + call_.text(index) + "' is no number");
        return ado::toDouble(call_.text(index));
    }

private:
    const Call& call_;
};

void getSqlRs(Call& call) {
    const Given given(call);
    const reports::ReportValues values{.ReportRun = given.key(1),
                                       .SortField = given.text(2),
                                       .StartDate = given.text(3),
                                       .EndDate = given.text(4),
                                       .MinValue = given.amount(5),
                                       .ContractorID = given.key(6),
                                       .EquipmentID = given.key(7),
                                       .ResourceID = given.key(8),
                                       .ContCrew = given.flag(9),
                                       .FinalFlag = given.flag(10),
                                       .DebitTotal = given.amount(11),
                                       .AdditionTotal = given.amount(12)};
    reports::modRpt engine(call.session);
    call.result = engine.GetSQLRS(call.number(0), values);
    call.byref.set("sqlRpt", engine.sqlRpt.text());
    call.byref.set("sqlRptSub", engine.sqlRptSub.text());
}

} // namespace

void addReportsProcedures(Procedures& table) {
    table.push_back({"GetSQLRS",
                     "report [reportRun] [sortField] [startDate] [endDate] [minValue] [contractor] [equipment] "
                     "[resource] [contCrew] [finalFlag] [debitTotal] [additionTotal]",
                     1, 13, getSqlRs});
}

} // namespace zel::runner
