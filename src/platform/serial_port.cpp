#include "platform/serial_port.h"

#include "platform/files.h"

#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace zel::platform {

namespace {

struct LineSettings {
    speed_t speed = B9600;
    tcflag_t flags = 0;
};

std::vector<std::string_view> parts(std::string_view text) {
    std::vector<std::string_view> result;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos; comma = text.find(',')) {
        result.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    result.push_back(text);
    return result;
}

std::optional<speed_t> speedOf(std::string_view text) {
    struct Speed {
        std::string_view name;
        speed_t speed;
    };
    constexpr std::array<Speed, 8> speeds{{{"1200", B1200},
                                           {"2400", B2400},
                                           {"4800", B4800},
                                           {"9600", B9600},
                                           {"19200", B19200},
                                           {"38400", B38400},
                                           {"57600", B57600},
                                           {"115200", B115200}}};
    for (const Speed& known : speeds)
        if (known.name == text)
            return known.speed;
    return std::nullopt;
}

std::optional<tcflag_t> parityOf(std::string_view text) {
    if (text == "n" || text == "N")
        return 0;
    if (text == "e" || text == "E")
        return PARENB;
    if (text == "o" || text == "O")
        return PARENB | PARODD;
    return std::nullopt;
}

std::optional<LineSettings> parse(std::string_view text) {
    const auto fields = parts(text);
    if (fields.size() != 4 || (fields[2] != "7" && fields[2] != "8") || (fields[3] != "1" && fields[3] != "2"))
        return std::nullopt;
    const auto speed = speedOf(fields[0]);
    const auto parity = parityOf(fields[1]);
    if (!speed || !parity)
        return std::nullopt;
    const tcflag_t bits = fields[2] == "7" ? CS7 : CS8;
    const tcflag_t stop = fields[3] == "2" ? CSTOPB : 0;
    return LineSettings{*speed, *parity | bits | stop};
}

/// Bytes as they come, nothing echoed or translated.
bool apply(int device, const LineSettings& settings) {
    termios line{};
    if (::tcgetattr(device, &line) != 0)
        return false;
    ::cfmakeraw(&line);
    line.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB);
    line.c_cflag |= settings.flags | CLOCAL | CREAD;
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    return ::cfsetispeed(&line, settings.speed) == 0 && ::cfsetospeed(&line, settings.speed) == 0 &&
           ::tcsetattr(device, TCSANOW, &line) == 0;
}

} // namespace

DeviceSerialPort::~DeviceSerialPort() {
    DeviceSerialPort::close();
}

void DeviceSerialPort::open(int port, const std::string& settings) {
    close();
    const auto line = parse(settings);
    if (port < 1 || !line)
        throw FileError(errors::deviceFailure,
                        "Port " + std::to_string(port) + " cannot work with the settings " + settings);
    const std::string path = stem_ + std::to_string(port - 1);
    device_ = ::open(path.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (device_ < 0)
        throw FileError::ofSystem("Cannot open the port", path, errno);
    if (!apply(device_, *line)) {
        const int reason = errno;
        close();
        throw FileError::ofSystem("Cannot set up the port", path, reason);
    }
}

std::string DeviceSerialPort::read() {
    std::string text;
    std::array<char, 256> chunk{};
    while (device_ >= 0) {
        const ssize_t got = ::read(device_, chunk.data(), chunk.size());
        if (got <= 0)
            break;
        text.append(chunk.data(), static_cast<std::size_t>(got));
    }
    return text;
}

void DeviceSerialPort::close() noexcept {
    if (device_ >= 0)
        ::close(device_);
    device_ = -1;
}

} // namespace zel::platform
