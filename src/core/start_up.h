#pragma once

#include <optional>
#include <string_view>

namespace zel::forms {
class Form;
}

namespace zel::core {

class Session;

/// Brings the program from nothing to the shell with a current incident. Runs again after the security dialog.
void Main(Session& session);

/// Unloads the screens in their order, writes `zel.ini`, closes the database and ends the program.
void CloseApp(Session& session);
/// The same in one pass, but the shell stays loaded and the program goes on.
void CloseForRestart(Session& session);
/// The action of the Security menu: unload, show the suite's security dialog, start again.
void SetSecurity(Session& session);

/// Turned over when nothing is said. Working shows the hourglass.
void SetWorking(Session& session, std::optional<bool> on = {});
void SetReloading(Session& session, std::optional<bool> on = {});

[[nodiscard]] bool IsFormLoaded(const Session& session, std::string_view name);
/// For dialogs that must stay in front.
void SetOnTop(forms::Form& form);

/// Asks what to do about a database that is too old. True: the clerk wants to look for another one.
[[nodiscard]] bool AskAboutOldDatabase(Session& session);
/// Says that there is no database of this program.
void TellNoDatabase(Session& session);

} // namespace zel::core
