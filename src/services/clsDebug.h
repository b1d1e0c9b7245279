#pragma once

#include <string>
#include <string_view>

namespace zel::core {
class Session;
}

namespace zel::services {

/// The program's log: lines by category into a file beside the program, as the setting "Logging" asks. A log that
/// cannot be written never disturbs the program.
class clsDebug {
public:
    static constexpr int info = 0, event = 1, stat = 2, timer = 3, error = 4, other = 5, none = 6, extended = 7;
    static constexpr int noLog = 0, debugWindow = 1, file = 2, database = 4, extendedFile = 8;

    /// Reads the setting and begins the log under the name that belongs to the present time.
    explicit clsDebug(core::Session& session);

    [[nodiscard]] int LogMethod() const noexcept { return method_; }
    void setLogMethod(int code);
    [[nodiscard]] const std::string& Logfile() const noexcept { return name_; }
    /// An empty name is made from the program's and the time. A program on a network path logs nothing.
    void setLogfile(std::string name);

    /// Writes a line when its category is kept. The first line whose `bExtended` differs from the log's own switches
    /// extended output on and goes out; later ones that differ are dropped.
    void Prn(std::string_view text, int category = other, bool bWrite = true, bool bExtended = false);

private:
    void open();
    void writeLine(const std::string& line);

    core::Session& session_;
    std::string name_;
    int method_ = noLog;
    int highest_ = 0;
    bool extended_ = false;
    bool mixedSeen_ = false;
    bool open_ = false;
};

/// The log method that a setting stands for. Its last character is cut off before the comparison, so that "none" and
/// "file" mean a file, and only "none" with a character behind it means no log. That stays so.
[[nodiscard]] int logMethodOf(std::string_view setting);

} // namespace zel::services
