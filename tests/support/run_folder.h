#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

namespace zel::test {

/// The folder that holds the databases of one test run. A whole CTest run shares one, made by its set-up fixture; a
/// test program that is run by hand has one of its own. It goes away with the run, however the run ends.
[[nodiscard]] const std::filesystem::path& runFolder();

/// Does something once in a run, whichever test process comes first; the others wait until it is done.
void onceInRun(std::string_view name, const std::function<void()>& work);

} // namespace zel::test
