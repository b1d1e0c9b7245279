#pragma once

#include <filesystem>

/// A program that is installed for everyone on a machine stands in a folder that a clerk cannot write to, and what one
/// clerk sets or enters is no business of the next. Each has a copy of his own:
///
///     zel/               his program folder: zel.ini and the logs; the reports are those of the installed program
///     database/          his database, empty at first
///     bin                that of the installed program
namespace zel::program {

/// Whether the program in this folder is installed for everyone: what a clerk's copy begins with lies beside it.
[[nodiscard]] bool isInstalledForAll(const std::filesystem::path& programFolder);

/// The clerk's program folder in `own`, which is made on the first start and then only led to where the program is
/// installed now: a database that was moved away is never replaced by an empty one. Throws std::runtime_error.
[[nodiscard]] std::filesystem::path userProgramFolder(const std::filesystem::path& programFolder,
                                                      const std::filesystem::path& own);

/// Where the clerk's copy belongs: `zel` in the desktop's folder for such data. Throws std::runtime_error when the
/// clerk has no home folder.
[[nodiscard]] std::filesystem::path userFolder();

} // namespace zel::program
