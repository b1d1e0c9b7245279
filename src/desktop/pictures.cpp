// Takes a picture of every screen of the program, for looking at them and for a machine without a display.
#include "core/frmAbout.h"
#include "core/frmConfirm.h"
#include "core/frmMain.h"
#include "core/start_up.h"
#include "desktop/desktop_program.h"
#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "desktop/ui_forms.h"
#include "forms/form_registry.h"
#include "forms/vs_index_tab.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QMainWindow>
#include <QStyleFactory>

#include <cstdio>

namespace {

using namespace zel;

struct Opening {
    const char* screen; ///< as OpenScreen knows it
    const char* form;
};

constexpr Opening openings[] = {
    {"Incidents", "frmIncidents"},    {"Accounts", "frmAccounts"},   {"AdminOffice", "frmAdminOffice"},
    {"Personnel", "frmPersonnel"},    {"Roster", "frmCrewRoster"},   {"Crews", "frmCrews"},
    {"Contracts", "frmContracts"},    {"Debits", "frmDeductions"},   {"Post Time", "frmPost"},
    {"Filter", "frmPersonnelFilter"}, {"Resources", "frmResources"}, {"SearchEquip", "frmEquipSearch"},
};
constexpr const char* dialogs[] = {"frmAbout", "frmConfirm", "frmServerSelect", "frmSecurity", "frmOfficePopup"};

void useDarkColours() {
    QPalette dark(QColor(0x2b, 0x2e, 0x31));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x22));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x7d, 0x8c));
    QApplication::setPalette(dark);
}

class Camera {
public:
    Camera(QDir folder, QString tail) : folder_(std::move(folder)), tail_(std::move(tail)) {}

    void take(QWidget& widget, const QString& name) {
        QCoreApplication::processEvents();
        const QString path = folder_.filePath(name + tail_ + QStringLiteral(".png"));
        if (!widget.grab().save(path))
            throw std::runtime_error("cannot write " + desktop::fromQt(path));
        std::printf("%s\n", qPrintable(path));
    }

private:
    QDir folder_;
    QString tail_;
};

/// Dialogs that are empty until somebody asks get something to say.
void prepare(forms::Form& form) {
    if (auto* confirm = dynamic_cast<core::frmConfirm*>(&form))
        confirm->fill({"Confirm Overwrite", "The posting overlaps with 07/04/2005 08:00 to 20:00.",
                       "Do you wish to overwrite it?", core::ConfirmIcon::Question, 2, true, false});
    if (auto* about = dynamic_cast<core::frmAbout*>(&form))
        about->showAbout();
}

void takeScreens(desktop::DesktopProgram& program, Camera& camera) {
    auto& session = program.session();
    auto* shell = session.forms.get<core::frmMain>("frmMain");
    QMainWindow& window = program.screens().shell()->window();
    for (const Opening& opening : openings) {
        if (!session.forms.has(opening.form) || !desktop::drawnForms().contains(QLatin1String(opening.form)))
            continue;
        shell->OpenScreen(opening.screen, true, 0);
        forms::Form* form = session.forms.loaded(opening.form);
        if (form == nullptr)
            continue;
        auto* tabs = [form]() -> forms::vsIndexTab* {
            for (forms::Control* control : form->controls()) {
                if (auto* strip = dynamic_cast<forms::vsIndexTab*>(control))
                    return strip;
            }
            return nullptr;
        }();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->NumTabs()); ++page) {
            if (tabs != nullptr)
                program.desk().act([&](forms::User& user) { return user.selectTab(*tabs, page); });
            camera.take(window, QStringLiteral("%1-%2").arg(QLatin1String(opening.form)).arg(page));
        }
    }
    for (const char* name : dialogs) {
        if (forms::Form* before = session.forms.loaded(name))
            before->Unload();
        forms::Form* form = session.forms.load(name);
        if (form == nullptr || program.screens().viewOf(*form) == nullptr)
            continue;
        prepare(*form);
        form->Show();
        camera.take(*program.screens().viewOf(*form)->widget(), QLatin1String(name));
        form->Unload();
    }
}

} // namespace

int main(int count, char** words) {
    QApplication application(count, words);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setWindowIcon(desktop::themeIcon(QStringLiteral("zel")));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption home(QStringLiteral("home"), QStringLiteral("The program folder."),
                                  QStringLiteral("folder"));
    const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("Where the pictures go."),
                                 QStringLiteral("folder"), QStringLiteral("out"));
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("In dark colours."));
    const QCommandLineOption tail(QStringLiteral("tail"), QStringLiteral("Behind each name."), QStringLiteral("text"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Of the window."), QStringLiteral("WxH"),
                                  QStringLiteral("1280x800"));
    parser.addOptions({home, out, dark, tail, size});
    parser.process(application);
    if (parser.isSet(dark))
        useDarkColours();
    try {
        QDir().mkpath(parser.value(out));
        desktop::DesktopProgram program(parser.value(home).toStdString());
        if (!program.start("False"))
            return 1;
        QMainWindow& window = program.screens().shell()->window();
        window.showNormal();
        window.resize(parser.value(size).section(QLatin1Char('x'), 0, 0).toInt(),
                      parser.value(size).section(QLatin1Char('x'), 1, 1).toInt());
        Camera camera(QDir(parser.value(out)), parser.value(tail));
        takeScreens(program, camera);
        core::CloseApp(program.session());
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "zel-pictures: %s\n", failure.what());
        return 2;
    }
}
