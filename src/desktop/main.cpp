#include "desktop/desktop_program.h"
#include "desktop/icons.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QMessageBox>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// Without a display the toolkit would end the program with a core dump. What only prints a text needs none.
bool findDisplay(int count, char** words) {
    if (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM"))
        return true;
    const auto asks = [](const char* word) {
        const std::string_view text = word;
        return text == "-platform" || text == "-h" || text == "-v" || text.starts_with("--help") || text == "--version";
    };
    if (std::none_of(words + 1, words + count, asks))
        return false;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return true;
}

} // namespace

int main(int count, char** words) {
    if (!findDisplay(count, words)) {
        std::fprintf(stderr, "zel: there is no display; zel-run works without one\n");
        return 2;
    }
    QApplication application(count, words);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setApplicationName(QStringLiteral("zel"));
    QApplication::setApplicationVersion(QStringLiteral(ZEL_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("zel"));
    QApplication::setWindowIcon(zel::desktop::themeIcon(QStringLiteral("zel")));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Zelmark Hour Ledger"));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption home(QStringLiteral("home"), QStringLiteral("The program folder."),
                                  QStringLiteral("folder"));
    parser.addOption(home);
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("False for a database file, True or nothing for a server."),
                                 QStringLiteral("[command]"));
    parser.process(application);
    try {
        zel::desktop::DesktopProgram program(parser.value(home).toStdString());
        return program.start(parser.positionalArguments().join(QLatin1Char(' ')).toStdString()) ? QApplication::exec()
                                                                                                : 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "zel: %s\n", failure.what());
        // Started from the desktop's menu, nobody reads that.
        QMessageBox::critical(nullptr, QStringLiteral("ZEL: Cannot Open Application"),
                              QString::fromLocal8Bit(failure.what()));
        return 2;
    }
}
