#pragma once

#include <string>

namespace zel::platform {

/// A serial port from which a card scanner sends text.
class SerialPort {
public:
    virtual ~SerialPort() = default;
    /// Port 1 and up; settings as "9600,n,8,1": speed, parity (n, e, o), data bits, stop bits. A port that is open is
    /// closed first. Throws FileError when the settings make no sense or the port cannot be opened.
    virtual void open(int port, const std::string& settings) = 0;
    [[nodiscard]] virtual bool isOpen() const noexcept = 0;
    /// What has come in since the last call, without waiting. Empty when nothing has or the port is closed.
    [[nodiscard]] virtual std::string read() = 0;
    virtual void close() noexcept = 0;
    /// Becomes readable when text has come in; -1 while closed.
    [[nodiscard]] virtual int descriptor() const noexcept = 0;
};

/// A port of this machine: port N is the device N-1 of the stem.
class DeviceSerialPort final : public SerialPort {
public:
    explicit DeviceSerialPort(std::string stem = "/dev/ttyS") : stem_(std::move(stem)) {}
    ~DeviceSerialPort() override;
    DeviceSerialPort(const DeviceSerialPort&) = delete;
    DeviceSerialPort& operator=(const DeviceSerialPort&) = delete;

    void open(int port, const std::string& settings) override;
    [[nodiscard]] bool isOpen() const noexcept override { return device_ >= 0; }
    [[nodiscard]] std::string read() override;
    void close() noexcept override;
    [[nodiscard]] int descriptor() const noexcept override { return device_; }

private:
    std::string stem_;
    int device_ = -1;
};

} // namespace zel::platform
