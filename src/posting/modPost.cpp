#include "posting/modPost.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/recordset.h"
#include "core/failure.h"
#include "core/frmConfirm.h"
#include "core/modData.h"
#include "core/session.h"
#include "posting/modMath.h"
#include "posting/overlap_check.h"

#include <fmt/format.h>

#include <array>
#include <string_view>

namespace zel::posting {

using ado::DateTime;
using ado::Sql;
using ado::Value;

namespace {

constexpr std::string_view clashHeader = "\r\nThis person has overlapping hours for the period(s) of: \r\n";
constexpr const char* clashPrompt = "Would you like to overwrite the previous post(s) with the current one?\r\n"
                                    "If you choose not to overwrite changes, the current post will be cancelled.";

/// What a posting takes over from the person.
struct PersonData {
    std::string Class, Info;
    ado::Currency Rate;
};

PersonData readPerson(ado::Connection& connection, std::int32_t personId) {
    const Sql where = "PersonID=" + Sql::of(personId);
    const Value rate = core::FieldLookup(connection, "Rate", "Persons", where);
    PersonData person;
    person.Rate = rate.isEmpty() ? ado::Currency() : ado::toCurrency(rate);
    person.Class = ado::toText(core::FieldLookup(connection, "Class", "Persons", where));
    person.Info = ado::toText(core::FieldLookup(connection, "Info", "qrySelectPersonnel", where));
    return person;
}

/// How the answers of the confirmation dialogue read; an "All" answer is given again in silence until it is reset.
namespace response {
constexpr int closed = -1, yes = 0, yesToAll = 1, no = 2, noToAll = 3;
}

void askAboutClash(core::Session& session, const std::string& info, const std::string& overlap, bool YesNoOnly) {
    const auto ask = [&](const std::string& between, int defaultButton, bool yesNo) {
        core::ConfirmDialog(session, "Overlapping Hours:", fmt::format("{}{}{}{}", info, clashHeader, between, overlap),
                            clashPrompt, core::ConfirmIcon::Exclamation, defaultButton, false, yesNo);
    };
    if (session.vYNMS == response::closed)
        ask("", 0, false);
    else if (session.vYNMS == response::yes || session.vYNMS == response::no)
        ask("\r\n", session.vYNMS, YesNoOnly);
}

/// Deletes the rows that the last check listed and gives how many went.
int overwriteListed(core::Session& session) {
    std::string_view keys = session.vYNMSa;
    if (keys.starts_with(','))
        keys.remove_prefix(1);
    if (keys.ends_with(','))
        keys.remove_suffix(1);
    int deleted = 0;
    while (!keys.empty()) {
        const std::size_t comma = keys.find(',');
        const std::string key(keys.substr(0, comma));
        deleted += core::DeleteFirst(session.connection(), "PersonsPost", "PersonsPostID", ado::toLong(key)) ? 1 : 0;
        keys.remove_prefix(comma == std::string_view::npos ? keys.size() : comma + 1);
    }
    return deleted;
}

/// Hours of a new row. Guaranteed codes pay eight hours to AD classes whatever the times were.
float hoursOf(const PersonPosting& posting, const std::string& Class) {
    if (!isFixedHoursCode(posting.Premium))
        return CalcHours(posting.Start, posting.Stop);
    return ado::trim(std::string_view(Class).substr(0, 2)) == "AD" && posting.Premium != "DAY OFF" ? 8.0F : 0.0F;
}

/// Hazard pay is not for rated classes.
std::string writtenPremium(const PersonPosting& posting, const std::string& Class) {
    if ((posting.Premium == "HP" && Class.size() > 2) || posting.Premium.empty())
        return " ";
    return posting.Premium;
}

Sql insertStatement(const PersonPosting& posting, const PersonData& person, std::int32_t key) {
    const Sql head = posting.ReturnTravel
                         ? Sql("Insert into PersonsPost (PersonsPostID,PersonID,PremiumCode,Class,Rate,ActivityDT,"
                               "StartTime,Hours,Amt,KindCode,AccountingID)Values (")
                         : Sql("Insert into PersonsPost (PersonsPostID,PersonID,PremiumCode,Class,Rate,ActivityDT,"
                               "StartTime,StopTime,Hours,Amt,KindCode,AccountingID)Values (");
    const Sql stop = posting.ReturnTravel ? Sql() : "'1899-12-30 " + Sql::of(posting.Stop) + "',";
    return head + Sql::of(key) + "," + Sql::of(posting.PersonID) + ",'" +
           Sql::of(writtenPremium(posting, person.Class)) + "','" + Sql::of(person.Class) + "'," +
           Sql::of(person.Rate) + ",'" + Sql::of(posting.ActivityDT) + "','1899-12-30 " + Sql::of(posting.Start) +
           "'," + stop + Sql::of(Value(hoursOf(posting, person.Class))) + ",0,'" + Sql::of(posting.KindCode) + "'," +
           Sql::of(posting.AccountingID) + ")";
}

bool rowIsThere(core::Session& session, std::int32_t key) {
    return core::CountRows(session.connection(), "PersonsPost", "PersonsPostID=" + Sql::of(key)) > 0;
}

void showPostingFailure(core::Session& session, const ado::Error& failure, const std::string& state) {
    (void)session.dialogs.message(
        fmt::format("Error: {} Desc: {}\r\n{}\r\n{}", failure.number(), failure.description(), session.ErrMsg, state),
        session.title(": Error"));
}

/// One row being posted, from the first question to the insert.
class PostRun {
public:
    PostRun(core::Session& session, PersonPosting& posting) : session_(session), posting_(posting) {}

