#include "desktop/desktop_program.h"
#include "desktop/icons.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>

#include <cstdio>

int main(int count, char** words) {
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
                                 QStringLiteral("False for a database file, True or nothing for a server."));
    parser.process(application);
    try {
        zel::desktop::DesktopProgram program(parser.value(home).toStdString());
        return program.start(parser.positionalArguments().join(QLatin1Char(' ')).toStdString()) ? application.exec()
                                                                                                : 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "zel: %s\n", failure.what());
        return 2;
    }
}
