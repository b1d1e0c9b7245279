#pragma once

#include "core/session.h"
#include "core/suite.h"

#include <memory>
#include <string>

/// What the front ends have in common: which program this is, where it lies, which screens it has.
namespace zel::program {

/// The program folder: the one given, else ZEL_HOME, else the folder of the executable, for which a clerk has his own
/// where the program is installed for everyone (see user_folder.h). Absolute. Throws std::runtime_error when there is
/// no such folder.
[[nodiscard]] std::string programFolder(const std::string& given);

/// This program in its folder, with its version.
[[nodiscard]] core::App describe(const std::string& folder);

/// The objects of the suite that this build has.
[[nodiscard]] std::unique_ptr<core::Suite> makeSuite();

/// Makes every screen of the program known by its name.
void addScreens(core::Session& session);

} // namespace zel::program
