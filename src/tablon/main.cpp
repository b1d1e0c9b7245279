#include "printing/remarks.h"
#include "tablon/desk.h"
#include "tablon/tablon.h"

#include <QApplication>

#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace {

using namespace zel::tablon;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// What the program says, else the folder above the one that this program stands in.
std::string programFolder() {
    std::string told = environment("ZEL_HOME");
    if (!told.empty())
        return told;
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path().string();
}

} // namespace

int main(int count, char** words) {
    const std::string folder = environment("ZEL_PRINT_DIR");
    const bool windows = choosePlatform(!folder.empty());
    zel::printing::dropRemarks();
    QApplication application(count, words);
    QApplication::setApplicationName(QStringLiteral("Tablon"));
    if (QApplication::arguments().size() != 2) {
        std::cerr << "Tablon prints what the Hour Ledger asks for; it is started by it, with one argument.\n";
        return static_cast<int>(Outcome::BadArgument);
    }
    Desk desk(windows && QGuiApplication::platformName() != QLatin1String("offscreen"), folder);
    Tablon tablon({programFolder(), environment("ZEL_DATABASE"),
                   [&desk](const auto& name, const auto& title, const auto& layout, const auto& pages) {
                       desk.print(name, title, layout, pages);
                   }},
                  desk);
    return static_cast<int>(tablon.run(QApplication::arguments().at(1).toStdString()));
}