    bool run() {
        if (posting_.Premium.empty())
            posting_.Premium = " ";
        key_ = core::NextNumber(session_.connection(), "PersonsPost");
        person_ = readPerson(session_.connection(), posting_.PersonID);
        if (!settleClash())
            return false;
        session_.ErrMsg = "Failure during Split check";
        if (crossesMidnight(posting_.Start, posting_.Stop)) {
            if (posting_.AllowSplit)
                return split();
            posting_.Stop = endOfDay;
        }
        return insert();
    }

    /// For the failure box: what cannot be taken back.
    [[nodiscard]] std::string state() const {
        return overwritten_ == 0
                   ? "The posting was not written."
                   : fmt::format("The posting was not written. {} overlapping post(s) had been deleted.", overwritten_);
    }

private:
    /// False when the clerk keeps the rows that are there.
    bool settleClash() {
        if (posting_.Start == posting_.Stop)
            return true;
        const std::string overlap =
            CheckPersonOverlap(session_, posting_.ActivityDT, posting_.PersonID, key_, posting_.Start, posting_.Stop);
        if (overlap.empty())
            return true;
        askAboutClash(session_, person_.Info, overlap, posting_.YesNoOnly);
        switch (session_.vYNMS) {
        case response::yes:
        case response::yesToAll:
            overwritten_ = overwriteListed(session_);
            return true;
        case response::no:
        case response::noToAll:
            session_.vYNMSc = true;
            return false;
        default: // closed without an answer: post beside the clashing rows
            return true;
        }
    }

    bool split() {
        if (!posting_.Asked) {
            posting_.Answer = session_.dialogs.message(
                "This post spans midnight.  If you continue, this posting will be split.\r\nDo you want to continue?",
                session_.title(": Posting Spans Midnight"), forms::Buttons::YesNo, forms::Icon::Question);
            posting_.Asked = true;
        }
        if (posting_.Answer != forms::Answer::Yes)
            return false;
        SplitPosting halves{posting_.ActivityDT,         posting_.Start,    posting_.Stop,
                            posting_.PersonID,           posting_.KindCode, person_.Class,
                            ado::toSingle(person_.Rate), posting_.Premium,  posting_.ReturnTravel,
                            posting_.AccountingID};
        return PostPersonSplit(session_, halves);
    }

