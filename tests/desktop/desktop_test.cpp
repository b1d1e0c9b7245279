#include "desktop/desktop_test.h"

#include "ado/recordset.h"
#include "core/start_up.h"
#include "desktop/control_view.h"
#include "forms/form_registry.h"

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

DesktopTest::DesktopTest(ado::EngineKind kind) : database_(kind, Content::Demo), folder_(makeFolder()) {
    (void)application();
    setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
    setenv("PGUSER", serverUser, 1);
    fs::create_directories(folder_ / "zel");
    std::ofstream ini(folder_ / "zel" / "zel.ini");
    ini << "[ZEL]\r\nIncident=2\r\n";
    if (kind == ado::EngineKind::Sqlite)
        ini << "DBSPath=" << database_.file().string() << "\r\n";
    else
        ini << "Server=" << database_.server() << "\r\nCatalog=" << database_.catalog() << "\r\n";
    ini.close();
    program_ = std::make_unique<desktop::DesktopProgram>((folder_ / "zel").string());
    if (!program_->start(kind == ado::EngineKind::Sqlite ? "False" : "True"))
        throw std::runtime_error("the program did not start");
    QCoreApplication::processEvents(); // the desktop's own news of windows that came up
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
        if (!box->isAncestorOf(QApplication::focusWidget())) {
            QApplication::setActiveWindow(box); // as the desktop does, sooner or later; keys would go astray
            return;
        }
        watch->stop();
        watch->deleteLater();
        action(*box);
    });
    watch->start();
}

void DesktopTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr)
        target = QApplication::focusWidget();
    QTest::keyClick(target == nullptr ? &window() : target, key, modifiers);
    QCoreApplication::processEvents();
}

void DesktopTest::keyIn(const QString& characters, Qt::KeyboardModifiers modifiers) {
    for (const QChar character : characters)
        QTest::keyClick(QApplication::focusWidget(), character.toLatin1(), modifiers);
    QCoreApplication::processEvents();
}

std::string DesktopTest::focus() {
    const QWidget* widget = QApplication::focusWidget();
    for (forms::Form* form : session().forms.forms()) {
        const desktop::FormView* view = program_->screens().viewOf(*form);
        if (widget == nullptr || view == nullptr)
            continue;
        for (const forms::Control* control : form->controls()) {
            const auto* shown = view->widget()->findChild<QWidget*>(desktop::widgetName(*control));
            if (shown != nullptr && (shown == widget || shown->focusProxy() == widget))
                return form->Name() + "." + control->fullName();
        }
    }
    return {};
}

std::vector<std::string> DesktopTest::rows(const std::string& statement) {
    ado::Recordset set;
    set.Open(ado::Sql::words(statement), database_.connection());
    std::vector<std::string> found;
    for (; !set.EOF_(); set.MoveNext()) {
        std::string row;
        for (std::size_t field = 0; field < set.fieldCount(); ++field)
            row += (field == 0 ? "" : "|") + ado::toText(set.value(static_cast<int>(field)));
        found.push_back(row);
    }
    return found;
}

} // namespace zel::test
