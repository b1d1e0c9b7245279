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

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

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
    // The resource is read along: who follows a posting in the statements finds where the person belongs.
    (void)core::FieldLookup(connection, "ResourceID", "Persons", where);
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

/// The keys that the last check listed, without the commas at both ends.
std::vector<std::int32_t> listedKeys(std::string_view list) {
    std::vector<std::int32_t> keys;
    while (!list.empty()) {
        const std::string_view key = list.substr(0, list.find(','));
        if (!key.empty())
            keys.push_back(ado::toLong(std::string(key)));
        list.remove_prefix(std::min(list.size(), key.size() + 1));
    }
    return keys;
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

/// What became of a write whose connection was lost under way.
enum class Fate { Present, Absent, Unknown };

/// Looks for the row under its key; a write is never repeated.
Fate lookUp(core::Session& session, std::int32_t key) {
    try {
        const auto rows = core::CountRows(session.connection(), "PersonsPost", "PersonsPostID=" + Sql::of(key));
        return rows > 0 ? Fate::Present : Fate::Absent;
    } catch (const ado::Error&) {
        return Fate::Unknown;
    }
}

/// A failed insert of the row with the key.
Fate fateOfInsert(core::Session& session, const ado::Error& failure, std::int32_t key) {
    return failure.kind() == ado::ErrorKind::UnknownOutcome ? lookUp(session, key) : Fate::Absent;
}

void showPostingFailure(core::Session& session, const ado::Error& failure, const std::string& state) {
    const std::string context = session.ErrMsg.empty() ? std::string() : session.ErrMsg + "\r\n";
    (void)session.dialogs.message(
        fmt::format("Error: {} Desc: {}\r\n{}{}", failure.number(), failure.description(), context, state),
        session.title(": Error"));
}

bool writeHalves(core::Session& session, SplitPosting& posting, const std::string& deleted);

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

    /// For the failure box: whether the row is there, and what cannot be taken back.
    [[nodiscard]] std::string state() const {
        return (unknown_ ? "It is not known whether the posting was written. Look at the person's posts before posting "
                           "it again."
                         : "The posting was not written.") +
               deleted();
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
            overwriteListed();
            return true;
        case response::no:
        case response::noToAll:
            session_.vYNMSc = true;
            return false;
        default: // closed without an answer: post beside the clashing rows
            return true;
        }
    }

    /// Deletes the rows that the last check listed.
    void overwriteListed() {
        for (const std::int32_t key : listedKeys(session_.vYNMSa)) {
            try {
                if (core::DeleteFirst(session_.connection(), "PersonsPost", "PersonsPostID", key))
                    ++overwritten_;
            } catch (const ado::Error& failure) {
                if (failure.kind() == ado::ErrorKind::UnknownOutcome)
                    noteLostDelete(key);
                throw;
            }
        }
    }

    void noteLostDelete(std::int32_t key) {
        const Fate fate = lookUp(session_, key);
        if (fate == Fate::Absent)
            ++overwritten_;
        lostDelete_ = fate == Fate::Unknown;
    }

    [[nodiscard]] std::string deleted() const {
        std::string text;
        if (overwritten_ > 0)
            text = fmt::format(" {} overlapping post(s) had been deleted.", overwritten_);
        if (lostDelete_)
            text += " Of one overlapping post it is not known whether it was deleted.";
        return text;
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
        return writeHalves(session_, halves, deleted());
    }

    bool insert() {
        try {
            session_.connection().Execute(insertStatement(posting_, person_, key_));
            return true;
        } catch (const ado::Error& failure) {
            const Fate fate = fateOfInsert(session_, failure, key_);
            unknown_ = fate == Fate::Unknown;
            if (fate != Fate::Present)
                throw;
            showPostingFailure(session_, failure, "The posting was written." + deleted());
            return true;
        }
    }

    core::Session& session_;
    PersonPosting& posting_;
    std::int32_t key_ = 0;
    PersonData person_;
    int overwritten_ = 0;
    bool lostDelete_ = false; // of a clashing row it is not known whether it went
    bool unknown_ = false;    // nor of the new one whether it came
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

/// One of the two rows.
struct Half {
    DateTime day;
    Value start, stop;
    Pay pay;
};

std::array<Half, 2> halvesOf(const SplitPosting& posting, bool server) {
    const std::array<Pay, 2> pay = payOfHalves(posting);
    return {Half{posting.ActivityDT, posting.Start, server ? Value("12:00:00 AM") : Value(endOfDay), pay[0]},
            Half{posting.ActivityDT.addDays(1), server ? Value("12:01:00 AM") : Value(oneMinutePastMidnight),
                 posting.ReturnTravel ? Value() : Value(posting.Stop), pay[1]}};
}

/// The columns in the order they are written; a stop that the half lacks stays empty.
void writeHalf(ado::Recordset& records, const SplitPosting& posting, const Half& half, std::int32_t key) {
    const auto& [day, start, stop, pay] = half;
    records.AddNew();
    records.setValue("PersonsPostID", key);
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

/// What the failure of one of the halves leaves behind.
std::string stateOfHalves(std::size_t failed, Fate fate) {
    static constexpr const char* first[] = {
        "The part before midnight was written, the part after midnight was not.",
        "Neither half of the posting was written.",
        "It is not known whether the part before midnight was written; the part after midnight was not."};
    static constexpr const char* second[] = {
        "Both halves of the posting were written.",
        "The part before midnight was written, the part after midnight was not.",
        "The part before midnight was written; it is not known whether the part after midnight was."};
    return (failed == 0 ? first : second)[static_cast<std::size_t>(fate)];
}

/// Both rows in their order. `deleted` is told with a failure: the rows that went before.
bool writeHalves(core::Session& session, SplitPosting& posting, const std::string& deleted) {
    if (posting.Premium.empty())
        posting.Premium = " ";
    const std::array<Half, 2> halves = halvesOf(posting, session.gServerDialect);
    std::size_t at = 0;
    std::int32_t key = 0;
    try {
        ado::Recordset records;
        records.Open("PersonsPost", session.connection(), ado::CursorType::Keyset, ado::LockType::Optimistic);
        for (; at < halves.size(); ++at) {
            key = 0; // a number that is not given is the key of no row
            key = core::NextNumber(session.connection(), "PersonsPost");
            writeHalf(records, posting, halves[at], key);
        }
        return true;
    } catch (const ado::Error& failure) {
        const Fate fate = fateOfInsert(session, failure, key);
        showPostingFailure(session, failure, stateOfHalves(at, fate) + deleted);
        return at == 1 && fate == Fate::Present;
    }
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
    return writeHalves(session, posting, {});
}

} // namespace zel::posting
