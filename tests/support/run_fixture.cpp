#include "support/keeper.h"

#include <unistd.h>

#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

/// The set-up and the clean-up of a CTest run: `start NOTE` makes the run's folder and writes its path to the file
/// NOTE, `stop NOTE` takes it away. When CTest is interrupted the folder goes away by itself.
int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: zel_test_run start|stop NOTE\n";
        return 2;
    }
    const std::string_view action = arguments[1];
    const std::string note = arguments[2];
    try {
        std::string folder;
        std::getline(std::ifstream(note), folder);
        if (!folder.empty())
            zel::test::stopKeeper(folder);
        if (action == "start")
            std::ofstream(note) << zel::test::startKeeper(::getppid()).string() << std::endl;
        else
            std::ofstream(note).flush();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return 0;
}
