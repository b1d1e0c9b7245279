// zel-pictures: plays a script in the program's window and keeps pictures of it.
#include "desktop/icons.h"
#include "pictures/scripted_window.h"
#include "runner/command_error.h"
#include "runner/runner.h"

#include <QApplication>
#include <QLocale>
#include <QStyleFactory>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace {

using namespace zel;
using runner::CommandError;

constexpr int startedWrongly = 2;

constexpr const char* usage =
    "usage: zel-pictures [--dark] [--size WxH] [--tail TEXT] [OPTIONS OF zel-run] --out DIR [SCRIPT]\n"
    "Plays SCRIPT, or standard input, in the window of the program, as zel-run does without one.\n"
    "\n"
    "  --dark         in dark colours\n"
    "  --size WxH     of the window, 1280x800 without it\n"
    "  --tail TEXT    goes behind the name of each picture\n"
    "  --out DIR      takes the pictures, and printed reports as PDF files\n";

struct Wanted {
    runner::Options options;
    pictures::ScriptedWindow::Look look;
    bool dark = false;
};

QSize sizeOf(const std::string& text) {
    int width = 0, height = 0;
    char rest = 0;
    if (std::sscanf(text.c_str(), "%dx%d%c", &width, &height, &rest) != 2 || width < 1 || height < 1)
        throw CommandError("--size " + text + " is no size, as 1280x800");
    return {width, height};
}

Wanted parse(const std::vector<std::string>& words) {
    Wanted wanted;
    std::vector<std::string> others;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--dark") {
            wanted.dark = true;
        } else if (words[i] == "--size" || words[i] == "--tail") {
            if (i + 1 == words.size())
                throw CommandError(words[i] + " needs a value");
            const std::string& value = words[i + 1];
            if (words[i++] == "--size")
                wanted.look.size = sizeOf(value);
            else
                wanted.look.tail = value;
        } else {
            others.push_back(words[i]);
        }
    }
    wanted.options = runner::parseOptions(others);
    if (wanted.options.out.empty() && !wanted.options.help)
        throw CommandError("--out names the folder of the pictures");
    return wanted;
}

/// A bare display has no colours of its own.
void useDarkColours() {
    QPalette dark(QColor(0x2b, 0x2e, 0x31));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x22));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8d, 0x90));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x7d, 0x8c));
    QApplication::setPalette(dark);
}

int play(const Wanted& wanted) {
    std::ifstream file;
    if (!wanted.options.script.empty()) {
        file.open(wanted.options.script, std::ios::binary);
        if (!file)
            throw CommandError("cannot read " + wanted.options.script);
    }
    if (wanted.dark)
        useDarkColours();
    pictures::ScriptedWindow program(wanted.options, wanted.look);
    runner::Runner runner(program, std::cout, wanted.options.keepGoing);
    program.dialogs().stuck = [&](const std::string& why) {
        runner.writeStuck(why);
        std::_Exit(1);
    };
    return runner.run(wanted.options.script.empty() ? std::cin : file);
}

} // namespace

int main(int count, char** words) {
    QApplication application(count, words);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setWindowIcon(desktop::themeIcon(QStringLiteral("zel")));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        const Wanted wanted = parse({words + 1, words + count});
        if (wanted.options.help) {
            std::cout << usage;
            return 0;
        }
        return play(wanted);
    } catch (const CommandError& failure) {
        std::cerr << "zel-pictures: " << failure.what() << "\n\n" << usage;
    } catch (const std::exception& failure) {
        std::cerr << "zel-pictures: " << failure.what() << '\n';
    }
    return startedWrongly;
}