    bool insert() {
        try {
            session_.connection().Execute(insertStatement(posting_, person_, key_));
            return true;
        } catch (const ado::Error& failure) {
            if (failure.kind() != ado::ErrorKind::UnknownOutcome)
                throw;
            // The write is never repeated: whether it happened is looked up under the new key.
            if (!rowIsThere(session_, key_))
                throw;
            showPostingFailure(session_, failure, "The posting was written.");
            return true;
        }
    }

    core::Session& session_;
    PersonPosting& posting_;
    std::int32_t key_ = 0;
    PersonData person_;
    int overwritten_ = 0;
};

/// Hours and amount of one half.
struct Pay {
    float hours = 0.0F;
    ado::Currency amount;
};

Pay payFor(float hours, float rate) {
    return {hours, ado::Currency::fromDouble(static_cast<double>(hours * rate))};
}

std::array<Pay, 2> payOfHalves(const SplitPosting& posting) {
    if (!isFixedHoursCode(posting.Premium)) {
        const Pay first = payFor(CalcHours(posting.Start, endOfDay), posting.Rate);
        return {first,
                posting.ReturnTravel ? Pay() : payFor(CalcHours(oneMinutePastMidnight, posting.Stop), posting.Rate)};
    }
    // A guaranteed split pays eight hours on each day; here the length of the class tells who is rated.
    const bool guaranteed = posting.Class.size() > 3 && posting.Premium != "DAY OFF";
    return {payFor(guaranteed ? 8.0F : 0.0F, posting.Rate), payFor(guaranteed ? 8.0F : 0.0F, posting.Rate)};
}

/// The columns of both halves in the order they are written; times that a half lacks stay empty.
void writeHalf(core::Session& session, ado::Recordset& records, const SplitPosting& posting, DateTime day,
               const Value& start, const Value& stop, const Pay& pay) {
    records.AddNew();
    records.setValue("PersonsPostID", core::NextNumber(session.connection(), "PersonsPost"));
    records.setValue("PersonID", posting.PersonID);
    records.setValue("ActivityDT", day);
    records.setValue("StartTime", start);
    if (!stop.isNull())
        records.setValue("StopTime", stop);
    records.setValue("KindCode", posting.KindCode);
    records.setValue("Class", posting.Class);
    if (!(posting.Class.size() > 3 && posting.Premium == "HP"))
        records.setValue("premiumcode", posting.Premium);
    records.setValue("Hours", pay.hours);
    records.setValue("Rate", "0" + ado::toText(posting.Rate));
    records.setValue("amt", pay.amount);
    records.setValue("AccountingID", posting.AccountingID);
    records.Update();
}

} // namespace

bool isFixedHoursCode(const std::string& Premium) {
    return Premium == "GUAR" || Premium == "COP" || Premium == "DAY OFF";
}

bool PostPerson(core::Session& session, PersonPosting& posting) {
    PostRun run(session, posting);
    try {
        return run.run();
    } catch (const ado::Error& failure) {
        showPostingFailure(session, failure, run.state());
        return false;
    }
}

bool PostPersonSplit(core::Session& session, SplitPosting& posting) {
    if (posting.Premium.empty())
        posting.Premium = " ";
    const std::array<Pay, 2> pay = payOfHalves(posting);
    const bool server = session.gServerDialect;
    std::string state = "Neither half of the posting was written.";
    try {
        ado::Recordset records;
        records.Open("PersonsPost", session.connection(), ado::CursorType::Keyset, ado::LockType::Optimistic);
        writeHalf(session, records, posting, posting.ActivityDT, posting.Start,
                  server ? Value("12:00:00 AM") : Value(endOfDay), pay[0]);
        state = "The part before midnight was written, the part after midnight was not.";
        writeHalf(session, records, posting, posting.ActivityDT.addDays(1),
                  server ? Value("12:01:00 AM") : Value(oneMinutePastMidnight),
                  posting.ReturnTravel ? Value() : Value(posting.Stop), pay[1]);
        return true;
    } catch (const ado::Error& failure) {
        showPostingFailure(session, failure, state);
        return false;
    }
}

} // namespace zel::posting
