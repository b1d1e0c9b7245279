#pragma once

#include "ado/connection.h"
#include "ado/value.h"
#include "forms/value_array.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zel::platform {
class Clock;
class Files;
class Processes;
} // namespace zel::platform

namespace zel::forms {
class Dialogs;
class FormRegistry;
} // namespace zel::forms

namespace zel::services {
class clsDebug;
class clsStopWatch;
} // namespace zel::services

namespace zel::core {

class Suite;

/// What the running program is: where it lies, what it is called, how it was started.
struct App {
    std::string Title = "ZEL";
    /// The program folder, without a separator at its end unless it is a root.
    std::string Path;
    std::string EXEName = "zel";
    int Major = 0, Minor = 0, Revision = 0;
    /// Another instance of the same program folder was running when this one started.
    bool PrevInstance = false;
    /// The command line as one text.
    std::string Command;
};

/// What the program needs of the world, as interfaces. All outlive the session.
struct World {
    forms::FormRegistry& forms;
    forms::Dialogs& dialogs;
    platform::Clock& clock;
    platform::Files& files;
    platform::Processes& processes;
    Suite& suite;
};

/// What the program asks of its front end; a slot that is empty does nothing.
struct FrontEnd {
    /// Handles what waits in the message loop, so that the window stays alive in a long work.
    std::function<void()> DoEvents;
    /// Brings the window of the instance that runs already to the front.
    std::function<void()> activatePrevious;
    /// The program has ended: the front end leaves its message loop.
    std::function<void()> ended;
    /// Sees each statement as composed, on whatever connection is open.
    ado::Connection::Observer statements;
};

/// What the shell leaves to the subsystems above the core; each fills its slots at start. An empty slot only leaves a
/// line in the log.
struct Extensions {
    /// The option is the key of what is printed, "P" or "R" and a number; empty is all.
    std::function<void(int reportNumber, const std::string& option)> PrintReport;
    /// Shows the roster of the crew in gCurrentResourceID.
    std::function<void()> printCrewRoster;
    std::function<void()> printSetup;
    std::function<void()> scannerPort;
    std::function<void()> fCopyPostings, fAddPostings;
    std::function<void()> fClearPersonUpdate;
};

/// The state that all screens of one running program share, under its own names. There is one per program, passed by
/// reference; nothing else is global.
class Session {
public:
    Session(App application, World world);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    App app;
    forms::FormRegistry& forms;
    forms::Dialogs& dialogs;
    platform::Clock& clock;
    platform::Files& files;
    platform::Processes& processes;
    Suite& suite;
    FrontEnd frontEnd;
    Extensions extensions;

    void DoEvents() const;
    /// Ends the program; nothing more is asked of it.
    void End();
    [[nodiscard]] bool Ended() const noexcept { return ended_; }

    /// Makes it the one connection: its statements are seen and its waits keep the window alive.
    void adopt(std::shared_ptr<ado::Connection> connection);
    /// The open connection; throws ado::Error (object closed, 3704) when there is none.
    [[nodiscard]] ado::Connection& connection() const;
    /// A box title: the application title with ": WARNING" or the like behind it.
    [[nodiscard]] std::string title(const std::string& tail) const { return app.Title + tail; }

    // The database.
    /// True: server dialect. False: desktop dialect.
    bool gServerDialect = true;
    std::shared_ptr<ado::Connection> gConnection;
    /// Path of the database file, or of a server "\\<server>\Data\<catalog>.xxx".
    std::string gDBPath;
    std::string gIniPath;
    std::string gServerName, gCatalogName;
    /// What the locator's server connect returned; empty means no database.
    std::string gConnectResult;
    std::string gAppVersion, gDBVersion, gBuildVersion, gMinDBVersion;

    // The current records. -1 is none.
    std::int32_t gIncidentID = -1;
    std::int16_t gIncidentIndex = -1;
    std::int32_t gAccountingID = -1;
    std::string gIncidentStart;
    std::int32_t gCurrentPersonID = -1;
    std::int32_t gCurrentResourceID = -1;
    std::int32_t gCurrentContractorID = -1;
    std::int32_t gCurrentAgreementID = -1;
    /// The time of the last add of a person or crew; Null before the first.
    ado::Value gLastSaved;

    // Modes.
    bool gRefreshing = false;
    bool gManageAll = false;
    bool gFirstOpen = false;
    bool gPickCancelled = false;
    bool PreLoad = false;
    bool Loading = false;
    /// A long action runs, or the program itself moves controls: event handlers of screens do nothing.
    bool Working = false;
    bool Reloading = false;
    bool Unloading = false;
    bool Validating = false;
    /// The start (0) or end (1) time box was edited.
    std::array<bool, 2> TimeChanged{};
    /// Suspends the minute check of the administrative request.
    bool KillT = false;

    // Posting.
    /// Answer of the last confirmation dialogue: the button's index, -1 for none.
    std::int32_t vYNMS = 0;
    /// Keys of the clashing rows of the last overlap check, a comma before each.
    std::string vYNMSa;
    bool vYNMSc = false;
    std::string gInvoiceDate, gHireDate;
    bool gSplitDone = false;
    bool gCrewPosting = false;
    bool gEquipTabOpen = false;
    /// 0 equipment, 1 contract crews, 2 other contracts.
    int gContractType = 0;

    // Scanner.
    std::uint8_t gScanPort = 0;
    std::string gScanBuffer;

    // Log and dump.
    std::string gLogFolder;
    std::string mvarUserID;
    std::string ErrMsg;
    std::int32_t UpdFlag = 0;
    ado::Value UpdIndex;
    std::int32_t lMergeID = 0;
    /// True for the length of a tick of the minute timer.
    bool IsOnTimer = false;
    std::shared_ptr<services::clsDebug> gDebug;
    std::shared_ptr<services::clsStopWatch> gStopWatch;

    /// Codes of the request categories, a comma behind each; Null or empty when not read yet.
    ado::Value gRequestCats;

    // The lists that controls bind to, by their numbers.
    forms::ValueArray gAccountList;  // 1
    forms::ValueArray gKindList;     // 2
    forms::ValueArray gStateList;    // 4
    forms::ValueArray gIncidentList; // 5
    forms::ValueArray gStatusList;   // 6
    forms::ValueArray gAgencyList;   // 7
    forms::ValueArray gAreaList;     // 8
    forms::ValueArray gClassList;    // 9
    forms::ValueArray gRateTypeList; // 10
    forms::ValueArray gPostableList; // 14
    /// Columns and rows that the last list loaded has.
    int gListColumns = 0, gListRows = 0;

private:
    bool ended_ = false;
};

} // namespace zel::core
