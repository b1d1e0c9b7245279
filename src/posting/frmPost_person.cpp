// The page of persons: who is posted, and the ticket.
#include "posting/frmPost.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "ado/recordset.h"
#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/hourglass.h"
#include "posting/grid_edit_checks.h"
#include "posting/modMath.h"
#include "posting/modPost.h"
#include "posting/post_columns.h"
#include "services/control_groups.h"
#include "services/list_rows.h"
#include "services/text_rules.h"

#include <fmt/format.h>

namespace zel::posting {

using ado::DateTime;
using ado::Sql;
using ado::Value;
using forms::Buttons;
using forms::CheckBox;
using forms::Icon;

namespace {

constexpr int dateBox = 0, hoursBox = 1, startBox = 0, stopBox = 1;
constexpr std::size_t shortestName = 6;

} // namespace

std::int32_t frmPost::currentPerson() const {
    const std::string id = dbcPersonnel.BoundText();
    return id.empty() ? 0 : ado::toLong(id);
}

std::string frmPost::personText(std::string_view column) {
    return ado::toText(dbcPersonnel.Columns(column).value());
}

void frmPost::takePerson() {
    (void)dbgPersonnelPost.Update(); // the row under edit is of the person before
    personInFront_ = currentPerson();
    mPostAllowed_ = true;
    LockPersGrid();
    const Value account = dbcPersonnel.Columns("AcctID").value();
    if (!account.isEmpty() && ado::toLong(account) > 0) {
        session.gAccountingID = ado::toLong(account);
        dbcAcct(0).setText(personText("AcctCode"));
    } else {
        session.gAccountingID = -1;
        dbcAcct(0).setText("");
    }
    accountInFront_ = session.gAccountingID;
    fRebindCurrentPerson();
}

void frmPost::fRebindCurrentPerson() {
    const std::int32_t person = currentPerson();
    AdoPost.setRecordSource("Select * from PersonsPost");
    openPostings(person > 0 ? "PersonID=" + Sql::of(person) + " and FinalCol = 0" : Sql("PersonID=0"),
                 "ActivityDT, StartTime, StopTime");
    dbgPersonnelPost.MoveLast();
    if (person > 0)
        fillPremiums(personText("FedCode"));
    const int status = person > 0 ? services::FindListRow(statuses_, 0, personText("PStatus")) : -1;
    lblPersonStatus.setCaption(services::listText(statuses_, status, 1));
}

void frmPost::openPostings(const Sql& filter, const std::string& sort) {
    ado::Recordset posts;
    posts.Open(AdoPost.RecordSource(), session.connection());
    // Before a grid asks for the first row, so that no other rows are read.
    posts.setFilter(filter);
    if (!sort.empty())
        posts.setSort(sort);
    AdoPost.setRecordset(std::move(posts));
}

void frmPost::fillPremiums(const std::string& FedCode) {
    ado::Recordset codes;
    codes.Open(FedCode.starts_with("AD")
                   ? Sql("SELECT PremiumCode, PremiumCode FROM L_Premium WHERE PremiumCode <> 'HP'")
                   : Sql("SELECT PremiumCode, PremiumCode FROM L_Premium"),
               session.connection());
    const std::string chosen = cbPost(0).Text();
    cbPost(0).Clear();
    for (; !codes.EOF_(); codes.MoveNext())
        cbPost(0).AddItem(ado::toText(codes.value(0)));
    cbPost(0).AddItem("");
    if (forms::findItem(cbPost(0).items(), chosen) >= 0)
        cbPost(0).setText(chosen);
}

void frmPost::takeLastDay(int page) {
    const bool travel = (page == crews ? chkCrewLastDay : chkLastDay).isChecked();
    cbPost(page).setListIndex(travel ? cbPost(page).ListCount() - 1 : 0);
    lblPost(page == crews ? crewStopLabel : stopLabel).setCaption(travel ? "Stop Time" : "* Stop Time");
}

void frmPost::fCheckPersonStatus() {
    if (dbcPersonnel.Text().size() < shortestName)
        return;
    const bool postable = services::FindListRow(session.gPostableList, 0, personText("PStatus")) >= 0;
    const bool coded = !personText("FedCode").empty();
    mPostAllowed_ = postable && coded;
    if (postable && !coded && toldOfMissingCode_ != currentPerson()) {
        toldOfMissingCode_ = currentPerson();
        session.dialogs.message(
            "Individual doesn't have an Employment Code.\r\nYou cannot take time for this individual "
            "until one is assigned.\r\nGo to the Personnel screen to assign AD/Fed/Other.",
            session.title(": Missing Data"), Buttons::OK, Icon::Information);
    }
    LockPersGrid();
}

void frmPost::LockPersGrid() {
    const int color = mPostAllowed_ ? forms::colors::automatic : forms::colors::lightGrey;
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &mskPost(dateBox), &cboTime(startBox), &cboTime(stopBox), &cbPost(0), &dbgPersonnelPost})
        control->setBackColor(color);
    mskPost(dateBox).setLocked(!mPostAllowed_);
    for (const int time : {startBox, stopBox})
        cboTime(time).setEnabled(mPostAllowed_);
    cbPost(0).setEnabled(mPostAllowed_);
    cmdSave(0).setEnabled(mPostAllowed_);
    const std::string code = dbcPersonnel.source() != nullptr && currentPerson() > 0 ? personText("FedCode") : "";
    for (int column = 0; column < dbgPersonnelPost.columnCount(); ++column)
        dbgPersonnelPost.Columns(column).setLocked(!mPostAllowed_);
    // Nothing checks another day against the posts there; hours and amount follow from the other cells.
    for (const int column : {post_column::Date, post_column::Hours, post_column::Amt})
        dbgPersonnelPost.Columns(column).setLocked(true);
    // Only a rated person has a class, and only AD and OTHER have a rate of their own.
    dbgPersonnelPost.Columns(post_column::Class).setLocked(!mPostAllowed_ || code != "AD");
    dbgPersonnelPost.Columns(post_column::Rate).setLocked(!mPostAllowed_ || (code != "AD" && code != "OTHER"));
}

