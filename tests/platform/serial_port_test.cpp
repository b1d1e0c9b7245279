#include "platform/serial_port.h"

#include "platform/files.h"

#include "scratch_folder.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace zel::platform {
namespace {

/// A terminal pair stands for the cable: what is written to one end comes out of the port.
class SerialPortTest : public testing::Test {
protected:
    void SetUp() override {
        char name[128] = {};
        ASSERT_EQ(::openpty(&scanner, &cable, name, nullptr, nullptr), 0);
        path = name;
        number = std::stoi(path.substr(path.find_last_not_of("0123456789") + 1)) + 1;
        stem = path.substr(0, path.find_last_not_of("0123456789") + 1);
    }
    void TearDown() override {
        ::close(scanner);
        ::close(cable);
    }
    void send(const std::string& text) const {
        ASSERT_EQ(::write(scanner, text.data(), text.size()), ssize_t(text.size()));
    }
    static void waitFor(const SerialPort& port) {
        pollfd wait{port.descriptor(), POLLIN, 0};
        ASSERT_EQ(::poll(&wait, 1, 5000), 1);
    }

    int scanner = -1, cable = -1, number = 0;
    std::string path, stem;
};

TEST_F(SerialPortTest, ReadsWhatTheScannerSends) {
    DeviceSerialPort port(stem);
    port.open(number, "9600,n,8,1");
    ASSERT_TRUE(port.isOpen());
    EXPECT_EQ(port.read(), "");
    send("a\\b\\SMITH, JO\r\x01~");
    waitFor(port);
    EXPECT_EQ(port.read(), "a\\b\\SMITH, JO\r\x01~");
    EXPECT_EQ(port.read(), "");
}

TEST_F(SerialPortTest, SetsSpeedParityAndBits) {
    DeviceSerialPort port(stem);
    port.open(number, "19200,N,8,2");
    termios line{};
    ASSERT_EQ(::tcgetattr(cable, &line), 0);
    EXPECT_EQ(::cfgetispeed(&line), speed_t{B19200});
    EXPECT_NE(line.c_cflag & CSTOPB, 0U);
    EXPECT_EQ(line.c_lflag & (ICANON | ECHO), 0U);
}

TEST_F(SerialPortTest, AClosedPortGivesNothing) {
    DeviceSerialPort port(stem);
    port.open(number, "9600,n,8,1");
    port.close();
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(port.descriptor(), -1);
    EXPECT_EQ(port.read(), "");
}

TEST_F(SerialPortTest, SettingsThatMakeNoSenseAreRefused) {
    DeviceSerialPort port(stem);
    for (const char* settings :
         {"", "9600", "9600,n,8", "9601,n,8,1", "9600,x,8,1", "9600,n,9,1", "9600,n,8,3", "9600,n,8,1,1"})
        EXPECT_THROW(port.open(number, settings), FileError) << settings;
    EXPECT_THROW(port.open(0, "9600,n,8,1"), FileError);
    EXPECT_FALSE(port.isOpen());
}

TEST_F(SerialPortTest, APortThatIsNotThereIsFileNotFound) {
    DeviceSerialPort port("/dev/zel-no-such-port");
    try {
        port.open(1, "9600,n,8,1");
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), errors::fileNotFound);
    }
}

TEST(SerialPortOnAFile, WhatIsNoPortIsRefused) {
    const ScratchFolder folder;
    folder.put("port0", "~");
    DeviceSerialPort port(folder / "port");
    EXPECT_THROW(port.open(1, "9600,n,8,1"), FileError);
    EXPECT_FALSE(port.isOpen());
}

} // namespace
} // namespace zel::platform
