#include "desktop/desktop_test.h"

#include "core/start_up.h"

#include <QStyleFactory>
#include <QTimer>

#include <cstdlib>
#include <fstream>
#include <stdlib.h>

namespace zel::test {

namespace {

namespace fs = std::filesystem;

QApplication& application() {
    static int count = 1;
    static char name[] = "zel";
    static char* words[] = {name, nullptr};
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static QApplication* running = [] {
        auto* made = new QApplication(count, words); // lives until the process ends, as Qt wants it
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setQuitOnLastWindowClosed(false);
        return made;
    }();
    return *running;
}

fs::path makeFolder() {
    std::string pattern = (fs::temp_directory_path() / "zel-desktop-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder for the test program could be made");
    return pattern;
}

} // namespace

DesktopTest::DesktopTest() : folder_(makeFolder()) {
    (void)application();
    setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
    fs::create_directories(folder_ / "zel");
    fs::create_directories(folder_ / "database");
    fs::copy_file(ZEL_DEMO_DATABASE, folder_ / "database" / "Korvan.mdb");
    std::ofstream(folder_ / "zel" / "zel.ini")
        << "[ZEL]\r\nDBSPath=" << (folder_ / "database" / "Korvan.mdb").string() << "\r\nIncident=2\r\n";
    program_ = std::make_unique<desktop::DesktopProgram>((folder_ / "zel").string());
    if (!program_->start("False"))
        throw std::runtime_error("the program did not start");
    QApplication::setActiveWindow(&window());
}

DesktopTest::~DesktopTest() {
    core::CloseApp(program_->session());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    program_.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

core::frmMain& DesktopTest::shell() {
    return *session().forms.get<core::frmMain>("frmMain");
}

void DesktopTest::whenBoxOpens(std::function<void(QWidget& box)> action) {
    auto* watch = new QTimer(&window());
    watch->setInterval(1);
    QObject::connect(watch, &QTimer::timeout, watch, [watch, action = std::move(action)] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr)
            return;
        watch->stop();
        watch->deleteLater();
        action(*box);
    });
    watch->start();
}

} // namespace zel::test