void frmPost::fClearPersonPost() {
    fClearPost(persons);
}

void frmPost::fClearPost(int page) {
    const int first = firstBox(page);
    services::ClearMaskedBox(mskPost(first));
    cboTime(first).setText("");
    cboTime(first + 1).setText("");
    cbPost(page).setText("");
    mskPost(first + 1).setText("");
}

// Saving

void frmPost::savePerson() {
    const forms::Hourglass glass(session.forms);
    session.gCrewPosting = false;
    readLastInvoice();
    if (dbgPersonnelPost.DataChanged()) {
        dbgPersonnelPost.Update();
        mskPost(dateBox).SetFocus();
        return;
    }
    const std::string errors = personFindings();
    if (!errors.empty()) {
        session.dialogs.message("Error(s) adding post:" + errors, session.title(": Error Adding Post"));
        return;
    }
    postPerson();
}

void frmPost::readLastInvoice() {
    ado::Recordset last;
    last.Open("select max(lastdate) from personsinvoices where personid=" + Sql::of(currentPerson()) + " and del <> 1",
              session.connection());
    const Value date = last.EOF_() ? Value() : last.value(0);
    if (!date.isEmpty())
        session.gInvoiceDate = ado::toText(date);
    else if (const auto start = ado::parseDateTime(session.gIncidentStart))
        session.gInvoiceDate = ado::toText(start->addDays(-1));
    else
        session.gInvoiceDate.clear();
}

std::string frmPost::personFindings() {
    std::string errors;
    const auto add = [&errors](std::string_view message) { errors.append("\r\n").append(message); };
    if (dbcAcct(0).Text().empty() || session.gAccountingID < 1)
        add("You must include an Account Code.");
    if (fCheckPostField(FieldKind::mskPost, dateBox) == FieldResult::Missing)
        add("You must include an Activity Date for posting.");
    if (isZeroTime(startBox))
        add("Invalid Start Time.");
    switch (fCheckPostField(FieldKind::cboTime, startBox)) {
    case FieldResult::Missing:
        add("You must include a Start Time for posting.");
        break;
    case FieldResult::NoHours:
        add("Start Time and Stop Time must have different values.");
        break;
    default:
        break;
    }
    if (!chkLastDay.isChecked()) {
        const std::string stop = cboTime(stopBox).Text();
        if (stop == "00:01" || stop == "0001")
            add("Invalid Stop Time.");
        if (isZeroTime(stopBox) && stop != "24:00" && stop != "2400")
            add("Invalid Stop Time.");
        if (fCheckPostField(FieldKind::cboTime, stopBox) == FieldResult::Missing)
            add("You must include a Stop Time for posting.");
        if (mskPost(hoursBox).Text().empty())
            add("Hours Not Calculated...Try Again.");
    }
    const auto date = ado::parseDateTime(mskPost(dateBox).Text());
    if (date && !business_.CompareInvoiceDate(*date))
        add(fmt::format("Cannot have an activity date prior to or the same as the End Date for the latest INVOICE!\r\n"
                        "     Activity Date: {}\r\n     Invoice Date: {}",
                        mskPost(dateBox).Text(), session.gInvoiceDate));
    // A time that was refused just now has left an empty box behind.
    if (errors.empty() && cboTime(startBox).Text().empty())
        add("You must include a Start Time for posting.");
    if (errors.empty() && !chkLastDay.isChecked() && cboTime(stopBox).Text().empty())
        add("You must include a Stop Time for posting.");
    // A posting for nobody would be on no list and on no time report.
    if (errors.empty() && currentPerson() < 1)
        add("You must select a person first.");
    return errors;
}

void frmPost::postPerson() {
    PersonPosting posting;
    posting.ActivityDT = ado::toDateTime(mskPost(dateBox).Text());
    posting.Start = boxTime(startBox);
    posting.ReturnTravel = chkLastDay.isChecked();
    if (posting.ReturnTravel) {
        // A return travel day lasts one minute: 08:00 to 08:01.
        const ado::DateParts start = posting.Start.parts();
        posting.Stop = DateTime::fromTime(start.hour, start.minute + 1);
    } else {
        posting.Stop = boxTime(stopBox);
    }
    const Value collection = dbcPersonnel.Columns("Collection").value();
    posting.KindCode = personText(!collection.isEmpty() && ado::toBoolean(collection) ? "KindCode" : "RKindCode");
    posting.PersonID = currentPerson();
    posting.Premium = ado::upperCase(cbPost(0).Text());
    posting.AccountingID = session.gAccountingID;
    if (PostPerson(session, posting))
        fClearPersonPost();
    fRebindCurrentPerson();
    mskPost(dateBox).SetFocus();
    // A ticket that was not posted stays; the next one is typed over it.
    if (!mskPost(dateBox).ClipText().empty())
        mskPost(dateBox).selectAll();
}

} // namespace zel::posting
